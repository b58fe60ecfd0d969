#include "ui/tables/ReportTableView.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMetaMethod>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>
#include <set>
#include <utility>

#include "game/reports/ReportText.h"
#include "ui/parts/DialogParts.h"
#include "ui/tables/FindBar.h"
#include "ui/tables/FrozenTable.h"
#include "ui/tables/ReportTableModel.h"
#include "ui/tables/TableCellDelegate.h"
#include "ui/tables/TableFiles.h"
#include "ui/tables/TableHead.h"

namespace {

constexpr int kWidestColumn = 52;       // characters
constexpr int kWidestFirstColumn = 32;  // so that some of the others are seen beside it
constexpr int kNarrowestColumn = 4;
constexpr int kLeastRows = 5;

bool SameColumns(const ReportTable& a, const ReportTable& b) {
    return std::ranges::equal(a.columns, b.columns, {}, Heading, Heading);
}

// The columns by their titles, and those with the same one by their number among these.
QStringList SortNames(const ReportTable& table) {
    QStringList titles;
    QStringList names;
    for (const ReportColumn& column : table.columns) {
        titles.append(QString::fromStdString(column.title));
        const auto number = titles.count(titles.constLast());
        names.append(titles.constLast() + (number > 1 ? QString("#%1").arg(number) : QString()));
    }
    return names;
}

// -1 when there is none.
int ColumnOf(const ReportTable& table, const QString& sortName) {
    const auto named = static_cast<int>(SortNames(table).indexOf(sortName));
    if (named >= 0) return named;
    const auto found = std::ranges::find(table.columns, sortName.toStdString(), Heading);
    return found == table.columns.end() ? -1 : static_cast<int>(found - table.columns.begin());
}

}  // namespace

// Where the player is in a table whose rows may come back in other places.
struct ReportTableView::Place {
    std::int64_t row = -1;
    int column = 0;
    std::set<std::pair<std::int64_t, int>> selected;  // rows and columns
    int across = 0;
    int down = 0;
};

ReportTableView::ReportTableView(const char* name, const QString& accessibleName, QWidget* parent)
    : QWidget(parent),
      model(new ReportTableModel(this)),
      rows(new SortedReport(*model, this)),
      table(new FrozenTable(this)),
      findBar(nullptr),
      head(new TableHead(this)),
      count(new QLabel(this)),
      filter(new QLineEdit(this)) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    table->setObjectName("table");
    table->setAccessibleName(accessibleName);
    table->setModel(rows);
    table->SetDelegate(new TableCellDelegate(*rows, table));
    table->SetRowHeight(TableCellDelegate::RowHeight(*table));
    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->installEventFilter(this);
    table->setMinimumSize(WidthOf(*this, 24), TableCellDelegate::RowHeight(*table) * kLeastRows);
    setFocusProxy(table);
    findBar = new FindBar(*table, this);
    count->setObjectName("count");
    filter->setObjectName("filter");
    filter->setAccessibleName(tr("Filter"));
    filter->setPlaceholderText(tr("Filter"));
    filter->setToolTip(tr("Shows only the rows that contain this"));
    filter->setClearButtonEnabled(true);
    filter->installEventFilter(this);
    filter->hide();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(head);
    layout->addWidget(filter);
    layout->addWidget(table, 1);
    layout->addWidget(findBar);
    layout->addLayout(MakeButtons());
    Connect();
    ShowHead();
    ShowCount();
}

QLayout* ReportTableView::MakeButtons() {
    auto* row = new QHBoxLayout;
    row->addWidget(count);
    row->addStretch(1);
    AddCommand(*row, tr("Copy"), "copyTable", QKeySequence::Copy,
               tr("Copies the selected cells, or the whole table"), &ReportTableView::Copy);
    AddCommand(*row, tr("Find..."), "findInTable", QKeySequence::Find,
               tr("Looks for a word in the table"), &ReportTableView::Find);
    AddCommand(*row, tr("Save As..."), "saveTable", QKeySequence::Save,
               tr("Saves the table as CSV, HTML or text"), &ReportTableView::Save);
    AddCommand(*row, tr("Print..."), "printTable", QKeySequence::Print, tr("Prints the table"),
               &ReportTableView::Print);
    AddCommand(*row, tr("PDF..."), "tableToPdf", {}, tr("Saves the table as a PDF"),
               &ReportTableView::SavePdf);
    return row;
}

// Something to do with the table: a button, a key wherever the focus is in the view, an entry of
// the context menu.
void ReportTableView::AddCommand(QBoxLayout& row, const QString& caption, const char* name,
                                 const QKeySequence& key, const QString& tip,
                                 void (ReportTableView::*action)()) {
    auto* command = new QAction(caption, this);
    command->setObjectName(QString(name) + "Action");
    command->setShortcut(key);
    command->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(command, &QAction::triggered, this, action);
    addAction(command);
    commands.append(command);
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    button->setAccessibleDescription(tip);
    const QString keyText = key.toString(QKeySequence::NativeText);
    button->setToolTip(keyText.isEmpty() ? tip : tip + " (" + keyText + ")");
    connect(button, &QPushButton::clicked, this, action);
    row.addWidget(button);
}

