// What the exact analysis of a pay table expects of hands that are played with the best hold: how
// often each line comes, what comes back, and how far that spreads. Bonus features and double ups
// are not in it, nor what a five-card charlie pays beyond its line.
#pragma once
#include <array>
#include <functional>
#include <optional>

#include "core/paytable/PayTable.h"
#include "game/engine/CreditHistory.h"

class LineTableCache;

// The law of one hand.
struct HandLaw {
    std::array<double, kMaxPayLines> lines{};  // the probability of each, in table order
    double anyLine = 0;                        // of being paid
    double meanReturn = 0;                     // what comes back, for each coin that is bet
    // Of what comes back for each coin of one hand; a bet of so many dollars has so many squared
    // times as much. The pays are taken to the last coin: GameTotals cuts them to whole coins.
    double variance = 0;
};

// A bet of kFullBet coins has a schedule of its own, and so has best holds of its own.
struct ExpectedPlay {
    HandLaw fullBet;
    HandLaw otherBets;

    const HandLaw& At(int bet) const { return bet == kFullBet ? fullBet : otherBets; }
};

// Analyses the table, in hundredths of a second up to a second. Nothing when it cannot be analysed,
// or when goesOn, which is asked all the time, says no.
std::optional<ExpectedPlay> AnalyzePlay(const PayTable& table, LineTableCache& tables,
                                        const std::function<bool()>& goesOn);

struct ExpectedGain {
    double mean = 0;       // dollars won, less those bet
    double deviation = 0;  // the standard deviation
};

// Of hands that were bet so, one independent of the other.
ExpectedGain GainOf(const CreditHistory::Wagers& wagers, const ExpectedPlay& expected);
