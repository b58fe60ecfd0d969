// Many lines at once: one hand is dealt, its best hold is kept in all of them, and each draws from
// a deck of its own. What they share is the hold, and so their gains go together.
#pragma once
#include <functional>
#include <optional>

#include "core/odds/GainLaw.h"

class LineTableCache;

inline constexpr int kMostLines = 100;

// The law of a deal at a bet of so many coins on each of 1..kMostLines lines. Nothing when the
// game cannot be analysed, when goesOn says no, or when its pays spread too far.
std::optional<GainLaw> DealLawOf(const PayTable& table, int bet, int lines, LineTableCache& tables,
                                 const std::function<bool()>& goesOn);
