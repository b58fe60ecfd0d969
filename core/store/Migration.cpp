#include "core/store/Migration.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/paytable/GameCatalogue.h"
#include "core/profile/AtomicFile.h"
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

// Whether anything has this path, a broken link included.
bool Exists(const std::string& path) {
    std::error_code error;
    return fs::symlink_status(path, error).type() != fs::file_type::not_found;
}

bool CanRead(const std::string& path) { return ReadWholeFile(path).has_value(); }

bool IsOfThisRelease(ProfileFile& file, const std::string& mainProfile) {
    return file.GetInt("main", "Ver", 0, mainProfile) != 0;
}

std::string FirstTable(std::string_view game) { return std::string(game) + "(0)"; }

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
        const bool isNew = nothing.find(';') != std::string::npos;  // of this release already
        analyses.push_back(
            {section, WithoutTabs(text), (isNew ? "" : "0;") + WithoutTabs(nothing)});
    }
    return analyses;
}

bool HasOldStatistics(const std::string& game, const std::string& path, ProfileFile& file) {
    return file.GetInt(game, "CreditsPlayed", -1, path) != -1;
}

// The log of play errors has no "FirstError" any more.
void MoveStatistics(const std::string& game, const std::string& path, ProfileFile& file) {
    file.RenameSection(game, FirstTable(game), path);
    file.WriteString(FirstTable(game), "FirstError", std::nullopt, path);
}

// The upgrade gives every game an active table. A file that has been upgraded may have been played
// on since, and keeps what it has.
bool IsUpgraded(const std::string& path, ProfileFile& file) {
    return std::ranges::all_of(BuiltInGames(), [&](const BuiltInGame& game) {
        return !game.offered || file.GetInt("ActiveTbl", game.name, -1, path) != -1;
    });
}

