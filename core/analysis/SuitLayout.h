// Hands of the same kinds beside each other. Which class of its kinds a subset of a hand belongs to
// depends on the suits, on which of the kinds are equal and on what is wild, so one layout serves
// the thousands of multisets of kinds that are alike in this.
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "core/analysis/HoldCounts.h"
#include "core/analysis/LineTables.h"

// A subset of a hand, and a hold, has a bit for each place of its cards in sorted order, 1 for the
// first.
inline constexpr std::size_t kAllFive = kHolds - 1;

// So many columns are worked on at a time.
inline constexpr std::size_t kColumnsAtOnce = 8;

// Hands all subsets of which are of the same classes are played alike, and share a column.
struct SuitLayout {
    std::vector<std::uint32_t> columnOf;  // by hand
    std::size_t columns = 0;
    std::size_t stride = 0;  // the columns filled up with zeros to a multiple of kColumnsAtOnce
    // By subset, then by column: the class among those of the subset's kinds; of all five cards,
    // their view; 0 for no card.
    std::vector<std::uint32_t> classes;
    std::array<std::size_t, kHolds> classCounts{};  // by subset: the greatest of them and one

    const std::uint32_t* Classes(std::size_t subset) const { return &classes[subset * stride]; }
};

// The layout of hands that have the same kinds.
SuitLayout LayOut(const LineTables& tables, std::span<const SortedCards> hands);
