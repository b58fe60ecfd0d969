// The files the program keeps its data in: where they are, and which of the game files is the
// current one. Paths are UTF-8.
//
// A start goes: FindDataFiles, CreateDataFolder, LockFile, MigrateDataFiles, CurrentGamePath.
#pragma once
#include <optional>
#include <string>
#include <string_view>

class ProfileFile;

// What is shipped beside the program. The first start makes the live files of them.
inline constexpr std::string_view kShippedMainProfile = "Tolvane.114";
inline constexpr std::string_view kShippedGame = "Default.114";
inline constexpr std::string_view kShippedAnalyses = "Game Analyses.114";

// In the program's folder it says that the program is installed for several people, and that nobody
// keeps data there, even one who may write to it: root would use the shipped files up for them all.
inline constexpr std::string_view kInstalledMark = "installed";

// What the places depend on.
struct DataEnvironment {
    std::string programFile;             // full path; empty when the system does not tell
    bool programFolderWritable = false;  // and not marked as installed
    std::string xdgDataHome;             // empty = not set
    std::string home;                    // empty = not set
};

struct DataFilePaths {
    std::string folder;         // of all live data; ends with '/', so that a name may follow it
    std::string releaseFolder;  // of the shipped files; ends with '/'; empty when not known
    std::string mainProfile;    // the program file's name with the extension ini
    std::string defaultGame;
    std::string analysisCache;
    std::string strategyCharts;
};

// The environment of the running program.
DataEnvironment ReadDataEnvironment();

// The program's own folder when data may be kept there, otherwise the user's ("Tolvane" among the
// data of all programs), which need not exist yet. Empty when there is neither.
std::string FindDataFolder(const DataEnvironment& environment);

// The paths of all live data; nothing when there is no data folder.
std::optional<DataFilePaths> FindDataFiles(const DataEnvironment& environment);

// True when the folder is there afterwards; whether it can be written, the lock file tells.
bool CreateDataFolder(const DataFilePaths& paths);

// The game file last played with, which need not exist any more; the default one when none is
// named. When it lay in the data folder, and that has been moved or copied since, it is the one in
// the new folder.
std::string CurrentGamePath(const DataFilePaths& paths, ProfileFile& file);
void StoreCurrentGamePath(const std::string& gamePath, const DataFilePaths& paths,
                          ProfileFile& file);

// "Deuces Wild" for the default game file, "Deuces Wild (Holiday.qdx)" for any other.
std::string DocumentTitle(const std::string& gameName, const std::string& gamePath,
                          const DataFilePaths& paths);

// Copies a file that no profile file holds, in place of any file that is there. False when that
// failed: a file that was there is then as it was.
bool CopyWholeFile(const std::string& from, const std::string& to);
