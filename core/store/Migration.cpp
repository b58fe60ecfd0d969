#include "core/store/Migration.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "core/store/DataFiles.h"
#include "core/text/Numbers.h"

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kWhole = ProfileFile::kWholeValue;
constexpr std::string_view kNoKey = "\n";  // what no value can be
constexpr std::size_t kOldIdLength = 3;    // "401,My Game": the name starts behind the comma
constexpr std::string_view kExtension = ".qdx";

struct RenamedGame {
    std::string_view oldName;
    std::string_view name;
};
constexpr RenamedGame kRenamedGames[] = {
    {"Bonus 5 Aces Poker", "5 Aces Bonus Poker"},
    {"Double Double 5 Aces Poker", "5 Aces Double Double Poker"},
    {"Pick 'Em Poker", "Pick Em Poker"},
};

// A game of the player's own as an earlier release kept it.
struct OldUserGame {
    int slot;  // 1..10
    std::string name;
    std::optional<std::string> payTable;  // the section's lines
};

struct OldAnalysis {
    std::string section;
    std::string text;
    std::string nothing;
};

bool CanRead(const std::string& path) {
    std::error_code error;
    return fs::is_regular_file(path, error) && std::ifstream(path).good();
}

void Delete(const std::string& path) {
    std::error_code ignored;
    fs::remove(path, ignored);
}

// A file that has the new name already stays: it may be a player's only record.
void Rename(const std::string& from, const std::string& to) {
    std::error_code ignored;
    if (fs::symlink_status(to, ignored).type() == fs::file_type::not_found) {
        fs::rename(from, to, ignored);
    }
}

std::string FirstTable(std::string_view game) { return std::string(game) + "(0)"; }

std::string InFolder(const DataFilePaths& paths, std::string_view name) {
    return paths.folder + std::string(name);
}

void FetchShippedFiles(const DataFilePaths& paths) {
    if (paths.releaseFolder.empty() || paths.releaseFolder == paths.folder) return;
    for (const auto name : {kShippedMainProfile, kShippedGame, kShippedAnalyses}) {
        CopyWholeFile(paths.releaseFolder + std::string(name), InFolder(paths, name));
    }
}

void TakeShippedFiles(const DataFilePaths& paths) {
    Rename(InFolder(paths, kShippedMainProfile), paths.mainProfile);
    Rename(InFolder(paths, kShippedGame), paths.defaultGame);
    Rename(InFolder(paths, kShippedAnalyses), paths.analysisCache);
}

void TakeShippedFile(const DataFilePaths& paths, std::string_view shipped, const std::string& live,
                     const std::string& backup) {
    Delete(backup);
    Rename(live, backup);
    Rename(InFolder(paths, shipped), live);
}

std::vector<OldUserGame> ReadOldUserGames(const std::string& oldProfile, ProfileFile& file) {
    std::vector<OldUserGame> games;
    for (int slot = 1; slot <= kMaxUserGames; ++slot) {
        const std::string stored =
            file.GetString("User Games", std::to_string(slot), kNoKey, kWhole, oldProfile);
        if (stored == kNoKey) continue;
        OldUserGame game{slot, stored.substr(std::min(stored.size(), kOldIdLength + 1)), {}};
        if (file.GetInt(game.name, "PayLines", 0, oldProfile) != 0) {
            game.payTable = file.GetSectionText(game.name, oldProfile);
        }
        games.push_back(game);
    }
    return games;
}

void WriteUserGame(const OldUserGame& game, const std::string& mainProfile, ProfileFile& file) {
    const int id = kFirstUserGameId - 1 + game.slot;
    file.WriteString("User Games", std::to_string(game.slot), std::to_string(id) + "," + game.name,
                     mainProfile);
    if (!game.payTable) return;
    const std::string section = FirstTable(game.name);
    file.SetSectionText(section, *game.payTable, mainProfile);
    file.WriteInt(section, "NextIndex", -1, mainProfile);
    file.WriteInt(section, "PrevIndex", -1, mainProfile);
    file.WriteInt(section, "Type", 1, mainProfile);
}

void UpgradeMainProfile(const DataFilePaths& paths, ProfileFile& file) {
    const std::string old = InFolder(paths, "Tolvane.old");
    TakeShippedFile(paths, kShippedMainProfile, paths.mainProfile, old);
    const std::string currentGame =
        file.GetString("main", "CurrGame", paths.defaultGame, kWhole, old);
    const auto userGames = ReadOldUserGames(old, file);
    StoreCurrentGamePath(currentGame, paths, file);
    for (const auto& game : userGames) WriteUserGame(game, paths.mainProfile, file);
}

