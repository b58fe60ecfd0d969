#include "ui/charts/CreditChart.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "core/text/Amount.h"
#include "ui/parts/DialogParts.h"

namespace {

constexpr int kAmountLines = 6;  // about so many
constexpr int kMostHandMarks = 8;
constexpr double kCourseWidth = 1.5;
constexpr double kSmallestStep = 0.05;  // dollars, a nickel
constexpr double kBandShade = 0.13;     // of each of the two, one over the other
constexpr double kMostDeviations = 2;

// In line heights.
constexpr double kAboveLegend = 0.3;
constexpr double kBelowLegend = 0.8;
constexpr double kFoot = 2.8;  // the numbers of the hands and the title of their axis
constexpr double kNote = 2.3;  // two lines below them
constexpr double kSide = 2.5;  // the title left of the amounts, with the spaces beside them

// Whole cents, and never less than nothing of nothing: sums of nickels have a rounding error.
QString Amount(double dollars) {
    const double cents = std::round(dollars * 100) + 0.0;
    return QString::fromStdString(FormatDollars("%.2f", cents / 100));
}

}  // namespace

// What the parts of the picture are drawn on.
struct CreditChart::Canvas {
    QPainter& painter;
    const ChartSheet& sheet;
    QRectF plot;
    double line;  // height of a line of text
};

CreditChart::CreditChart(QWidget* parent)
    : Chart("creditChart", tr("Net gain of the session, hand by hand"), parent) {
    FiguresChanged();
}

void CreditChart::ShowSession(CreditHistory shown) {
    history = std::move(shown);
    ShowExpected(std::nullopt, {});
}

void CreditChart::ShowExpected(const std::optional<ExpectedPlay>& shown, const QString& says,
                               std::vector<BandPoint> exact) {
    expected = shown;
    band = std::move(exact);
    note = says;
    amounts = AmountAxis();
    FiguresChanged();
}

QSizeF CreditChart::SizeFor(const ChartSheet& sheet) const {
    return {sheet.Character() * 90, sheet.Line() * 25};
}

QSize CreditChart::minimumSizeHint() const {
    const QFontMetrics font(this->font());
    return {font.averageCharWidth() * 40, font.lineSpacing() * 14};
}

// All that was ever won or lost, what is expected in the end, and 0, with whole steps below and
// above.
CreditChart::Axis CreditChart::AmountAxis() const {
    double low = 0;
    double high = 0;
    for (const auto& stretch : history.Stretches()) {
        low = std::min(low, stretch.lowest);
        high = std::max(high, stretch.highest);
    }
    for (const BandPoint& point : band) {
        low = std::min(low, point.low);
        high = std::max(high, point.high);
    }
    for (int stretch = 0; expected && band.empty() && stretch < Points(); ++stretch) {
        const auto [mean, deviation] = ExpectedAt(stretch);
        low = std::min(low, mean - kMostDeviations * deviation);
        high = std::max(high, mean + kMostDeviations * deviation);
    }
    const double step = RoundStep((high - low) / kAmountLines, kSmallestStep);
    Axis axis{std::floor(low / step) * step, std::ceil(high / step) * step, step};
    if (axis.to <= axis.from) axis.to = axis.from + step;
    return axis;
}

ExpectedGain CreditChart::ExpectedAt(int stretch) const {
    return GainOf(history.WagersUntil()[static_cast<std::size_t>(stretch)], *expected);
}

// What is known for just the hands at the end of the stretch; nullptr for nothing.
const BandPoint* CreditChart::BandAt(int stretch) const {
    const auto found = std::ranges::find(band, LastHandOf(stretch), &BandPoint::hands);
    return found == band.end() ? nullptr : &*found;
}

std::int64_t CreditChart::HandStep(const ChartSheet& sheet, const QRectF& plot) const {
    const double widest = sheet.WidthOf(Grouped(history.Hands())) * 1.5;
    const double marks = std::clamp(plot.width() / widest, 1.0, double{kMostHandMarks});
    return std::llround(RoundStep(static_cast<double>(history.Hands()) / marks, 1));
}

QRectF CreditChart::Plot(const ChartSheet& sheet) const {
    const double line = sheet.Line();
    const double labels =
        std::max(sheet.WidthOf(Amount(amounts.from)), sheet.WidthOf(Amount(amounts.to)));
    const double lastNumber = sheet.WidthOf(Grouped(history.Hands())) / 2;
    const double legend = LegendHeight(sheet, sheet.area.width() - 2 * line, LegendTexts());
    const double foot = kFoot + (note.isEmpty() ? 0 : kNote);
    return sheet.area.adjusted(labels + kSide * line, legend + (kAboveLegend + kBelowLegend) * line,
                               -line - lastNumber, -foot * line);
}

