// A game whose pay for a line grows. The worth of a hold is a straight line over the meter, so that
// of a hand, played best, is the upper envelope of 32 such lines, and the return of the game is
// convex and made of straight pieces: it is known exactly at every meter once the corners are. A
// meter is coins for the full bet.
#pragma once
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/cards/Hand.h"
#include "core/whatif/TwoTables.h"

// From this meter on some hands are played otherwise.
struct TurningPoint {
    double coins = 0;
    std::string from;  // in the words of the charts
    std::string to;
    std::int64_t hands = 0;
    double costPerCoin = 0;  // percent of the bet that it costs to ignore it, by coin above it
    Hand example;            // one of the hands
};

// What it costs at a meter to play a turning point's hands as before, in percent of the bet.
double CostOfIgnoring(const TurningPoint& point, double coins);

// A curve goes to twice the jackpot that the meter starts from, or to the meter if that is higher.
inline double LastMeter(int start, int coins) {
    return std::max(2.0 * start, static_cast<double>(coins));
}

class MeterCurve {
  public:
    // Why a table has no curve, as a sentence goes on behind its name; empty when it has one.
    static std::string WhyNot(const PayTable& table);

    // The other lines pay what they pay in the table. The turning points are those above the first
    // meter, up to the last. Only for tables that have no reason against it, and a line of theirs.
    MeterCurve(const PayTable& table, std::size_t line, double first, double last,
               const WhatIfProgress& progress = {});

    bool Cancelled() const { return cancelled; }  // the curve is of no use

    // Percent of the bet; the meter from 0 on.
    double Return(double coins) const;

    // The line's probability, from just above the meter on.
    double Probability(double coins) const;

    // The lowest meter at which the game returns its bet: 0 when it does without the line, nothing
    // when none is high enough.
    std::optional<double> BreakEven() const;

    // By rising meter, then those that cost most to ignore first.
    const std::vector<TurningPoint>& TurningPoints() const { return turningPoints; }

  private:
    // A straight piece of the return, in parts of a coin over all hands.
    struct Piece {
        double from = 0;  // the meter where it begins
        Int128 base = 0;  // where it would meet a meter of 0
        Int128 slope = 0;
    };
    struct Reader;

    const Piece& PieceAt(double coins) const;

    std::vector<Piece> pieces;
    Int128 bet = 0;  // of all hands
    Int128 oneCoinOfEach = 0;
    std::vector<TurningPoint> turningPoints;
    bool cancelled = false;
};
