#include "ui/charts/ShareChart.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace {

// In line heights of the font.
constexpr double kMargin = 0.6;
constexpr double kBar = 1.0;
constexpr double kRowGap = 0.45;
constexpr double kLegend = 1.8;
constexpr double kAxis = 2.6;  // its numbers and its name

constexpr double kWidestLabel = 0.4;  // of the chart
constexpr int kBarCharacters = 36;    // the room that the longest bar asks for
constexpr int kTicks = 5;             // parts of the axis, about

// 0.04 % is not nothing.
QString PercentText(double percent) {
    if (percent > 0 && percent < 0.05) return QObject::tr("< 0.1 %");
    return QObject::tr("%1 %").arg(percent, 0, 'f', 1);
}

QString Name(const LineShare& share) { return QString::fromStdString(share.description); }

}  // namespace

// In logical pixels, from the left of the sheet.
struct ShareChart::Columns {
    double label = 0;  // left end of the labels, and their width
    double labelWidth = 0;
    double bars = 0;    // left end of the bars
    double length = 0;  // of a bar of ScaleEnd percent
    double values = 0;  // width of the numbers behind the bars
};

ShareChart::ShareChart(QWidget* parent)
    : PictureChart("shareChart", tr("Shares of the return and of the variance"), parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    FiguresChanged();
}

void ShareChart::SetShares(std::vector<LineShare> shown) {
    shares = std::move(shown);
    FiguresChanged();
}

QString ShareChart::TextOf(int point) const {
    const LineShare& share = shares[static_cast<std::size_t>(point)];
    return tr("%1: %2 of the return, %3 of the variance")
        .arg(Name(share), PercentText(share.returnShare), PercentText(share.varianceShare));
}

QString ShareChart::NoteOf(int point) const {
    const LineShare& share = shares[static_cast<std::size_t>(point)];
    return TextOf(point) + '\n' +
           tr("%1 % of the bet; variance %2 for each coin")
               .arg(QString::number(share.percentReturn, 'f', 2),
                    QString::number(share.variance, 'f', 4));
}

QString ShareChart::Facts() const {
    QStringList lines;
    for (int line = 0; line < Points(); ++line) lines << TextOf(line);
    return lines.join('\n');
}

QSizeF ShareChart::SizeFor(const ChartSheet& sheet) const {
    const double rows = Points() * (2 * kBar + kRowGap);
    const double values = sheet.WidthOf(PercentText(100)) + sheet.Character() * 3;
    return {LabelWidth(sheet) + values + sheet.Character() * kBarCharacters,
            (kLegend + rows + kAxis + 2 * kMargin) * sheet.Line()};
}

double ShareChart::LabelWidth(const ChartSheet& sheet) const {
    double width = 0;
    for (const LineShare& share : shares) width = std::max(width, sheet.WidthOf(Name(share)));
    return width + 2 * sheet.Character();
}

ShareChart::Columns ShareChart::Measure(const ChartSheet& sheet) const {
    const double margin = kMargin * sheet.Line();
    const double widest = sheet.area.width() * kWidestLabel;
    Columns columns;
    columns.label = sheet.area.left() + margin;
    columns.labelWidth = std::min(LabelWidth(sheet), widest) - margin;
    columns.bars = columns.label + columns.labelWidth + margin;
    columns.values = sheet.WidthOf(PercentText(100)) + 2 * sheet.Character();
    columns.length = std::max(0.0, sheet.area.right() - columns.bars - columns.values - margin);
    return columns;
}

QRectF ShareChart::RowOn(const ChartSheet& sheet, int line) const {
    const double height = (2 * kBar + kRowGap) * sheet.Line();
    return {sheet.area.left(),
            sheet.area.top() + (kMargin + kLegend) * sheet.Line() + line * height,
            sheet.area.width(), height};
}

QRect ShareChart::PlaceOf(int point) const { return RowOn(Screen(), point).toAlignedRect(); }

int ShareChart::PointAt(QPoint place) const {
    const ChartSheet sheet = Screen();
    for (int line = 0; line < Points(); ++line) {
        if (RowOn(sheet, line).contains(place)) return line;
    }
    return -1;
}

// The share that fills the room for the bars.
double ShareChart::ScaleEnd() const {
    double end = 1;
    for (const LineShare& share : shares) {
        end = std::max({end, share.returnShare, share.varianceShare});
    }
    return end;
}

