// Many lines at once: one hand is dealt, its best hold is kept in all of them, and each draws from
// a deck of its own. What they share is the hold, and so their gains go together.
#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "core/odds/GainLaw.h"

class LineTableCache;

inline constexpr int kMostLinesAtOnce = 100;

// The law of a deal.
struct DealLaw {
    GainLaw gains;
    std::array<double, kMaxPayLines> seen{};  // the chance that one hand or more ends in the line
    std::array<std::int64_t, kMaxPayLines> gainOf{};  // units that one hand in the line wins
    int lines = 1;                                    // at once

    // That this happens at least once in so many deals.
    double AtLeastOnce(std::size_t line, std::int64_t deals) const;
};

// At a bet of so many coins on each of 1..kMostLinesAtOnce lines; of one line, the law of a hand.
// Nothing when the game cannot be analysed, when goesOn says no, or when the pays of many lines
// spread over more than kMostPlaces units.
std::optional<DealLaw> FindDealLaw(const PayTable& table, int bet, int lines,
                                   LineTableCache& tables, const std::function<bool()>& goesOn);
