#include "cli/DataFolder.h"

#include <filesystem>
#include <fstream>

#include "cli/Texts.h"
#include "core/store/DataFiles.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kMainFileName = "Tolvane.ini";

bool CanRead(const fs::path& file) {
    std::error_code error;
    return fs::is_regular_file(file, error) && std::ifstream(file).good();
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
    const DataEnvironment environment = ReadDataEnvironment();
    const fs::path ownFolder = FindDataFolder(environment);
    const fs::path programFolder = fs::path(environment.programFile).parent_path();
    for (const fs::path& file : {ownFolder / kMainFileName, programFolder / kShippedMainProfile}) {
        path = file;
        if (file.is_absolute() && CanRead(file)) return std::nullopt;
    }
    return Failure{kFailed, "neither Tolvane.ini in " + QuotedPath(ownFolder.string()) +
                                " nor Tolvane.114 beside the program: name the folder that holds "
                                "Tolvane.ini with --data"};
}

std::string DataFolder(const std::optional<std::string>& named) {
    return named ? *named : FindDataFolder(ReadDataEnvironment());
}
