#include "ui/tables/TableCellDelegate.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>

#include "ui/art/Contrast.h"
#include "ui/parts/SmallCard.h"
#include "ui/tables/ReportTableModel.h"

namespace {

constexpr int kPadding = 3;            // above and below the text
constexpr double kTileShare = 6. / 7;  // of a rank's picture: 24 to 28
constexpr double kTint = 0.22;

int TileHeight(const QFontMetrics& font) { return font.height() + 2; }
int TileWidth(const QFontMetrics& font) { return qRound(TileHeight(font) * kTileShare); }
int CardPitch(const QFontMetrics& font) { return 2 * TileWidth(font) + kPadding; }

// The hue of a mark, which tints its rows and draws its sign.
QColor HueOf(RowMark mark) {
    switch (mark) {
        case RowMark::kBest:
            return {0x2e, 0x9e, 0x44};
        case RowMark::kChosen:
            return {0x2a, 0x7f, 0xd0};
        case RowMark::kBad:
            return {0xd2, 0x3b, 0x2e};
        case RowMark::kNone:
            break;
    }
    return {};
}

QString SignOf(RowMark mark) {
    switch (mark) {
        case RowMark::kBest:
            return QString::fromUtf8("★");
        case RowMark::kChosen:
            return QString::fromUtf8("▶");
        case RowMark::kBad:
            return "!";
        case RowMark::kNone:
            break;
    }
    return {};
}

QColor Mixed(const QColor& ground, const QColor& hue) {
    const auto part = [](int a, int b) { return qRound(a + (b - a) * kTint); };
    return {part(ground.red(), hue.red()), part(ground.green(), hue.green()),
            part(ground.blue(), hue.blue())};
}

}  // namespace

TableCellDelegate::TableCellDelegate(const SortedReport& report, QObject* parent)
    : QStyledItemDelegate(parent), report(report) {}

int TableCellDelegate::RowHeight(const QWidget& table) {
    return TileHeight(table.fontMetrics()) + 2 * kPadding;
}

void TableCellDelegate::initStyleOption(QStyleOptionViewItem* option,
                                        const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const QModelIndex source = report.mapToSource(index);
    if (!source.isValid()) return;
    const ReportRow& row = report.Source().RowOf(source);
    if (row.mark != RowMark::kNone) {
        const QColor ground = Mixed(option->palette.color(QPalette::Base), HueOf(row.mark));
        option->backgroundBrush = ground;
        option->palette.setColor(QPalette::Text,
                                 ReadableOn(ground, option->palette.color(QPalette::Text)));
    }
    if (index.column() == 0 && report.Source().HasMarks()) {
        // An icon keeps the place of the sign in rows without one too.
        const int side = option->fontMetrics.height();
        const qreal ratio = option->widget ? option->widget->devicePixelRatioF() : 1;
        QPixmap sign(QSizeF(side * ratio, side * ratio).toSize());
        sign.setDevicePixelRatio(ratio);
        sign.fill(Qt::transparent);
        QPainter painter(&sign);
        painter.setFont(option->font);
        const bool chosen = option->state.testFlag(QStyle::State_Selected);
        painter.setPen(option->palette.color(chosen ? QPalette::HighlightedText : QPalette::Text));
        painter.drawText(QRect(0, 0, side, side), Qt::AlignCenter, SignOf(row.mark));
        painter.end();
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->icon = QIcon();
        for (const auto mode : {QIcon::Normal, QIcon::Selected}) option->icon.addPixmap(sign, mode);
        option->decorationSize = QSize(side, side);
    }
    const ReportCell* cell = report.Source().CellAt(source);
    if (cell && !cell->cards.empty()) option->text.clear();
}

void TableCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const ReportCell* cell = report.Source().CellAt(report.mapToSource(index));
    if (!cell || cell->cards.empty()) return;
    const QFontMetrics& font = option.fontMetrics;
    const bool marks = index.column() == 0 && report.Source().HasMarks();
    const int width = TileWidth(font);
    const int height = TileHeight(font);
    int left = option.rect.left() + 2 * kPadding + (marks ? font.height() + 2 * kPadding : 0);
    const int top = option.rect.center().y() - height / 2 + 1;
    const qreal ratio = painter->device()->devicePixelRatioF();
    painter->save();
    painter->setClipRect(option.rect);
    for (const CardFace& card : cell->cards) {
        if (!card.IsEmpty()) {
            const QSize tile(width, height);
            painter->drawPixmap(left, top, pictures.Get(RankPictureOf(card), tile, ratio));
            painter->drawPixmap(left + width, top, pictures.Get(SuitPictureOf(card), tile, ratio));
        }
        left += CardPitch(font);
    }
    painter->restore();
}

QSize TableCellDelegate::sizeHint(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    const ReportCell* cell = report.Source().CellAt(report.mapToSource(index));
    if (cell && !cell->cards.empty()) {
        size.rwidth() +=
            CardPitch(option.fontMetrics) * static_cast<int>(cell->cards.size()) + 2 * kPadding;
    }
    return size;
}
