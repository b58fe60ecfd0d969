// Qt's table view with a first column that stands still while the others scroll sideways: a second
// view of that column alone lies over it, with the same model, selection, widths and scroll place.
#pragma once
#include <QTableView>

class FrozenTable : public QTableView {
    Q_OBJECT

  public:
    explicit FrozenTable(QWidget* parent);

    // To be called once. Columns that a later reset of the model brings are taken up.
    void setModel(QAbstractItemModel* shown) override;

    // Of all rows in both views, in logical pixels.
    void SetRowHeight(int height);

    void SetDelegate(QAbstractItemDelegate* delegate);

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void updateGeometries() override;

  private:
    void ShowFirstColumnAlone();
    void LayOutFrozen();

    QTableView* frozen;
};
