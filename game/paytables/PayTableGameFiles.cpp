#include "game/paytables/PayTableGameFiles.h"

#include <algorithm>
#include <filesystem>

#include "core/profile/AtomicFile.h"
#include "core/profile/ProfileFile.h"
#include "core/store/DataFiles.h"
#include "core/store/ErrorLog.h"
#include "core/store/Settings.h"
#include "core/text/Numbers.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMain = "main";
constexpr std::string_view kGameName = "GameName";
constexpr std::string_view kActiveTables = "ActiveTbl";

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

// A file in which a deleted table was active goes on with table 0, and one whose current game was
// deleted with Jacks or Better.
void FollowInSettings(const ProfileOnDisk& game, const TableEdit& edit) {
    const auto& [file, path] = game;
    if (edit.kind == TableEdit::Kind::kTableDeleted) {
        const int active = file.GetInt(kActiveTables, edit.gameName, 0, path);
        if (active == edit.tableIndex) WriteActiveTable(game, edit.gameName, 0);
        return;
    }
    const bool renamed = edit.kind == TableEdit::Kind::kGameRenamed;
    const std::string none = MachineSettings().gameName;
    const auto whole = ProfileFile::kWholeValue;
    if (SameText(file.GetString(kMain, kGameName, none, whole, path), edit.gameName)) {
        file.WriteString(kMain, kGameName, renamed ? edit.newName : none, path);
    }
    const std::string active = file.GetString(kActiveTables, edit.gameName, "", whole, path);
    if (renamed && active.empty()) return;
    file.WriteString(kActiveTables, edit.gameName, std::nullopt, path);
    if (renamed) file.WriteString(kActiveTables, edit.newName, active, path);
}

// The dates of the error log stand in sections of their own, beside those of the tables.
TableEdit OfErrorDates(TableEdit edit) {
    edit.gameName.insert(0, kErrorDates);
    edit.newName.insert(0, kErrorDates);
    return edit;
}

}  // namespace

std::vector<std::string> FollowInGameFiles(ProfileFile& file, const TableEdit& edit,
                                           const std::string& dataFolder) {
    std::vector<std::string> unsaved;
    if (edit.kind == TableEdit::Kind::kTableWritten) return unsaved;
    for (const std::string& path : GameFilesToKeep(dataFolder, edit.gamePath)) {
        const bool saved = file.Change(path, [&] {
            FollowInSettings({file, path}, edit);
            FollowInSections({file, path}, edit);
            FollowInSections({file, path}, OfErrorDates(edit));
        });
        if (!saved) unsaved.push_back(path);
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
