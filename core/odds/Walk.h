// What becomes of an amount of money that is played with, hand by hand, until it cannot be bet any
// more, a goal is reached, or all hands are played. Two ways come to it: HittingTimes, for gains
// that fall by one bet at a time and no goal, and AbsorbingWalk, for all others.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "core/odds/SumLaw.h"

struct WalkEnd {
    WholeLaw alive;                 // of the money in units after the last hand
    std::vector<double> brokeAt;    // the chance to be broke after so many hands, from 0 on
    std::vector<double> brokeWith;  // of so many units left, below the stake
    WholeLaw goal;                  // of the money in units where the goal was reached
    std::vector<double> goalHands;  // for each of these amounts, the mean number of hands to it
};

// The level is the money in units. Nothing when it would spread over too many places.
//
// For gains that fall by one: the chance that the money is gone after just n hands is k / n times
// the chance that n hands lose k, the theorem of first hits. The law of those still playing is
// that of all hands, less that of what would have gone on from nothing.
std::optional<WalkEnd> HittingTimes(const GainLaw& law, std::int64_t level, std::int64_t hands);

// Hand by hand. Without a goal it is a level that is never reached but for a chance of 1e-13.
// Nothing when there is too much to do, more than kMostWork additions, or when goesOn, which is
// asked before every hand, says no.
using GoesOn = std::function<bool()>;
inline constexpr double kMostWork = 1.5e10;
std::optional<WalkEnd> AbsorbingWalk(const GainLaw& law, std::int64_t level,
                                     std::optional<std::int64_t> goal, std::int64_t hands,
                                     const GoesOn& goesOn);