double CreditChart::XOf(const QRectF& plot, double hand) const {
    const auto hands = static_cast<double>(std::max<std::int64_t>(history.Hands(), 1));
    return plot.left() + plot.width() * hand / hands;
}

double CreditChart::YOf(const QRectF& plot, double value) const {
    return plot.bottom() - plot.height() * (value - amounts.from) / (amounts.to - amounts.from);
}

std::int64_t CreditChart::FirstHandOf(int stretch) const {
    return stretch * history.HandsPerStretch() + 1;
}

std::int64_t CreditChart::LastHandOf(int stretch) const {
    return std::min((stretch + 1) * history.HandsPerStretch(), history.Hands());
}

int CreditChart::PointAt(QPoint place) const {
    if (history.Hands() == 0) return -1;
    const QRectF plot = Plot();
    const double share =
        std::clamp((place.x() - plot.left()) / std::max(plot.width(), 1.0), 0.0, 1.0);
    const double hand = std::max(1.0, std::round(share * static_cast<double>(history.Hands())));
    const auto stretch = (static_cast<std::int64_t>(hand) - 1) / history.HandsPerStretch();
    return std::min(static_cast<int>(stretch), Points() - 1);
}

QRect CreditChart::PlaceOf(int point) const {
    const QRectF plot = Plot();
    const double left = XOf(plot, static_cast<double>(FirstHandOf(point)) - 0.5);
    const double right = XOf(plot, static_cast<double>(LastHandOf(point)) + 0.5);
    return QRectF(left, plot.top(), right - left, plot.height()).toAlignedRect();
}

std::optional<int> CreditChart::PointAtRest() const {
    return Points() > 0 ? std::optional(Points() - 1) : std::nullopt;
}

QString CreditChart::TextOf(int point) const {
    const auto& part = history.Stretches()[static_cast<std::size_t>(point)];
    const std::int64_t first = FirstHandOf(point);
    const std::int64_t last = LastHandOf(point);
    QString text = tr("Hand %1: %2").arg(Grouped(last), Amount(part.last));
    if (first < last) {
        text = tr("Hands %1 to %2: %3, between %4 and %5")
                   .arg(Grouped(first), Grouped(last), Amount(part.last), Amount(part.lowest),
                        Amount(part.highest));
    }
    if (!expected) return text;
    const auto [mean, deviation] = ExpectedAt(point);
    text = tr("%1; expected %2, give or take %3").arg(text, Amount(mean), Amount(deviation));
    const BandPoint* exact = BandAt(point);
    if (!exact) return text;
    return tr("%1; nine of ten lie between %2 and %3")
        .arg(text, Amount(exact->low), Amount(exact->high));
}

QString CreditChart::Facts() const {
    if (Points() == 0) return tr("No hand has been played in this session.");
    const auto stretches = history.Stretches();
    const auto lowest = std::ranges::min_element(stretches, {}, &CreditHistory::Stretch::lowest);
    const auto highest = std::ranges::max_element(stretches, {}, &CreditHistory::Stretch::highest);
    QStringList facts{
        TextOf(Points() - 1),
        tr("Lowest %1, highest %2").arg(Amount(lowest->lowest), Amount(highest->highest))};
    if (expected) {
        const auto [mean, deviation] = ExpectedAt(Points() - 1);
        const double apart = deviation > 0 ? (stretches.back().last - mean) / deviation : 0;
        facts << tr("%1 standard deviations %2 what is expected")
                     .arg(std::abs(apart), 0, 'f', 1)
                     .arg(apart < 0 ? tr("below") : tr("above"));
    }
    if (!note.isEmpty()) facts << note;
    return facts.join('\n');
}

void CreditChart::Draw(QPainter& painter, const ChartSheet& sheet) const {
    painter.setFont(sheet.font);
    if (history.Hands() == 0) {
        painter.drawText(sheet.area, Qt::AlignCenter | Qt::TextWordWrap,
                         tr("No hand has been played in this session."));
        return;
    }
    const Canvas canvas{painter, sheet, Plot(sheet), sheet.Line()};
    if (canvas.plot.width() < 1 || canvas.plot.height() < 1) return;
    if (expected) DrawExpected(canvas);
    DrawAmounts(canvas);
    DrawHands(canvas);
    DrawCourse(canvas);
    DrawKey(canvas);
    DrawMark(canvas);
}

