#include "ui/charts/MeterChart.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/parts/DialogParts.h"

namespace {

constexpr int kSteps = 40;  // points are so many and one
constexpr double kEven = 100;
constexpr int kPercentLines = 5;  // about so many
constexpr int kMeterMarks = 6;
constexpr double kFoot = 2.8;  // in line heights: the meters and the title of their axis
constexpr double kDot = 0.25;

QString Percent(double percent) { return MeterChart::tr("%1 %").arg(percent, 0, 'f', 3); }

}  // namespace

MeterChart::MeterChart(QWidget* parent)
    : PictureChart("meterChart", tr("Return of the game against the meter"), parent) {
    FiguresChanged();
}

void MeterChart::SetCurve(Curve shown) {
    curve = std::move(shown);
    FiguresChanged();
}

void MeterChart::SetMeter(double coins) {
    meter = coins;
    FiguresChanged();
}

int MeterChart::Points() const { return curve.last > curve.first ? kSteps + 1 : 0; }

double MeterChart::CoinsOf(int point) const {
    return std::round(curve.first + (curve.last - curve.first) * point / kSteps);
}

// The line of an even game is always seen.
double MeterChart::Low() const { return std::min(curve.percent(curve.first), kEven); }
double MeterChart::High() const { return std::max(curve.percent(curve.last), kEven); }

QString MeterChart::TextOf(int point) const {
    const double coins = CoinsOf(point);
    return tr("%1 coins: %2").arg(Grouped(std::llround(coins)), Percent(curve.percent(coins)));
}

QString MeterChart::Facts() const {
    if (Points() == 0) return curve.nothing;
    return tr("From %1 to %2; at the meter of %3 coins %4")
        .arg(TextOf(0), TextOf(kSteps), Grouped(std::llround(meter)),
             Percent(curve.percent(meter)));
}

QSizeF MeterChart::SizeFor(const ChartSheet& sheet) const {
    return {sheet.Character() * 80, sheet.Line() * 20};
}

QSize MeterChart::minimumSizeHint() const {
    const QFontMetrics metrics(font());
    return {metrics.averageCharWidth() * 40, metrics.lineSpacing() * 10};
}

QRectF MeterChart::Plot(const ChartSheet& sheet) const {
    const double line = sheet.Line();
    return sheet.area.adjusted(sheet.WidthOf(Percent(High())) + line, 1.5 * line, -3 * line,
                               -kFoot * line);
}

QPointF MeterChart::PlaceOn(const QRectF& plot, double coins, double percent) const {
    const double high = High();
    const double height = std::max(high - Low(), 1e-9);
    return {plot.left() + plot.width() * (coins - curve.first) / (curve.last - curve.first),
            plot.top() + plot.height() * (high - percent) / height};
}

QRect MeterChart::PlaceOf(int point) const {
    if (Points() == 0) return {};
    const QRectF plot = Plot(Screen());
    const double width = plot.width() / kSteps;
    const double x = PlaceOn(plot, CoinsOf(point), kEven).x();
    return QRectF(x - width / 2, plot.top(), width, plot.height()).toAlignedRect();
}

int MeterChart::PointAt(QPoint place) const {
    if (Points() == 0) return -1;
    const QRectF plot = Plot(Screen());
    const double share = (place.x() - plot.left()) / std::max(plot.width(), 1.0);
    return static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * kSteps));
}

void MeterChart::Draw(QPainter& painter, const ChartSheet& sheet) const {
    painter.setFont(sheet.font);
    painter.setPen(sheet.colours.text);
    if (Points() == 0) {
        painter.drawText(sheet.area, Qt::AlignCenter | Qt::TextWordWrap, curve.nothing);
        return;
    }
    const QRectF plot = Plot(sheet);
    if (plot.width() < 1 || plot.height() < 1) return;
    DrawScales(painter, sheet, plot);
    DrawCurve(painter, sheet, plot);
}

void MeterChart::DrawScales(QPainter& painter, const ChartSheet& sheet, const QRectF& plot) const {
    const double line = sheet.Line();
    const double step = RoundStep((High() - Low()) / kPercentLines, 1e-3);
    for (double percent = std::ceil(Low() / step) * step; percent <= High() + step / 100;
         percent += step) {
        const double y = OnPixel(PlaceOn(plot, curve.first, percent).y());
        const bool even = std::abs(percent - kEven) < step / 2;
        painter.setPen(QPen(even ? sheet.colours.text : sheet.colours.line, 1));
        painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
        painter.setPen(sheet.colours.text);
        painter.drawText(QRectF(sheet.area.left(), y - line / 2,
                                plot.left() - sheet.area.left() - line / 2, line),
                         Qt::AlignRight | Qt::AlignVCenter, Percent(percent));
    }
    const double coinStep = RoundStep((curve.last - curve.first) / kMeterMarks, 1);
    for (double coins = std::ceil(curve.first / coinStep) * coinStep; coins <= curve.last;
         coins += coinStep) {
        const double x = OnPixel(PlaceOn(plot, coins, kEven).x());
        painter.setPen(QPen(sheet.colours.line, 1));
        painter.drawLine(QPointF(x, plot.bottom()), QPointF(x, plot.bottom() + 0.3 * line));
        painter.setPen(sheet.colours.text);
        const QString number = Grouped(std::llround(coins));
        const double width = sheet.WidthOf(number) + 2;
        painter.drawText(QRectF(x - width / 2, plot.bottom() + 0.35 * line, width, line),
                         Qt::AlignCenter, number);
    }
    painter.drawText(QRectF(plot.left(), plot.bottom() + 1.4 * line, plot.width(), line),
                     Qt::AlignCenter, tr("Meter, coins for the full bet"));
}

void MeterChart::DrawCurve(QPainter& painter, const ChartSheet& sheet, const QRectF& plot) const {
    QPolygonF course;
    for (int point = 0; point <= kSteps; ++point) {
        const double coins = CoinsOf(point);
        course << PlaceOn(plot, coins, curve.percent(coins));
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(sheet.colours.first, 1.5));
    painter.drawPolyline(course);
    const double at = sheet.read ? CoinsOf(*sheet.read) : meter;
    if (at < curve.first || at > curve.last) return;
    const QPointF mark = PlaceOn(plot, at, curve.percent(at));
    painter.setPen(sheet.colours.text);
    painter.drawLine(QPointF(mark.x(), plot.top()), QPointF(mark.x(), plot.bottom()));
    painter.setBrush(sheet.colours.first);
    painter.drawEllipse(mark, kDot * sheet.Line(), kDot * sheet.Line());
}
