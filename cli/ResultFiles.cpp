#include "cli/ResultFiles.h"

#include <algorithm>
#include <filesystem>

#include "cli/DataFolder.h"
#include "cli/OwnFiles.h"
#include "cli/Texts.h"
#include "core/profile/AtomicFile.h"
#include "core/profile/OutputFile.h"
#include "core/store/AnalysisFiles.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kCacheName = "Game Analyses.ini";

bool IsFolder(const std::string& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

// A slash in a game's name would lead into another folder.
std::string InFolder(const std::string& folder, std::string name) {
    std::ranges::replace(name, '/', '_');
    return (fs::path(folder) / name).string();
}

// An empty file is what a profile file starts from; it creates none by itself.
void CreateIfMissing(const std::string& path) {
    std::error_code error;
    fs::create_directories(fs::path(path).parent_path(), error);
    if (!fs::exists(path, error)) ReplaceFile(path, "");
}

}  // namespace

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
    const auto summary = SummaryPath(chosen);
    const auto detail = DetailPath(chosen);
    for (const auto& [option, path] : {std::pair("--summary ", summary), {"--detail ", detail}}) {
        if (!path || !IsOwnFile(*path, options.dataFolder)) continue;
        return Failure{kWrongUse, option + QuotedPath(*path) +
                                      " would replace a file of the program's data: name another "
                                      "file"};
    }
    return std::nullopt;
}

std::optional<std::string> ResultFiles::SummaryPath(const ChosenTable& chosen) const {
    const auto& path = options.summaryPath;
    if (!path || !IsFolder(*path)) return path;
    return InFolder(*path, SummaryFileName(chosen.game.name, chosen.index));
}

std::optional<std::string> ResultFiles::DetailPath(const ChosenTable& chosen) const {
    const auto& path = options.detailPath;
    if (!path || !IsFolder(*path)) return path;
    return InFolder(*path, DetailFileName(chosen.game.name, chosen.index));
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
    CreateIfMissing(path);
    const std::string section = TableSection(chosen.game.name, chosen.index);
    WriteToCache(entries, section, path, cache);
    // What it cannot take, as when there is no such file, it drops without a word.
    const auto& [key, label, value] = entries.front();
    const auto kept = cache.GetString(section, key, "", ProfileFile::kWholeValue, path);
    if (kept != value) cacheMissed = true;
}

void ResultFiles::Close(std::vector<std::string>& problems) {
    if (!options.cache || (cache.Flush() && !cacheMissed)) return;
    problems.push_back("the analysis could not be kept in " + QuotedPath(CachePath()));
}
