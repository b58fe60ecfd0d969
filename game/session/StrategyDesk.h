// The strategy charts of all tables as the program knows them: those kept in their file, those
// found since, and the search for more in the background. Nothing here touches what is played.
#pragma once
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/store/DataFiles.h"
#include "game/reports/AllGamesRows.h"
#include "game/seat/Seat.h"
#include "game/session/ChartSearch.h"

class StrategyDesk {
  public:
    // Both outlive the desk.
    StrategyDesk(Seat& seat, const DataFilePaths& paths) : seat(seat), paths(paths) {}

    // Every table, as the files have it now.
    std::vector<ListedTable> Tables() const { return ListTables(seat.files.Main()); }

    // What is known of a table; nullptr when nothing is of these pays. Good until the next call.
    const TableCharts* Find(const ListedTable& table);

    // Its standard chart; nullptr while it has not been found.
    const Chart* StandardChart(const ListedTable& table);

    // Searches for charts of all lengths, in place of whatever is searched for. What that has found
    // is kept.
    void Search(const ListedTable& table, bool penalties);

    // Searches for the standard chart when nothing is searched for, and there can be one and has
    // been no search to its end.
    void SearchStandard(const ListedTable& table);

    bool IsSearching() const { return search != nullptr; }
    bool IsSearching(const ListedTable& table, bool penalties) const;
    double Share() const { return search ? search->Share() : 1; }  // 0..1

    // What has been found is kept.
    void Cancel();

    // Takes up what has been found since; to be called from time to time while a search goes on,
    // which ends here. True when there is anything new.
    bool Collect();

    // Whether all that was to be kept so far has reached the disk; tries again to bring the rest.
    bool IsKept();

    // Ends the search and keeps what it has found; waits some tenths of a second at most.
    void Stop();

  private:
    struct Known {
        std::string pays;
        TableCharts charts;
    };

    ProfileOnDisk File() const { return {seat.files.file, paths.strategyCharts}; }
    void Begin(ChartWish wish);
    void Merge(const ChartWish& wish, const ChartSearch::Found& found);
    void Keep(const ChartWish& wish);

    Seat& seat;
    const DataFilePaths& paths;
    std::map<std::string, Known> known;  // by section
    std::unique_ptr<ChartSearch> search;
    SearchReach written = SearchReach::kNone;  // of the search, what was last kept
    bool kept = true;
};
