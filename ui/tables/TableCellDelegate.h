// Paints the cells of a report's table: small cards, and rows that are marked by a colour and, in
// the first column, by a sign.
#pragma once
#include <QStyledItemDelegate>

#include "ui/art/PictureStore.h"

class SortedReport;

class TableCellDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    // The report outlives the delegate.
    TableCellDelegate(const SortedReport& report, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // Logical pixels, for a row with cards or without.
    static int RowHeight(const QWidget& table);

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  private:
    const SortedReport& report;
    mutable PictureStore pictures;  // a cache
};
