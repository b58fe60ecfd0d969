#include "cli/DataFolder.h"

#include <filesystem>
#include <fstream>

#include "cli/Texts.h"
#include "core/store/DataFiles.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kMainFileName = "Tolvane.ini";

bool IsThere(const fs::path& file) {
    std::error_code error;
    return fs::status(file, error).type() != fs::file_type::not_found;
}

bool CanRead(const fs::path& file) {
    std::error_code error;
    return fs::is_regular_file(file, error) && std::ifstream(file).good();
}

}  // namespace

std::optional<Failure> FindMainFile(const std::optional<std::string>& dataFolder,
                                    std::string& path) {
    const DataEnvironment environment = ReadDataEnvironment();
    const fs::path folder = dataFolder ? *dataFolder : FindDataFolder(environment);
    const fs::path shippedFolder =
        dataFolder ? folder : fs::path(environment.programFile).parent_path();
    for (const fs::path& file : {folder / kMainFileName, shippedFolder / kShippedMainProfile}) {
        if (file.parent_path().empty() || !IsThere(file)) continue;
        path = file;
        if (CanRead(file)) return std::nullopt;
        return Failure{kFailed, QuotedPath(path) +
                                    " cannot be read: make it readable, or name another folder "
                                    "with --data"};
    }
    const std::string shippedPlace = dataFolder ? "there" : "beside the program";
    return Failure{kFailed, "neither Tolvane.ini in " + QuotedPath(folder.string()) +
                                " nor Tolvane.114 " + shippedPlace +
                                ": name the folder that holds one of them with --data"};
}

std::string DataFolder(const std::optional<std::string>& named) {
    return named ? *named : FindDataFolder(ReadDataEnvironment());
}