void ReportTableView::Connect() {
    connect(filter, &QLineEdit::textChanged, this, [this](const QString& word) {
        const Place place = CurrentPlace();
        rows->setFilterFixedString(word);
        GoBackTo(place);
        ShowCount();
    });
    connect(table->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
            &ReportTableView::NoteSort);
    connect(table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { emit CurrentRowChanged(IdAt(current)); });
    connect(table, &QTableView::doubleClicked, this, &ReportTableView::Activate);
}

void ReportTableView::SetTable(ReportTable shown) {
    // Widths that were fitted to no rows fit none.
    const bool keepsWidths = SameColumns(model->Table(), shown) && !model->Table().rows.empty();
    const Place place = CurrentPlace();
    const QString order = sortedBy;  // which the header forgets with its columns
    const int before = static_cast<int>(model->Table().columns.size());
    QList<int> widths;
    for (int i = 0; i < before; ++i) widths.append(table->columnWidth(i));
    model->SetTable(std::move(shown));
    if (keepsWidths) {
        for (int i = 0; i < before; ++i) table->setColumnWidth(i, widths[i]);
    } else {
        FitColumns();
    }
    SortBy(order);
    GoBackTo(place);
    ShowHead();
    ShowCount();
}

const ReportTable& ReportTableView::Table() const { return model->Table(); }

ReportTable ReportTableView::Shown() const {
    std::vector<std::size_t> order;
    for (int i = 0; i < rows->rowCount(); ++i) {
        order.push_back(static_cast<std::size_t>(rows->mapToSource(rows->index(i, 0)).row()));
    }
    std::vector<std::size_t> columns(Table().columns.size());
    std::iota(columns.begin(), columns.end(), 0);
    ReportTable shown = PartOf(Table(), order, columns);
    if (!filter->text().isEmpty()) {
        const QString what = tr("%1 with \"%2\"").arg(count->text(), filter->text());
        shown.head.push_back({tr("Rows").toStdString(), what.toStdString()});
    }
    return shown;
}

void ReportTableView::OfferFilter() { filter->show(); }

void ReportTableView::SetFilter(const QString& word) { filter->setText(word); }

std::int64_t ReportTableView::IdAt(const QModelIndex& index) const {
    const QModelIndex source = rows->mapToSource(index);
    return source.isValid() ? model->RowOf(source).id : -1;
}

std::int64_t ReportTableView::CurrentRow() const { return IdAt(table->currentIndex()); }

void ReportTableView::SetCurrentRow(std::int64_t id) {
    for (int i = 0; i < rows->rowCount(); ++i) {
        const int column = std::max(table->currentIndex().column(), 0);
        const QModelIndex index = rows->index(i, column);
        if (IdAt(index) == id) return table->setCurrentIndex(index);
    }
}

QString ReportTableView::SortedBy() const { return sortedBy; }

void ReportTableView::SortBy(const QString& column) {
    sortedBy = column;
    ApplySort();
}

void ReportTableView::SetFileName(const QString& name) { fileName = name; }

QString ReportTableView::FileName() const {
    return fileName.isEmpty() ? QString::fromStdString(Table().title) : fileName;
}

// The header says it for a click and for what the program does alike.
void ReportTableView::NoteSort(int column, Qt::SortOrder order) {
    const auto at = static_cast<std::size_t>(column);
    if (column < 0) {
        sortedBy.clear();
    } else if (at < Table().columns.size()) {
        sortedBy = (order == Qt::DescendingOrder ? "-" : "") + SortNames(Table())[at];
    }
}

void ReportTableView::ApplySort() {
    const bool down = sortedBy.startsWith(u'-');
    const int column = ColumnOf(Table(), sortedBy.mid(down ? 1 : 0));
    const bool known = column >= 0;
    const QString wished = sortedBy;
    const Qt::SortOrder order = down && known ? Qt::DescendingOrder : Qt::AscendingOrder;
    table->horizontalHeader()->setSortIndicator(column, order);
    rows->sort(column, order);
    sortedBy = wished;
}

void ReportTableView::SortCurrentColumn(Qt::SortOrder order) {
    const int column = std::max(table->currentIndex().column(), 0);
    table->horizontalHeader()->setSortIndicator(column, order);
}

ReportTableView::Place ReportTableView::CurrentPlace() const {
    Place place;
    place.row = CurrentRow();
    place.column = table->currentIndex().column();
    for (const QModelIndex& index : table->selectionModel()->selectedIndexes()) {
        place.selected.emplace(IdAt(index), index.column());
    }
    place.across = table->horizontalScrollBar()->value();
    place.down = table->verticalScrollBar()->value();
    return place;
}

void ReportTableView::GoBackTo(const Place& place) {
    QItemSelection selection;
    QModelIndex current;
    for (int i = 0; i < rows->rowCount(); ++i) {
        const std::int64_t id = IdAt(rows->index(i, 0));
        for (int column = 0; column < rows->columnCount(); ++column) {
            const QModelIndex index = rows->index(i, column);
            if (place.selected.contains({id, column})) selection.select(index, index);
            if (id == place.row && column == place.column) current = index;
        }
    }
    table->selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    table->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    table->horizontalScrollBar()->setValue(place.across);
    table->verticalScrollBar()->setValue(place.down);
}

