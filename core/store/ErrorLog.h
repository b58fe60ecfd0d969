// The play errors of a game and table: a log of at most 100 entries, the oldest first, in the
// section that holds the statistics of the table (TableSection). When each was made stands in a
// section beside it, under the key of the entry; entries of an earlier release have no date.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "core/cards/Hand.h"
#include "core/profile/ProfileFile.h"

inline constexpr int kErrorLogSize = 100;

struct ErrorLogEntry {
    HandCards hand = kNoCards;
    HandCards draws = kNoCards;  // in the order in which they replace discards
    HoldMask best = 0;
    HoldMask player = 0;
    double bestReturn = 0;    // dollars
    double playerReturn = 0;  // dollars
    std::int64_t date = 0;    // seconds since 1970; 0 = not known

    bool operator==(const ErrorLogEntry&) const = default;
};

// Where the dates stand (kErrorDates): "Error Dates %s(%i)", beside the section of the table.
std::string ErrorDatesSection(const std::string& section);

// The ten codes, the two masks and the two returns with four decimals, commas between them; not the
// date.
std::string FormatEntry(const ErrorLogEntry& entry);

// Each separator (',' ' ' ';' ':') ends a field, and only fields so ended are read as cards, masks
// and best return; the player's return is what follows the last separator. What is missing is
// kNoCard and 0, as is a code that no deck has (0..56) and a mask outside 0..31; a code may still
// be past the end of the deck in play. Never fails.
ErrorLogEntry ParseEntry(std::string_view text);

// The text of the entry of that index; empty when there is none. More than 80 characters come cut.
std::string ReadErrorText(const ProfileOnDisk& game, const std::string& section, int index);

// Its date; 0 when none is known.
std::int64_t ReadErrorDate(const ProfileOnDisk& game, const std::string& section, int index);

// Adds the entry at nextError, the number of entries, and counts it; a full log loses its oldest
// one. nextError itself is written by SaveErrorCounts, and all reaches the disk at once then.
void AppendError(const ProfileOnDisk& game, const std::string& section, const ErrorLogEntry& entry,
                 std::int32_t& nextError);

// The totals of a table's statistics that belong to the log.
struct ErrorCounts {
    std::int32_t nextError = 0;
    std::int32_t playErrors = 0;
    double bestReturns = 0;  // dollars, of the best holds of all checked hands
    double errorCosts = 0;   // dollars
};

// Writes the four keys and brings the file to the disk; false when that failed.
bool SaveErrorCounts(const ProfileOnDisk& game, const std::string& section,
                     const ErrorCounts& counts);

// Empties all entries and zeroes the four keys; false when the file did not reach the disk.
bool ClearErrorLog(const ProfileOnDisk& game, const std::string& section);

// Takes the entry of that index out: those behind it, and their dates, move down. nextError falls
// by one when it counted the entry. The counts stay: the error was made. False when the file did
// not reach the disk; nothing changes for an index without an entry, which is no failure.
bool DeleteError(const ProfileOnDisk& game, const std::string& section, int index,
                 std::int32_t& nextError);
