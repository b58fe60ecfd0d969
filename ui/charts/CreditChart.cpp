#include "ui/charts/CreditChart.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QtMath>
#include <algorithm>
#include <cmath>

#include "core/text/Amount.h"
#include "ui/charts/ChartParts.h"
#include "ui/parts/DialogParts.h"

namespace {

constexpr int kAmountLines = 6;  // about so many
constexpr int kMostHandMarks = 8;
constexpr double kCourseWidth = 1.5;
constexpr double kHeadLines = 1.8;  // in line heights: the reading above the plot
constexpr double kFootLines = 2.8;  // the numbers and the title below it
constexpr double kSideLines = 2.5;  // the title left of the amounts, with the spaces beside them
constexpr double kSmallestStep = 0.05;  // dollars, a nickel

// Whole cents, and never less than nothing of nothing: sums of nickels have a rounding error.
QString Amount(double dollars) {
    const double cents = std::round(dollars * 100) + 0.0;
    return QString::fromStdString(FormatDollars("%.2f", cents / 100));
}

}  // namespace

// What all parts of the picture are drawn on and measured by.
struct CreditChart::Sheet {
    QPainter& painter;
    ChartColours colours;
    QFontMetricsF font;
    QRectF plot;
    double line;  // height of a line of text
};

CreditChart::CreditChart(CreditHistory shown, QWidget* parent)
    : QWidget(parent), history(std::move(shown)), amounts(AmountAxis()) {
    setObjectName("creditChart");
    setAccessibleName(tr("Net gain of the session, hand by hand"));
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    if (history.Hands() > 0) setAccessibleDescription(TextOf(history.Stretches().size() - 1));
}

QSize CreditChart::sizeHint() const {
    const QFontMetrics font(this->font());
    return {font.averageCharWidth() * 90, font.lineSpacing() * 22};
}

QSize CreditChart::minimumSizeHint() const {
    const QFontMetrics font(this->font());
    return {font.averageCharWidth() * 40, font.lineSpacing() * 10};
}

// All that was ever won or lost, and 0, with whole steps below and above.
CreditChart::Axis CreditChart::AmountAxis() const {
    double low = 0;
    double high = 0;
    for (const auto& stretch : history.Stretches()) {
        low = std::min(low, stretch.lowest);
        high = std::max(high, stretch.highest);
    }
    const double step = RoundStep((high - low) / kAmountLines, kSmallestStep);
    Axis axis{std::floor(low / step) * step, std::ceil(high / step) * step, step};
    if (axis.to <= axis.from) axis.to = axis.from + step;
    return axis;
}

std::int64_t CreditChart::HandStep() const {
    const QFontMetricsF font(this->font());
    const double widest = font.horizontalAdvance(Grouped(history.Hands())) * 1.5;
    const double marks = std::clamp(Plot().width() / widest, 1.0, double{kMostHandMarks});
    return std::llround(RoundStep(static_cast<double>(history.Hands()) / marks, 1));
}

QRectF CreditChart::Plot() const {
    const QFontMetricsF font(this->font());
    const double line = font.lineSpacing();
    const double labels = std::max(font.horizontalAdvance(Amount(amounts.from)),
                                   font.horizontalAdvance(Amount(amounts.to)));
    const double lastNumber = font.horizontalAdvance(Grouped(history.Hands())) / 2;
    const QRectF all(0, 0, width(), height());
    return all.adjusted(labels + kSideLines * line, kHeadLines * line, -line - lastNumber,
                        -kFootLines * line);
}

double CreditChart::XOf(const QRectF& plot, double hand) const {
    const auto hands = static_cast<double>(std::max<std::int64_t>(history.Hands(), 1));
    return plot.left() + plot.width() * hand / hands;
}

double CreditChart::YOf(const QRectF& plot, double value) const {
    return plot.bottom() - plot.height() * (value - amounts.from) / (amounts.to - amounts.from);
}

double CreditChart::HandsUntil(std::size_t stretch) const {
    const auto hands = static_cast<std::int64_t>(stretch + 1) * history.HandsPerStretch();
    return static_cast<double>(std::min(hands, history.Hands()));
}

