#include "game/FileCommands.h"

#include <algorithm>
#include <filesystem>

#include "core/profile/AtomicFile.h"
#include "core/profile/ProfileFile.h"
#include "core/store/Session.h"
#include "game/BonusFeatures.h"
#include "game/GameSelection.h"
#include "game/HandFlow.h"
#include "game/SaveGame.h"
#include "game/TableCommands.h"

namespace fs = std::filesystem;

namespace {

constexpr auto kFreshGame = ".tolvane-new-game";  // what a crash leaves of it is written over
constexpr std::int32_t kNewGameBet = 5;
constexpr std::int32_t kNewGameDollars = 100;

void TellProblem(GameTable& table, const std::string& path, const std::string& problem) {
    table.player.IsTold(
        "File Error",
        path + " " + problem + "\n\nThe game file in use is still " + table.files.gamePath + ".",
        MessageIcon::kError);
}

void TellUnwritten(GameTable& table, const std::string& path) {
    TellProblem(table, path,
                "could not be written. Make room on its disk, or choose a folder in which you may "
                "write.");
}

std::string ProposedPath(const GameTable& table) {
    const fs::path folder = fs::path(table.files.gamePath).parent_path();
    std::string name = table.engine.settings.gameName + ".qdx";
    std::ranges::replace(name, '/', '-');  // a game's name may hold one
    return (folder / name).string();
}

// A player who mistakes it for a game file would lose every pay table.
bool IsMainProfile(GameTable& table, const std::string& path) {
    if (!SamePath(path, table.files.mainPath)) return false;
    TellProblem(table, path, "holds the pay tables and cannot be a game file.");
    return true;
}

// Any other text would have settings and statistics added to it.
bool IsGameFile(GameTable& table, const std::string& path) {
    const auto contents = ReadWholeFile(path);
    if (!contents) {
        TellProblem(table, path, "could not be read.");
        return false;
    }
    const bool blank = contents->find_first_not_of(" \t\r\n") == std::string::npos;
    if (blank || table.files.file.GetSectionText("main", path)) return true;
    TellProblem(table, path, "is not a game file: it has no section [main].");
    return false;
}

void UseGameFile(GameTable& table, const std::string& path) {
    table.files.gamePath = path;
    table.saveFailedTold = false;
}

void EndFeatures(GameTable& table) {
    if (!FeaturePending(table.engine)) return;
    SettleFeatures(table);
    SaveGame(table, false);
}

// Written whole beside its place: what is there stays until the new game can take it.
bool WriteNewGame(GameTable& table, const std::string& path, MachineSettings& settings,
                  Statistics& statistics, PayTable& payTable) {
    ProfileFile& file = table.files.file;
    const std::string fresh = (fs::path(path).parent_path() / kFreshGame).string();
    const StoredState state{settings, statistics, payTable};
    const bool written = CreateGameFile(fresh, file) &&
                         ResetStatistics(file, fresh, state, true, table.clock.Now()) &&
                         CopyGameFile(fresh, path, file);
    file.Forget(fresh);
    std::error_code ignored;
    fs::remove(fresh, ignored);
    return written;
}

bool WriteCopy(GameTable& table, const std::string& path) {
    const GameFiles& files = table.files;
    std::error_code error;
    const bool copied = fs::exists(files.gamePath, error)
                            ? CopyGameFile(files.gamePath, path, files.file)
                            : CreateGameFile(path, files.file);
    if (!copied) return false;
    GameEngine& engine = table.engine;
    const StoredState state{engine.settings, engine.statistics, engine.payTable};
    if (SaveSettings(files.file, path, state, false, table.clock.Now())) return true;
    files.file.Forget(path);
    return false;
}

void GoOnIn(GameTable& table, const std::string& path) {
    if (IsMainProfile(table, path) || !IsGameFile(table, path)) return;
    SettleFeatures(table);
    SaveGame(table, false);
    UseGameFile(table, path);
    LoadGameFile(table);
    EnterStoredMode(table);
    SaveGame(table, true);
    ShowGameOver(table);
    table.display.Relayout();
}

}  // namespace

// The machine takes the new state only when the file holds it.
void NewGameFile(GameTable& table) {
    GameEngine& engine = table.engine;
    SaveGame(table, false);
    const auto path = table.player.ChoosesFileToSave(ProposedPath(table));
    if (!path || IsMainProfile(table, *path)) return;
    EndFeatures(table);
    MachineSettings settings = engine.settings;
    settings.mode = PlayMode::kWarning;
    settings.credits = 0;
    settings.bet = kNewGameBet;
    settings.dollarIn = kNewGameDollars;
    Statistics statistics = engine.statistics;
    PayTable payTable = engine.payTable;
    if (!WriteNewGame(table, *path, settings, statistics, payTable)) {
        TellUnwritten(table, *path);
        return;
    }
    UseGameFile(table, *path);
    engine.settings = settings;
    engine.statistics = statistics;
    engine.payTable = payTable;
    engine.fixedHand = false;
    engine.handWins = false;
    engine.dealtLine = engine.finalLine = -1;
    if (engine.doubleUpOffered) WithdrawDoubleUp(table);
    ShowGameOver(table);
    table.display.Repaint();
}

void OpenGameFile(GameTable& table) {
    const std::string folder = fs::path(table.files.gamePath).parent_path().string();
    if (const auto path = table.player.ChoosesFileToOpen(folder)) GoOnIn(table, *path);
}

void OpenNamedGameFile(GameTable& table, const std::string& path) {
    if (!SamePath(path, table.files.gamePath)) GoOnIn(table, path);
}

void SaveGameFile(GameTable& table) {
    table.saveFailedTold = false;
    SaveGame(table, false);
}

void SaveGameFileAs(GameTable& table) {
    const auto path = table.player.ChoosesFileToSave(ProposedPath(table));
    if (!path || IsMainProfile(table, *path)) return;
    if (SamePath(*path, table.files.gamePath)) {
        SaveGameFile(table);
    } else if (WriteCopy(table, *path)) {
        UseGameFile(table, *path);
    } else {
        TellUnwritten(table, *path);
    }
}

std::string Title(const GameTable& table, const DataFilePaths& paths) {
    return DocumentTitle(table.engine.settings.gameName, table.files.gamePath, paths);
}
