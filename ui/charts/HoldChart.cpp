#include "ui/charts/HoldChart.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QLocale>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "ui/charts/ChartParts.h"

namespace {

constexpr int kMinBarCharacters = 14;  // the width of the longest bar, at least
constexpr int kTicks = 5;              // parts of the axis, about

QString ValueText(double value) { return QLocale::c().toString(value, 'f', 4); }

QFont Bold(QFont font) {
    font.setBold(true);
    return font;
}

}  // namespace

// All in logical pixels, in the widget's own font.
struct HoldChart::Columns {
    qreal row = 0;     // height
    qreal gap = 0;     // a character
    qreal card = 0;    // width of the text of a place
    qreal bars = 0;    // left end of the bars
    qreal length = 0;  // of the greatest bar
    double greatest = 0;
};

HoldChart::HoldChart(QWidget* parent) : QWidget(parent) {
    setObjectName("chart");
    setAccessibleName(tr("Expected returns of the holds"));
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

void HoldChart::ShowHolds(std::vector<Hold> shown) {
    holds = std::move(shown);
    QStringList notes;
    for (const Hold& hold : holds) notes.append(hold.note);
    setAccessibleDescription(notes.join(u'\n'));
    updateGeometry();
    update();
}

HoldChart::Columns HoldChart::Measure() const {
    const QFontMetricsF bold(Bold(font()));
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
    columns.length = std::max(width() - columns.bars - values - 3 * columns.gap,
                              kMinBarCharacters * columns.gap);
    return columns;
}

QSize HoldChart::sizeHint() const {
    Columns columns = Measure();
    const QFontMetricsF bold(Bold(font()));
    const qreal values = bold.horizontalAdvance("99,999.9999 best");
    return {
        static_cast<int>(columns.bars + kMinBarCharacters * columns.gap + values + 3 * columns.gap),
        static_cast<int>(columns.row * (static_cast<qreal>(holds.size()) + 2))};
}

QRect HoldChart::RowRect(int row) const {
    const qreal height = Measure().row;
    return QRectF(0, height * (row + 1.5), width(), height).toRect();
}

int HoldChart::RowAt(QPoint point) const {
    for (int row = 0; row < static_cast<int>(holds.size()); ++row) {
        if (RowRect(row).contains(point)) return row;
    }
    return -1;
}

bool HoldChart::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int row = RowAt(help->pos());
    if (row < 0) {
        QToolTip::hideText();
        event->ignore();
    } else {
        const QString& note = holds[static_cast<std::size_t>(row)].note;
        QToolTip::showText(help->globalPos(), note, this, RowRect(row));
    }
    return true;
}

void HoldChart::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) updateGeometry();
    QWidget::changeEvent(event);
}

void HoldChart::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(ColoursOf(palette()).text);
    if (holds.empty()) {
        painter.drawText(rect(), Qt::AlignCenter, tr("No hand to analyse"));
        return;
    }
    const Columns columns = Measure();
    PaintAxis(painter, columns);
    for (int row = 0; row < static_cast<int>(holds.size()); ++row) PaintRow(painter, columns, row);
}

void HoldChart::PaintAxis(QPainter& painter, const Columns& columns) const {
    const ChartColours colours = ColoursOf(palette());
    const qreal bottom = RowRect(static_cast<int>(holds.size()) - 1).bottom() + columns.row / 4;
    painter.setPen(colours.text);
    painter.drawText(QRectF(columns.gap, 0, columns.bars, columns.row),
                     Qt::AlignLeft | Qt::AlignVCenter, tr("Return ($)"));
    if (columns.greatest <= 0) return;
    const double tick = RoundStep(columns.greatest / kTicks);
    const int last = static_cast<int>(columns.greatest / tick);
    for (int i = 0; i <= last; ++i) {
        const double value = i * tick;
        const qreal x = columns.bars + columns.length * value / columns.greatest;
        painter.setPen(colours.line);
        painter.drawLine(QPointF(x, columns.row), QPointF(x, bottom));
        painter.setPen(colours.text);
        painter.drawText(QRectF(x - 100, 0, 200, columns.row), Qt::AlignCenter,
                         QString::number(value, 'g', 6));
    }
}

void HoldChart::PaintRow(QPainter& painter, const Columns& columns, int row) const {
    const Hold& hold = holds[static_cast<std::size_t>(row)];
    const QRectF place = RowRect(row);
    painter.setFont(hold.best ? Bold(font()) : font());
    painter.setPen(ColoursOf(palette()).text);
    for (qsizetype i = 0; i < hold.cards.size(); ++i) {
        painter.drawText(QRectF(columns.gap + columns.card * static_cast<qreal>(i), place.top(),
                                columns.card, place.height()),
                         Qt::AlignCenter, hold.cards[i]);
    }
    const qreal share = columns.greatest > 0 ? hold.value / columns.greatest : 0;
    const QRectF bar(columns.bars, place.top() + place.height() * 0.15, columns.length * share,
                     place.height() * 0.7);
    PaintBar(painter, bar, hold.best);
    const QString value = ValueText(hold.value) + (hold.best ? u' ' + tr("best") : QString());
    const QRectF beside(bar.right() + columns.gap / 2, bar.top(),
                        painter.fontMetrics().horizontalAdvance(value), bar.height());
    painter.fillRect(beside, ColoursOf(palette()).ground);
    painter.setPen(ColoursOf(palette()).text);
    painter.drawText(beside, Qt::AlignCenter | Qt::TextDontClip, value);
}

// The best bar is full, the others are pale.
void HoldChart::PaintBar(QPainter& painter, const QRectF& bar, bool best) const {
    const QColor colour = ColoursOf(palette()).first;
    QColor pale = colour;
    pale.setAlphaF(0.35F);
    painter.fillRect(bar, ColoursOf(palette()).ground);  // over the lines of the axis
    painter.setPen(QPen(colour, 1));
    painter.setBrush(best ? colour : pale);
    painter.drawRect(bar);
}