std::size_t CreditChart::StretchAt(double x) const {
    const QRectF plot = Plot();
    const double share = std::clamp((x - plot.left()) / std::max(plot.width(), 1.0), 0.0, 1.0);
    const double hand = std::max(1.0, std::round(share * static_cast<double>(history.Hands())));
    const auto stretch = (static_cast<std::int64_t>(hand) - 1) / history.HandsPerStretch();
    return std::min(static_cast<std::size_t>(stretch), history.Stretches().size() - 1);
}

QString CreditChart::TextOf(std::size_t stretch) const {
    const CreditHistory::Stretch& part = history.Stretches()[stretch];
    const auto first = static_cast<std::int64_t>(stretch) * history.HandsPerStretch() + 1;
    const auto last = static_cast<std::int64_t>(HandsUntil(stretch));
    const QString amount = Amount(part.last);
    if (first == last) return tr("Hand %1: %2").arg(Grouped(first), amount);
    return tr("Hands %1 to %2: %3, between %4 and %5")
        .arg(Grouped(first), Grouped(last), amount, Amount(part.lowest), Amount(part.highest));
}

void CreditChart::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(ColoursOf(palette()).text);
    if (history.Hands() == 0) {
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         tr("No hand has been played in this session."));
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    const QFontMetricsF letters(font());
    const Sheet sheet{painter, ColoursOf(palette()), letters, Plot(), letters.lineSpacing()};
    DrawAmounts(sheet);
    DrawHands(sheet);
    DrawCourse(sheet);
    DrawEven(sheet);
    DrawReading(sheet);
    if (!hasFocus()) return;
    painter.setPen(QPen(sheet.colours.text, 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5));
}

void CreditChart::DrawAmounts(const Sheet& sheet) const {
    const auto& [painter, colours, font, plot, line] = sheet;
    const int lines = qRound((amounts.to - amounts.from) / amounts.step);
    for (int i = 0; i <= lines; ++i) {
        const double value = amounts.from + i * amounts.step;
        const double y = YOf(plot, value);
        painter.setPen(QPen(colours.line, 1));
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(colours.text);
        painter.drawText(QRectF(0, y - line / 2, plot.left() - 0.5 * line, line),
                         Qt::AlignRight | Qt::AlignVCenter, Amount(value));
    }
    painter.save();
    painter.translate(0.9 * line, plot.center().y());
    painter.rotate(-90);
    painter.drawText(QRectF(-plot.height() / 2, -line / 2, plot.height(), line), Qt::AlignCenter,
                     tr("Net gain"));
    painter.restore();
}

void CreditChart::DrawHands(const Sheet& sheet) const {
    const auto& [painter, colours, font, plot, line] = sheet;
    const std::int64_t step = HandStep();
    for (std::int64_t hand = 0; hand <= history.Hands(); hand += step) {
        const double x = XOf(plot, static_cast<double>(hand));
        painter.setPen(QPen(colours.line, 1));
        painter.drawLine(QPointF(x, plot.bottom()), QPointF(x, plot.bottom() + 0.3 * line));
        painter.setPen(colours.text);
        const QString number = Grouped(hand);
        const double width = font.horizontalAdvance(number) + 2;
        painter.drawText(QRectF(x - width / 2, plot.bottom() + 0.35 * line, width, line),
                         Qt::AlignCenter, number);
    }
    painter.drawText(QRectF(plot.left(), plot.bottom() + 1.4 * line, plot.width(), line),
                     Qt::AlignCenter, tr("Hands played"));
}

