// The analysis of a hand as it is printed.
#pragma once
#include <string>
#include <vector>

#include "cli/TableChoice.h"
#include "core/analysis/HoldAnalysis.h"

struct HandReport {
    ChosenTable chosen;
    double coin = 1;                 // dollars
    std::vector<std::string> cards;  // as given: five, in Pick 'Em four, in Sneak Peak Poker six
    HoldAnalysis analysis;
};

// The holds that were evaluated, the best one first, then by falling return.
std::string HandAsText(const HandReport& report);

// All 32 by mask.
std::string HandAsJson(const HandReport& report);
