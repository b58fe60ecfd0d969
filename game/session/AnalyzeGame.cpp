#include "game/session/AnalyzeGame.h"

#include <algorithm>
#include <optional>

#include "core/analysis/GameAnalysis.h"
#include "core/analysis/LineTableCache.h"
#include "core/paytable/GameCatalogue.h"
#include "core/paytable/PayTableStore.h"
#include "core/profile/OutputFile.h"
#include "core/profile/ProfileFile.h"
#include "core/store/AnalysisCache.h"
#include "core/store/Session.h"
#include "core/text/Numbers.h"
#include "game/flows/DealSteps.h"
#include "game/reports/ReportHead.h"
#include "game/session/SpareEngine.h"

namespace {

constexpr int kCallsBetweenLooks = 64;  // at the window: some hundred microseconds

// The progress is gone before files are written.
GameTotals Analyze(Seat& seat, const GameEngine& spare, std::optional<DetailFile>& detail) {
    GameAnalysisWatcher watcher;
    if (detail) watcher.hand = [&detail](const PlayedHand& hand) { detail->Write(hand); };
    WorkProgress progress(seat.player, "Analyzing game...", kCallsBetweenLooks);
    watcher.progress = [&progress](double done, double all) {
        return progress.Show(static_cast<int>(done / all * 100));
    };
    const auto tables = seat.tables.For(spare.payTable);
    return AnalyzeGame(*tables, spare.payTable, spare.settings.coin, watcher);
}

// What the run has left beside the cache. The files of a part of the hands do not take the place of
// whole ones.
std::vector<WrittenFile> WriteFiles(const AnalysisFilePaths& files, const GameTotals& totals,
                                    const std::vector<AnalysisEntry>& entries, bool summary,
                                    std::optional<DetailFile>& detail) {
    const auto target = [&](const std::string& path) {
        return totals.cancelled ? PartialFileName(path) : path;
    };
    const auto problemOf = [](bool written, const std::string& problem) {
        if (written) return std::string();
        return problem.empty() ? "it could not be written" : problem;
    };
    std::vector<WrittenFile> written;
    if (summary) {
        OutputFile file(target(files.summary));
        file.Write(SummaryText(entries));
        const bool done = file.Close();
        written.push_back({target(files.summary), problemOf(done, file.Problem())});
    }
    if (detail) {
        const std::string path = target(files.detail);
        const bool done = totals.cancelled ? detail->CloseAs(path) : detail->Close();
        const std::string where = totals.cancelled ? detail->Path() : files.detail;
        written.push_back({where, problemOf(done, detail->Problem())});
    }
    return written;
}

// Whether the figures of a part of the hands are to take the place of what is stored.
bool MayReplace(Seat& seat, const ProfileOnDisk& cache, const GameEngine& spare, int percent) {
    if (!HoldsWhole(cache, StatsSection(spare), spare.payTable)) return true;
    return seat.player.SaysYes("Run Analysis",
                               "The analysis was stopped at " + std::to_string(percent) +
                                   " %, and a whole one of this pay table is stored "
                                   "already.\n\nReplace the whole one by the part? No keeps the "
                                   "whole one.");
}

// One run, on the game and the table of the spare engine.
void Run(Seat& seat, const GameEngine& spare, const DataFilePaths& paths,
         AnalysisFilesChoice choice) {
    const auto& [gameId, gameName, tableIndex] = CurrentTable(spare.settings);
    const AnalysisFilePaths files = AnalysisFilesOf(gameName, tableIndex, paths);
    const double coin = spare.settings.coin;
    std::optional<DetailFile> detail;
    if (choice.detail) detail.emplace(files.detail, spare.payTable);
    const GameTotals totals = Analyze(seat, spare, detail);
    const auto entries = AnalysisEntries(totals, spare.payTable, coin);
    auto written = WriteFiles(files, totals, entries, choice.summary, detail);
    const ProfileOnDisk cache{seat.files.file, paths.analysisCache};
    const AnalysisStamp stamp = StampOf(totals, spare.payTable, coin, seat.clock.Now());
    if (!stamp.stoppedAt || MayReplace(seat, cache, spare, *stamp.stoppedAt)) {
        WriteToCache(entries, stamp, StatsSection(spare), cache);
        // Or a later flush brings it there: what the disk does not take is kept.
        if (!cache.file.Save(cache.path)) {
            written.push_back({cache.path,
                               "which keeps the figures. Make room on its disk, and see to it that "
                               "you may write the file and its folder"});
        }
    }
    if (!written.empty()) seat.player.TellOfFiles("Analysis Files", written);
}

// Before a run on a table behind the first hundred of its game the player is asked.
constexpr int kTablesRunUnasked = 100;

bool WantsRun(Player& player, int tableIndex) {
    return tableIndex < kTablesRunUnasked ||
           player.SaysYes("Run Analysis",
                          "Tolvane has not analyzed this game and/or pay table. Would you like to "
                          "run analysis now?");
}

// A run on the table that is shown, and the page on what it found. False when the player does not
// go on.
bool RunShownTable(Seat& seat, GameEngine& spare, const DataFilePaths& paths,
                   GameReportPages& pages) {
    const std::string game = pages.GameName();
    const int index = pages.TableIndex();
    if (!WantsRun(seat.player, index)) return false;
    if (!TableExists(seat.files.Main(), game, index)) {
        TellOfMissingPayTable(seat.player);
        return true;
    }
    const auto choice = seat.player.AskAnalysisFiles(AnalysisFilesOf(game, index, paths));
    if (!choice) return false;
    pages.Show(game, index);
    Run(seat, spare, paths, *choice);
    pages.Show(game, index);
    return true;
}

}  // namespace

