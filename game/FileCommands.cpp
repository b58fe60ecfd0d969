#include "game/FileCommands.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "core/profile/AtomicFile.h"
#include "core/profile/ProfileFile.h"
#include "core/store/Session.h"
#include "game/BonusFeatures.h"
#include "game/GameFile.h"
#include "game/SaveGame.h"
#include "game/TableCommands.h"

namespace fs = std::filesystem;

namespace {

using Standing = ProfileFile::Standing;

constexpr std::int32_t kNewGameBet = 5;
constexpr std::int32_t kNewGameDollars = 100;

void TellProblem(GameTable& table, const std::string& path, const std::string& problem) {
    table.player.Tell(
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

Standing StandingOf(const GameTable& table) {
    return table.files.file.StandingOf(table.files.gamePath);
}

bool IsInUse(const GameTable& table, const std::string& path) {
    return SameFile(path, table.files.gamePath);
}

// A player who mistakes it for a game file would lose every pay table; what the links that lead to
// it are called does not matter.
bool IsMainProfile(GameTable& table, const std::string& path) {
    if (!SameFile(path, table.files.mainPath)) return false;
    TellProblem(table, path, "holds the pay tables and cannot be a game file.");
    return true;
}

// The lock of a file to go on in, which may be the one in use; nothing, and the player is told,
// when it is open elsewhere.
std::optional<LockFile> TakeLock(GameTable& table, const std::string& path) {
    if (IsInUse(table, path) && table.gameLock) return std::exchange(table.gameLock, std::nullopt);
    LockFile lock = LockFile::OfGameFile(path);
    const auto problem = LockProblem(lock);
    if (!problem) return lock;
    TellProblem(table, path, *problem + ".");
    return std::nullopt;
}

// A file that could not be written leaves all as it was.
void StayIn(GameTable& table, const std::string& unwritten, std::optional<LockFile> lock) {
    if (IsInUse(table, unwritten)) table.gameLock = std::move(lock);
    TellUnwritten(table, unwritten);
}

void GoOnIn(GameTable& table, const std::string& path, LockFile lock) {
    UseGameFile(table, path, std::move(lock));
    TellIfNotLocked(table);
}

void EndFeatures(GameTable& table) {
    if (!FeaturePending(table.engine)) return;
    SettleFeatures(table);
    SaveGame(table, false);
}

// Saves what is played before another file takes its place. False when the player is to decide
// first between the table and what others have made of its file, and has not.
bool IsSavedToLeave(GameTable& table) {
    AskAgain(table);
    if (!OwnsGameFile(table) && !WhyNotSaved(table)) return false;
    SettleFeatures(table);
    SaveGame(table, false);
    return true;
}

bool WriteCopy(GameTable& table, const std::string& path) {
    const GameFiles& files = table.files;
    files.file.Flush();
    const std::string text = files.file.WholeText(files.gamePath).value_or("");
    GameEngine& engine = table.engine;
    return files.file.Make(path, text, [&] {
        const StoredState state{engine.settings, engine.statistics, engine.payTable};
        WriteSession(files.file, path, state, false, table.clock.Now());
    });
}

// What the old file could not take is in the new one, and need not be brought there any more.
void MoveTo(GameTable& table, const std::string& path, LockFile lock) {
    const std::string old = table.files.gamePath;
    GoOnIn(table, path, std::move(lock));
    if (!SameFile(old, path)) table.files.file.Forget(old);
    NoteKept(table);
}

// The session of the file in use begins anew, with what was played saved.
void OpenAgain(GameTable& table) {
    if (!IsSavedToLeave(table)) return;
    ShowGameFile(table);
    SaveGame(table, true);
}

void Open(GameTable& table, const std::string& path) {
    if (IsMainProfile(table, path)) return;
    const bool inUse = IsInUse(table, path);
    const auto problem = inUse ? WhyNotSaved(table) : GameFileProblem(path);
    if (problem) return TellProblem(table, path, *problem + ".");
    if (inUse) return OpenAgain(table);
    auto lock = TakeLock(table, path);
    if (!lock || !IsSavedToLeave(table)) return;
    GoOnIn(table, path, std::move(*lock));
    ShowGameFile(table);
    SaveGame(table, true);
}

}  // namespace

void TellIfNotLocked(GameTable& table) {
    if (!table.gameLock || table.gameLock->GetState() != LockFile::State::kNotKnown) return;
    table.player.Tell("Game File",
                      "Nothing keeps a second copy of Tolvane out of the game file " +
                          table.files.gamePath +
                          ": its disk knows no locks, or something else is in the place of its "
                          "lock file. All you play is saved, but do not open it twice.",
                      MessageIcon::kExclamation);
}

// The machine takes the new state only when the file holds it.
void NewGameFile(GameTable& table) {
    GameEngine& engine = table.engine;
    SaveGame(table, false);
    const auto path = table.player.AskNewGameFile(ProposedPath(table));
    if (!path || IsMainProfile(table, *path)) return;
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

void SaveGameFile(GameTable& table) {
    table.saveTold.clear();
    SaveGame(table, false);
}

void SaveGameFileAs(GameTable& table) {
    const auto path = table.player.AskFileToSave(ProposedPath(table));
    if (!path || IsMainProfile(table, *path)) return;
    if (IsInUse(table, *path) && StandingOf(table) == Standing::kOurs) {
        return SaveGameFile(table);
    }
    auto lock = TakeLock(table, *path);
    if (!lock) return;
    if (WriteCopy(table, *path)) {
        MoveTo(table, *path, std::move(*lock));
    } else {
        StayIn(table, *path, std::move(lock));
    }
}

std::string Title(const GameTable& table, const DataFilePaths& paths) {
    return DocumentTitle(table.engine.settings.gameName, table.files.gamePath, paths);
}
