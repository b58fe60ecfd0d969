// What a chart makes of a single hand.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/strategy/Holds.h"
#include "core/strategy/LookIndex.h"

struct ChartPlay {
    std::array<std::size_t, kSubsets> rowOf{};  // by hold, the first that fits; the size for none
    std::size_t row = 0;       // the one that decides; the chart's size when none does
    std::size_t held = 0;      // what counts as held: the worst hold of the row
    std::size_t luckiest = 0;  // the best hold of the row
};

// Quick for many hands, since holds that look alike are read once.
class ChartReader {
  public:
    // Both outlive the reader.
    ChartReader(const Terms& terms, const Chart& chart);

    // Cards, line and values of the hand are filled in.
    ChartPlay Play(const StartingHand& hand);

  private:
    std::size_t FirstRow(HoldLook look);

    const Terms& terms;
    const Chart& chart;
    LookAt at;
    LookIndex index;
    std::vector<std::size_t> firstRows;  // by number of the look
};
