// What the strategy window shows of the charts that are known, and what it begins in the
// background.
#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QTabWidget>
#include <algorithm>
#include <utility>

#include "core/store/AnalysisCache.h"
#include "core/strategy/MakeCard.h"
#include "ui/charts/LossChart.h"
#include "ui/reports/CardFiles.h"
#include "ui/reports/StrategyWindow.h"
#include "ui/tables/ReportTableView.h"

namespace {

bool SamePlace(const TableOfGame& a, const TableOfGame& b) {
    return a.gameName == b.gameName && a.tableIndex == b.tableIndex;
}

// On a thread of its own: it has copies of all that it needs.
ChartStudy Reckon(const PayTable& table, Chart chart, const std::atomic<bool>& cancelled) {
    const LineTables tables(table);
    const StartingHands hands(tables, table);
    return StudyChart(hands, Terms(tables, table), std::move(chart),
                      [&cancelled](double) { return !cancelled; });
}

}  // namespace

const ListedTable* StrategyWindow::Current() const {
    const auto found = std::ranges::find_if(
        tables, [this](const ListedTable& table) { return SamePlace(table.place, place); });
    return found == tables.end() ? nullptr : &*found;
}

// Tables that have a key in common have the same charts at the same prices.
std::string StrategyWindow::CurrentKey() const {
    const ListedTable* table = Current();
    if (!table) return {};
    return TableSection(place.gameName, place.tableIndex) + "\n" + PaysHash(table->table);
}

QString StrategyWindow::WhyNot() const {
    const ListedTable* table = Current();
    if (!table) return tr("There are no pay tables");
    const std::string reason = StartingHands::WhyNot(table->table);
    if (reason.empty()) return {};
    return tr("There is no strategy chart for %1, which %2")
        .arg(QString::fromStdString(place.gameName), QString::fromStdString(reason));
}

void StrategyWindow::ChooseGame() {
    const QSignalBlocker quiet(index);
    index->clear();
    const std::string name = game->currentText().toStdString();
    const int wantedIndex = name == place.gameName ? place.tableIndex : 0;
    for (const ListedTable& table : tables) {
        if (table.place.gameName != name) continue;
        index->addItem(QString::number(table.place.tableIndex), table.place.tableIndex);
    }
    index->setCurrentIndex(std::max(index->findData(wantedIndex), 0));
    ChooseTable();
}

void StrategyWindow::ChooseTable() {
    const std::string name = game->currentText().toStdString();
    const int number = index->currentData().toInt();
    const TableOfGame before = place;
    const auto found = std::ranges::find_if(tables, [&](const ListedTable& table) {
        return table.place.gameName == name && table.place.tableIndex == number;
    });
    if (found != tables.end()) place = found->place;
    if (!SamePlace(before, place)) wanted.reset();
    ShowLists();
    begin.start();
}

// Every chart without conditions is one that may have some.
void StrategyWindow::ShowLists() {
    lists.clear();
    best = 0;
    const ListedTable* table = Current();
    const bool possible = table && WhyNot().isEmpty();
    if (const TableCharts* known = possible ? desk.Find(*table) : nullptr) {
        lists = known->plain.lists;
        best = known->best;
        if (penalties->isChecked()) {
            for (const auto& chart : known->penalties.lists) AddChart(lists, chart);
        }
    }
    QList<LossChart::Point> points;
    for (const auto& [chart, loss] : lists) {
        points.append({static_cast<int>(chart.size()), loss});
    }
    curve->SetSubject(tr("%1(%2), %3 coins")
                          .arg(QString::fromStdString(place.gameName))
                          .arg(place.tableIndex)
                          .arg(kFullBet),
                      tr("%1 losses").arg(QString::fromStdString(place.gameName)));
    curve->ShowLosses(points, best);
    ShowLength();
    ShowRun();
    look.start();
}

const SearchResult::Found* StrategyWindow::Chosen() const {
    if (wanted) return BestOfRows(lists, static_cast<std::size_t>(*wanted));
    const SearchResult::Found* standard = StandardOf(lists);
    return standard || lists.empty() ? standard : &lists.front();
}

void StrategyWindow::ChooseLength(int chosen) {
    wanted = chosen;
    ShowLength();
}

void StrategyWindow::ShowLength() {
    const SearchResult::Found* chosen = Chosen();
    length->setEnabled(chosen != nullptr);
    if (chosen) {
        const QSignalBlocker quiet(length);
        length->setRange(static_cast<int>(lists.front().rows.size()),
                         static_cast<int>(lists.back().rows.size()));
        length->setValue(wanted.value_or(static_cast<int>(chosen->rows.size())));
        curve->Mark(static_cast<int>(chosen->rows.size()));
    }
    ShowStudy();
    if (chosen && !IsStudied()) BeginStudy();
}

