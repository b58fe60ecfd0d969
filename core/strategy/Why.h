// Why a hold is better than another, in the words of a chart.
#pragma once
#include <optional>
#include <string>

#include "core/strategy/ChartPlay.h"

// "4 to a flush (line 9) stands above low pair (line 11)", of the best hold and another one;
// without one, the best of those that stand in the chart. Where the chart plays the hand worse than
// it can be played: "low pair (line 11) is better here than 4 to a flush (line 9): an exception of
// the chart, worth 0.0003 bets". Cards, line and values of the hand are filled in; the values are
// in so many parts of a bet. Empty when both holds are worth the same and the chart is right, so
// that there is nothing to say.
std::string WhyText(const Terms& terms, const Chart& chart, const StartingHand& hand,
                    std::optional<std::size_t> other, std::int64_t partsOfBet);
