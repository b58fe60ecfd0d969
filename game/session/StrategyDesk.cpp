#include "game/session/StrategyDesk.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "core/profile/ProfileFile.h"
#include "core/store/AnalysisCache.h"
#include "core/store/ComputedFile.h"
#include "core/strategy/StartingHands.h"

namespace {

std::string SectionOf(const TableOfGame& place) {
    return TableSection(place.gameName, place.tableIndex);
}

bool SamePlace(const TableOfGame& a, const TableOfGame& b) { return SectionOf(a) == SectionOf(b); }

ChartsOfWording& Of(TableCharts& charts, bool penalties) {
    return penalties ? charts.penalties : charts.plain;
}

}  // namespace

const TableCharts* StrategyDesk::Find(const ListedTable& table) {
    const std::string section = SectionOf(table.place);
    const std::string pays = PaysHash(table.table);
    const auto found = known.find(section);
    if (found != known.end() && found->second.pays == pays) return &found->second.charts;
    auto charts = ReadCharts(File(), section, table.table);
    if (!charts) return nullptr;
    return &(known[section] = {pays, std::move(*charts)}).charts;
}

const Chart* StrategyDesk::StandardChart(const ListedTable& table) {
    const TableCharts* charts = Find(table);
    if (!charts || charts->plain.reach < SearchReach::kStandard) return nullptr;
    const SearchResult::Found* standard = StandardOf(charts->plain.lists);
    return standard ? &standard->rows : nullptr;
}

void StrategyDesk::Search(const ListedTable& table, bool penalties) {
    Stop();
    Begin({table.place, table.table, penalties, true});
}

void StrategyDesk::SearchStandard(const ListedTable& table) {
    const bool possible = !table.table.lines.empty() && StartingHands::WhyNot(table.table).empty();
    const TableCharts* charts = Find(table);
    const bool searched = charts && charts->plain.reach >= SearchReach::kStandard;
    if (search || !possible || searched) return;
    Begin({table.place, table.table, false, false});
}

void StrategyDesk::Begin(ChartWish wish) {
    written = SearchReach::kNone;
    search = std::make_unique<ChartSearch>(std::move(wish));
}

bool StrategyDesk::IsSearching(const ListedTable& table, bool penalties) const {
    return search && search->Wish().penalties == penalties &&
           SamePlace(search->Wish().place, table.place) &&
           PaysHash(search->Wish().table) == PaysHash(table.table);
}

void StrategyDesk::Cancel() {
    if (search) search->Cancel();
}

// Whether the search is over is asked first: what it finds later is then taken the next time.
bool StrategyDesk::Collect() {
    if (!search) return false;
    const bool over = search->IsOver();
    const ChartSearch::Found found = search->Take();
    const ChartWish& wish = search->Wish();
    if (found.isNew || over) Merge(wish, found);
    if ((over || found.charts.reach > written) && !found.charts.lists.empty()) {
        written = found.charts.reach;
        Keep(wish);
    }
    if (over) search.reset();
    return found.isNew || over;
}

// A search that is stopped takes nothing from what an earlier one has reached. One that found
// nothing, of a table with a gigantic pay perhaps, is remembered too, so that it is not begun anew.
void StrategyDesk::Merge(const ChartWish& wish, const ChartSearch::Found& found) {
    Find({wish.place, wish.table});
    Known& all = known[SectionOf(wish.place)];
    const std::string pays = PaysHash(wish.table);
    if (all.pays != pays) all = {pays, {}};
    if (!found.charts.lists.empty()) {
        all.charts.best = found.best;
        all.charts.date = seat.clock.Now();
    }
    ChartsOfWording& charts = Of(all.charts, wish.penalties);
    for (const auto& chart : found.charts.lists) AddChart(charts.lists, chart);
    charts.reach = std::max({charts.reach, found.charts.reach, SearchReach::kSome});
}

// Only of the table as it is now: its pays may have been changed meanwhile, or it is gone.
void StrategyDesk::Keep(const ChartWish& wish) {
    const std::string section = SectionOf(wish.place);
    const auto found = known.find(section);
    const PayTable now = LoadPayTable(seat.files.Main(), wish.place, "");
    if (found == known.end() || found->second.pays != PaysHash(now)) return;
    kept = KeepCharts(File(), section, now, found->second.charts);
}

bool StrategyDesk::IsKept() {
    if (!kept) {
        PrepareComputedFile(File());
        kept = File().file.Save(paths.strategyCharts);
    }
    return kept;
}

void StrategyDesk::Stop() {
    if (!search) return;
    search->Cancel();
    while (!search->IsOver()) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    Collect();
}