// From hand to hand; where several share a column of pixels, an upright line of what was won in
// it. Single lines, since stroking one path of thousands of corners takes a quarter of a second.
void CreditChart::DrawCourse(const Sheet& sheet) const {
    const QRectF& plot = sheet.plot;
    const auto stretches = history.Stretches();
    QList<QLineF> lines;
    QPointF from(XOf(plot, 0), YOf(plot, 0));
    for (std::size_t i = 0; i < stretches.size();) {
        const double x = XOf(plot, HandsUntil(i));
        CreditHistory::Stretch column = stretches[i];
        for (++i; i < stretches.size() && XOf(plot, HandsUntil(i)) < x + 1; ++i) {
            column.lowest = std::min(column.lowest, stretches[i].lowest);
            column.highest = std::max(column.highest, stretches[i].highest);
            column.last = stretches[i].last;
        }
        const QPointF to(x, YOf(plot, column.last));
        lines.append(QLineF(from, to));
        if (column.lowest < column.highest) {
            lines.append(QLineF(x, YOf(plot, column.lowest), x, YOf(plot, column.highest)));
        }
        from = to;
    }
    sheet.painter.setPen(QPen(sheet.colours.first, kCourseWidth, Qt::SolidLine, Qt::RoundCap));
    sheet.painter.drawLines(lines);
}

void CreditChart::DrawEven(const Sheet& sheet) const {
    const auto& [painter, colours, font, plot, line] = sheet;
    const double y = YOf(plot, 0);
    const QPen dashes(colours.second, 1.4, Qt::DashLine);
    painter.setPen(dashes);
    painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
    const QRectF sample(plot.left(), plot.bottom() + 1.4 * line, 2 * line, line);
    painter.drawLine(QPointF(sample.left(), sample.center().y()),
                     QPointF(sample.right(), sample.center().y()));
    painter.setPen(colours.text);
    painter.drawText(sample.translated(2.5 * line, 0).adjusted(0, 0, plot.width(), 0),
                     Qt::AlignLeft | Qt::AlignVCenter, tr("Even"));
}

// A mark on the hand that is read, and what is said of it in words above.
void CreditChart::DrawReading(const Sheet& sheet) const {
    const auto& [painter, colours, font, plot, line] = sheet;
    const auto stretches = history.Stretches();
    const std::size_t at = read.value_or(stretches.size() - 1);
    painter.setPen(colours.text);
    const QRectF above(0.5 * line, 0.4 * line, plot.right() - 0.5 * line, line);
    painter.drawText(above, Qt::AlignRight | Qt::AlignVCenter,
                     font.elidedText(TextOf(at), Qt::ElideRight, above.width()));
    const QPointF mark(XOf(plot, HandsUntil(at)), YOf(plot, stretches[at].last));
    if (read) painter.drawLine(QPointF(mark.x(), plot.top()), QPointF(mark.x(), plot.bottom()));
    painter.setBrush(colours.first);
    painter.drawEllipse(mark, 0.25 * line, 0.25 * line);
}

void CreditChart::Read(std::optional<std::size_t> stretch) {
    if (read == stretch) return;
    read = stretch;
    update();
}

void CreditChart::mouseMoveEvent(QMouseEvent* event) {
    if (history.Hands() == 0) return;
    const std::size_t stretch = StretchAt(event->position().x());
    Read(stretch);
    QToolTip::showText(event->globalPosition().toPoint(), TextOf(stretch), this);
}

void CreditChart::leaveEvent(QEvent* /*event*/) { Read(std::nullopt); }

void CreditChart::focusOutEvent(QFocusEvent* event) {
    Read(std::nullopt);
    QWidget::focusOutEvent(event);
}

void CreditChart::keyPressEvent(QKeyEvent* event) {
    if (history.Hands() == 0) return QWidget::keyPressEvent(event);
    const auto last = static_cast<int>(history.Stretches().size()) - 1;
    const int page = std::max(last / 20, 1);
    const std::pair<int, int> steps[] = {{Qt::Key_Left, -1},      {Qt::Key_Right, 1},
                                         {Qt::Key_PageUp, -page}, {Qt::Key_PageDown, page},
                                         {Qt::Key_Home, -last},   {Qt::Key_End, last}};
    const auto* step = std::ranges::find(steps, event->key(), &std::pair<int, int>::first);
    if (step == std::end(steps)) return QWidget::keyPressEvent(event);
    const int at = read ? static_cast<int>(*read) : last;
    Read(static_cast<std::size_t>(std::clamp(at + step->second, 0, last)));
}
