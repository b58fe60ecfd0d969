// A report's table for Qt's views, and the order and choice of its rows.
#pragma once
#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

#include "game/reports/ReportTable.h"

class ReportTableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    void SetTable(ReportTable shown);
    const ReportTable& Table() const { return table; }
    bool HasMarks() const { return marks; }

    // Nothing for a cell that the table does not have.
    const ReportCell* CellAt(const QModelIndex& index) const;
    // The index is valid.
    const ReportRow& RowOf(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    ReportTable table;
    bool marks = false;
};

// Numbers by their value, texts without regard to letter case; equal ones stay in the report's own
// order, cells without a value come last in either direction. The filter looks at all columns.
class SortedReport : public QSortFilterProxyModel {
    Q_OBJECT

  public:
    explicit SortedReport(ReportTableModel& source, QObject* parent);

    const ReportTableModel& Source() const { return source; }

  protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

  private:
    int Compare(const ReportCell& a, const ReportCell& b, int column) const;

    ReportTableModel& source;
};
