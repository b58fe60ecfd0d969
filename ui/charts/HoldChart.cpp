#include "ui/charts/HoldChart.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr int kMinBarCharacters = 14;  // the width of the longest bar, at least
constexpr int kTicks = 5;              // parts of the axis, about

QString ValueText(double value) { return QLocale::c().toString(value, 'f', 4); }

QFont Bold(QFont font) {
    font.setBold(true);
    return font;
}

// The best bar is full, the others are pale.
void PaintBar(QPainter& painter, const ChartColours& colours, const QRectF& bar, bool best) {
    QColor pale = colours.first;
    pale.setAlphaF(0.35F);
    painter.fillRect(bar, colours.ground);  // over the lines of the axis
    painter.setPen(QPen(colours.first, 1));
    painter.setBrush(best ? colours.first : pale);
    painter.drawRect(OnPixels(bar));
}

}  // namespace

// All in logical pixels, from the left of the sheet.
struct HoldChart::Columns {
    qreal row = 0;     // height
    qreal gap = 0;     // a character
    qreal card = 0;    // width of the text of a place
    qreal bars = 0;    // left end of the bars
    qreal length = 0;  // of the greatest bar
    double greatest = 0;
};

HoldChart::HoldChart(QWidget* parent)
    : PictureChart("chart", tr("Expected returns of the holds"), parent) {
    FiguresChanged();
}

void HoldChart::ShowHolds(std::vector<Hold> shown) {
    holds = std::move(shown);
    FiguresChanged();
}

QString HoldChart::TextOf(int point) const {
    return NoteOf(point).replace(QStringLiteral("\n"), QStringLiteral(", "));
}

QString HoldChart::NoteOf(int point) const { return holds[static_cast<std::size_t>(point)].note; }

QString HoldChart::Facts() const {
    QStringList notes;
    for (const Hold& hold : holds) notes.append(hold.note);
    return notes.join(u'\n');
}

HoldChart::Columns HoldChart::Measure(const ChartSheet& sheet) const {
    const QFontMetricsF bold(Bold(sheet.font));
    Columns columns;
    columns.row = std::ceil(bold.height() * 1.4);
    columns.gap = bold.averageCharWidth();
    qreal values = bold.horizontalAdvance(tr("best"));
    for (const Hold& hold : holds) {
        for (const QString& card : hold.cards) {
            columns.card = std::max(columns.card, bold.horizontalAdvance(card) + columns.gap / 2);
        }
        columns.greatest = std::max(columns.greatest, hold.value);
        values = std::max(values, bold.horizontalAdvance(ValueText(hold.value) + u' ' +
                                                         (hold.best ? tr("best") : "")));
    }
    const auto places = holds.empty() ? 0 : holds.front().cards.size();
    columns.bars = std::ceil(columns.card * static_cast<qreal>(places) + 2 * columns.gap);
    columns.length = std::max(sheet.area.width() - columns.bars - values - 3 * columns.gap,
                              kMinBarCharacters * columns.gap);
    return columns;
}

QSizeF HoldChart::SizeFor(const ChartSheet& sheet) const {
    const Columns columns = Measure(sheet);
    const qreal values = QFontMetricsF(Bold(sheet.font)).horizontalAdvance("99,999.9999 best");
    return {columns.bars + kMinBarCharacters * columns.gap + values + 3 * columns.gap,
            columns.row * (static_cast<qreal>(holds.size()) + 2)};
}

QRectF HoldChart::RowOn(const ChartSheet& sheet, const Columns& columns, int row) const {
    return {sheet.area.left(), sheet.area.top() + columns.row * (row + 1.5), sheet.area.width(),
            columns.row};
}

QRect HoldChart::RowRect(int row) const {
    const ChartSheet sheet = Screen();
    return RowOn(sheet, Measure(sheet), row).toRect();
}

int HoldChart::RowAt(QPoint point) const {
    const ChartSheet sheet = Screen();
    const Columns columns = Measure(sheet);
    for (int row = 0; row < Points(); ++row) {
        if (RowOn(sheet, columns, row).toRect().contains(point)) return row;
    }
    return -1;
}

void HoldChart::Draw(QPainter& painter, const ChartSheet& sheet) const {
    if (holds.empty()) {
        painter.drawText(sheet.area, Qt::AlignCenter, tr("No hand to analyse"));
        return;
    }
    const Columns columns = Measure(sheet);
    painter.setFont(sheet.font);
    DrawAxis(painter, sheet, columns);
    for (int row = 0; row < Points(); ++row) DrawRow(painter, sheet, columns, row);
}

void HoldChart::DrawAxis(QPainter& painter, const ChartSheet& sheet, const Columns& columns) const {
    const auto& [area, font, colours, readPoint] = sheet;
    const qreal bottom = RowOn(sheet, columns, Points()).top() + columns.row / 4;
    painter.setPen(colours.text);
    painter.drawText(QRectF(area.left() + columns.gap, area.top(), columns.bars, columns.row),
                     Qt::AlignLeft | Qt::AlignVCenter, tr("Return ($)"));
    if (columns.greatest <= 0) return;
    const double tick = RoundStep(columns.greatest / kTicks);
    const int last = static_cast<int>(columns.greatest / tick);
    for (int i = 0; i <= last; ++i) {
        const double value = i * tick;
        const qreal x =
            OnPixel(area.left() + columns.bars + columns.length * value / columns.greatest);
        painter.setPen(colours.line);
        painter.drawLine(QPointF(x, area.top() + columns.row), QPointF(x, bottom));
        painter.setPen(colours.text);
        painter.drawText(QRectF(x - 100, area.top(), 200, columns.row), Qt::AlignCenter,
                         QString::number(value, 'g', 6));
    }
}

void HoldChart::DrawRow(QPainter& painter, const ChartSheet& sheet, const Columns& columns,
                        int row) const {
    const Hold& hold = holds[static_cast<std::size_t>(row)];
    const QRectF place = RowOn(sheet, columns, row);
    painter.setFont(hold.best ? Bold(sheet.font) : sheet.font);
    painter.setPen(sheet.colours.text);
    for (qsizetype i = 0; i < hold.cards.size(); ++i) {
        const qreal left = place.left() + columns.gap + columns.card * static_cast<qreal>(i);
        painter.drawText(QRectF(left, place.top(), columns.card, place.height()), Qt::AlignCenter,
                         hold.cards[i]);
    }
    const qreal share = columns.greatest > 0 ? hold.value / columns.greatest : 0;
    const QRectF bar(place.left() + columns.bars, place.top() + place.height() * 0.15,
                     columns.length * share, place.height() * 0.7);
    PaintBar(painter, sheet.colours, bar, hold.best);
    const QString value = ValueText(hold.value) + (hold.best ? u' ' + tr("best") : QString());
    const QRectF beside(bar.right() + columns.gap / 2, bar.top(),
                        QFontMetricsF(painter.font()).horizontalAdvance(value), bar.height());
    painter.fillRect(beside, sheet.colours.ground);
    painter.setPen(sheet.colours.text);
    painter.drawText(beside, Qt::AlignCenter | Qt::TextDontClip, value);
    if (sheet.read == row)
        DrawDottedFrame(painter, place.adjusted(2.5, 0.5, -2.5, -0.5), sheet.colours.text);
}