// The numbers of a line of the cache were parted by tabs once.
std::string WithoutTabs(std::string text) {
    std::ranges::replace(text, '\t', ';');
    return text;
}

std::vector<OldAnalysis> ReadOldAnalyses(const std::vector<UserGame>& games, const std::string& old,
                                         ProfileFile& file) {
    std::vector<OldAnalysis> analyses;
    for (const auto& game : games) {
        const std::string section = FirstTable(game.name);
        if (SameText(file.GetString(section, "ER", "0", kWhole, old), "0")) continue;
        const std::string text = file.GetSectionText(section, old).value_or("");
        const std::string nothing = file.GetString(section, "Nothing", "", kWhole, old);
        analyses.push_back({section, WithoutTabs(text), "0;" + WithoutTabs(nothing)});
    }
    return analyses;
}

void UpgradeAnalyses(const DataFilePaths& paths, ProfileFile& file) {
    const std::string old = InFolder(paths, "Game Analyses.old");
    TakeShippedFile(paths, kShippedAnalyses, paths.analysisCache, old);
    const auto userGames = UserGames(file, paths.mainProfile);
    for (const auto& [section, text, nothing] : ReadOldAnalyses(userGames, old, file)) {
        file.SetSectionText(section, text, paths.analysisCache);
        file.WriteString(section, "Nothing", nothing, paths.analysisCache);
    }
}

bool HasOldStatistics(const std::string& game, const std::string& path, ProfileFile& file) {
    return file.GetInt(game, "CreditsPlayed", -1, path) != -1;
}

// The log of play errors has no "FirstError" any more.
void MoveStatistics(const std::string& game, const std::string& path, ProfileFile& file) {
    file.RenameSection(game, FirstTable(game), path);
    file.WriteString(FirstTable(game), "FirstError", std::nullopt, path);
}

void UpgradeGameFile(const std::string& path, const std::string& mainProfile, ProfileFile& file) {
    const auto userGames = UserGames(file, mainProfile);
    const std::string current = file.GetString("main", "GameName", "Jacks or Better", kWhole, path);
    file.WriteInt("main", "GameID", GameIdFromName(file, current, mainProfile), path);
    for (const auto& builtIn : BuiltInGames()) {
        if (!builtIn.offered) continue;
        const std::string game(builtIn.name);
        file.WriteInt("ActiveTbl", game, 0, path);
        if (HasOldStatistics(game, path, file)) MoveStatistics(game, path, file);
    }
    for (const auto& [id, game] : userGames) {
        if (!HasOldStatistics(game, path, file)) continue;
        file.WriteInt("ActiveTbl", game, 0, path);
        MoveStatistics(game, path, file);
    }
    for (const auto& [oldName, name] : kRenamedGames) {
        file.RenameSection(oldName, FirstTable(name), path);
    }
}

bool IsGameFile(const fs::directory_entry& entry) {
    const std::string name = entry.path().filename().string();
    std::error_code error;
    return name.size() >= kExtension.size() &&
           SameText(std::string_view(name).substr(name.size() - kExtension.size()), kExtension) &&
           entry.is_regular_file(error);
}

// All are found before one is written, since writing puts files into the folder.
std::vector<std::string> GameFiles(const std::string& folder) {
    std::vector<std::string> paths;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    while (!error && entry != fs::directory_iterator()) {
        if (IsGameFile(*entry)) paths.push_back(entry->path().string());
        entry.increment(error);
    }
    return paths;
}

}  // namespace

void MigrateDataFiles(const DataFilePaths& paths, ProfileFile& file) {
    if (file.GetInt("main", "Ver", 0, paths.mainProfile) != 0) return;
    LetGo(file);  // what it holds is about to be renamed
    FetchShippedFiles(paths);
    if (!CanRead(paths.mainProfile)) {
        TakeShippedFiles(paths);
        return;
    }
    UpgradeMainProfile(paths, file);
    UpgradeAnalyses(paths, file);
    for (const auto& path : GameFiles(paths.folder)) {
        UpgradeGameFile(path, paths.mainProfile, file);
        LetGo(file);  // two files may differ in the letter case of their names only
    }
}