void ShareChart::Draw(QPainter& painter, const ChartSheet& sheet) const {
    painter.setRenderHint(QPainter::Antialiasing, false);  // nothing but level and upright lines
    painter.setFont(sheet.font);
    if (shares.empty()) {
        painter.drawText(sheet.area, Qt::AlignCenter | Qt::TextWordWrap,
                         tr("This table has not been analyzed yet."));
        return;
    }
    DrawHead(painter, sheet);
    DrawAxis(painter, sheet);
    for (int line = 0; line < Points(); ++line) DrawRow(painter, sheet, line);
}

void ShareChart::DrawHead(QPainter& painter, const ChartSheet& sheet) const {
    const double unit = sheet.Line();
    const auto sample = [&](const QColor& colour, bool hatched) {
        return [&painter, unit, colour, hatched](const QRectF& place) {
            DrawBar(painter, place.adjusted(0, 0.1 * unit, 0, -0.1 * unit), colour, hatched);
        };
    };
    DrawLegend(painter, sheet,
               sheet.area.adjusted(kMargin * unit, kMargin * unit, -kMargin * unit, 0),
               {{tr("Share of the return"), sample(sheet.colours.first, false)},
                {tr("Share of the variance"), sample(sheet.colours.second, true)}});
}

void ShareChart::DrawAxis(QPainter& painter, const ChartSheet& sheet) const {
    const Columns columns = Measure(sheet);
    const double top = RowOn(sheet, 0).top() - 0.5 * kRowGap * sheet.Line();
    const double bottom = RowOn(sheet, Points()).top() - 0.5 * kRowGap * sheet.Line();
    const double step = RoundStep(ScaleEnd() / kTicks);
    for (int i = 0; i * step <= ScaleEnd() * (1 + 1e-9); ++i) {
        const double x = OnPixel(columns.bars + columns.length * i * step / ScaleEnd());
        painter.setPen(QPen(sheet.colours.line, 1));
        painter.drawLine(QPointF(x, top), QPointF(x, bottom + 0.2 * sheet.Line()));
        painter.setPen(sheet.colours.text);
        painter.drawText(QRectF(x - 100, bottom + 0.25 * sheet.Line(), 200, sheet.Line()),
                         Qt::AlignCenter, QString::number(i * step, 'g', 6));
    }
    painter.drawText(
        QRectF(columns.bars, bottom + 1.3 * sheet.Line(), columns.length, sheet.Line()),
        Qt::AlignCenter | Qt::TextDontClip, tr("Share of the whole, %"));
}

void ShareChart::DrawRow(QPainter& painter, const ChartSheet& sheet, int line) const {
    const ChartColours& colours = sheet.colours;
    const double unit = sheet.Line();
    const LineShare& share = shares[static_cast<std::size_t>(line)];
    const Columns columns = Measure(sheet);
    const QRectF row = RowOn(sheet, line);
    painter.setPen(colours.text);
    painter.drawText(
        QRectF(columns.label, row.top(), columns.labelWidth, 2 * kBar * unit),
        Qt::AlignLeft | Qt::AlignVCenter,
        QFontMetricsF(sheet.font).elidedText(Name(share), Qt::ElideRight, columns.labelWidth));
    const auto draw = [&](double percent, double top, const QColor& colour, bool hatched) {
        const QRectF bar(columns.bars, top + 0.125 * unit, columns.length * percent / ScaleEnd(),
                         0.75 * unit);
        if (percent > 0) {
            painter.fillRect(bar, colours.ground);  // over the lines of the axis
            DrawBar(painter, bar, colour, hatched);
        }
        const QString text = PercentText(percent);
        const QRectF beside(bar.right() + sheet.Character(), top, sheet.WidthOf(text), unit);
        painter.fillRect(beside, colours.ground);
        painter.setPen(colours.text);
        painter.drawText(beside, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, text);
    };
    draw(share.returnShare, row.top(), colours.first, false);
    draw(share.varianceShare, row.top() + kBar * unit, colours.second, true);
    painter.setPen(colours.line);
    const double above = OnPixel(row.top() - 0.5 * kRowGap * unit);
    painter.drawLine(QPointF(columns.bars, above), QPointF(row.right(), above));
    if (sheet.read == line) {
        DrawDottedFrame(painter,
                        row.translated(0, -0.5 * kRowGap * unit).adjusted(2.5, 1, -2.5, -1),
                        colours.text);
    }
}