// Reads from the main profile file before it changes the game file, which is so written once.
void UpgradeGameFile(const std::string& path, const std::string& mainProfile, ProfileFile& file) {
    const auto userGames = UserGames({file, mainProfile});
    const std::string current = file.GetString("main", "GameName", "Jacks or Better", kWhole, path);
    file.WriteInt("main", "GameID", GameIdFromName({file, mainProfile}, current), path);
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

// The work of one call. A step that fails adds what went wrong to the problems and returns false:
// what follows from it must not be done then.
class Migration {
  public:
    Migration(const DataFilePaths& paths, ProfileFile& file) : paths(paths), file(file) {}

    std::vector<std::string> Run();

  private:
    std::string InFolder(std::string_view name) const { return paths.folder + std::string(name); }
    void AddUnreadable(const std::string& path) {
        problems.push_back(path + " cannot be read. See to it that you may read it.");
    }
    void AddUnwritten(const std::string& what, const std::string& path) {
        problems.push_back(what + " could not be written to " + path +
                           ". Make room on its disk, and see to it that you may write the file "
                           "and its folder.");
    }

    void FirstStart();
    void Upgrade(bool resumed);
    bool Fetch(std::string_view name);
    bool FetchForUpgrade(bool resumed);
    bool Move(const std::string& from, const std::string& to);
    bool CompleteMainProfile(const std::string& old);
    bool CompleteAnalyses(bool resumed);
    bool UpgradeGameFiles();
    void PutInPlace(bool resumed);

    const DataFilePaths& paths;
    ProfileFile& file;
    const std::string newMain = InFolder(kShippedMainProfile);
    const std::string newAnalyses = InFolder(kShippedAnalyses);
    const std::string oldMain = InFolder("Tolvane.old");
    const std::string oldAnalyses = InFolder("Game Analyses.old");
    std::vector<std::string> problems;
};

std::vector<std::string> Migration::Run() {
    std::error_code error;
    const bool oldIsKept = Exists(oldMain) && !fs::is_directory(oldMain, error);
    if (Exists(paths.mainProfile)) {
        if (CanRead(paths.mainProfile)) Upgrade(false);
    } else if (oldIsKept && !CanRead(oldMain)) {
        AddUnreadable(oldMain);
    } else if (oldIsKept && !IsOfThisRelease(file, oldMain)) {
        Upgrade(true);
    } else {
        FirstStart();
    }
    return problems;
}

// A file that was not shipped is no failure.
bool Migration::Fetch(std::string_view name) {
    if (paths.releaseFolder.empty() || paths.releaseFolder == paths.folder) return true;
    const std::string shipped = paths.releaseFolder + std::string(name);
    if (!Exists(shipped)) return true;
    if (!CanRead(shipped)) {
        AddUnreadable(shipped);
        return false;
    }
    if (CopyWholeFile(shipped, InFolder(name))) return true;
    AddUnwritten("A copy of " + shipped, InFolder(name));
    return false;
}

bool Migration::Move(const std::string& from, const std::string& to) {
    if (!Exists(from) || RenameFile(from, to)) return true;
    problems.push_back(from + " could not be renamed to " + to +
                       ". See to it that you may write the folder, and that no folder has that "
                       "name.");
    return false;
}

// A file that has its place already stays: it may be a player's only record, or an earlier try has
// put it there.
void Migration::FirstStart() {
    const struct {
        std::string_view shipped;
        const std::string& live;
    } files[] = {{kShippedGame, paths.defaultGame},
                 {kShippedAnalyses, paths.analysisCache},
                 {kShippedMainProfile, paths.mainProfile}};
    for (const auto& [shipped, live] : files) {
        if (!Exists(live) && !Fetch(shipped)) return;
    }
    for (const auto& [shipped, live] : files) {
        if (!Exists(live) && !Move(InFolder(shipped), live)) return;
    }
}

// First everything is written beside what is there; then all that is left are renames, which need
// no room on the disk. While they go on there is no main profile file: that tells a later start
// where the work stopped, and it resumes.
void Migration::Upgrade(bool resumed) {
    if (!FetchForUpgrade(resumed)) return;
    if (!Exists(newMain)) {
        problems.push_back(
            paths.mainProfile +
            " is of an earlier release, and is left as it is: the pay tables of this "
            "release, " +
            std::string(kShippedMainProfile) +
            ", are missing. Install Tolvane anew, or copy that file into " + paths.folder + ".");
        return;
    }
    if (!CompleteMainProfile(resumed ? oldMain : paths.mainProfile)) return;
    const bool analysesDone = CompleteAnalyses(resumed);
    const bool gamesDone = UpgradeGameFiles();
    file.Close();  // what it holds is about to be renamed
    if (analysesDone && gamesDone) PutInPlace(resumed);
}

// Among the renames a shipped file that is not there any more has found its place.
bool Migration::FetchForUpgrade(bool resumed) {
    if (!resumed)
        return Fetch(kShippedMainProfile) && Fetch(kShippedGame) && Fetch(kShippedAnalyses);
    const bool analysesInPlace = Exists(newAnalyses) || Exists(paths.analysisCache);
    return (Exists(newMain) || Fetch(kShippedMainProfile)) &&
           (analysesInPlace || Fetch(kShippedAnalyses));
}

bool Migration::CompleteMainProfile(const std::string& old) {
    if (!CanRead(newMain)) {
        AddUnreadable(newMain);
        return false;
    }
    const std::string currentGame =
        file.GetString("main", "CurrGame", paths.defaultGame, kWhole, old);
    const auto userGames = ReadOldUserGames(old, file);
    DataFilePaths newPaths = paths;
    newPaths.mainProfile = newMain;
    StoreCurrentGamePath(currentGame, newPaths, file);
    for (const auto& game : userGames) WriteUserGame(game, newMain, file);
    if (file.Save(newMain)) return true;
    AddUnwritten("The pay tables with your own games", newMain);
    file.Forget(newMain);
    return false;
}

// A release without analyses gets a cache all the same: that of the player's games, or an empty
// one, so that the next analysis is kept.
bool Migration::CompleteAnalyses(bool resumed) {
    const bool isLive = Exists(paths.analysisCache);
    if (!Exists(newAnalyses)) {
        if (!isLive || resumed) return true;
        if (!ReplaceFile(newAnalyses, "")) {
            AddUnwritten("The game analyses with your own", newAnalyses);
            return false;
        }
    }
    const std::string& old = isLive || !resumed ? paths.analysisCache : oldAnalyses;
    for (const std::string& path : {old, newAnalyses}) {
        if (!Exists(path) || CanRead(path)) continue;
        AddUnreadable(path);
        return false;
    }
    for (const auto& [section, text, nothing] :
         ReadOldAnalyses(UserGames({file, newMain}), old, file)) {
        file.SetSectionText(section, text, newAnalyses);
        file.WriteString(section, "Nothing", nothing, newAnalyses);
    }
    if (file.Save(newAnalyses)) return true;
    AddUnwritten("The game analyses with your own", newAnalyses);
    file.Forget(newAnalyses);
    return false;
}

// A file that cannot be upgraded does not keep the others from it.
bool Migration::UpgradeGameFiles() {
    const std::size_t before = problems.size();
    for (const auto& path : GameFiles(paths.folder)) {
        if (!CanRead(path)) {
            problems.push_back("The game file " + path +
                               " cannot be read. See to it that you may read and write it, or move "
                               "it to another folder.");
            continue;
        }
        if (IsUpgraded(path, file)) continue;
        UpgradeGameFile(path, newMain, file);
        if (!file.Save(path)) {
            problems.push_back("The statistics in the game file " + path +
                               " could not be brought over. Make room on its disk, and see to it "
                               "that you may write the file and its folder, or move it to another "
                               "folder.");
            file.Forget(path);
        }
        file.Close();  // two files may differ in the letter case of their names only
    }
    return problems.size() == before;
}

// The old main profile file goes out of its place first. An older backup of the cache goes even
// when no cache takes its place; before that, since a resumed try takes a backup for the cache.
void Migration::PutInPlace(bool resumed) {
    if (!resumed) {
        std::error_code ignored;
        if (!Exists(paths.analysisCache)) fs::remove(oldAnalyses, ignored);
        if (!Move(paths.mainProfile, oldMain)) return;
    }
    if (Exists(newAnalyses)) {
        if (!Move(paths.analysisCache, oldAnalyses)) return;
        if (!Move(newAnalyses, paths.analysisCache)) return;
    }
    Move(newMain, paths.mainProfile);
}

}  // namespace

std::vector<std::string> MigrateDataFiles(const DataFilePaths& paths, ProfileFile& file) {
    if (IsOfThisRelease(file, paths.mainProfile)) return {};
    file.Close();  // what it holds is about to be renamed
    auto problems = Migration(paths, file).Run();
    file.Close();
    return problems;
}
