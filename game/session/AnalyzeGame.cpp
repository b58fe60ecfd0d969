#include "game/session/AnalyzeGame.h"

#include <algorithm>
#include <optional>

#include "core/analysis/GameAnalysis.h"
#include "core/analysis/LineTableCache.h"
#include "core/paytable/GameCatalogue.h"
#include "core/paytable/PayTableStore.h"
#include "core/profile/AtomicFile.h"
#include "core/profile/ProfileFile.h"
#include "core/store/AnalysisFiles.h"
#include "core/store/Session.h"
#include "game/flows/DealSteps.h"
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

// One run, on the game and the table of the spare engine.
void Run(Seat& seat, const GameEngine& spare, const DataFilePaths& paths,
         AnalysisFilesChoice choice) {
    const auto& [gameId, gameName, tableIndex] = CurrentTable(spare.settings);
    const AnalysisFilePaths files = AnalysisFilesOf(gameName, tableIndex, paths);
    std::optional<DetailFile> detail;
    if (choice.detail) detail.emplace(files.detail, spare.payTable);
    const GameTotals totals = Analyze(seat, spare, detail);
    if (detail) detail->Close();
    const auto entries = AnalysisEntries(totals, spare.payTable, spare.settings.coin);
    if (choice.summary) ReplaceFile(files.summary, SummaryText(entries));
    ProfileFile& file = seat.files.file;
    WriteToCache(entries, StatsSection(spare), {file, paths.analysisCache});
    file.Flush();  // or a later one: what the disk does not take is kept
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

GameReportPages::GameReportPages(Seat& seat, GameEngine& spare, const DataFilePaths& paths)
    : seat(seat), spare(spare), cache{seat.files.file, paths.analysisCache} {}

void GameReportPages::ShowCurrent() { LoadSpare(seat, spare); }

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

std::vector<std::string> GameReportPages::Games() const {
    return SelectableGames(seat.files.Main());
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
    if (IsSneakPeak(seat.engine)) {
        seat.player.Tell("Game Analysis Not Available",
                         "Game analysis not available for " + seat.engine.settings.gameName + ".",
                         MessageIcon::kError);
        return;
    }
    if (!TableExists(seat.files.Main(), seat.engine.settings.gameName, 0)) {
        TellOfMissingPayTable(seat.player);
        return;
    }
    GameReportPages pages(seat, spare, paths);
    pages.ShowCurrent();
    while (seat.player.ShowGameReport(pages) == ReportAnswer::kRunAnalysis &&
           RunShownTable(seat, spare, paths, pages)) {
    }
}
