#include "ui/charts/LawChart.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "core/text/Amount.h"

namespace {

constexpr int kMostMarks = 9;
constexpr int kLevels = 4;  // of the axis of chances, about

// In line heights.
constexpr double kAbove = 0.3;
constexpr double kBelowLegend = 0.8;
constexpr double kFoot = 2.8;
constexpr double kSide = 2.5;

QString Amount(double dollars) {
    return QString::fromStdString(FormatDollars("%.2f", std::round(dollars * 100) / 100 + 0.0));
}

QString Percent(double share) {
    const double percent = share * 100;
    if (percent > 0 && percent < 0.005) return QObject::tr("< 0.01 %");
    return QObject::tr("%1 %").arg(percent, 0, 'f', 2);
}

}  // namespace

struct LawChart::Canvas {
    QPainter& painter;
    const ChartSheet& sheet;
    QRectF plot;
    double line;  // height of a line of text
};

LawChart::LawChart(const char* name, const QString& title, QWidget* parent)
    : PictureChart(name, title, parent) {
    FiguresChanged();
}

void LawChart::ShowLaw(std::vector<LawBar> shown, std::optional<double> ownResult,
                       const QString& says, const QString& instead) {
    bars = std::move(shown);
    own = ownResult;
    ownText = says;
    note = instead;
    FiguresChanged();
}

QSizeF LawChart::SizeFor(const ChartSheet& sheet) const {
    return {sheet.Character() * 80, sheet.Line() * 18};
}

QSize LawChart::minimumSizeHint() const {
    const QFontMetrics font(this->font());
    return {font.averageCharWidth() * 40, font.lineSpacing() * 9};
}

QString LawChart::TextOf(int point) const {
    const LawBar& bar = bars[static_cast<std::size_t>(point)];
    return tr("From %1 to below %2: %3 of all; %4 bring less")
        .arg(Amount(bar.from), Amount(bar.to), Percent(bar.share), Percent(bar.below));
}

QString LawChart::Facts() const {
    if (bars.empty()) return note;
    const auto likeliest = std::ranges::max_element(bars, {}, &LawBar::share);
    QStringList facts{TextOf(static_cast<int>(likeliest - bars.begin()))};
    if (own) facts << ownText;
    return facts.join('\n');
}

QRectF LawChart::Plot(const ChartSheet& sheet) const {
    const double line = sheet.Line();
    const double labels = sheet.WidthOf(Percent(1));
    const double legend = LegendHeight(sheet, sheet.area.width() - 2 * line, LegendTexts());
    return sheet.area.adjusted(labels + kSide * line, legend + (kAbove + kBelowLegend) * line,
                               -2.5 * line, -kFoot * line);
}

double LawChart::XOf(const QRectF& plot, double dollars) const {
    const double from = bars.front().from;
    return plot.left() + plot.width() * (dollars - from) / (bars.back().to - from);
}

double LawChart::HighestShare() const {
    double highest = 1e-6;
    for (const LawBar& bar : bars) highest = std::max(highest, bar.share);
    return highest;
}

int LawChart::PointAt(QPoint place) const {
    if (bars.empty()) return -1;
    const QRectF plot = Plot(Screen());
    const double share = (place.x() - plot.left()) / std::max(plot.width(), 1.0);
    return std::clamp(static_cast<int>(std::floor(share * Points())), 0, Points() - 1);
}

QRect LawChart::PlaceOf(int point) const {
    const QRectF plot = Plot(Screen());
    const LawBar& bar = bars[static_cast<std::size_t>(point)];
    const double left = XOf(plot, bar.from);
    return QRectF(left, plot.top(), XOf(plot, bar.to) - left, plot.height()).toAlignedRect();
}

void LawChart::Draw(QPainter& painter, const ChartSheet& sheet) const {
    painter.setFont(sheet.font);
    if (bars.empty()) {
        painter.drawText(sheet.area, Qt::AlignCenter | Qt::TextWordWrap, note);
        return;
    }
    const Canvas canvas{painter, sheet, Plot(sheet), sheet.Line()};
    if (canvas.plot.width() < 1 || canvas.plot.height() < 1) return;
    DrawChances(canvas);
    DrawAmounts(canvas);
    DrawBars(canvas);
    DrawOwn(canvas);
    DrawKey(canvas);
}

void LawChart::DrawChances(const Canvas& canvas) const {
    const auto& [painter, sheet, plot, line] = canvas;
    const double highest = HighestShare();
    const double step = RoundStep(highest / kLevels);
    for (int i = 0; i * step <= highest * (1 + 1e-9); ++i) {
        const double y = OnPixel(plot.bottom() - plot.height() * i * step / highest);
        painter.setPen(QPen(sheet.colours.line, 1));
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(sheet.colours.text);
        painter.drawText(QRectF(sheet.area.left(), y - line / 2,
                                plot.left() - sheet.area.left() - 0.5 * line, line),
                         Qt::AlignRight | Qt::AlignVCenter, Percent(i * step));
    }
    painter.save();
    painter.translate(sheet.area.left() + 0.9 * line, plot.center().y());
    painter.rotate(-90);
    painter.drawText(QRectF(-plot.height() / 2, -line / 2, plot.height(), line),
                     Qt::AlignCenter | Qt::TextDontClip, tr("Share of all"));
    painter.restore();
}

