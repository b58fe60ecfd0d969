#include "game/saving/GameFile.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "core/profile/AtomicFile.h"
#include "core/profile/ProfileFile.h"
#include "core/store/Session.h"
#include "game/seat/ShowScene.h"

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

void UseGameFile(Seat& seat, const std::string& path, LockFile lock) {
    seat.files.gamePath = path;
    seat.gameLock = std::move(lock);
    seat.files.file.Hold(path);
    seat.saveTold.clear();
}

bool TakeUpGameFile(Seat& seat, const std::string& path) {
    LockFile lock = LockFile::OfGameFile(path);
    if (!GameFileProblem(path) && !LockProblem(lock)) {
        UseGameFile(seat, path, std::move(lock));
        return true;
    }
    seat.files.gamePath = path;
    seat.gameLock.reset();
    seat.files.file.Block(path);
    seat.saveTold.clear();
    return false;
}

void ShowGameFile(Seat& seat) {
    LoadGameFile(seat);
    EnterStoredMode(seat);
    ShowGameOver(seat);
    seat.display.Relayout();
}

void ReloadGameFile(Seat& seat) {
    const std::string path = seat.files.gamePath;
    seat.files.file.Forget(path);
    if (auto lock = std::exchange(seat.gameLock, std::nullopt)) {
        UseGameFile(seat, path, std::move(*lock));
    } else {
        TakeUpGameFile(seat, path);
    }
    ShowGameFile(seat);
}

void LoadGameFile(Seat& seat) {
    GameEngine& engine = seat.engine;
    GameFiles& files = seat.files;
    LoadCurrentGame(files.Game(), files.mainPath, engine.settings);
    LoadGame(engine, files, seat.tables);
    LoadSettings(files.Game(), engine.settings, engine.statistics, seat.clock.Now());
    NoteKept(seat);
}

void EnterStoredMode(Seat& seat) {
    seat.engine.fixedHand = seat.engine.settings.mode == PlayMode::kErrorLog;
    seat.engine.replayIndex = 0;
}

void NoteKept(Seat& seat) {
    seat.kept = StateOf(seat.engine);
    seat.keptAt = seat.clock.Now();
    seat.saveDue = false;
}

bool IsAsKept(const Seat& seat) { return StateOf(seat.engine) == seat.kept; }

bool IsInUse(const Seat& seat, const std::string& path) {
    return SameFile(path, seat.files.gamePath);
}

void TellFileProblem(Seat& seat, const std::string& path, const std::string& problem) {
    seat.player.Tell(
        "File Error",
        path + " " + problem + "\n\nThe game file in use is still " + seat.files.gamePath + ".",
        MessageIcon::kError);
}

void TellUnwritten(Seat& seat, const std::string& path) {
    TellFileProblem(
        seat, path,
        "could not be written. Make room on its disk, or choose a folder in which you may "
        "write.");
}

bool MayBeGameFile(Seat& seat, const std::string& path) {
    const GameFiles& files = seat.files;
    for (const auto& [own, contents] : {std::pair(&files.mainPath, "pay tables"),
                                        {&files.cachePath, "analyses of games"},
                                        {&files.chartsPath, "strategy charts"}}) {
        if (own->empty() || !SameFile(path, *own)) continue;
        TellFileProblem(seat, path,
                        std::string("holds the ") + contents + " and cannot be a game file.");
        return false;
    }
    return true;
}

std::optional<LockFile> TakeLock(Seat& seat, const std::string& path) {
    if (IsInUse(seat, path) && seat.gameLock) return std::exchange(seat.gameLock, std::nullopt);
    LockFile lock = LockFile::OfGameFile(path);
    const auto problem = LockProblem(lock);
    if (!problem) return lock;
    TellFileProblem(seat, path, *problem + ".");
    return std::nullopt;
}

void StayIn(Seat& seat, const std::string& unwritten, std::optional<LockFile> lock) {
    if (IsInUse(seat, unwritten)) seat.gameLock = std::move(lock);
    TellUnwritten(seat, unwritten);
}

void GoOnIn(Seat& seat, const std::string& path, LockFile lock) {
    UseGameFile(seat, path, std::move(lock));
    TellIfNotLocked(seat);
}

void TellIfNotLocked(Seat& seat) {
    if (!seat.gameLock || seat.gameLock->GetState() != LockFile::State::kNotKnown) return;
    seat.player.Tell("Game File",
                     "Nothing keeps a second copy of Tolvane out of the game file " +
                         seat.files.gamePath +
                         ": its disk knows no locks, or something else is in the place of its "
                         "lock file. All you play is saved, but do not open it twice.",
                     MessageIcon::kExclamation);
}

std::string ProposedPath(const Seat& seat) {
    const fs::path folder = fs::path(seat.files.gamePath).parent_path();
    std::string name = seat.engine.settings.gameName + ".qdx";
    std::ranges::replace(name, '/', '-');  // a game's name may hold one
    return (folder / name).string();
}
