#include "core/store/DataFiles.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "core/profile/AtomicFile.h"
#include "core/profile/ProfileFile.h"

namespace fs = std::filesystem;

namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

bool CanWrite(const fs::path& folder) {
    return !folder.empty() && faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) == 0;
}

// Relative paths in XDG_DATA_HOME are invalid and passed over, as the XDG base directory rules ask.
fs::path UserDataFolder(const DataEnvironment& environment) {
    const fs::path dataHome = environment.xdgDataHome;
    if (dataHome.is_absolute()) return dataHome / "Tolvane";
    const fs::path home = environment.home;
    if (home.is_absolute()) return home / ".local" / "share" / "Tolvane";
    return {};
}

}  // namespace

DataEnvironment ReadDataEnvironment() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path folder = program.parent_path();
    const bool installed = fs::exists(folder / kInstalledMark, error);
    return {program.string(), CanWrite(folder) && !installed, Variable("XDG_DATA_HOME"),
            Variable("HOME")};
}

std::string FindDataFolder(const DataEnvironment& environment) {
    const fs::path programFolder = fs::path(environment.programFile).parent_path();
    const bool beside = environment.programFolderWritable && programFolder.is_absolute();
    return (beside ? programFolder : UserDataFolder(environment)).string();
}

std::optional<DataFilePaths> FindDataFiles(const DataEnvironment& environment) {
    const fs::path folder = FindDataFolder(environment);
    if (folder.empty()) return std::nullopt;
    const fs::path program = environment.programFile;
    const fs::path name = program.has_filename() ? program.filename() : fs::path("Tolvane");
    return DataFilePaths{
        .folder = (folder / "").string(),
        .releaseFolder = (program.parent_path() / "").string(),
        .mainProfile = (folder / fs::path(name).replace_extension("ini")).string(),
        .defaultGame = (folder / "Default.qdx").string(),
        .analysisCache = (folder / "Game Analyses.ini").string(),
        .strategyCharts = (folder / "Strategy Charts.ini").string(),
    };
}

bool CreateDataFolder(const DataFilePaths& paths) {
    std::error_code error;
    fs::create_directories(paths.folder, error);
    return fs::is_directory(paths.folder, error);
}

std::string CurrentGamePath(const DataFilePaths& paths, ProfileFile& file) {
    const std::string path =
        file.GetString("main", "CurrGame", "", ProfileFile::kWholeValue, paths.mainProfile);
    if (path.empty()) return paths.defaultGame;
    const std::string folder =
        file.GetString("main", "DataFolder", "", ProfileFile::kWholeValue, paths.mainProfile);
    if (folder.empty() || folder == paths.folder || !path.starts_with(folder)) return path;
    const std::string moved = paths.folder + path.substr(folder.size());
    std::error_code error;
    return fs::exists(moved, error) ? moved : path;
}

void StoreCurrentGamePath(const std::string& gamePath, const DataFilePaths& paths,
                          ProfileFile& file) {
    file.WriteString("main", "CurrGame", gamePath, paths.mainProfile);
    std::optional<std::string> folder;
    if (gamePath.starts_with(paths.folder)) folder = paths.folder;
    file.WriteString("main", "DataFolder", folder, paths.mainProfile);
}

std::string DocumentTitle(const std::string& gameName, const std::string& gamePath,
                          const DataFilePaths& paths) {
    if (SamePath(gamePath, paths.defaultGame)) return gameName;
    return gameName + " (" + fs::path(gamePath).filename().string() + ")";
}

bool CopyWholeFile(const std::string& from, const std::string& to) {
    const auto contents = ReadWholeFile(from);
    return contents && ReplaceFile(to, *contents);
}
