// What a chart is worth, exactly: over all starting hands, in whole numbers.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/cards/Hand.h"
#include "core/strategy/Holds.h"
#include "core/strategy/Row.h"
#include "core/strategy/StartingHands.h"

struct ChartPlay;

// Parts of a coin, summed over starting hands.
using Worth = Int128;

struct RowGrade {
    std::int64_t hands = 0;  // that the row decides; 0: it is never reached
    Worth loss = 0;          // against the best play of these hands, at the worst reading
    Hand example;            // one of them, rightly played if there is such a one; empty without
};

struct ChartGrade {
    std::vector<RowGrade> rows;  // by row
    // The hands that no row fits, which count as discarding everything.
    RowGrade rest;
    Worth best = 0;                   // of the best play
    Worth worst = 0;                  // of the chart, when the worst of the holds that fit is taken
    Worth bestReading = 0;            // when the best of them is
    std::int64_t ambiguousHands = 0;  // several holds fit, and they are not worth the same
    std::int64_t hands = 0;           // C(deck, 5)
    std::int64_t partsOfCoin = 0;
    bool cancelled = false;  // the figures are of no use

    Worth Loss() const { return best - worst; }
    // What all hands bet.
    Worth Bet() const { return static_cast<Worth>(hands) * partsOfCoin * kFullBet; }
};

// Adds up hands to a grade.
class ChartGrader {
  public:
    // Of such hands, which outlive the grader.
    ChartGrader(const Chart& chart, const StartingHands& hands);

    void Add(const StartingHand& hand, const ChartPlay& play);

    ChartGrade grade;

  private:
    const LineTables& tables;
    std::vector<bool> exampleIsRight;  // by row, then rest
};

// Calls visit for all starting hands, with what the chart makes of each. False when it was ended.
bool ForEachPlay(const StartingHands& hands, const Terms& terms, const Chart& chart,
                 const Progress& progress,
                 const std::function<void(const StartingHand& hand, const ChartPlay& play)>& visit);

ChartGrade GradeChart(const StartingHands& hands, const Terms& terms, const Chart& chart,
                      const Progress& progress = {});

// A share of the whole in percent, both from 0 on, rounded half up: "99.543904" with six decimals.
std::string PercentText(Worth part, Worth whole, int decimals);

// The same as a number, as near as a double comes.
double Percent(Worth part, Worth whole);
