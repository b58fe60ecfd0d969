// What a player's own hands were expected to bring.
#pragma once
#include "core/odds/HandLaw.h"
#include "game/engine/CreditHistory.h"

struct ExpectedGain {
    double mean = 0;       // dollars won, less those bet
    double deviation = 0;  // the standard deviation
};

// Of hands that were bet so, one independent of the other.
ExpectedGain GainOf(const CreditHistory::Wagers& wagers, const ExpectedPlay& expected);
