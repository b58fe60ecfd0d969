#include "ui/charts/ChartParts.h"

#include <QFontMetricsF>
#include <QObject>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <cmath>

#include "core/text/Amount.h"

namespace {

constexpr int kDarkGround = 128;  // lightness below which a ground is dark

// In line heights.
constexpr double kSample = 1.8;
constexpr double kSampleGap = 0.4;
constexpr double kItemGap = 1.2;
constexpr double kRow = 1.15;

constexpr double kHatch = 5;  // from line to line, in logical pixels

QColor Between(const QColor& a, const QColor& b, double share) {
    return QColor::fromRgbF(static_cast<float>(a.redF() + (b.redF() - a.redF()) * share),
                            static_cast<float>(a.greenF() + (b.greenF() - a.greenF()) * share),
                            static_cast<float>(a.blueF() + (b.blueF() - a.blueF()) * share));
}

// Where the items stand, each as wide as its sample and text, in an area that begins at 0, 0.
QList<QRectF> PlacesOf(const ChartSheet& sheet, double width, const QStringList& texts) {
    const double line = sheet.Line();
    QList<QRectF> places;
    QPointF at;
    for (const QString& text : texts) {
        const double wide = (kSample + kSampleGap) * line + sheet.WidthOf(text) + 2;
        if (at.x() > 0 && at.x() + wide > width) at = {0, at.y() + kRow * line};
        places.append(QRectF(at, QSizeF(wide, line)));
        at.rx() += wide + kItemGap * line;
    }
    return places;
}

// Lines that rise to the right, cut at the borders by arithmetic: not every format knows patterns
// or clipping.
void Hatch(QPainter& painter, const QRectF& bar) {
    QList<QLineF> lines;
    for (double across = kHatch; across < bar.width() + bar.height(); across += kHatch) {
        const double from = std::max(0.0, across - bar.height());
        const double to = std::min(across, bar.width());
        lines.append(QLineF(bar.left() + from, bar.top() + across - from, bar.left() + to,
                            bar.top() + across - to));
    }
    painter.drawLines(lines);
}

}  // namespace

ChartColours ColoursOf(const QPalette& palette) {
    const QColor ground = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    const bool dark = ground.lightness() < kDarkGround;
    return {ground, text, Between(ground, text, 0.25),
            dark ? QColor(0x6c, 0xb2, 0xf0) : QColor(0x1f, 0x66, 0xa8),
            dark ? QColor(0xf2, 0xa3, 0x5a) : QColor(0xb3, 0x54, 0x00)};
}

ChartColours PaperColours() {
    QPalette paper;
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    return ColoursOf(paper);
}

double ChartSheet::Line() const { return QFontMetricsF(font).lineSpacing(); }

double ChartSheet::Character() const { return QFontMetricsF(font).averageCharWidth(); }

double ChartSheet::WidthOf(const QString& text) const {
    return QFontMetricsF(font).horizontalAdvance(text);
}

double RoundStep(double least, double smallest) {
    if (least <= smallest) return smallest;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= least * (1 - 1e-9)) return std::max(factor * power, smallest);
    }
    return 10 * power;
}

double OnPixel(double place) { return std::floor(place) + 0.5; }

QRectF OnPixels(const QRectF& place) { return QRectF(place.toRect()).translated(0.5, 0.5); }

double DrawLegend(QPainter& painter, const ChartSheet& sheet, const QRectF& area,
                  const QList<LegendItem>& items) {
    QStringList texts;
    for (const LegendItem& item : items) texts.append(item.text);
    const auto places = PlacesOf(sheet, area.width(), texts);
    const double sample = kSample * sheet.Line();
    for (qsizetype i = 0; i < items.size(); ++i) {
        const QRectF place = places[i].translated(area.topLeft());
        items[i].drawSample({place.left(), place.top(), sample, place.height()});
        painter.setPen(sheet.colours.text);
        painter.drawText(place.adjusted(sample + kSampleGap * sheet.Line(), 0, 0, 0),
                         Qt::AlignLeft | Qt::AlignVCenter, items[i].text);
    }
    return LegendHeight(sheet, area.width(), texts);
}

double LegendHeight(const ChartSheet& sheet, double width, const QStringList& texts) {
    const auto places = PlacesOf(sheet, width, texts);
    return places.isEmpty() ? 0 : places.last().bottom();
}

void DrawBar(QPainter& painter, const QRectF& bar, const QColor& colour, bool hatched) {
    QColor light = colour;
    light.setAlphaF(0.2F);
    painter.setPen(QPen(colour, 1));
    painter.setBrush(hatched ? light : colour);
    const QRectF sharp = OnPixels(bar);
    painter.drawRect(sharp);
    if (hatched) Hatch(painter, sharp);
}

void DrawDottedFrame(QPainter& painter, const QRectF& frame, const QColor& colour) {
    painter.setPen(QPen(colour, 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
}

QString PictureSubject(const std::string& game, int table, int bet, double coin,
                       const QString& date) {
    const QString of = QStringLiteral("%1(%2)").arg(QString::fromStdString(game)).arg(table);
    const QString coins = coin > 0 ? QObject::tr("%1 × %2").arg(bet).arg(
                                         QString::fromStdString(FormatDollars("%.2f", coin)))
                                   : QObject::tr("%1 coins").arg(bet);
    return QStringList{of, coins, date}.join(QStringLiteral(", "));
}
