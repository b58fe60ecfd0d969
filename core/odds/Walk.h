// What becomes of an amount of money that is played with, hand by hand, until it cannot be bet any
// more, a goal is reached, or all hands are played. Three ways come to it: HittingTimes, for gains
// that fall by one unit at a time and no goal, RenewalTimes, for others without a goal, and
// AbsorbingWalk, for all.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "core/odds/EndMasses.h"
#include "core/odds/SessionWish.h"
#include "core/odds/SumLaw.h"

struct WalkEnd {
    WholeLaw alive;  // of the money in units after the last hand
    // By hands from 0 on, until all have ended; of the broken ones for each number of units left,
    // of which there are as many as the stake: brokeAt[hands * stake + left].
    std::vector<double> brokeAt;
    std::vector<double> goalAt;  // empty without a goal
};

enum class NoEnd { kTooWide, kTooMuch, kStopped };

struct WalkAnswer {
    std::optional<WalkEnd> end;
    NoEnd whyNot = NoEnd::kTooMuch;  // where there is none
};

// How far the money of a session goes. In units.
struct Course {
    std::int64_t level = 0;              // brought, and no more than can matter
    std::optional<std::int64_t> goal{};  // above the level
    std::int64_t hands = 0;

    // There is no goal, and no loss ends the session early.
    bool NeverEnds(const GainLaw& law) const { return !goal && level >= law.stake * hands; }
};

// Nothing when no hand is played: the money brought is too little for a bet, or is the goal.
std::optional<Course> CourseOf(const GainLaw& law, const SessionWish& wish);

// Who reaches the goal is added to goals, by what was won. Nothing when the money would spread over
// more than kMostPlaces units, when there is too much to do, or when goesOn, which is asked all the
// time, says no.
WalkAnswer FollowCourse(const GainLaw& law, const Course& course, EndMasses& goals,
                        const GoesOn& goesOn);

// The chance that the session ends early, broke or at the goal, after just 0, 1, ... hands; it may
// stop where nobody plays any more. Nothing as above.
std::optional<std::vector<double>> ChancesToEnd(const GainLaw& law, const Course& course,
                                                const GoesOn& goesOn);

// For gains that fall by one, without a goal: the chance that the money is gone after just n hands
// is k / n times the chance that n hands lose k, the theorem of first hits. The law of those still
// playing is that of all hands, less that of what would have gone on from nothing.
WalkAnswer HittingTimes(const GainLaw& law, const Course& course, const GoesOn& goesOn);
// The chances to be broke alone.
std::optional<std::vector<double>> HittingChances(const GainLaw& law, const Course& course,
                                                  const GoesOn& goesOn);

// Without a goal: who is broke after n hands, with so many units left, is who could be there, less
// who was broke before and could have come there since. The equation of renewal, solved from the
// first hand to the last, by transforms of blocks of hands.
WalkAnswer RenewalTimes(const GainLaw& law, const Course& course, const GoesOn& goesOn);

// Hand by hand. Without a goal it is a level that is never reached but for a chance of 1e-13. More
// than kMostWork additions are too much, which is known before it begins where it can be told.
inline constexpr double kMostWork = 1.5e10;
WalkAnswer AbsorbingWalk(const GainLaw& law, const Course& course, EndMasses& goals,
                         const GoesOn& goesOn);
