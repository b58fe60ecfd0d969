#include "core/eval/WinningCards.h"

#include <algorithm>
#include <tuple>

#include "core/eval/HandEvaluator.h"
#include "core/paytable/PayTable.h"

namespace {

constexpr int kAceHigh = 14;

const PayLine* LineAt(const PayTable& table, int line) {
    if (line < 0 || line >= static_cast<int>(table.lines.size())) return nullptr;
    return &table.lines[static_cast<std::size_t>(line)];
}

class WonHand {
  public:
    WonHand(const Hand& hand, const PayTable& payTable, const PayLine& payLine)
        : evaluated(WithWildFlags(hand, payTable)), table(payTable), line(payLine) {
        // A line that wild cards may not make is paid on them as they are printed.
        if (!table.usesWilds || !line.wildsOK) evaluated.wild = {};
    }

    HoldMask WildCards() const {
        return Where([&](std::size_t i) { return evaluated.wild[i]; });
    }

    HoldMask OfRank(int rank) const {
        return Where([&](std::size_t i) { return IsNatural(i) && evaluated.hand[i].rank == rank; });
    }

    // All that share their rank with another.
    HoldMask Matching() const {
        return Where([&](std::size_t i) { return CountOf(evaluated.hand[i].rank) > 1; });
    }

    // As many of one rank, wild cards among them.
    HoldMask Group(int cards) const {
        HoldMask group = WildCards();
        for (std::size_t i = 0; i < kHandSize; ++i) cards -= evaluated.wild[i] ? 1 : 0;
        const int rank = RankOfGroup(cards);
        for (std::size_t i = 0; i < kHandSize && cards > 0; ++i) {
            if (!IsNatural(i) || evaluated.hand[i].rank != rank) continue;
            group |= PositionBit(i);
            --cards;
        }
        return group;
    }

  private:
    template <class Wanted>
    static HoldMask Where(const Wanted& wanted) {
        HoldMask mask = 0;
        for (std::size_t i = 0; i < kHandSize; ++i) mask |= wanted(i) ? PositionBit(i) : 0;
        return mask;
    }

    bool IsNatural(std::size_t i) const { return !evaluated.wild[i] && evaluated.hand[i].rank > 0; }

    int CountOf(int rank) const {
        int count = 0;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            count += IsNatural(i) && evaluated.hand[i].rank == rank ? 1 : 0;
        }
        return count;
    }

    // Of the ranks that are there often enough, one that the line asks for, then one that pays as a
    // pair, then the highest. 0 when there is none.
    int RankOfGroup(int cards) const {
        const auto worth = [&](int rank) {
            const bool listed = std::ranges::count(line.bonusQuads, rank) > 0;
            return std::tuple(CountOf(rank) >= cards, listed, IsHigh(rank, table),
                              rank == 1 ? kAceHigh : rank);
        };
        int best = 0;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            const int rank = evaluated.hand[i].rank;
            if (IsNatural(i) && (best == 0 || worth(rank) > worth(best))) best = rank;
        }
        return best;
    }

    EvaluatedHand evaluated;
    const PayTable& table;
    const PayLine& line;
};

}  // namespace

HoldMask WinningCards(const Hand& hand, const PayTable& table, int line) {
    const PayLine* won = LineAt(table, line);
    if (!won) return 0;
    const WonHand cards(hand, table, *won);
    switch (won->rank) {
        case HandRank::kOnePair:
            return cards.Group(2);
        case HandRank::kTwoPair:
            return cards.Matching();
        case HandRank::kThreeOfAKind:
            return cards.Group(3);
        case HandRank::kFourOfAKind:
        case HandRank::kBonusFourOfAKind:
            return won->trailers.empty() ? cards.Group(4) : kStandPat;
        case HandRank::kFourWilds:
            return won->trailers.empty() ? cards.WildCards() : kStandPat;
        case HandRank::kFourAcesInOrder:
            return cards.OfRank(1);
        default:
            return kStandPat;
    }
}

// Cards that match between the piles alone lie in hands of which only one can be had.
HoldMask WinningPickEmDeal(const Hand& hand, const PayTable& table, int line) {
    const PayLine* won = LineAt(table, line);
    if (!won) return 0;
    const WonHand cards(hand, table, *won);
    const auto sizeOf = [&](int rank) {
        int size = 0;
        for (int i = 0; i < kHandSize; ++i) size += Holds(cards.OfRank(rank), i) ? 1 : 0;
        return size;
    };
    const int wanted = won->rank == HandRank::kThreeOfAKind ? 3 : 2;
    HoldMask lit = 0;
    for (const int rank : {hand[0].rank, hand[1].rank}) {
        const bool pays = won->rank != HandRank::kOnePair || IsHigh(rank, table);
        if (pays && sizeOf(rank) >= wanted) lit |= cards.OfRank(rank);
    }
    return lit;
}
