#include "cli/OwnFiles.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "cli/DataFolder.h"
#include "core/store/DataFiles.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kGameFileEnding = ".qdx";

// Empty when the system cannot follow the path.
fs::path FullPath(const std::string& path) {
    std::error_code error;
    return fs::weakly_canonical(fs::absolute(path, error), error);
}

std::string EndingOf(const fs::path& file) {
    std::string ending = file.extension().string();
    std::ranges::transform(ending, ending.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return ending;
}

bool HasOwnEnding(const fs::path& file) {
    constexpr std::array endings = {kGameFileEnding, std::string_view(".ini"),
                                    std::string_view(".114"), std::string_view(".wav"),
                                    std::string_view(".lock")};
    return std::ranges::find(endings, EndingOf(file)) != endings.end();
}

bool IsProgram(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    return fs::is_regular_file(status) &&
           (status.permissions() & fs::perms::owner_exec) != fs::perms::none;
}

// The file may have another name here, as a hard link has.
bool IsOwnFileOf(const fs::path& folder, const fs::path& file) {
    std::error_code error;
    if (HasOwnEnding(file) && fs::equivalent(file.parent_path(), folder, error)) return true;
    if (!fs::exists(file, error)) return false;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code gone;
        if ((HasOwnEnding(entry->path()) || IsProgram(entry->path())) &&
            fs::equivalent(entry->path(), file, gone)) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool IsSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    if (fs::equivalent(a, b, error)) return true;
    const fs::path full = FullPath(a);
    return !full.empty() && full == FullPath(b);
}

bool IsOwnFile(const std::string& path, const std::optional<std::string>& dataFolder) {
    const fs::path file = FullPath(path);
    std::error_code error;
    if (EndingOf(file) == kGameFileEnding && fs::exists(file, error)) return true;
    const DataEnvironment environment = ReadDataEnvironment();
    const std::array<fs::path, 3> folders = {DataFolder(dataFolder), FindDataFolder(environment),
                                             fs::path(environment.programFile).parent_path()};
    return std::ranges::any_of(folders, [&file](const fs::path& folder) {
        return !folder.empty() && IsOwnFileOf(folder, file);
    });
}
