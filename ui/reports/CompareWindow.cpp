#include "ui/reports/CompareWindow.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <limits>
#include <utility>

#include "core/store/AnalysisCache.h"
#include "game/seat/Seat.h"
#include "ui/parts/DialogParts.h"
#include "ui/reports/ReportFrame.h"
#include "ui/reports/TableChoice.h"
#include "ui/tables/ReportTableView.h"

namespace {

constexpr int kPause = 200;  // milliseconds
constexpr int kLookInterval = 50;
constexpr int kShownCharacters = 130;
constexpr int kShownLines = 36;
constexpr int kFewestRows = 3;  // shown of the grid, its head included
constexpr int kPart = 2;        // of the height for the grid, against kParts for the tables
constexpr int kParts = 3;
constexpr int kLineColumn = 0;
constexpr int kPayOfA = 1;
constexpr int kPayOfB = 2;

}  // namespace

CompareWindow::CompareWindow(Seat& seat, OpenHand openHand)
    : BesideWindow("compare"), seat(seat), openHand(std::move(openHand)) {
    setWindowTitle(tr("Compare"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeChoice());
    words = MakeWords("words");
    words->setAccessibleName(tr("What the comparison says"));
    layout->addWidget(words);
    layout->addWidget(MakeTabs(), kParts);
    layout->addLayout(MakeBottom());
    pause.setSingleShot(true);
    pause.setInterval(kPause);
    connect(&pause, &QTimer::timeout, this, &CompareWindow::Begin);
    look.setInterval(kLookInterval);
    connect(&look, &QTimer::timeout, this, &CompareWindow::LookAtWork);
    ReportFrame& frame = Furnish(kShownCharacters, kShownLines, [this] { ReadTables(); });
    frame.Keep(*tabs);
    frame.Keep(*played);
}

CompareWindow::~CompareWindow() = default;

QLayout* CompareWindow::MakeChoice() {
    a = new TableChoice(this);
    a->setObjectName("tableA");
    b = new TableChoice(this);
    b->setObjectName("tableB");
    otherPays = new QCheckBox(tr("B is A with &other pays"), this);
    otherPays->setObjectName("otherPays");
    pays = new QTableWidget(0, 3, this);
    pays->setObjectName("pays");
    pays->setAccessibleName(tr("Pays of A and B, in coins for each coin of a full bet"));
    pays->setHorizontalHeaderLabels({tr("Line"), tr("A pays"), tr("B pays")});
    pays->horizontalHeader()->setSectionResizeMode(kLineColumn, QHeaderView::Stretch);
    pays->verticalHeader()->hide();
    pays->setTabKeyNavigation(false);
    pays->verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() * 3 / 2);
    pays->setMinimumHeight(fontMetrics().lineSpacing() * 3 / 2 * kFewestRows);
    pays->hide();
    auto* grid = new QGridLayout;
    grid->addWidget(Caption(tr("&A:"), a), 0, 0);
    grid->addWidget(a, 0, 1);
    grid->addWidget(Caption(tr("&B:"), b), 0, 2);
    grid->addWidget(b, 0, 3);
    grid->addWidget(otherPays, 1, 0, 1, 4);
    grid->addWidget(pays, 2, 0, 1, 4);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    connect(a, &TableChoice::currentIndexChanged, this, [this] {
        FillPays();
        Wait();
    });
    connect(b, &TableChoice::currentIndexChanged, this, &CompareWindow::Wait);
    connect(otherPays, &QCheckBox::toggled, this, [this](bool on) {
        pays->setVisible(on);
        static_cast<QVBoxLayout*>(layout())->setStretch(0, on ? kPart : 0);
        b->setEnabled(!on);
        Wait();
    });
    connect(pays, &QTableWidget::cellChanged, this, [this](int row) { TakePay(row); });
    return grid;
}

QWidget* CompareWindow::MakeTabs() {
    tabs = new QTabWidget(this);
    tabs->setObjectName("tabs");
    played = new ReportTableView("played", tr("What is played differently"), tabs);
    played->SetFileName(tr("played differently"));
    lines = new ReportTableView("lines", tr("Where the difference comes from"), tabs);
    lines->SetFileName(tr("comparison"));
    tabs->addTab(played, tr("&Played differently"));
    tabs->addTab(lines, tr("&Lines"));
    connect(played, &ReportTableView::RowActivated, this, [this] { OpenHands(); });
    connect(played, &ReportTableView::CurrentRowChanged, this,
            [this](qint64 row) { hands->setEnabled(row >= 0); });
    return tabs;
}

QLayout* CompareWindow::MakeBottom() {
    hands = new QPushButton(tr("&Hand on Both"), this);
    hands->setObjectName("hands");
    hands->setEnabled(false);
    hands->setToolTip(tr("Opens the hand of the row on A and on B, in windows of their own"));
    connect(hands, &QPushButton::clicked, this, &CompareWindow::OpenHands);
    bar = new QProgressBar(this);
    return MakeFoot(hands, bar);
}

