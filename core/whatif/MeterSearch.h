// The break-even meter by whole analyses, for games whose play is more than the choice of a hold.
#pragma once
#include <functional>
#include <optional>

#include "core/analysis/GameAnalysis.h"

struct MeterResult {
    double coins = 0;                 // the meter asked for
    double percent = 0;               // the return at it
    std::optional<double> breakEven;  // nothing when no meter that a table can hold is high enough
    int analyses = 0;                 // of the whole game
    bool cancelled = false;           // the rest is of no use
};

// The return is convex in the meter, so that Newton's steps come from above and end on the straight
// piece that the answer lies on: its slope is taken from two meters that are a coin apart. Asked
// before each analysis, the function ends the work by false. Only for games that can be analysed.
MeterResult SearchMeter(const PayTable& table, std::size_t line, int coins,
                        const std::function<bool()>& goOn = {});
