// The draws of many best holds together, without counting those of each: the draws of a hold are a
// sum of rows of the line tables, so it is enough to add up how often each row counts, and to
// multiply it once at the end. All sums are exact.
#pragma once
#include <array>
#include <cstdint>
#include <vector>

#include "core/analysis/LineTables.h"
#include "core/analysis/SetWorths.h"

class DrawSums {
  public:
    explicit DrawSums(const LineTables& tables);

    // Takes down so many hands more that draw so many cards, and returns how often each row of the
    // tables counts in their draws, by row: the caller adds their own.
    std::int64_t* Of(std::size_t drawn, std::int64_t hands) {
        handsByDraw[drawn] += hands;
        return times[drawn].data();
    }

    // By cards drawn.
    std::int64_t Hands(std::size_t drawn) const { return handsByDraw[drawn]; }

    // The draws by cards drawn and lane.
    using Sums = std::array<std::array<std::int64_t, kLanes>, kDraws>;
    Sums Total() const;

  private:
    const LineTables& tables;
    std::array<std::vector<std::int64_t>, kDraws> times;  // by row
    std::array<std::int64_t, kDraws> handsByDraw{};
};