void CompareWindow::Open() {
    ReadTables();
    ShowInFront();
    a->setFocus();
}

void CompareWindow::ReadTables() {
    const auto tables = ListTables(seat.files.Main());
    const TableOfGame current = CurrentTable(seat.engine.settings);
    a->SetTables(tables, current);
    b->SetTables(tables, current);
    FillPays();
    Begin();
}

// What was typed stays as long as A is the same.
void CompareWindow::FillPays() {
    const QSignalBlocker quiet(pays);
    const ListedTable* chosen = a->Chosen();
    const bool same = chosen && chosen->table.gameId == paysOfA.gameId &&
                      PaysHash(chosen->table) == PaysHash(paysOfA);
    if (same && pays->rowCount() > 0) return;
    pays->setRowCount(0);
    if (!chosen) return;
    paysOfA = paysOfB = chosen->table;
    for (const PayLine& line : paysOfB.lines) {
        const int row = pays->rowCount();
        pays->insertRow(row);
        const QString pay = PayOfA(row);
        for (const auto& [column, text] :
             {std::pair(kLineColumn, QString::fromStdString(line.description)),
              {kPayOfA, pay},
              {kPayOfB, pay}}) {
            auto* item = new QTableWidgetItem(text);
            if (column != kPayOfB) item->setFlags(item->flags() & ~Qt::ItemIsEditable);
            if (column != kLineColumn) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            pays->setItem(row, column, item);
        }
    }
}

QString CompareWindow::PayOfA(int row) const {
    const int coins = paysOfA.lines[static_cast<std::size_t>(row)].maxPayout;
    return QString::number(static_cast<double>(coins) / kFullBet, 'f',
                           coins % kFullBet == 0 ? 0 : 1);
}

// What is no pay is put back. A's own need not be whole.
void CompareWindow::TakePay(int row) {
    PayLine& line = paysOfB.lines[static_cast<std::size_t>(row)];
    const QString typed = pays->item(row, kPayOfB)->text().trimmed();
    if (typed == PayOfA(row)) {
        line = paysOfA.lines[static_cast<std::size_t>(row)];
        return Wait();
    }
    bool valid = false;
    const int pay = typed.toInt(&valid);
    if (valid && pay >= 0 && pay <= std::numeric_limits<int>::max() / kFullBet) {
        line.payout = pay;
        line.maxPayout = pay * kFullBet;
        return Wait();
    }
    const QSignalBlocker quiet(pays);
    const bool asA = line.maxPayout == paysOfA.lines[static_cast<std::size_t>(row)].maxPayout;
    pays->item(row, kPayOfB)->setText(asA ? PayOfA(row) : QString::number(LineCoinPay(line)));
    words->setText(tr("A pay is a whole number of coins, 0 or more."));
}

std::optional<ListedTable> CompareWindow::TableB() const {
    const ListedTable* chosen = otherPays->isChecked() ? a->Chosen() : b->Chosen();
    if (!chosen) return std::nullopt;
    return otherPays->isChecked() ? ListedTable{chosen->place, paysOfB} : *chosen;
}

ComparedNames CompareWindow::Names() const {
    const QString nameA = a->currentText();
    const QString nameB =
        otherPays->isChecked() ? tr("%1, with other pays").arg(nameA) : b->currentText();
    return {nameA.toStdString(), nameB.toStdString()};
}

void CompareWindow::Wait() {
    work.Cancel();
    pause.start();
}

void CompareWindow::Begin() {
    pause.stop();
    const auto tableB = TableB();
    if (!a->Chosen() || !tableB) return;
    asked = {*a->Chosen(), *tableB};
    work.Start([tables = asked](const auto& goOn) {
        return CompareGames(tables.a.table, tables.b.table, goOn);
    });
    bar->setValue(0);
    bar->show();
    look.start();
}

void CompareWindow::LookAtWork() {
    bar->setValue(static_cast<int>(work.Share() * 100));
    auto found = work.Take();
    if (!found && work.IsRunning()) return;
    look.stop();
    bar->hide();
    if (!found || found->cancelled) return;
    result = std::move(found);
    compared = asked;
    ShowResult();
}

void CompareWindow::ShowResult() {
    words->setText(QString::fromStdString(ComparisonInWords(*result)));
    played->SetTable(PlayedTable(*result, Names()));
    lines->SetTable(DifferenceTable(*result, Names()));
    hands->setEnabled(played->CurrentRow() >= 0);
}

void CompareWindow::OpenHands() {
    const auto row = played->CurrentRow();
    if (!result || !result->play || row < 0) return;
    const Hand& hand = result->play->classes[static_cast<std::size_t>(row)].example;
    openHand(compared.a.place, compared.a.table, hand);
    openHand(compared.b.place, compared.b.table, hand);
}