void LawChart::DrawAmounts(const Canvas& canvas) const {
    const auto& [painter, sheet, plot, line] = canvas;
    const double from = bars.front().from;
    const double to = bars.back().to;
    const double widest = std::max(sheet.WidthOf(Amount(from)), sheet.WidthOf(Amount(to))) * 1.3;
    const double marks = std::clamp(plot.width() / widest, 1.0, double{kMostMarks});
    const double step = RoundStep((to - from) / marks, bars.front().to - from);
    for (double mark = std::ceil(from / step); mark * step <= to * (1 + 1e-9); ++mark) {
        const double x = OnPixel(XOf(plot, mark * step));
        if (x > plot.right() + 1) break;
        painter.setPen(QPen(sheet.colours.line, 1));
        painter.drawLine(QPointF(x, plot.bottom()), QPointF(x, plot.bottom() + 0.3 * line));
        painter.setPen(sheet.colours.text);
        painter.drawText(QRectF(x - widest / 2, plot.bottom() + 0.35 * line, widest, line),
                         Qt::AlignCenter, Amount(mark * step));
    }
    painter.drawText(QRectF(plot.left(), plot.bottom() + 1.4 * line, plot.width(), line),
                     Qt::AlignCenter | Qt::TextDontClip, tr("Result, dollars"));
}

void LawChart::DrawBars(const Canvas& canvas) const {
    const auto& [painter, sheet, plot, line] = canvas;
    const double highest = HighestShare();
    for (int i = 0; i < Points(); ++i) {
        const LawBar& bar = bars[static_cast<std::size_t>(i)];
        const double left = XOf(plot, bar.from);
        const double right = XOf(plot, bar.to);
        const double gap = right - left > 4 ? 1 : 0;
        const QRectF place(left + gap / 2, plot.bottom() - plot.height() * bar.share / highest,
                           right - left - gap, plot.height() * bar.share / highest);
        const bool wins = bar.from > -1e-9;
        if (place.height() >= 0.5) {
            DrawBar(painter, place, wins ? sheet.colours.second : sheet.colours.first, wins);
        }
        if (sheet.read == i) {
            DrawDottedFrame(painter, QRectF(left, plot.top(), right - left, plot.height()),
                            sheet.colours.text);
        }
    }
    painter.setPen(QPen(sheet.colours.text, 1));
    painter.drawLine(QPointF(plot.left(), OnPixel(plot.bottom())),
                     QPointF(plot.right(), OnPixel(plot.bottom())));
}

bool LawChart::OwnIsShown() const {
    return own && !bars.empty() && *own >= bars.front().from && *own <= bars.back().to;
}

void LawChart::DrawOwn(const Canvas& canvas) const {
    const auto& [painter, sheet, plot, line] = canvas;
    if (!OwnIsShown()) return;
    const double x = XOf(plot, *own);
    painter.setPen(QPen(sheet.colours.text, 2));
    painter.drawLine(QPointF(x, plot.top() - 0.3 * line), QPointF(x, plot.bottom()));
    painter.setBrush(sheet.colours.text);
    painter.drawEllipse(QPointF(x, plot.top() - 0.3 * line), 0.2 * line, 0.2 * line);
}

QStringList LawChart::LegendTexts() const {
    QStringList texts{tr("Behind"), tr("Even or ahead")};
    if (own && !bars.empty())
        texts << (OwnIsShown() ? ownText : tr("%1, far outside").arg(ownText));
    return texts;
}

void LawChart::DrawKey(const Canvas& canvas) const {
    QPainter& painter = canvas.painter;
    const ChartColours& colours = canvas.sheet.colours;
    const double line = canvas.line;
    const auto sample = [&](const QColor& colour, bool hatched) {
        return [&painter, line, colour, hatched](const QRectF& place) {
            DrawBar(painter, place.adjusted(0, 0.1 * line, 0, -0.1 * line), colour, hatched);
        };
    };
    const auto stroke = [&painter, colour = colours.text](const QRectF& place) {
        painter.setPen(QPen(colour, 2));
        painter.drawLine(QPointF(place.center().x(), place.top()),
                         QPointF(place.center().x(), place.bottom()));
    };
    const std::function<void(const QRectF&)> samples[] = {sample(colours.first, false),
                                                          sample(colours.second, true), stroke};
    QList<LegendItem> items;
    for (const QString& text : LegendTexts()) items.append({text, samples[items.size()]});
    DrawLegend(painter, canvas.sheet, canvas.sheet.area.adjusted(line, kAbove * line, -line, 0),
               items);
}
