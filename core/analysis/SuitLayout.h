// Hands of the same kinds beside each other. Which class of its kinds a subset of a hand belongs to
// depends on the suits and on which of the kinds are equal, so one layout serves the thousands of
// multisets of kinds that are alike in this.
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "core/analysis/HoldCounts.h"
#include "core/analysis/LineTables.h"

// A subset of a hand, and a hold, has a bit for each place of its cards in sorted order, 1 for the
// first.
inline constexpr std::size_t kAllFive = kHolds - 1;

// So many hands are worked on at a time.
inline constexpr std::size_t kHandsAtOnce = 8;

struct SuitLayout {
    std::size_t hands = 0;
    // By subset of one to four cards, then by hand: the class among those of the subset's kinds; of
    // all five cards, their view. Filled up with zeros to a multiple of kHandsAtOnce.
    std::array<std::vector<std::uint32_t>, kHolds> classes;
    std::array<std::size_t, kHolds> classCounts{};  // by subset: the greatest of them and one
};

// The layout of hands that have the same kinds.
SuitLayout LayOut(const LineTables& tables, std::span<const SortedCards> hands);
