// The files that an analysis is asked to leave behind.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/GameReport.h"
#include "core/profile/ProfileFile.h"

namespace cli {

// True of the pay tables, game files, analyses, sounds and programs in the named data folder, in
// the player's and beside the program, whether there already or not, and of every game file that is
// there.
bool IsOwnFile(const std::string& path, const std::optional<std::string>& dataFolder);

class ResultFiles {
  public:
    explicit ResultFiles(const Options& options) : options(options) {}
    ResultFiles(const ResultFiles&) = delete;
    ResultFiles& operator=(const ResultFiles&) = delete;

    // One file cannot take what is asked for twice.
    std::optional<Failure> Check() const;

    // Nor the place of one of the program's own; in a folder, each table has files of its own.
    std::optional<Failure> CheckTargets(const ChosenTable& chosen) const;

    // Nothing when none is asked for.
    std::optional<std::string> DetailPath(const ChosenTable& chosen) const;

    // The Summary, and the cache in memory; both also of an analysis that was cancelled. Problems
    // are appended, one line each.
    void Write(const GameReport& report, std::vector<std::string>& problems);

    // Brings the cache to the disk, with what all the games have added to it.
    void Close(std::vector<std::string>& problems);

  private:
    std::optional<std::string> SummaryPath(const ChosenTable& chosen) const;
    std::string CachePath() const;  // empty when there is no place for data

    const Options& options;
    ProfileFile cache;
    bool cacheMissed = false;  // an analysis did not get into it
};

}  // namespace cli
