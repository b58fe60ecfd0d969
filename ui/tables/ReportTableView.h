// A report as a table: the head and a warning above it, the rows to be sorted, searched and
// filtered, and buttons that copy, save and print them. The first column stands still, Enter
// activates a row, and what a row is marked as is seen, heard and saved.
//
//     view->SetTable(HandTable(engine, HandDisplay::kHands));
//
// Actions added to the view (addAction) come first in its context menu, for what can be done with
// the current row.
#pragma once
#include <QWidget>
#include <cstdint>

#include "game/reports/ReportTable.h"

class FindBar;
class FrozenTable;
class QAction;
class QBoxLayout;
class QLabel;
class QLineEdit;
class ReportTableModel;
class SortedReport;
class TableHead;

class ReportTableView : public QWidget {
    Q_OBJECT

  public:
    // The name is that of the view; its parts are "table", "head", "warning", "filter", "count",
    // "findBar", and the buttons "copyTable", "findInTable", "saveTable", "printTable" and
    // "tableToPdf".
    ReportTableView(const char* name, const QString& accessibleName, QWidget* parent);

    // Keeps the sort order, the filter, the selection by the ids of its rows, and the place that is
    // scrolled to; the widths of the columns as long as their titles are the same.
    void SetTable(ReportTable table);
    const ReportTable& Table() const;

    // The rows as they are shown: sorted, without those that the filter hides, which the head then
    // says.
    ReportTable Shown() const;

    // Shows the box to type a word that the rows must contain.
    void OfferFilter();
    void SetFilter(const QString& word);

    // The id of the row with the cursor; -1 for none.
    std::int64_t CurrentRow() const;
    // Nothing for an id that is not shown.
    void SetCurrentRow(std::int64_t id);

    // "Return" upwards, "-Return" downwards, "Cost#2" the second of two columns with that title;
    // empty for the report's own order. The unit does not matter, since it may change with what is
    // shown; a heading with its unit is understood too. One that the table does not have is waited
    // for.
    QString SortedBy() const;
    void SortBy(const QString& column);

    // What files are proposed as, without an extension; the title at first.
    void SetFileName(const QString& name);

  signals:
    void RowActivated(qint64 id);
    void CurrentRowChanged(qint64 id);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    struct Place;

    QLayout* MakeButtons();
    void AddCommand(QBoxLayout& row, const QString& caption, const char* name,
                    const QKeySequence& key, const QString& tip, void (ReportTableView::*action)());
    void TakeKeys(bool alone);
    void Connect();
    void SortCurrentColumn(Qt::SortOrder order);
    void ApplySort();
    void NoteSort(int column, Qt::SortOrder order);
    Place CurrentPlace() const;
    void GoBackTo(const Place& place);
    void FitColumns();
    void ShowHead();
    void ShowCount();
    std::int64_t IdAt(const QModelIndex& index) const;
    QString FileName() const;
    void Activate();

    void Copy();
    void Find();
    void Save();
    void Print();
    void SavePdf();

    ReportTableModel* model;
    SortedReport* rows;
    FrozenTable* table;
    FindBar* findBar;
    TableHead* head;
    QLabel* count;
    QLineEdit* filter;
    QList<QAction*> commands;
    QString sortedBy;
    QString fileName;
};
