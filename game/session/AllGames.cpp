#include "game/session/AllGames.h"

#include <algorithm>

#include "core/profile/ProfileFile.h"
#include "core/store/AnalysisCache.h"
#include "core/store/ComputedFile.h"

AllGames::AllGames(Seat& seat, const DataFilePaths& paths) : seat(seat), paths(paths) { Refresh(); }

void AllGames::Refresh() {
    games = ListTables(seat.files.Main());
    if (kept) return;
    PrepareComputedFile(Cache());
    kept = seat.files.file.Save(paths.analysisCache);
}

std::optional<TableOfGame> AllGames::PlaceOf(std::int64_t id) const {
    const auto found = std::ranges::find(games, id, &ListedTable::Id);
    if (found == games.end()) return std::nullopt;
    return found->place;
}

bool AllGames::CanAnalyze(std::int64_t id) const {
    const auto found = std::ranges::find(games, id, &ListedTable::Id);
    return found != games.end() && CanAnalyzeGame(found->table);
}

std::int64_t AllGames::PlayedId() const {
    return ListedTable{CurrentTable(seat.engine.settings), {}}.Id();
}

int AllGames::CountMissing() const {
    return static_cast<int>(std::ranges::count_if(
        games, [this](const ListedTable& game) { return IsMissing(game, Cache()); }));
}

void AllGames::AnalyzeMissing() {
    if (run) return;
    std::vector<AnalyzedTable> missing;
    for (const ListedTable& game : games) {
        if (IsMissing(game, Cache())) missing.push_back({game.place, game.table, {}});
    }
    if (missing.empty()) return;
    coin = seat.engine.settings.coin;
    run = std::make_unique<BackgroundAnalysis>(std::move(missing), coin);
}

void AllGames::Cancel() {
    if (run) run->Cancel();
}

// Whether the run is over is asked first: what it finds later is then taken the next time.
bool AllGames::Collect() {
    if (!run) return false;
    const bool over = run->IsOver();
    auto found = run->TakeDone();
    if (over) run.reset();
    std::erase_if(found, [this](const AnalyzedTable& done) {
        const auto& [gameId, gameName, tableIndex] = done.place;
        return !TableExists(seat.files.Main(), gameName, tableIndex) ||
               PaysHash(LoadPayTable(seat.files.Main(), done.place, "")) != PaysHash(done.table);
    });
    if (found.empty()) return false;
    for (const auto& [place, table, totals] : found) {
        WriteToCache(AnalysisEntries(totals, table, coin),
                     StampOf(totals, table, coin, seat.clock.Now()),
                     TableSection(place.gameName, place.tableIndex), Cache());
    }
    kept = seat.files.file.Save(paths.analysisCache);
    return true;
}
