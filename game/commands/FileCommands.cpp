#include "game/commands/FileCommands.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "core/profile/AtomicFile.h"
#include "core/profile/ProfileFile.h"
#include "core/store/Session.h"
#include "game/flows/BonusFeatures.h"
#include "game/saving/GameFile.h"
#include "game/saving/SaveGame.h"
#include "game/table/ShowTable.h"

namespace fs = std::filesystem;

namespace {

constexpr std::int32_t kNewGameBet = 5;
constexpr std::int32_t kNewGameDollars = 100;

void EndFeatures(GameTable& table) {
    if (!FeaturePending(table.engine)) return;
    SettleFeatures(table);
    SaveGame(table);
}

// Saves what is played before another file takes its place. False when the player is to decide
// first between the table and what others have made of its file, and has not.
bool IsSavedToLeave(GameTable& table) {
    AskAgain(table);
    if (!OwnsGameFile(table) && !WhyNotSaved(table)) return false;
    SettleFeatures(table);
    SaveGame(table);
    return true;
}

// The session of the file in use begins anew, with what was played saved.
void OpenAgain(GameTable& table) {
    if (!IsSavedToLeave(table)) return;
    ShowGameFile(table);
    SaveNewSession(table);
}

void Open(GameTable& table, const std::string& path) {
    if (!MayBeGameFile(table, path)) return;
    const bool inUse = IsInUse(table, path);
    const auto problem = inUse ? WhyNotSaved(table) : GameFileProblem(path);
    if (problem) return TellFileProblem(table, path, *problem + ".");
    if (inUse) return OpenAgain(table);
    auto lock = TakeLock(table, path);
    if (!lock || !IsSavedToLeave(table)) return;
    GoOnIn(table, path, std::move(*lock));
    ShowGameFile(table);
    SaveNewSession(table);
}

}  // namespace

// The machine takes the new state only when the file holds it.
void NewGameFile(GameTable& table) {
    GameEngine& engine = table.engine;
    SaveGame(table);
    const auto path = table.player.AskNewGameFile(ProposedPath(table));
    if (!path || !MayBeGameFile(table, *path)) return;
    if (!IsInUse(table, *path) && !IsSavedToLeave(table)) return;
    auto lock = TakeLock(table, *path);
    if (!lock) return;
    EndFeatures(table);
    MachineSettings settings = engine.settings;
    settings.mode = PlayMode::kWarning;
    settings.credits = 0;
    settings.bet = kNewGameBet;
    settings.dollarIn = kNewGameDollars;
    Statistics statistics = engine.statistics;
    PayTable payTable = engine.payTable;
    ProfileFile& file = table.files.file;
    const bool made = file.Make(*path, "", [&] {
        const StoredState state{settings, statistics, payTable};
        ResetStatistics(file, *path, state, table.clock.Now());
        WriteSession(file, *path, state, true, table.clock.Now());
    });
    if (!made) return StayIn(table, *path, std::move(lock));
    engine.settings = settings;
    engine.statistics = statistics;
    engine.payTable = payTable;
    engine.fixedHand = false;
    engine.handWins = false;
    engine.dealtLine = engine.finalLine = -1;
    GoOnIn(table, *path, std::move(*lock));
    NoteKept(table);
    engine.doubleUpOffered = false;
    ShowGameOver(table);
}

void OpenGameFile(GameTable& table) {
    const std::string folder = fs::path(table.files.gamePath).parent_path().string();
    if (const auto path = table.player.AskFileToOpen(folder)) Open(table, *path);
}

void OpenNamedGameFile(GameTable& table, const std::string& path) {
    if (!IsInUse(table, path)) Open(table, path);
}

std::string Title(const GameTable& table, const DataFilePaths& paths) {
    return DocumentTitle(table.engine.settings.gameName, table.files.gamePath, paths);
}
