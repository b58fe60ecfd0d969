// What the exact analysis of a pay table expects of a hand that is played with its best hold: how
// often each line comes, what comes back, and how far that spreads. Bonus features and double ups
// are not in it, nor what a five-card charlie pays beyond its line.
#pragma once
#include <array>
#include <functional>
#include <optional>

#include "core/analysis/GameAnalysis.h"
#include "core/analysis/HoldAnalysis.h"
#include "core/paytable/PayTable.h"

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

// The same for a bet of so many coins alone.
std::optional<HandLaw> AnalyzeBet(const PayTable& table, int bet, LineTableCache& tables,
                                  const std::function<bool()>& goesOn);

// A whole game is analysed at the full bet. This table pays there, coin for coin, what the given
// one pays for a bet of so many coins.
PayTable ScheduleOf(PayTable table, int bet);

// All of a table that a law depends on, and more: the wins, which change with every hand, are 0.
PayTable WithoutWins(PayTable table);

// Where the best hold of a hand ends: the probability of each line. In a double-draw game the
// second draw is in it, which the totals of a game do not know.
class BestEnd {
  public:
    // Both outlive it; the table is one of ScheduleOf.
    BestEnd(const LineTables& tables, const PayTable& table) : tables(tables), table(table) {}

    std::array<double, kMaxPayLines> Of(const PlayedHand& hand);

  private:
    const LineTables& tables;
    const PayTable& table;
    HoldAnalysis analysis;
};
