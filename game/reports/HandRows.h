// The hand analysis as a table: a row for each hold, the best first.
#pragma once
#include <cstdint>

#include "game/reports/ReportTable.h"

struct GameEngine;

// What the columns of the pay lines show of a hold's draws.
enum class LineFigure {
    kProbability,    // percent
    kHands,          // draws
    kOdds,           // draws for each such draw
    kShareOfReturn,  // percent of the hold's return
};

// Of the spare engine's hand, as LendHand and TakeFixedHand leave it; the rows' ids are the holds.
// Holds of equal worth have the same rank, followed by a "=". The best ones are marked, and the one
// that the player holds. In a double-draw game a "*" is before the figure of a line that is drawn
// again. Without rows, and with a warning, for a hand that could not be analysed. The time is in
// seconds since the epoch.
ReportTable HandTable(const GameEngine& spare, LineFigure figure, std::int64_t time);