GameReportView ReadGameReport(const Seat& seat, const DataFilePaths& paths,
                              const TableOfGame& table) {
    GameEngine engine;
    SetCurrentTable(engine.settings, table);
    engine.settings.coin = seat.engine.settings.coin;
    engine.payTable = LoadPayTable(seat.files.Main(), table, "");
    const ProfileOnDisk cache{seat.files.file, paths.analysisCache};
    GameReportView view{table,
                        GameReport(engine, cache),
                        AnalysisWarning(engine, cache),
                        LineShares(engine, cache),
                        GameTable(engine, cache),
                        {}};
    view.table.head.push_back(DateFact(seat.clock.Now()));
    if (CanAnalyzeGame(engine.payTable)) view.payTable = engine.payTable;
    return view;
}

GameReportPages::GameReportPages(Seat& seat, GameEngine& spare, const DataFilePaths& paths)
    : seat(seat), spare(spare), paths(paths) {}

GameReportView GameReportPages::View() const {
    return ReadGameReport(seat, paths, CurrentTable(spare.settings));
}

std::function<GameReportView(const TableOfGame&)> GameReportPages::Reader() const {
    return [&seat = seat, &paths = paths](const TableOfGame& table) {
        return ReadGameReport(seat, paths, table);
    };
}

void GameReportPages::Show(const std::string& gameName, int tableIndex) {
    LoadSpareTable(seat, spare,
                   {GameIdFromName(seat.files.Main(), gameName), gameName, tableIndex});
}

bool GameReportPages::Choose(const std::string& gameName) {
    const GameFiles& files = seat.files;
    if (GameIdFromName(files.Main(), gameName) == kSneakPeakGameId) {
        seat.player.Tell("Game Analysis Not Available", "Analysis not available for this game",
                         MessageIcon::kError);
        return false;
    }
    Show(gameName, ActiveTable(files.Game(), files.mainPath, gameName));
    return true;
}

void GameReportPages::ShowNext() {
    if (HasNext()) Show(std::string(GameName()), NextIndex());
}

void GameReportPages::ShowPrevious() {
    if (HasPrevious()) Show(std::string(GameName()), PreviousIndex());
}

// A game that is shown without being in the list is added to it.
std::vector<std::string> GameReportPages::Games() const {
    auto games = SelectableGames(seat.files.Main());
    const bool listed = std::ranges::any_of(
        games, [this](const std::string& game) { return SameText(game, GameName()); });
    if (!listed) games.push_back(GameName());
    return games;
}

int GameReportPages::NextIndex() const {
    return NextTable(seat.files.Main(), GameName(), TableIndex());
}

// The first table has none, whatever stands in the file.
int GameReportPages::PreviousIndex() const {
    return TableIndex() > 0 ? PreviousTable(seat.files.Main(), GameName(), TableIndex()) : kNoTable;
}

AnalysisFilePaths AnalysisFilesOf(const std::string& gameName, int tableIndex,
                                  const DataFilePaths& paths) {
    std::string name = gameName;
    std::ranges::replace(name, '/', '_');
    return {paths.folder + SummaryFileName(name, tableIndex),
            paths.folder + DetailFileName(name, tableIndex)};
}

void AnalyzeGameCommand(Seat& seat, GameEngine& spare, const DataFilePaths& paths) {
    AnalyzeTableCommand(seat, spare, paths, CurrentTable(seat.engine.settings));
}

void AnalyzeTableCommand(Seat& seat, GameEngine& spare, const DataFilePaths& paths,
                         const TableOfGame& table) {
    const auto& [gameId, gameName, tableIndex] = table;
    if (gameId == kSneakPeakGameId) {
        seat.player.Tell("Game Analysis Not Available",
                         "Game analysis not available for " + gameName + ".", MessageIcon::kError);
        return;
    }
    if (!TableExists(seat.files.Main(), gameName, 0)) {
        TellOfMissingPayTable(seat.player);
        return;
    }
    GameReportPages pages(seat, spare, paths);
    pages.Show(gameName, tableIndex);
    while (seat.player.ShowGameReport(pages) == ReportAnswer::kRunAnalysis &&
           RunShownTable(seat, spare, paths, pages)) {
    }
}
