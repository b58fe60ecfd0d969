// The best hold of many hands of the same ranks, for the analysis of whole games: only the worth of
// the 32 holds is computed, and the draws of the best one are counted line by line.
#pragma once
#include <array>
#include <cstdint>
#include <vector>

#include "core/analysis/LineTables.h"

struct BestHold {
    HoldMask mask = 0;
    int cardsDrawn = 0;
    double expectedReturn = 0;    // dollars
    std::int64_t totalHands = 0;  // draws
    LineCounts counts{};          // draws by lane
};

// Chooses by the same rule as AnalyzeHand, to the last bit. For games without positions that
// matter: no piles, no known draw card, no second draw and no line of aces in order.
class BestHoldFinder {
  public:
    static bool Serves(const PayTable& table);

    // The tables, which are those of the pay table, must outlive the finder.
    BestHoldFinder(const LineTables& tables, const PayTable& table, int bet, double coin);

    // The ranks of the hands to come, by position, as kinds of set cards.
    void SetKinds(const std::array<std::uint8_t, kHandSize>& kinds);

    // Suits 0..3 by position (0 for cards of the extra kind); rising among equal kinds.
    void Play(const std::array<std::uint8_t, kHandSize>& suits, BestHold& best);

  private:
    static constexpr std::size_t kSubsets = 32;
    using Returns = std::array<double, kSubsets>;

    void LookUp(const SortedCards& cards);
    void ComputeReturns(Returns& returns);
    std::size_t Choose(const Returns& returns) const;
    void CountLines(std::size_t held, LineCounts& counts) const;
    double WinRate(std::size_t held) const;
    std::int64_t TotalFor(std::size_t held) const;
    HoldMask MaskOf(std::size_t held) const;

    const LineTables& tables;
    double coin;
    std::array<std::int64_t, kLanes> pays{};
    std::array<std::int64_t, kHandSize + 1> totalByDrawn{};
    std::array<double, kSubsets> totals{};  // by subset
    std::array<std::vector<std::int64_t>, kHandSize>
        worth;  // coins of a set's hands, by size and class

    // Of the kinds. Subsets are numbered by the places of their cards in sorted order.
    std::array<std::size_t, kHandSize> positionOfPlace{};
    std::array<std::uint8_t, kHandSize> sortedKinds{};
    std::array<SetClasses::OfKinds, kSubsets> ofKinds{};

    // Of the hand.
    std::array<std::uint32_t, kSubsets> classOf{};
    std::array<std::int64_t, kSubsets> coins{};
    int line = -1;  // of standing pat
};
