// What the hands that hold a set of cards are worth together, in coins: the counts of a line table
// times the pays of its lines. The best of 32 holds is found from these alone.
#pragma once
#include <array>
#include <cstdint>
#include <vector>

#include "core/analysis/LineTables.h"
#include "core/paytable/PayTable.h"

struct SetWorths {
    std::array<std::int64_t, kLanes> pays{};   // coins, by lane
    std::vector<std::int64_t> worths;          // coins, by row of the tables
    std::array<std::int64_t, kDraws> draws{};  // distinct ones, by cards drawn

    // The tables are those of the pay table, the bet is in coins.
    SetWorths(const LineTables& tables, const PayTable& table, int bet);

    // What all hands of the deck are worth; no set and no hold is worth more.
    std::int64_t OfAllHands() const { return worths[0]; }
};
