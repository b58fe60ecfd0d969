// All games and tables at once: what the player sees of them, and the analysis of those that have
// none yet.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/store/DataFiles.h"
#include "game/reports/AllGamesRows.h"
#include "game/seat/Seat.h"
#include "game/session/BackgroundAnalysis.h"

// The objects referred to outlive it.
class AllGames {
  public:
    AllGames(Seat& seat, const DataFilePaths& paths);

    // Reads the pay tables and the analyses anew, and tries again to write what is not kept yet.
    void Refresh();

    ReportTable Table() const { return AllGamesTable(games, Cache(), seat.clock.Now()); }

    // The table of a row; nothing for an id that no row has.
    std::optional<TableOfGame> PlaceOf(std::int64_t id) const;
    bool CanAnalyze(std::int64_t id) const;

    // The row of the table that is played, where it is listed.
    std::int64_t PlayedId() const;

    // How many tables can be analysed and are not.
    int CountMissing() const;

    // Begins to analyse them in the background; nothing when none is missing or a run goes on.
    void AnalyzeMissing();
    bool IsRunning() const { return run != nullptr; }
    double Share() const { return run ? run->Share() : 1; }  // 0..1 of the run's work

    // What has been found is kept; what is not analysed yet is left out.
    void Cancel();

    // Stores what the run has found since; to be called from time to time while one goes on, which
    // ends here. True when anything was stored. Tables that are gone or
    // changed meanwhile are passed over.
    bool Collect();

    // Where it is stored.
    const std::string& CacheName() const { return paths.analysisCache; }

    // Whether all that was stored so far has reached the disk; Refresh tries to bring the rest.
    bool IsKept() const { return kept; }

  private:
    ProfileOnDisk Cache() const { return {seat.files.file, paths.analysisCache}; }

    Seat& seat;
    const DataFilePaths& paths;
    std::vector<ListedTable> games;
    std::unique_ptr<BackgroundAnalysis> run;
    double coin = 0;  // dollars, of the run
    bool kept = true;
};