void CreditChart::DrawAmounts(const Canvas& canvas) const {
    const auto& [painter, sheet, plot, line] = canvas;
    const int lines = qRound((amounts.to - amounts.from) / amounts.step);
    for (int i = 0; i <= lines; ++i) {
        const double value = amounts.from + i * amounts.step;
        const double y = OnPixel(YOf(plot, value));
        painter.setPen(QPen(sheet.colours.line, 1));
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(sheet.colours.text);
        painter.drawText(QRectF(sheet.area.left(), y - line / 2,
                                plot.left() - sheet.area.left() - 0.5 * line, line),
                         Qt::AlignRight | Qt::AlignVCenter, Amount(value));
    }
    const double even = OnPixel(YOf(plot, 0));
    painter.setPen(QPen(sheet.colours.text, 1));
    painter.drawLine(QPointF(plot.left(), even), QPointF(plot.right(), even));
    painter.save();
    painter.translate(sheet.area.left() + 0.9 * line, plot.center().y());
    painter.rotate(-90);
    painter.drawText(QRectF(-plot.height() / 2, -line / 2, plot.height(), line), Qt::AlignCenter,
                     tr("Net gain, dollars"));
    painter.restore();
}

void CreditChart::DrawHands(const Canvas& canvas) const {
    const auto& [painter, sheet, plot, line] = canvas;
    const std::int64_t step = HandStep(sheet, plot);
    for (std::int64_t hand = 0; hand <= history.Hands(); hand += step) {
        const double x = OnPixel(XOf(plot, static_cast<double>(hand)));
        painter.setPen(QPen(sheet.colours.line, 1));
        painter.drawLine(QPointF(x, plot.bottom()), QPointF(x, plot.bottom() + 0.3 * line));
        painter.setPen(sheet.colours.text);
        const QString number = Grouped(hand);
        const double width = sheet.WidthOf(number) + 2;
        painter.drawText(QRectF(x - width / 2, plot.bottom() + 0.35 * line, width, line),
                         Qt::AlignCenter, number);
    }
    const double top = plot.bottom() + 1.4 * line;
    painter.drawText(QRectF(plot.left(), top, plot.width(), line), Qt::AlignCenter,
                     tr("Hands played"));
    const QRectF below(sheet.area.left() + line, top + 1.3 * line, sheet.area.width() - 2 * line,
                       2 * line);
    painter.drawText(below, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, note);
}

// The last stretch of each column of pixels.
QList<int> CreditChart::Columns(const QRectF& plot) const {
    QList<int> columns;
    double right = plot.left() - 1;
    for (int stretch = 0; stretch < Points(); ++stretch) {
        const double x = XOf(plot, static_cast<double>(LastHandOf(stretch)));
        if (!columns.isEmpty() && x < right + 1) {
            columns.last() = stretch;
        } else {
            columns.append(stretch);
            right = x;
        }
    }
    return columns;
}

void CreditChart::DrawExpected(const Canvas& canvas) const {
    const QColor& colour = canvas.sheet.colours.second;
    if (band.empty()) {
        DrawDeviations(canvas, 2, QPen(colour, 0.8, Qt::DotLine));
        DrawDeviations(canvas, 1, QPen(colour, 0.8));
    } else {
        DrawExactBand(canvas);
    }
    QPolygonF mean{QPointF(XOf(canvas.plot, 0), YOf(canvas.plot, 0))};
    for (const int stretch : Columns(canvas.plot)) {
        mean << QPointF(XOf(canvas.plot, static_cast<double>(LastHandOf(stretch))),
                        YOf(canvas.plot, ExpectedAt(stretch).mean));
    }
    canvas.painter.setPen(QPen(colour, 1.6, Qt::DashLine));
    canvas.painter.drawPolyline(mean);
}

void CreditChart::DrawDeviations(const Canvas& canvas, double deviations, const QPen& edge) const {
    const QRectF& plot = canvas.plot;
    QPolygonF above{QPointF(XOf(plot, 0), YOf(plot, 0))};
    QPolygonF below = above;
    for (const int stretch : Columns(plot)) {
        const auto [mean, deviation] = ExpectedAt(stretch);
        const double x = XOf(plot, static_cast<double>(LastHandOf(stretch)));
        above << QPointF(x, YOf(plot, mean + deviations * deviation));
        below << QPointF(x, YOf(plot, mean - deviations * deviation));
    }
    DrawBand(canvas, above, below, edge);
}

void CreditChart::DrawExactBand(const Canvas& canvas) const {
    const QRectF& plot = canvas.plot;
    QPolygonF above{QPointF(XOf(plot, 0), YOf(plot, 0))};
    QPolygonF below = above;
    for (const BandPoint& point : band) {
        const double x = XOf(plot, static_cast<double>(point.hands));
        above << QPointF(x, YOf(plot, point.high));
        below << QPointF(x, YOf(plot, point.low));
    }
    DrawBand(canvas, above, below, QPen(canvas.sheet.colours.second, 0.8));
}

