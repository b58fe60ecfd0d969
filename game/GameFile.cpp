#include "game/GameFile.h"

#include <filesystem>
#include <utility>

#include "core/profile/AtomicFile.h"
#include "core/profile/ProfileFile.h"
#include "game/GameSelection.h"
#include "game/TableCommands.h"

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
