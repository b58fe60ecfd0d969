#include "game/session/AnalyzeGame.h"

#include <algorithm>
#include <filesystem>

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

std::string ProgressText(int percent) {
    return "Analyzing game..." + std::to_string(percent) + "%";
}

// Shows a run's progress, seldom enough to cost nothing.
class RunProgress {
  public:
    explicit RunProgress(Player& player) : progress(player.ShowProgress(ProgressText(0))) {}

    bool Show(double done, double all) {
        const int percent = static_cast<int>(done / all * 100);
        if (percent == shown && ++calls % kCallsBetweenLooks != 0) return true;
        shown = percent;
        return progress->Show(ProgressText(percent), percent);
    }

  private:
    std::unique_ptr<Progress> progress;
    int shown = 0;
    int calls = 0;
};

// One run, on the game and the table of the spare engine.
class AnalysisRun {
  public:
    AnalysisRun(const GameEngine& spare, const DataFilePaths& paths)
        : spare(spare),
          files(AnalysisFilesOf(spare.settings.gameName, spare.settings.activeTable, paths)),
          cachePath(paths.analysisCache) {}

    void Play(Seat& seat, AnalysisFilesChoice choice) {
        const PayTable& payTable = spare.payTable;
        std::optional<DetailFile> detail;
        if (choice.detail) detail.emplace(files.detail, payTable);
        GameAnalysisWatcher watcher;
        if (detail) watcher.hand = [&detail](const PlayedHand& hand) { detail->Write(hand); };
        {
            RunProgress progress(seat.player);
            watcher.progress = [&progress](double done, double all) {
                return progress.Show(done, all);
            };
            const auto tables = seat.tables.For(payTable);
            totals = AnalyzeGame(*tables, payTable, spare.settings.coin, watcher);
        }
        if (detail) detail->Close();
        Write(seat.files.file, choice);
    }

  private:
    void Write(ProfileFile& file, AnalysisFilesChoice choice) const {
        const auto entries = AnalysisEntries(totals, spare.payTable, spare.settings.coin);
        if (choice.summary) ReplaceFile(files.summary, SummaryText(entries));
        // A profile file starts from an empty one; it creates none by itself.
        std::error_code error;
        if (!std::filesystem::exists(cachePath, error)) ReplaceFile(cachePath, "");
        WriteToCache(entries, StatsSection(spare), cachePath, file);
        file.Flush();  // or a later one: what the disk does not take is kept
    }

    const GameEngine& spare;
    AnalysisFilePaths files;
    const std::string& cachePath;
    GameTotals totals;
};

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
    AnalysisRun(spare, paths).Play(seat, *choice);
    pages.Show(game, index);
    return true;
}

}  // namespace

GameReportPages::GameReportPages(Seat& seat, GameEngine& spare, const DataFilePaths& paths)
    : seat(seat), spare(spare), cache{seat.files.file, paths.analysisCache} {}

void GameReportPages::ShowCurrent() { LoadSpare(seat, spare); }

void GameReportPages::Show(const std::string& gameName, int tableIndex) {
    const GameFiles& files = seat.files;
    MachineSettings& settings = spare.settings;
    settings.gameId = GameIdFromName(files.Main(), gameName);
    settings.gameName = gameName;
    settings.activeTable = tableIndex;
    LoadGame(spare, files, seat.tables);
    LoadSettings(files.Game(), settings, spare.statistics, seat.clock.Now());
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

int GameReportPages::NextIndex() const { return NextTable(Files(), GameName(), TableIndex()); }

// The first table has none, whatever stands in the file.
int GameReportPages::PreviousIndex() const {
    return TableIndex() > 0 ? PreviousTable(Files(), GameName(), TableIndex()) : kNoTable;
}

PayTableFiles GameReportPages::Files() const { return {seat.files.Main(), cache.path}; }

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
    const MachineSettings& settings = seat.engine.settings;
    if (!TableExists(seat.files.Main(), settings.gameName, 0)) {
        TellOfMissingPayTable(seat.player);
        return;
    }
    GameReportPages pages(seat, spare, paths);
    pages.ShowCurrent();
    while (seat.player.ShowGameReport(pages) == ReportAnswer::kRunAnalysis &&
           RunShownTable(seat, spare, paths, pages)) {
    }
}
