#include "game/saving/GameFile.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "core/profile/AtomicFile.h"
#include "core/profile/ProfileFile.h"
#include "core/store/Session.h"
#include "game/table/ShowTable.h"

namespace fs = std::filesystem;

namespace {

KeptState StateOf(const GameEngine& engine) {
    KeptState state{engine.settings, engine.statistics, {}};
    state.statistics.elapsedBase = state.statistics.sessionHours = 0;
    state.statistics.sessionStart = 0;
    for (const PayLine& line : engine.payTable.lines) state.wins.push_back(line.totalWins);
    return state;
}

}  // namespace

std::optional<std::string> GameFileProblem(const std::string& path) {
    const auto contents = ReadWholeFile(path);
    if (!contents) {
        std::error_code error;
        const bool missing = !std::filesystem::exists(path, error) && !error;
        return missing ? "is missing" : "cannot be read";
    }
    const bool blank = contents->find_first_not_of(" \t\r\n") == std::string::npos;
    // Any other text would have settings and statistics added to it.
    if (blank || ProfileFile().GetSectionText("main", path)) return std::nullopt;
    return "is not a game file: it has no section [main]";
}

std::optional<std::string> LockProblem(const std::string& path) {
    return LockProblem(LockFile::OfGameFile(path));
}

std::optional<std::string> LockProblem(const LockFile& lock) {
    if (lock.GetState() != LockFile::State::kTaken) return std::nullopt;
    return "is open in another copy of Tolvane (" + lock.HeldBy().Text() + ")";
}

void UseGameFile(GameTable& table, const std::string& path, LockFile lock) {
    table.files.gamePath = path;
    table.gameLock = std::move(lock);
    table.files.file.Hold(path);
    table.saveTold.clear();
}

bool TakeUpGameFile(GameTable& table, const std::string& path) {
    LockFile lock = LockFile::OfGameFile(path);
    if (!GameFileProblem(path) && !LockProblem(lock)) {
        UseGameFile(table, path, std::move(lock));
        return true;
    }
    table.files.gamePath = path;
    table.gameLock.reset();
    table.files.file.Block(path);
    table.saveTold.clear();
    return false;
}

void ShowGameFile(GameTable& table) {
    LoadGameFile(table);
    EnterStoredMode(table);
    ShowGameOver(table);
    table.display.Relayout();
}

void ReloadGameFile(GameTable& table) {
    const std::string path = table.files.gamePath;
    table.files.file.Forget(path);
    if (auto lock = std::exchange(table.gameLock, std::nullopt)) {
        UseGameFile(table, path, std::move(*lock));
    } else {
        TakeUpGameFile(table, path);
    }
    ShowGameFile(table);
}

void LoadGameFile(GameTable& table) {
    GameEngine& engine = table.engine;
    GameFiles& files = table.files;
    LoadCurrentGame(files.file, files.gamePath, files.mainPath, engine.settings);
    LoadGame(engine, files, table.tables);
    LoadSettings(files.file, files.gamePath, engine.settings, engine.statistics, table.clock.Now());
    NoteKept(table);
}

void EnterStoredMode(GameTable& table) {
    table.engine.fixedHand = table.engine.settings.mode == PlayMode::kErrorLog;
    table.engine.replayIndex = 0;
}

void NoteKept(GameTable& table) {
    table.kept = StateOf(table.engine);
    table.keptAt = table.clock.Now();
    table.saveDue = false;
}

bool IsAsKept(const GameTable& table) { return StateOf(table.engine) == table.kept; }

bool IsInUse(const GameTable& table, const std::string& path) {
    return SameFile(path, table.files.gamePath);
}

void TellFileProblem(GameTable& table, const std::string& path, const std::string& problem) {
    table.player.Tell(
        "File Error",
        path + " " + problem + "\n\nThe game file in use is still " + table.files.gamePath + ".",
        MessageIcon::kError);
}

void TellUnwritten(GameTable& table, const std::string& path) {
    TellFileProblem(
        table, path,
        "could not be written. Make room on its disk, or choose a folder in which you may "
        "write.");
}

bool MayBeGameFile(GameTable& table, const std::string& path) {
    const bool payTables = SameFile(path, table.files.mainPath);
    if (!payTables && !SameFile(path, table.files.cachePath)) return true;
    TellFileProblem(table, path,
                    std::string("holds the ") + (payTables ? "pay tables" : "analyses of games") +
                        " and cannot be a game file.");
    return false;
}

std::optional<LockFile> TakeLock(GameTable& table, const std::string& path) {
    if (IsInUse(table, path) && table.gameLock) return std::exchange(table.gameLock, std::nullopt);
    LockFile lock = LockFile::OfGameFile(path);
    const auto problem = LockProblem(lock);
    if (!problem) return lock;
    TellFileProblem(table, path, *problem + ".");
    return std::nullopt;
}

void StayIn(GameTable& table, const std::string& unwritten, std::optional<LockFile> lock) {
    if (IsInUse(table, unwritten)) table.gameLock = std::move(lock);
    TellUnwritten(table, unwritten);
}

void GoOnIn(GameTable& table, const std::string& path, LockFile lock) {
    UseGameFile(table, path, std::move(lock));
    TellIfNotLocked(table);
}

void TellIfNotLocked(GameTable& table) {
    if (!table.gameLock || table.gameLock->GetState() != LockFile::State::kNotKnown) return;
    table.player.Tell("Game File",
                      "Nothing keeps a second copy of Tolvane out of the game file " +
                          table.files.gamePath +
                          ": its disk knows no locks, or something else is in the place of its "
                          "lock file. All you play is saved, but do not open it twice.",
                      MessageIcon::kExclamation);
}

std::string ProposedPath(const GameTable& table) {
    const fs::path folder = fs::path(table.files.gamePath).parent_path();
    std::string name = table.engine.settings.gameName + ".qdx";
    std::ranges::replace(name, '/', '-');  // a game's name may hold one
    return (folder / name).string();
}
