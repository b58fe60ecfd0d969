// What one coin more on a line is worth.
#pragma once
#include <functional>
#include <optional>
#include <vector>

#include "core/analysis/GameAnalysis.h"

struct LineSensitivity {
    bool known = false;  // the game can be analysed, and the pay is not the largest there is
    double gain = 0;     // percent of the bet, the best play being found anew
    // The same for the play as it is: the line's probability, in percent. Nothing in double-draw
    // games, whose lines are counted after the first draw.
    std::optional<double> slope;
};

// For each line of the table, whose totals are given, when it pays one coin more for each coin bet.
// Asked time and again, the function ends the work by false; lines not reached are not known.
std::vector<LineSensitivity> LineSensitivities(const LineTables& tables, const PayTable& table,
                                               const GameTotals& totals,
                                               const std::function<bool()>& goOn = {});
