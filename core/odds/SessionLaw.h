// The exact law of what a session brings: so many hands, or deals of many lines, played with the
// best holds, all of them or until the money is gone or a goal is reached.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/odds/EndMasses.h"
#include "core/odds/GainLaw.h"
#include "core/odds/SessionWish.h"

// Money is in bets of one line.
struct SessionLaw {
    using Result = EndMasses::End;
    std::vector<Result> results;  // they rise
    double ahead = 0;             // the chance to have won
    double even = 0;              // neither won nor lost
    // Less was left than the next bet takes, with hands still to be played: who loses the last of
    // the money with the last hand has played them all.
    double broke = 0;
    double goal = 0;       // reached
    double expected = 0;   // bets
    double deviation = 0;  // the standard deviation, bets

    // The lowest result that so large a share, 0..1, of all sessions does not exceed. A share that
    // is met but for 1e-12 is met: sums of probabilities are rounded.
    double Quantile(double share) const;
    // The share of the sessions that bring less, and that bring at most so much.
    double ShareBelow(double bets) const;
    double ShareUpTo(double bets) const;
};

struct SessionAnswer {
    std::optional<SessionLaw> law;
    std::string whyNot;  // a clause: "the results spread over ...", with the limit; empty = law
};

// With cash back beside a goal or a lattice finer than a bet, results may be off by a small part of
// a unit; EndMasses says by how much. The chances are not. A session that is followed hand by hand
// can take seconds; goesOn, which is asked all the time, may end it without an answer.
SessionAnswer FindSessionLaw(
    const GainLaw& law, const SessionWish& wish,
    const std::function<bool()>& goesOn = [] { return true; });
