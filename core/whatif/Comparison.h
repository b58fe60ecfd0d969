// What is played differently on two pay tables of one deck, and what it costs to play the one like
// the other: exactly, over all starting hands.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "core/cards/Hand.h"
#include "core/whatif/TwoTables.h"

// Hands for which A holds the one and B the other.
struct PlayDifference {
    std::string a;  // in the words of the charts
    std::string b;
    std::int64_t hands = 0;
    Int128 costOnA = 0;  // of B's hold, in parts of a coin over these hands
    Int128 costOnB = 0;  // of A's hold
    Hand example;        // one of those that it matters most for
};

struct PlayComparison {
    std::int64_t hands = 0;           // all starting hands
    std::int64_t differentHands = 0;  // no hold is a best one on both tables
    Int128 bestOnA = 0;
    Int128 bestOnB = 0;
    Int128 costOnA = 0;  // of B's best play
    Int128 costOnB = 0;  // of A's best play
    std::int64_t partsOfCoin = 0;
    std::vector<PlayDifference> classes;  // that which costs most on B first
    bool cancelled = false;               // the figures are of no use

    // What all hands bet.
    Int128 Bet() const { return static_cast<Int128>(hands) * partsOfCoin * kFullBet; }
};

// Where several holds are as good on a table, the one is taken that the other table likes best. The
// progress is asked from time to time, and ends the work by false.
PlayComparison ComparePlay(const TwoTables& tables, const WhatIfProgress& progress = {});
