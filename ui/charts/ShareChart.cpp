#include "ui/charts/ShareChart.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <QtMath>
#include <algorithm>

#include "ui/charts/ChartParts.h"

namespace {

// In line heights of the font.
constexpr double kMargin = 0.6;
constexpr double kBar = 1.0;
constexpr double kRowGap = 0.45;
constexpr double kLegend = 1.8;

constexpr double kWidestLabel = 0.4;  // of the chart
constexpr int kBarCharacters = 36;    // the room that the longest bar asks for

// 0.04 % is not nothing.
QString PercentText(double percent) {
    if (percent > 0 && percent < 0.05) return QObject::tr("< 0.1 %");
    return QObject::tr("%1 %").arg(percent, 0, 'f', 1);
}

void DrawBar(QPainter& painter, const QRectF& bar, const QColor& colour, bool hatched) {
    QColor light = colour;
    light.setAlphaF(0.2F);
    painter.setPen(QPen(colour, 1));
    painter.setBrush(hatched ? light : colour);
    painter.drawRect(bar);
    if (!hatched) return;
    painter.setBrush(QBrush(colour, Qt::BDiagPattern));
    painter.drawRect(bar);
}

QString Spoken(const LineShare& share) {
    return QObject::tr("%1: %2 of the return, %3 of the variance")
        .arg(QString::fromStdString(share.description), PercentText(share.returnShare),
             PercentText(share.varianceShare));
}

}  // namespace

ShareChart::ShareChart(QWidget* parent) : QWidget(parent) {
    setObjectName("shareChart");
    setAccessibleName(tr("Shares of the return and of the variance"));
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    SetShares({});
}

void ShareChart::SetShares(std::vector<LineShare> shown) {
    shares = std::move(shown);
    QStringList lines;
    for (const LineShare& share : shares) lines << Spoken(share);
    setAccessibleDescription(lines.join('\n'));
    updateGeometry();
    update();
}

QSize ShareChart::sizeHint() const {
    const QFontMetricsF font(this->font());
    const double rows = static_cast<double>(shares.size()) * (2 * kBar + kRowGap);
    const double values = font.horizontalAdvance(PercentText(100)) + font.averageCharWidth() * 3;
    const double width = LabelWidth() + values + font.averageCharWidth() * kBarCharacters;
    return {qCeil(width), qCeil((kLegend + rows + 2 * kMargin) * font.lineSpacing())};
}

double ShareChart::LabelWidth() const {
    const QFontMetricsF font(this->font());
    double width = 0;
    for (const LineShare& share : shares) {
        width = std::max(width, font.horizontalAdvance(QString::fromStdString(share.description)));
    }
    return width + 2 * font.averageCharWidth();
}

QRectF ShareChart::RowOf(std::size_t line) const {
    const double unit = QFontMetricsF(font()).lineSpacing();
    const double height = (2 * kBar + kRowGap) * unit;
    return {0, (kMargin + kLegend) * unit + static_cast<double>(line) * height,
            static_cast<double>(width()), height};
}

// The share that fills the room for the bars.
double ShareChart::ScaleEnd() const {
    double end = 1;
    for (const LineShare& share : shares) {
        end = std::max({end, share.returnShare, share.varianceShare});
    }
    return end;
}

void ShareChart::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(ColoursOf(palette()).text);
    if (shares.empty()) {
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         tr("This table has not been analyzed yet."));
        return;
    }
    DrawLegend(painter);
    for (std::size_t line = 0; line < shares.size(); ++line) DrawRow(painter, line);
}

void ShareChart::DrawLegend(QPainter& painter) const {
    const ChartColours colours = ColoursOf(palette());
    const QFontMetricsF font(this->font());
    const double unit = font.lineSpacing();
    QRectF swatch(kMargin * unit, (kMargin + 0.1) * unit, 2 * unit, 0.8 * unit);
    const auto add = [&](const QString& text, const QColor& colour, bool hatched) {
        DrawBar(painter, swatch, colour, hatched);
        const double width = font.horizontalAdvance(text) + unit;
        painter.setPen(colours.text);
        painter.drawText(QRectF(swatch.right() + 0.5 * unit, kMargin * unit, width, unit),
                         Qt::AlignLeft | Qt::AlignVCenter, text);
        swatch.translate(2 * unit + width + unit, 0);
    };
    add(tr("Share of the return"), colours.first, false);
    add(tr("Share of the variance"), colours.second, true);
}

void ShareChart::DrawRow(QPainter& painter, std::size_t line) const {
    const ChartColours colours = ColoursOf(palette());
    const QFontMetricsF font(this->font());
    const double unit = font.lineSpacing();
    const LineShare& share = shares[line];
    const QRectF row = RowOf(line);
    const double labelEnd = std::min(LabelWidth(), width() * kWidestLabel) + kMargin * unit;
    const QRectF label(kMargin * unit, row.top(), labelEnd - 2 * kMargin * unit, 2 * kBar * unit);
    painter.setPen(colours.text);
    painter.drawText(
        label, Qt::AlignLeft | Qt::AlignVCenter,
        font.elidedText(QString::fromStdString(share.description), Qt::ElideRight, label.width()));

    const double values = font.horizontalAdvance(PercentText(100)) + 2 * font.averageCharWidth();
    const double room = std::max(0.0, width() - labelEnd - values - kMargin * unit);
    const auto draw = [&](double percent, double top, const QColor& colour, bool hatched) {
        const QRectF bar(labelEnd, top + 0.125 * unit, room * percent / ScaleEnd(), 0.75 * unit);
        if (percent > 0) DrawBar(painter, bar, colour, hatched);
        painter.setPen(colours.text);
        painter.drawText(QRectF(bar.right() + font.averageCharWidth(), top, values, kBar * unit),
                         Qt::AlignLeft | Qt::AlignVCenter, PercentText(percent));
    };
    draw(share.returnShare, row.top(), colours.first, false);
    draw(share.varianceShare, row.top() + kBar * unit, colours.second, true);
    painter.setPen(colours.line);
    painter.drawLine(QPointF(labelEnd, row.top() - 0.5 * kRowGap * unit),
                     QPointF(labelEnd, row.bottom() - 0.5 * kRowGap * unit));
}

bool ShareChart::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    for (std::size_t line = 0; line < shares.size(); ++line) {
        const QRectF row = RowOf(line);
        if (!row.contains(help.pos())) continue;
        const LineShare& share = shares[line];
        const QString text = Spoken(share) + '\n' +
                             tr("%1 % of the bet; variance %2 for each coin")
                                 .arg(QString::number(share.percentReturn, 'f', 2),
                                      QString::number(share.variance, 'f', 4));
        QToolTip::showText(help.globalPos(), text, this, row.toAlignedRect());
        return true;
    }
    QToolTip::hideText();
    event->ignore();
    return true;
}
