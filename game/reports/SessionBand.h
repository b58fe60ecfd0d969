// Where a session lies with the best play: the gains that one of twenty falls below, and that one
// of twenty exceeds, hand by hand.
#pragma once
#include <cstdint>
#include <functional>
#include <vector>

#include "core/odds/HandLaw.h"
#include "game/engine/CreditHistory.h"

struct BandPoint {
    std::int64_t hands = 0;  // played by then
    double low = 0;          // dollars
    double high = 0;

    bool operator==(const BandPoint&) const = default;
};

// At most kMostBandPoints, at ends of stretches and at the last hand, by the exact law of so many
// hands. None where the bets differed, or when goesOn, which is asked all the time, says no.
inline constexpr std::size_t kMostBandPoints = 128;
std::vector<BandPoint> SessionBand(const CreditHistory& history, const ExpectedPlay& expected,
                                   const PayTable& table, const std::function<bool()>& goesOn);
