// The last touch of a chart that is to lose next to nothing: rows that ask which ranks and suits
// are discarded. A row of the chart stands too low for some hands; it is repeated above the row
// that decides them wrongly, with such words that no other hand loses more than they gain.
#pragma once
#include <functional>

#include "core/strategy/Holds.h"
#include "core/strategy/Row.h"
#include "core/strategy/StartingHands.h"

struct FinishWish {
    std::size_t mostRows = 0;
    double mostLoss = 0;  // percent of the bet; no more rows are added when that is reached
};

// The chart has its exact loss in percent afterwards. It is valid when it was stopped by false,
// too.
double Finish(const StartingHands& hands, const Terms& terms, const FinishWish& wish,
              const std::function<bool()>& goOn, Chart& chart);