void ReportTableView::FitColumns() {
    table->resizeColumnsToContents();
    const int least = WidthOf(*table, kNarrowestColumn);
    for (int i = 0; i < rows->columnCount(); ++i) {
        const auto& all = Table().rows;
        const auto column = static_cast<std::size_t>(i);
        const bool cards = std::ranges::any_of(all, [column](const ReportRow& row) {
            return column < row.cells.size() && !row.cells[column].cards.empty();
        });
        if (cards) continue;  // half a card says nothing
        const int most = WidthOf(*table, i == 0 ? kWidestFirstColumn : kWidestColumn);
        table->setColumnWidth(i, std::clamp(table->columnWidth(i), least, most));
    }
}

void ReportTableView::ShowHead() {
    head->ShowHead(Table());
    table->setAccessibleDescription(head->InWords());
}

void ReportTableView::ShowCount() {
    const int all = model->rowCount();
    const int shown = rows->rowCount();
    if (shown < all) {
        count->setText(tr("%1 of %2 rows").arg(shown).arg(all));
    } else {
        count->setText(all == 1 ? tr("1 row") : tr("%1 rows").arg(all));
    }
}

void ReportTableView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        table->SetRowHeight(TableCellDelegate::RowHeight(*table));
    }
}

// The only table that is seen takes its keys from all over the window, but for Copy, which a text
// has too.
void ReportTableView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    const auto views = window()->findChildren<ReportTableView*>();
    const bool alone = std::ranges::count_if(views, &QWidget::isVisible) == 1;
    for (ReportTableView* view : views) view->TakeKeys(alone);
}

void ReportTableView::TakeKeys(bool alone) {
    for (QAction* command : commands) {
        const bool everywhere = alone && command->shortcut() != QKeySequence(QKeySequence::Copy);
        command->setShortcutContext(everywhere ? Qt::WindowShortcut
                                               : Qt::WidgetWithChildrenShortcut);
    }
}

// In a dialog, Enter presses its default button: not where somebody listens for the row, nor in the
// box for the filter, which Esc empties first.
bool ReportTableView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (watched == filter) {
        if (enter) {
            table->setFocus();
            return true;
        }
        if (key == Qt::Key_Escape && !filter->text().isEmpty()) {
            filter->clear();
            return true;
        }
    } else if (enter &&
               isSignalConnected(QMetaMethod::fromSignal(&ReportTableView::RowActivated))) {
        Activate();
        return true;
    } else if (key == Qt::Key_F3) {
        static_cast<QKeyEvent*>(event)->modifiers().testFlag(Qt::ShiftModifier)
            ? findBar->FindPrevious()
            : findBar->FindNext();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void ReportTableView::Activate() {
    const std::int64_t id = CurrentRow();
    if (id != -1) emit RowActivated(id);
}

void ReportTableView::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setObjectName("tableMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* action : actions()) {
        if (!commands.contains(action)) menu->addAction(action);
    }
    if (!menu->isEmpty()) menu->addSeparator();
    menu->addActions(commands);
    menu->addAction(tr("Select All"), QKeySequence::SelectAll, table, &QTableView::selectAll)
        ->setObjectName("selectAllRows");
    menu->addSeparator();
    const auto sort = [&](const QString& caption, const char* name, Qt::SortOrder order) {
        menu->addAction(caption, this, [this, order] { SortCurrentColumn(order); })
            ->setObjectName(name);
    };
    sort(tr("Sort Upwards by This Column"), "sortUp", Qt::AscendingOrder);
    sort(tr("Sort Downwards by This Column"), "sortDown", Qt::DescendingOrder);
    menu->addAction(tr("Own Order"), this, [this] { SortBy({}); })->setObjectName("ownOrder");
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QRect cell = table->visualRect(table->currentIndex());
    menu->popup(byKey && cell.isValid() ? table->viewport()->mapToGlobal(cell.bottomLeft())
                                        : event->globalPos());
}

void ReportTableView::Copy() {
    std::set<int> atRows;
    std::set<int> atColumns;
    for (const QModelIndex& index : table->selectionModel()->selectedIndexes()) {
        atRows.insert(index.row());
        atColumns.insert(index.column());
    }
    if (atRows.empty()) return CopyTable(Shown());
    std::vector<std::size_t> chosenRows;
    for (const int row : atRows) {
        const QModelIndex source = rows->mapToSource(rows->index(row, 0));
        chosenRows.push_back(static_cast<std::size_t>(source.row()));
    }
    const std::vector<std::size_t> chosenColumns(atColumns.begin(), atColumns.end());
    CopyTable(PartOf(Table(), chosenRows, chosenColumns));
}

void ReportTableView::Find() { findBar->Open(); }
void ReportTableView::Save() { SaveTable(Shown(), FileName(), this); }
void ReportTableView::Print() { PrintTable(Shown(), this); }
void ReportTableView::SavePdf() { SaveTableAsPdf(Shown(), FileName(), this); }
