#include "game/paytables/PayTableGameFiles.h"

#include <algorithm>
#include <filesystem>

#include "core/profile/AtomicFile.h"
#include "core/profile/ProfileFile.h"
#include "core/store/DataFiles.h"
#include "core/store/Settings.h"
#include "core/text/Numbers.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMain = "main";
constexpr std::string_view kGameName = "GameName";
constexpr std::string_view kActiveTables = "ActiveTbl";

bool IsCurrent(ProfileFile& file, const std::string& gamePath, const std::string& gameName) {
    const MachineSettings defaults;
    return SameText(
        file.GetString(kMain, kGameName, defaults.gameName, ProfileFile::kWholeValue, gamePath),
        gameName);
}

void RenameStatistics(ProfileFile& file, const std::string& gamePath, const std::string& oldName,
                      const std::string& newName) {
    for (int i = 0; i <= kLastTableIndex; ++i) {
        const std::string section = TableSection(oldName, i);
        if (!file.GetSectionText(section, gamePath)) continue;
        const std::string renamed = TableSection(newName, i);
        if (!SameText(section, renamed)) file.DeleteSection(renamed, gamePath);
        file.RenameSection(section, renamed, gamePath);
    }
}

void RenameActiveTable(ProfileFile& file, const std::string& gamePath, const std::string& oldName,
                       const std::string& newName) {
    const std::string value =
        file.GetString(kActiveTables, oldName, "", ProfileFile::kWholeValue, gamePath);
    if (value.empty()) return;
    file.WriteString(kActiveTables, oldName, std::nullopt, gamePath);
    file.WriteString(kActiveTables, newName, value, gamePath);
}

// All game files of the data folder, and the one in use wherever it is, as far as they exist.
std::vector<std::string> GameFilesToKeep(const std::string& dataFolder,
                                         const std::string& gamePath) {
    std::vector<std::string> paths;
    std::error_code error;
    for (fs::directory_iterator entry(dataFolder, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path path = entry->path();
        if (SameText(path.extension().string(), ".qdx") && entry->is_regular_file(error)) {
            paths.push_back(path.string());
        }
        error.clear();
    }
    std::ranges::sort(paths);
    const bool listed = std::ranges::any_of(
        paths, [&](const std::string& path) { return SamePath(path, gamePath); });
    if (!listed && fs::exists(gamePath, error)) paths.push_back(gamePath);
    return paths;
}

// A file whose current game this is goes on with Jacks or Better.
bool ForgetGame(ProfileFile& file, const std::string& gamePath, const std::string& gameName) {
    return file.Change(gamePath, [&] {
        if (IsCurrent(file, gamePath, gameName)) {
            file.WriteString(kMain, kGameName, MachineSettings().gameName, gamePath);
        }
        file.WriteString(kActiveTables, gameName, std::nullopt, gamePath);
        for (int i = 0; i <= kLastTableIndex; ++i) {
            file.DeleteSection(TableSection(gameName, i), gamePath);
        }
    });
}

// A file in which the table was active goes on with table 0. The index is 1 or more.
bool ForgetTable(ProfileFile& file, const std::string& gamePath, const std::string& gameName,
                 int tableIndex) {
    return file.Change(gamePath, [&] {
        if (file.GetInt(kActiveTables, gameName, 0, gamePath) == tableIndex) {
            WriteActiveTable({file, gamePath}, gameName, 0);
        }
        file.DeleteSection(TableSection(gameName, tableIndex), gamePath);
    });
}

// No game has the new name; what a file has under it is left over, and goes where it is in the way.
bool RenameGame(ProfileFile& file, const std::string& gamePath, const std::string& oldName,
                const std::string& newName) {
    return file.Change(gamePath, [&] {
        if (IsCurrent(file, gamePath, oldName)) {
            file.WriteString(kMain, kGameName, newName, gamePath);
        }
        RenameActiveTable(file, gamePath, oldName, newName);
        RenameStatistics(file, gamePath, oldName, newName);
    });
}

}  // namespace

std::vector<std::string> FollowInGameFiles(ProfileFile& file, const TableEdit& edit,
                                           const std::string& dataFolder) {
    const auto follow = [&](const std::string& path) {
        switch (edit.kind) {
            case TableEdit::Kind::kTableDeleted:
                return ForgetTable(file, path, edit.gameName, edit.tableIndex);
            case TableEdit::Kind::kGameDeleted:
                return ForgetGame(file, path, edit.gameName);
            case TableEdit::Kind::kGameRenamed:
                return RenameGame(file, path, edit.gameName, edit.newName);
            case TableEdit::Kind::kTableWritten:
                break;
        }
        return true;
    };
    std::vector<std::string> unsaved;
    for (const std::string& path : GameFilesToKeep(dataFolder, edit.gamePath)) {
        if (!follow(path)) unsaved.push_back(path);
    }
    return unsaved;
}

void ResumeUnfinishedEdit(const PayTableFiles& files, const std::string& dataFolder) {
    const auto edit = ReadUnfinishedEdit(files.main);
    if (!edit) return;
    FollowInAnalyses(files, *edit);
    if (FollowInGameFiles(files.main.file, *edit, dataFolder).empty()) {
        FinishEdit(files.main);
    }
}
