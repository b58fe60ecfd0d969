// What one hand, or one deal of many lines, wins or loses, on the lattice of the amounts that it
// can: the unit is the largest number of coins in which the bet and all pays are whole.
#pragma once
#include <cstdint>
#include <vector>

#include "core/odds/HandLaw.h"

struct GainLaw {
    struct Outcome {
        std::int64_t gain = 0;  // units won, less those bet
        double probability = 0;
    };
    std::vector<Outcome> outcomes;  // gains rise; probabilities above 0, which sum to 1
    std::int64_t stake = 1;         // units bet; no outcome loses more
    double unit = 1;                // bets of one line

    double Mean() const;      // units
    double Variance() const;  // units squared
    // Each loss is the whole bet, and each gain a whole number of bets: the money can only fall
    // from one level to the next.
    bool FallsByOne() const { return stake == 1; }
};

// Of one hand at a bet of 1.. coins.
GainLaw GainLawOf(const HandLaw& law, const PayTable& table, int bet);

// The largest unit, in coins.
std::int64_t UnitOf(const PayTable& table, int bet);
