#include "cli/ResultFiles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <filesystem>

#include "cli/TableChoice.h"
#include "cli/Texts.h"
#include "core/cards/Deck.h"
#include "core/profile/OutputFile.h"
#include "core/store/AnalysisCache.h"
#include "core/store/DataFiles.h"
#include "core/text/Numbers.h"

namespace fs = std::filesystem;

namespace cli {
namespace {

using enum AnalysisStanding;

constexpr const char* kGameFileEnding = ".qdx";
constexpr const char* kCacheName = "Game Analyses.ini";

// Empty when the system cannot follow the path.
fs::path FullPath(const std::string& path) {
    std::error_code error;
    return fs::weakly_canonical(fs::absolute(path, error), error);
}

bool HasOwnEnding(const fs::path& file) {
    constexpr std::array endings = {kGameFileEnding, ".ini", ".114", ".wav", ".lock"};
    return std::ranges::any_of(
        endings, [&](auto ending) { return SameText(file.extension().string(), ending); });
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

// Also when there is no such file yet. Links and other spellings of a path are followed.
bool IsSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    if (fs::equivalent(a, b, error)) return true;
    const fs::path full = FullPath(a);
    return !full.empty() && full == FullPath(b);
}

bool IsFolder(const std::string& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

// The file itself, or the one of that name in a folder. A slash in a game's name would lead into
// another folder.
std::optional<std::string> FileOf(const std::optional<std::string>& path, std::string name) {
    if (!path || !IsFolder(*path)) return path;
    std::ranges::replace(name, '/', '_');
    return (fs::path(*path) / name).string();
}

// Now, or what a build that is to give the same bytes again asks for:
// https://reproducible-builds.org/specs/source-date-epoch
std::int64_t TimeOfAnalysis() {
    const char* fixed = std::getenv("SOURCE_DATE_EPOCH");
    std::int64_t seconds = 0;
    const std::string_view text = fixed ? fixed : "";
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole ? seconds : SystemSeconds();
}

}  // namespace

// What is compared are the files, as by IsSameFile.
bool IsOwnFile(const std::string& path, const std::optional<std::string>& dataFolder) {
    const fs::path file = FullPath(path);
    std::error_code error;
    if (SameText(file.extension().string(), kGameFileEnding) && fs::exists(file, error))
        return true;
    const DataEnvironment environment = ReadDataEnvironment();
    const std::array<fs::path, 3> folders = {DataFolder(dataFolder), FindDataFolder(environment),
                                             fs::path(environment.programFile).parent_path()};
    return std::ranges::any_of(folders, [&file](const fs::path& folder) {
        return !folder.empty() && IsOwnFileOf(folder, file);
    });
}

std::optional<Failure> ResultFiles::Check() const {
    const auto& summary = options.summaryPath;
    const auto& detail = options.detailPath;
    for (const auto& [option, path] : {std::pair("--summary ", summary), {"--detail ", detail}}) {
        if (path && options.allGames && !IsFolder(*path)) {
            return Failure{kWrongUse, option + Quoted(*path) +
                                          ": with --all name a folder that is there, for one file "
                                          "of each game"};
        }
    }
    if (summary && detail && IsSameFile(*summary, *detail) && !IsFolder(*summary)) {
        return Failure{kWrongUse, "--summary and --detail " + Quoted(*summary) +
                                      " are the same file: name two"};
    }
    return std::nullopt;
}

std::optional<Failure> ResultFiles::CheckTargets(const ChosenTable& chosen) const {
    for (const auto& [option, path] :
         {std::pair("--summary ", SummaryPath(chosen)), {"--detail ", DetailPath(chosen)}}) {
        if (!path || !IsOwnFile(*path, options.dataFolder)) continue;
        return Failure{kWrongUse, option + QuotedPath(*path) +
                                      " would replace a file of the program's data: name another "
                                      "file"};
    }
    return std::nullopt;
}

std::optional<std::string> ResultFiles::SummaryPath(const ChosenTable& chosen) const {
    return FileOf(options.summaryPath,
                  SummaryFileName(chosen.place.gameName, chosen.place.tableIndex));
}

std::optional<std::string> ResultFiles::DetailPath(const ChosenTable& chosen) const {
    return FileOf(options.detailPath,
                  DetailFileName(chosen.place.gameName, chosen.place.tableIndex));
}

std::string ResultFiles::CachePath() const {
    const std::string folder = DataFolder(options.dataFolder);
    return folder.empty() ? "" : (fs::path(folder) / kCacheName).string();
}

void ResultFiles::Write(const GameReport& report, std::vector<std::string>& problems) {
    const ChosenTable& chosen = report.chosen;
    const auto entries = AnalysisEntries(report.totals, chosen.payTable, report.coin);
    const auto summary = SummaryPath(chosen);
    if (summary && !WriteOutputFile(*summary, SummaryText(entries))) {
        problems.push_back("the summary could not be written to " + QuotedPath(*summary));
    }
    if (!options.cache) return;
    const std::string path = CachePath();
    const std::string section = TableSection(chosen.place.gameName, chosen.place.tableIndex);
    const AnalysisStamp stamp =
        StampOf(report.totals, chosen.payTable, report.coin, TimeOfAnalysis());
    // A part must not take the place of all.
    if (stamp.stoppedAt && HoldsWhole({cache, path}, section, chosen.payTable)) return;
    WriteToCache(entries, stamp, section, {cache, path});
    // What it cannot take, as when there is no such file, it drops without a word.
    const auto& [key, label, value] = entries.front();
    const auto kept = cache.GetString(section, key, "", ProfileFile::kWholeValue, path);
    if (kept != value) cacheMissed = true;
}

void ResultFiles::Close(std::vector<std::string>& problems) {
    if (!options.cache || (cache.Flush() && !cacheMissed)) return;
    problems.push_back("the analysis could not be kept in " + QuotedPath(CachePath()));
}

}  // namespace cli
