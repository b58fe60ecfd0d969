#include "ui/tables/FrozenTable.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

namespace {

void MakeReady(QTableView& table) {
    table.verticalHeader()->hide();
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    table.setWordWrap(false);
    table.setTabKeyNavigation(false);
    QHeaderView& header = *table.horizontalHeader();
    header.setHighlightSections(false);
    header.setSectionsClickable(true);
    header.setSortIndicatorShown(true);
    header.setSortIndicatorClearable(true);  // a third click brings the report's own order back
    header.setSortIndicator(-1, Qt::AscendingOrder);
}

}  // namespace

FrozenTable::FrozenTable(QWidget* parent) : QTableView(parent), frozen(new QTableView(this)) {
    MakeReady(*this);
    MakeReady(*frozen);
    setSortingEnabled(true);
    frozen->setObjectName("frozen");
    frozen->setFrameShape(QFrame::NoFrame);
    frozen->setFocusPolicy(Qt::ClickFocus);
    frozen->setFocusProxy(this);
    frozen->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    frozen->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    frozen->setContextMenuPolicy(Qt::NoContextMenu);  // the event goes on to this view
    viewport()->stackUnder(frozen);

    QHeaderView* header = horizontalHeader();
    QHeaderView* frozenHeader = frozen->horizontalHeader();
    connect(header, &QHeaderView::sectionResized, this, [this](int section, int, int width) {
        if (section == 0) frozen->setColumnWidth(0, width);
        LayOutFrozen();
    });
    connect(frozenHeader, &QHeaderView::sectionResized, this, [this](int section, int, int width) {
        if (section == 0 && width > 0) setColumnWidth(0, width);
    });
    connect(header, &QHeaderView::sortIndicatorChanged, frozenHeader,
            &QHeaderView::setSortIndicator);
    connect(frozenHeader, &QHeaderView::sortIndicatorChanged, header,
            &QHeaderView::setSortIndicator);
    QScrollBar* bar = verticalScrollBar();
    QScrollBar* frozenBar = frozen->verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, frozenBar, &QScrollBar::setValue);
    connect(frozenBar, &QScrollBar::valueChanged, bar, &QScrollBar::setValue);
    connect(frozen, &QTableView::doubleClicked, this, &QTableView::doubleClicked);
}

void FrozenTable::setModel(QAbstractItemModel* shown) {
    QTableView::setModel(shown);
    frozen->setModel(shown);
    QItemSelectionModel* ownSelection = frozen->selectionModel();
    frozen->setSelectionModel(selectionModel());
    delete ownSelection;
    connect(shown, &QAbstractItemModel::modelReset, this, &FrozenTable::ShowFirstColumnAlone);
    ShowFirstColumnAlone();
}

void FrozenTable::ShowFirstColumnAlone() {
    for (int column = 0; column < model()->columnCount(); ++column) {
        frozen->setColumnHidden(column, column > 0);
    }
    frozen->setColumnWidth(0, columnWidth(0));
    LayOutFrozen();
}

void FrozenTable::SetRowHeight(int height) {
    for (QTableView* table : {static_cast<QTableView*>(this), frozen}) {
        table->verticalHeader()->setMinimumSectionSize(1);
        table->verticalHeader()->setDefaultSectionSize(height);
    }
}

void FrozenTable::SetDelegate(QAbstractItemDelegate* delegate) {
    setItemDelegate(delegate);
    frozen->setItemDelegate(delegate);
}

void FrozenTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    LayOutFrozen();
}

void FrozenTable::updateGeometries() {
    QTableView::updateGeometries();
    LayOutFrozen();
}

void FrozenTable::LayOutFrozen() {
    frozen->horizontalHeader()->setFixedHeight(horizontalHeader()->height());
    const int width = std::min(columnWidth(0), viewport()->width());
    frozen->setGeometry(frameWidth(), frameWidth(), width,
                        viewport()->height() + horizontalHeader()->height());
    frozen->setVisible(model() && model()->columnCount() > 0);
}

// The first column is always in sight; the others must not end up below it.
void FrozenTable::scrollTo(const QModelIndex& index, ScrollHint hint) {
    QScrollBar* bar = horizontalScrollBar();
    const int before = bar->value();
    QTableView::scrollTo(index, hint);
    if (index.column() == 0) {
        bar->setValue(before);
        return;
    }
    const int left = visualRect(index).left();
    const int first = columnWidth(0);
    if (left < first) bar->setValue(bar->value() + left - first);
}