bool StrategyWindow::IsStudied() const {
    const SearchResult::Found* chosen = Chosen();
    return chosen && shown && shownTable == CurrentKey() && shown->study.chart == chosen->rows;
}

// One at a time; a chart that is found in between is studied when this one is done.
void StrategyWindow::BeginStudy() {
    const ListedTable* table = Current();
    const SearchResult::Found* chosen = Chosen();
    if (!table || !chosen) return;
    const std::string key = CurrentKey();
    if (study && study->table == key && study->chart == chosen->rows) return;
    if (study && desk.IsSearching()) return;
    study = std::make_unique<Study>();
    study->table = key;
    study->chart = chosen->rows;
    study->result = std::async(std::launch::async, Reckon, table->table, chosen->rows,
                               std::cref(study->cancelled));
    look.start();
}

// What is seen is always of one chart: until the new one has been studied, nothing is.
void StrategyWindow::ShowStudy() {
    const SearchResult::Found* chosen = Chosen();
    const double coin = seat.engine.settings.coin;
    if (!chosen) {
        shown.reset();
        study.reset();
        price->clear();
    } else {
        const ChartPrice nearly{chosen->rows.size(), best, chosen->loss};
        price->setText(
            QString::fromStdString(PriceText(IsStudied() ? PriceOf(shown->study) : nearly, coin)));
    }
    length->setAccessibleDescription(price->text());
    const bool stale = shown && shownTable != CurrentKey();
    if (stale) shown.reset();
    const QString name = QString::fromStdString(place.gameName);
    rows->SetFileName(tr("%1 strategy").arg(name));
    exceptions->SetFileName(tr("%1 exceptions").arg(name));
    if (!shown) {
        rows->SetTable({});
    } else {
        shown->coin = coin;
        rows->SetTable(ChartTable(*shown));
    }
    ShowExceptions();
}

// The groups, or the hands of one.
void StrategyWindow::ShowExceptions() {
    const int before = group->currentIndex();
    const bool sameChart = shown && group->property("chart").toString() == price->text();
    group->clear();
    group->addItem(tr("All kinds"));
    if (!shown) return exceptions->SetTable({});
    for (const ExceptionGroup& each : shown->study.exceptions) {
        group->addItem(QString::fromStdString(GroupName(shown->study.chart, each)));
    }
    group->setProperty("chart", price->text());
    group->setCurrentIndex(sameChart ? std::clamp(before, 0, group->count() - 1) : 0);
    const int chosen = group->currentIndex();
    exceptions->SetTable(chosen <= 0
                             ? ExceptionTable(*shown)
                             : ExceptionHandTable(*shown, static_cast<std::size_t>(chosen) - 1));
}

// A search that was stopped is not begun again unasked; one that only the reason of a best play
// asked for has gone no further than the standard chart.
void StrategyWindow::BeginIfNothingIsKnown() {
    const ListedTable* table = Current();
    if (!isVisible() || !table || !WhyNot().isEmpty() || desk.IsSearching()) return;
    const TableCharts* known = desk.Find(*table);
    const SearchReach reach = known
                                  ? (penalties->isChecked() ? known->penalties : known->plain).reach
                                  : SearchReach::kNone;
    const bool whole = reach == SearchReach::kWhole || reach == SearchReach::kSome;
    if (!whole && !stopped.contains(SearchKey())) Find();
}

std::string StrategyWindow::SearchKey() const {
    return CurrentKey() + (penalties->isChecked() ? "\npenalties" : "");
}

void StrategyWindow::Find() {
    const ListedTable* table = Current();
    if (!table || !WhyNot().isEmpty()) return;
    desk.Search(*table, penalties->isChecked());
    searching = true;
    ShowLists();
    if (isActiveWindow() && find->hasFocus()) cancel->setFocus();
}

void StrategyWindow::Cancel() {
    stopped.insert(SearchKey());
    desk.Cancel();
}

