#include "cli/DataFolder.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "cli/Texts.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kMainFileName = "Tolvane.ini";
constexpr const char* kReleaseFileName = "Tolvane.114";

bool CanRead(const fs::path& file) {
    std::error_code error;
    return fs::is_regular_file(file, error) && std::ifstream(file).good();
}

// Empty when the system does not tell.
fs::path ProgramFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

bool CanWrite(const fs::path& folder) {
    return !folder.empty() && access(folder.c_str(), W_OK) == 0;
}

// Empty without a home. Relative paths in XDG_DATA_HOME are invalid and passed over, as the XDG
// base directory rules ask.
fs::path UserDataFolder() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && data[0] == '/') return fs::path(data) / "Tolvane";
    const char* home = std::getenv("HOME");
    if (home == nullptr || home[0] != '/') return {};
    return fs::path(home) / ".local" / "share" / "Tolvane";
}

fs::path WindowProgramFolder() {
    const fs::path programFolder = ProgramFolder();
    return CanWrite(programFolder) ? programFolder : UserDataFolder();
}

}  // namespace

std::optional<Failure> FindMainFile(const std::optional<std::string>& dataFolder,
                                    std::string& path) {
    if (dataFolder) {
        path = fs::path(*dataFolder) / kMainFileName;
        if (!dataFolder->empty() && CanRead(path)) return std::nullopt;
        return Failure{kFailed, "no readable Tolvane.ini in " + QuotedPath(*dataFolder) +
                                    ": name the folder that holds it with --data"};
    }
    const fs::path ownFolder = WindowProgramFolder();
    for (const fs::path& file : {ownFolder / kMainFileName, ProgramFolder() / kReleaseFileName}) {
        path = file;
        if (file.is_absolute() && CanRead(file)) return std::nullopt;
    }
    return Failure{kFailed, "neither Tolvane.ini in " + QuotedPath(ownFolder.string()) +
                                " nor Tolvane.114 beside the program: name the folder that holds "
                                "Tolvane.ini with --data"};
}

std::string DataFolder(const std::optional<std::string>& named) {
    return named ? *named : WindowProgramFolder().string();
}
