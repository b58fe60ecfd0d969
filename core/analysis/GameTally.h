// Adds up the starting hands of a whole-game analysis: returns in the order in which the hands
// come, everything else in whole numbers.
#pragma once
#include <functional>
#include <vector>

#include "core/analysis/DrawSums.h"
#include "core/analysis/GameAnalysis.h"

// Whether two hands end in the same draws of the same worth.
bool SameDraws(const BestHold& a, const BestHold& b);

class GameTally {
  public:
    // The tables and the watcher must outlive the tally.
    GameTally(const LineTables& tables, const GameAnalysisWatcher& watcher, double all)
        : watcher(watcher), all(all), draws(tables) {}

    // The return, and the hands with their draws, are added apart: the latter here or into Draws.
    void AddReturn(double weight, double expectedReturn) {
        totals.er += weight * expectedReturn;
        totals.erSquares += weight * expectedReturn * expectedReturn;
    }
    void AddDraws(const PlayedHand& hand);
    DrawSums& Draws() { return draws; }

    // Hands that are a representative each.
    void Report(const std::vector<PlayedHand>& hands);
    void CountRepresentatives(std::int64_t more) { totals.representatives += more; }
    bool IsWatched() const { return static_cast<bool>(watcher.hand); }

    // Tells the watcher how much is done.
    void Progress(double weight);
    bool Cancelled() const { return totals.cancelled; }

    GameTotals Total() const;

  private:
    const GameAnalysisWatcher& watcher;
    double all;
    double done = 0;
    DrawSums draws;
    // Those of the hands that were added one by one, in parts of a hand: by cards drawn, and lane.
    std::array<std::int64_t, kDraws> handParts{};
    DrawSums::Sums drawParts{};
    GameTotals totals;
};
