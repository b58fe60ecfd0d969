// The strategy charts that were found, kept in a profile file of their own: a section for each
// table ("%s(%i)"), with the hash of the pays that they are of. docs/analysis-files.md has the
// keys.
#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"
#include "core/strategy/ChartLists.h"

// How far the search for charts has come. Whatever it is, the charts found are valid.
enum class SearchReach : std::uint8_t {
    kNone,
    kSome,      // stopped
    kStandard,  // the standard chart is found
    kWhole,     // charts of all lengths
};

struct ChartsOfWording {
    ChartLists lists;
    SearchReach reach = SearchReach::kNone;

    bool operator==(const ChartsOfWording&) const = default;
};

struct TableCharts {
    std::int64_t date = 0;  // of the last search, in seconds since 1970
    double best = 0;        // percent that the best play returns
    ChartsOfWording plain;
    ChartsOfWording penalties;  // rows may ask something of the discards

    bool operator==(const TableCharts&) const = default;
};

// Nothing when the file has none of these pays. What cannot be read any more is passed over.
std::optional<TableCharts> ReadCharts(const ProfileOnDisk& charts, const std::string& section,
                                      const PayTable& table);

// Replaces what the file, which is begun with its folder where there is none, has of the section,
// and saves it. False when the disk has not taken it: it then waits to be written, or, where the
// file cannot even be begun, is dropped.
bool KeepCharts(const ProfileOnDisk& charts, const std::string& section, const PayTable& table,
                const TableCharts& found);