void CreditChart::DrawBand(const Canvas& canvas, const QPolygonF& above, const QPolygonF& below,
                           const QPen& edge) const {
    QPainter& painter = canvas.painter;
    QPolygonF area = above;
    std::copy(below.crbegin(), below.crend(), std::back_inserter(area));
    QColor shade = edge.color();
    shade.setAlphaF(static_cast<float>(kBandShade));
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawPolygon(area);
    painter.setPen(edge);
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(above);
    painter.drawPolyline(below);
}

// From hand to hand; where several share a column of pixels, an upright line of what was won in
// it. Single lines, since stroking one path of thousands of corners takes a quarter of a second.
void CreditChart::DrawCourse(const Canvas& canvas) const {
    const QRectF& plot = canvas.plot;
    const auto stretches = history.Stretches();
    QList<QLineF> lines;
    QPointF from(XOf(plot, 0), YOf(plot, 0));
    int next = 0;
    for (const int last : Columns(plot)) {
        CreditHistory::Stretch column = stretches[static_cast<std::size_t>(last)];
        for (; next <= last; ++next) {
            const auto& part = stretches[static_cast<std::size_t>(next)];
            column.lowest = std::min(column.lowest, part.lowest);
            column.highest = std::max(column.highest, part.highest);
        }
        const double x = XOf(plot, static_cast<double>(LastHandOf(last)));
        const QPointF to(x, YOf(plot, column.last));
        lines.append(QLineF(from, to));
        if (column.lowest < column.highest) {
            lines.append(QLineF(x, YOf(plot, column.lowest), x, YOf(plot, column.highest)));
        }
        from = to;
    }
    canvas.painter.setPen(
        QPen(canvas.sheet.colours.first, kCourseWidth, Qt::SolidLine, Qt::RoundCap));
    canvas.painter.drawLines(lines);
}

QStringList CreditChart::LegendTexts() const {
    QStringList texts{tr("Net gain"), tr("Even")};
    if (!expected) return texts;
    texts << tr("Expected");
    if (!band.empty()) return texts << tr("Nine of ten sessions (5 to 95 %)");
    return texts << tr("One standard deviation") << tr("Two standard deviations");
}

void CreditChart::DrawKey(const Canvas& canvas) const {
    QPainter& painter = canvas.painter;
    const ChartColours& colours = canvas.sheet.colours;
    const auto stroke = [&](const QPen& pen) {
        return [&painter, pen](const QRectF& place) {
            painter.setPen(pen);
            painter.drawLine(QPointF(place.left(), place.center().y()),
                             QPointF(place.right(), place.center().y()));
        };
    };
    const auto shade = [&](float covers, Qt::PenStyle edge) {
        QColor fill = colours.second;
        fill.setAlphaF(covers);
        return [&painter, fill, pen = QPen(colours.second, 0.8, edge)](const QRectF& place) {
            painter.setPen(pen);
            painter.setBrush(fill);
            painter.drawRect(place.adjusted(0, 0.2 * place.height(), 0, -0.2 * place.height()));
        };
    };
    const auto alpha = static_cast<float>(kBandShade);
    const std::function<void(const QRectF&)> samples[] = {
        stroke(QPen(colours.first, kCourseWidth)), stroke(QPen(colours.text, 1)),
        stroke(QPen(colours.second, 1.6, Qt::DashLine)),
        shade(band.empty() ? 2 * alpha : alpha, Qt::SolidLine), shade(alpha, Qt::DotLine)};
    QList<LegendItem> items;
    for (const QString& text : LegendTexts()) items.append({text, samples[items.size()]});
    const double line = canvas.line;
    DrawLegend(painter, canvas.sheet,
               canvas.sheet.area.adjusted(line, kAboveLegend * line, -line, 0), items);
}

// On the hand that is read, or the last one.
void CreditChart::DrawMark(const Canvas& canvas) const {
    const auto& [painter, sheet, plot, line] = canvas;
    const int at = sheet.read.value_or(Points() - 1);
    const QPointF mark(XOf(plot, static_cast<double>(LastHandOf(at))),
                       YOf(plot, history.Stretches()[static_cast<std::size_t>(at)].last));
    painter.setPen(sheet.colours.text);
    if (sheet.read) {
        painter.drawLine(QPointF(mark.x(), plot.top()), QPointF(mark.x(), plot.bottom()));
    }
    painter.setBrush(sheet.colours.first);
    painter.drawEllipse(mark, 0.25 * line, 0.25 * line);
}

void CreditChart::mouseMoveEvent(QMouseEvent* event) {
    Chart::mouseMoveEvent(event);
    const int point = PointAt(event->position().toPoint());
    if (point >= 0) QToolTip::showText(event->globalPosition().toPoint(), TextOf(point), this);
}
