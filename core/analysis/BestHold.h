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
    std::int64_t totalHands = 0;  // draws; ordered ones where four aces in order pay
    LineCounts counts{};          // draws by lane
};

// Where each card of a hand lies, 0..4.
using Placement = std::array<std::size_t, kHandSize>;
inline constexpr Placement kAsGiven = {0, 1, 2, 3, 4};

// Chooses by the same rule as AnalyzeHand, to the last bit. Not for games of piles, of a known draw
// card or of a second draw.
class BestHoldFinder {
  public:
    static bool Serves(const PayTable& table);

    // The tables, which are those of the pay table, must outlive the finder.
    BestHoldFinder(const LineTables& tables, const PayTable& table, int bet, double coin);

    // The cards of the next hand, which come in any order but with rising suits among equal kinds.
    void Look(const std::array<SetCard, kHandSize>& cards);

    // The best hold of these cards when they lie so. The order matters only to the mask, unless
    // four aces in order pay.
    void Best(const Placement& placement, BestHold& best) const;

  private:
    // Subsets of the hand are numbered by the places of their cards in sorted order.
    static constexpr std::size_t kSubsets = 32;
    using Returns = std::array<double, kSubsets>;

    // What a hold is worth when it can end in four aces in order.
    struct AceHold {
        std::size_t held = 0;
        LineCounts counts{};  // ordered draws
        double expectedReturn = 0;
    };
    struct Choice;

    void SetKinds(const std::array<SetCard, kHandSize>& cards);
    template <std::size_t... Others>
    void LookUp(std::index_sequence<Others...>);
    template <std::size_t Subset>
    void LookUpSubset();
    void ComputeReturns();
    void CountAceHolds();
    AceHold CountAceHold(std::size_t held, const LineCounts& inOrder, std::uint32_t times) const;
    void OfferAceHolds(const Placement& placement, Choice& choice) const;
    std::size_t Choose(const Choice& choice, const Placement& placement) const;
    void CountLines(std::size_t held, LineCounts& counts) const;
    void CountHold(std::size_t held, const Choice& choice, LineCounts& counts) const;
    double WinRate(std::size_t held, const Choice& choice) const;
    std::int64_t TotalFor(std::size_t held) const;
    HoldMask MaskOf(std::size_t held, const Placement& placement) const;

    const LineTables& tables;
    double coin;
    bool ordered;
    int aceLine;  // -1 where four aces in order do not pay
    std::array<std::int64_t, kLanes> pays{};
    std::array<std::int64_t, kHandSize + 1> totalByDrawn{};
    std::array<double, kSubsets> totals{};  // by subset
    std::array<std::vector<std::int64_t>, kHandSize>
        worth;  // coins of a set's hands, by size and class

    // Of the kinds of the hand.
    std::array<std::uint8_t, kHandSize> kinds{};
    bool knowsKinds = false;
    std::array<std::size_t, kHandSize> cardOfPlace{};  // in sorted order
    std::array<SetClasses::OfKinds, kSubsets> ofKinds{};

    // Of the hand.
    SortedCards sorted{};
    std::array<std::uint32_t, kSubsets> suits{};
    std::array<std::uint32_t, kSubsets> classOf{};
    std::array<std::int64_t, kSubsets> coins{};
    Returns returns{};
    int line = -1;                              // of standing pat
    std::size_t aces = 0;                       // the first cards in sorted order
    AceHold acesHeld;                           // the aces alone
    std::array<AceHold, kHandSize> acesAndOne;  // and the card at a place in sorted order
};
