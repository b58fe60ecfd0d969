// The lines of a pay table that no hand can ever be paid on, because the lines above take all their
// hands or the deck has none: by the line tables, which have the evaluator's word on every hand.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "core/analysis/LineTables.h"

struct UnpaidLine {
    int line = 0;
    std::vector<int> takers;  // the lines above, rising; none: no hand of the deck makes the line

    bool operator==(const UnpaidLine&) const = default;
};

// The tables are those of the pay table. 5 CARD CHARLIE is not looked at: the analysis does not
// know it. Each line found takes some milliseconds; the function is asked before it whether to go
// on, and what is found without it is incomplete.
std::vector<UnpaidLine> FindUnpaidLines(const PayTable& table, const LineTables& tables,
                                        const std::function<bool()>& goesOn);

// "Never paid: lines 1 and 3 take all its hands."
std::string UnpaidText(const UnpaidLine& line);