void StrategyWindow::Look() {
    const bool hadFocus = cancel->hasFocus();
    const bool isNew = desk.Collect();
    if (study && study->result.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
        ChartStudy done = study->result.get();
        const std::string key = std::exchange(study, nullptr)->table;
        const SearchResult::Found* chosen = Chosen();
        const bool known =
            std::ranges::any_of(lists, [&](const auto& each) { return each.rows == done.chart; });
        if (!done.cancelled && key == CurrentKey() && chosen &&
            (known || done.chart == chosen->rows)) {
            shown = {place, seat.engine.settings.coin, std::move(done)};
            shownTable = key;
        }
        ShowLength();
    }
    // The lines below a report take up what is found as well.
    const bool ended = std::exchange(searching, desk.IsSearching()) && !searching;
    if (isNew || ended) ShowLists();
    if (ended) begin.start();
    ShowRun();
    if (hadFocus && !cancel->isVisible()) rows->setFocus();
    if (!desk.IsSearching() && !study) look.stop();
}

void StrategyWindow::ShowRun() {
    const ListedTable* table = Current();
    const QString whyNot = WhyNot();
    const bool possible = table && whyNot.isEmpty();
    const bool here = possible && desk.IsSearching(*table, penalties->isChecked());
    const TableCharts* known = possible ? desk.Find(*table) : nullptr;
    const ChartsOfWording none;
    const ChartsOfWording& charts =
        known ? (penalties->isChecked() ? known->penalties : known->plain) : none;
    bar->setVisible(desk.IsSearching());
    bar->setValue(static_cast<int>(desk.Share() * 100));
    cancel->setVisible(desk.IsSearching());
    find->setVisible(!here);
    find->setEnabled(possible && charts.reach != SearchReach::kWhole);
    const bool hasChart = IsStudied();
    for (QPushButton* button : {saveCard, printCard}) button->setEnabled(hasChart);
    analyzeHand->setEnabled(HandOfRow().has_value());
    if (!possible) {
        state->setText(whyNot);
    } else if (here) {
        state->setText(lists.empty() ? tr("Searching...")
                                     : tr("Searching: the charts found so far are valid"));
    } else if (desk.IsSearching()) {
        state->setText(tr("Searching for another table"));
    } else if (!desk.IsKept()) {
        state->setText(
            tr("The charts could not be written. Make room on the disk, and see to it that you "
               "may write the program's data folder."));
    } else if (charts.reach == SearchReach::kWhole) {
        state->setText(tr("Charts of all lengths have been searched for"));
    } else {
        state->setText(charts.lists.empty() ? tr("No chart has been searched for")
                                            : tr("There may be better charts"));
    }
}

// Of the row with the cursor, in the tab that is seen.
std::optional<std::string> StrategyWindow::HandOfRow() const {
    if (!shown || shownTable != CurrentKey()) return std::nullopt;
    const ChartStudy& chart = shown->study;
    const auto textOf = [](const Hand& hand) -> std::optional<std::string> {
        if (hand[0].IsEmpty()) return std::nullopt;
        return TypedText(hand);
    };
    if (tabs->currentWidget() == rows) {
        const auto row = static_cast<std::size_t>(rows->CurrentRow());
        if (rows->CurrentRow() == 0) return textOf(chart.grade.rest.example);
        if (rows->CurrentRow() < 0 || row > chart.examples.size()) return std::nullopt;
        return textOf(chart.examples[row - 1].hand);
    }
    const auto row = static_cast<std::size_t>(exceptions->CurrentRow());
    if (tabs->currentWidget() == curve || exceptions->CurrentRow() < 0) return std::nullopt;
    const auto at = static_cast<std::size_t>(std::max(group->currentIndex(), 0));
    const std::size_t kind = at == 0 ? row : at - 1;
    if (kind >= chart.exceptions.size()) return std::nullopt;
    const auto& hands = chart.exceptions[kind].dearest;
    const std::size_t hand = at == 0 ? 0 : row;
    return hand < hands.size() ? textOf(hands[hand].hand) : std::nullopt;
}

void StrategyWindow::AnalyzeHand() {
    if (const auto hand = HandOfRow()) analyze(place, *hand);
}

void StrategyWindow::SaveCard() {
    const ListedTable* table = Current();
    if (!table || !IsStudied()) return;
    const auto date = QDate::currentDate().toString(Qt::ISODate).toStdString();
    ::SaveCard(MakeCard(place, table->table, shown->study, date),
               tr("%1 card").arg(QString::fromStdString(place.gameName)), this);
}

void StrategyWindow::PrintCard() {
    const ListedTable* table = Current();
    if (!table || !IsStudied()) return;
    const auto date = QDate::currentDate().toString(Qt::ISODate).toStdString();
    ::PrintCard(MakeCard(place, table->table, shown->study, date), this);
}
