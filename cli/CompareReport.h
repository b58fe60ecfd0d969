// The comparison of two pay tables as it is printed.
#pragma once
#include <string>

#include "cli/ChosenTable.h"
#include "core/whatif/GameComparison.h"

namespace cli {

struct CompareReport {
    ChosenTable a;
    ChosenTable b;
    double coin = 1;  // dollars
    GameComparison comparison;
};

std::string CompareAsText(const CompareReport& report);
std::string CompareAsJson(const CompareReport& report);

// A row for each class of hands that are played differently; for each line of the tables when their
// hands cannot be set side by side.
std::string CompareAsCsv(const CompareReport& report);

}  // namespace cli
