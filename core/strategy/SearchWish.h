// What is wanted of a search for charts, and what it has found.
#pragma once
#include <vector>

#include "core/strategy/Row.h"

struct SearchWish {
    static constexpr std::size_t kMostRows = 75;

    std::size_t mostRows = kMostRows;  // 1..kMostRows
    // Percent of the bet. The shortest chart is wanted that loses no more; below 0, the best one of
    // mostRows. When no chart is short enough, it is the best one that was found.
    double mostLoss = -1;
    bool penalties = false;  // rows may ask something of the discards
};

// What is meant by the chart of a table when nothing is said.
inline constexpr SearchWish kStandardChart{50, 0.01, false};

struct SearchResult {
    struct Found {
        Chart rows;
        double loss = 0;  // percent of the bet, nearly: GradeChart knows it exactly

        bool operator==(const Found&) const = default;
    };
    Chart chart;                // always valid, be it that all is discarded
    std::vector<Found> bySize;  // the best one that was found, by number of rows; empty for none
    bool cancelled = false;     // the chart is what was found so far
};
