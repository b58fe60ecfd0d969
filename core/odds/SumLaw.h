// The exact law of many hands, one independent of the other.
#pragma once
#include <cstdint>
#include <optional>
#include <vector>

#include "core/odds/GainLaw.h"
#include "core/odds/Spectrum.h"

// Probabilities of the whole numbers from "first" on.
struct WholeLaw {
    std::int64_t first = 0;
    std::vector<double> probabilities;
};

// What the sum of so many gains stays between but for a chance of 1e-13 on either side, by
// Chernoff's bound.
struct GainWindow {
    double lowest = 0;  // units
    double highest = 0;
    double highestEver = 0;  // of the sum after any number of hands up to the last
};
GainWindow WindowOf(const GainLaw& law, double hands);

// The law of the sum of so many gains; nothing when it spreads over more than kMostPlaces units, or
// when goesOn says no.
std::optional<WholeLaw> SumLaw(const GainLaw& law, std::int64_t hands, const GoesOn& goesOn);
