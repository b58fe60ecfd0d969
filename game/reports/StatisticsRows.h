// The play statistics as a table: what was seen in the session and in the whole game, beside what
// the exact analysis expects of as many hands, and how unusual that is.
#pragma once
#include <cstdint>
#include <optional>

#include "core/store/Statistics.h"
#include "game/reports/ExpectedPlay.h"
#include "game/reports/ReportTable.h"

struct GameEngine;

// The credits that were bet on the hands played to their end, of the session or of the total. The
// bet of a hand in which the statistics were reset is not in the counter; it is taken for the
// present one.
std::int64_t CreditsBet(const GameEngine& engine, std::int32_t Counter::*copy);

// The ids of the rows that are no pay lines; those have their number in the pay table.
enum class StatisticsRow : int {
    kHandsPlayed = 100,
    kHandsWon,
    kCreditsPlayed,
    kCreditsWon,
    kNetGain,
    kReturn,            // of the pay lines
    kReturnWithExtras,  // with bonuses and double ups
    kPlayErrors,
    kErrorCost,
    kErrorShare,
};

// Of the engine's game and table. What is expected is that of its present bet, which the counters
// do not tell from others; without it its columns are left out, and the head says why. The time is
// that of the figures, in seconds since the epoch.
ReportTable StatisticsRows(const GameEngine& engine, const std::optional<ExpectedPlay>& expected,
                           std::int64_t time);
