// The exact long-run return of a pay table played with the best hold of every hand: all starting
// hands are played, one of each suit pattern for all that are like it.
#pragma once
#include <array>
#include <cstdint>
#include <functional>

#include "core/analysis/BestHold.h"
#include "core/analysis/HoldCounts.h"
#include "core/analysis/SuitPatterns.h"

// Sums over the starting hands analysed, each with its weight. Indexed by the cards that the best
// hold draws, then by pay line. Final hands are counted without regard to how many there are per
// starting hand; summary puts them on one footing.
struct GameTotals {
    std::array<double, kDraws> initHands{};
    double initHandsTotal = 0;
    std::array<std::array<double, kMaxPayLines>, kDraws> final{};
    std::array<double, kMaxPayLines> total{};
    std::array<double, kDraws> nothing{};
    double nothingTotal = 0;
    std::array<double, kDraws> finalHands{};  // winning or not
    double finalHandsTotal = 0;
    double er = 0;         // dollars
    double erSquares = 0;  // of the returns of the single hands, dollars squared
    std::int64_t representatives = 0;

    // These are filled when the run has ended.
    std::array<double, kMaxPayLines>
        summary{};  // summary / denominator: the probability of the line
    double summaryNothing = 0;
    double denominator = 0;
    double cost = 0;  // dollars wagered
    double payoutPercent = 0;
    double variance = 0;  // per coin, the sum of the parts below
    std::array<double, kMaxPayLines> lineVariance{};
    double nothingVariance = 0;
    // Of the best holds' returns for each coin: the mean of their squares, less the square of their
    // mean. Lines that are drawn from one hand share its hold, so this is the covariance of two.
    double holdVariance = 0;
    bool cancelled = false;  // only a part of the hands was analysed
};

// A starting hand and its best play.
struct PlayedHand {
    Hand cards;         // in Pick 'Em position 2 is empty
    double weight = 0;  // starting hands that it stands for
    BestHold best;
};

struct GameAnalysisWatcher {
    // Called after every suit pattern, thousands of times a millisecond, with the weight done so
    // far and the weight of all; false ends the run.
    std::function<bool(double done, double all)> progress;
    // Called with every hand; while it is set, games with single wild jacks are played hand by
    // hand.
    std::function<void(const PlayedHand&)> hand;
};

// False for Sneak Peak Poker, whose known card no starting hand holds.
bool CanAnalyzeGame(const PayTable& table);

// Plays the whole game at a bet of kFullBet coins, so that the payout is a percentage of the wager.
// Neither function of the watcher is needed. All figures are 0 for a game that cannot be analysed.
GameTotals AnalyzeGame(const LineTables& tables, const PayTable& table, double coin,
                       const GameAnalysisWatcher& watcher);

// The share of the return that comes from a line, in percent of the wager.
double LinePercentReturn(const GameTotals& totals, const PayTable& table, std::size_t line);
