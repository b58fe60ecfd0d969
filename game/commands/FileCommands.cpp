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
#include "game/seat/ShowScene.h"

namespace fs = std::filesystem;

namespace {

constexpr std::int32_t kNewGameBet = 5;
constexpr std::int32_t kNewGameDollars = 100;

void EndFeatures(Seat& seat) {
    if (!FeaturePending(seat.engine)) return;
    SettleFeatures(seat);
    SaveGame(seat);
}

// Saves what is played before another file takes its place. False when the player is to decide
// first between the table and what others have made of its file, and has not.
bool IsSavedToLeave(Seat& seat) {
    AskAgain(seat);
    if (!OwnsGameFile(seat) && !WhyNotSaved(seat)) return false;
    SettleFeatures(seat);
    SaveGame(seat);
    return true;
}

// The session of the file in use begins anew, with what was played saved.
void OpenAgain(Seat& seat) {
    if (!IsSavedToLeave(seat)) return;
    ShowGameFile(seat);
    SaveNewSession(seat);
}

void Open(Seat& seat, const std::string& path) {
    if (!MayBeGameFile(seat, path)) return;
    const bool inUse = IsInUse(seat, path);
    const auto problem = inUse ? WhyNotSaved(seat) : GameFileProblem(path);
    if (problem) return TellFileProblem(seat, path, *problem + ".");
    if (inUse) return OpenAgain(seat);
    auto lock = TakeLock(seat, path);
    if (!lock || !IsSavedToLeave(seat)) return;
    GoOnIn(seat, path, std::move(*lock));
    ShowGameFile(seat);
    SaveNewSession(seat);
}

}  // namespace

// The machine takes the new state only when the file holds it.
void NewGameFile(Seat& seat) {
    GameEngine& engine = seat.engine;
    SaveGame(seat);
    const auto path = seat.player.AskNewGameFile(ProposedPath(seat));
    if (!path || !MayBeGameFile(seat, *path)) return;
    if (!IsInUse(seat, *path) && !IsSavedToLeave(seat)) return;
    auto lock = TakeLock(seat, *path);
    if (!lock) return;
    EndFeatures(seat);
    MachineSettings settings = engine.settings;
    settings.mode = PlayMode::kWarning;
    settings.credits = 0;
    settings.bet = kNewGameBet;
    settings.dollarIn = kNewGameDollars;
    Statistics statistics = engine.statistics;
    PayTable payTable = engine.payTable;
    ProfileFile& file = seat.files.file;
    const bool made = file.Make(*path, "", [&] {
        const StoredState state{settings, statistics, payTable};
        ResetStatistics({file, *path}, state, seat.clock.Now());
        WriteSession({file, *path}, state, true, seat.clock.Now());
    });
    if (!made) return StayIn(seat, *path, std::move(lock));
    engine.settings = settings;
    engine.statistics = statistics;
    engine.payTable = payTable;
    engine.fixedHand = false;
    engine.handWins = false;
    engine.dealtLine = engine.finalLine = -1;
    GoOnIn(seat, *path, std::move(*lock));
    NoteKept(seat);
    engine.doubleUpOffered = false;
    ShowGameOver(seat);
}

void OpenGameFile(Seat& seat) {
    const std::string folder = fs::path(seat.files.gamePath).parent_path().string();
    if (const auto path = seat.player.AskFileToOpen(folder)) Open(seat, *path);
}

void OpenNamedGameFile(Seat& seat, const std::string& path) {
    if (!IsInUse(seat, path)) Open(seat, path);
}

std::string Title(const Seat& seat, const DataFilePaths& paths) {
    return DocumentTitle(seat.engine.settings.gameName, seat.files.gamePath, paths);
}
