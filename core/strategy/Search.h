// Finds charts: lists of rows that lose little in few rows.
//
// A first list is made from the top, of rows that lose next to nothing on the hands that are left
// to them, the widest first. Then rows that became needless go, each row is taken out and the best
// one for its place put in, itself included, and the row that is missed least is dropped, until the
// chart is as short as is wished. A chart that loses too much gets further rows, at last such of
// more words than the others. The same table gives the same chart: nothing depends on time.
#pragma once
#include <functional>
#include <vector>

#include "core/strategy/Grade.h"
#include "core/strategy/Row.h"
#include "core/strategy/StartingHands.h"

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

// Told of each chart that is better than those of its length before, the first of them when a tenth
// of the work is done.
using ListFound = std::function<void(const SearchResult::Found& found)>;

// Works on two threads where there are two. The progress is asked, and what is found told, from the
// calling one.
SearchResult FindChart(const StartingHands& hands, const Terms& terms, const PayTable& table,
                       const SearchWish& wish, const Progress& progress = {},
                       const ListFound& told = {});
