// The analysis of a hand as it is printed.
#pragma once
#include <span>
#include <string>
#include <vector>

#include "cli/ChosenTable.h"
#include "core/analysis/HoldAnalysis.h"

namespace cli {

struct HandReport {
    ChosenTable chosen;
    double coin = 1;                 // dollars
    std::vector<std::string> cards;  // as given: five, in Pick 'Em four, in Sneak Peak Poker six
    HoldAnalysis analysis;
};

// The holds that were evaluated, the best one first, then by falling return. In the CSV, the draws
// of each line have a column.
std::string HandAsText(const HandReport& report);
std::string HandAsCsv(const HandReport& report);

// Hands of one table as JSON, each an object in a line of its own. It is written by hand, and what
// all hands have in common once: a stream of hands is answered several times as fast.
class HandJson {
  public:
    HandJson(const ChosenTable& chosen, double coin);

    // All 32 holds by mask.
    void Append(const HandReport& report, std::string& output) const;

    // The best one alone, and how many dollars less the second best returns.
    static void AppendBest(const HandReport& report, std::string& output);

  private:
    std::string beforeCards;  // up to the cards
    std::string behindCards;  // up to the best hold
};

}  // namespace cli
