#include "core/analysis/HoldAnalysis.h"

#include <algorithm>
#include <bit>
#include <cstddef>

#include "core/analysis/AceOrder.h"
#include "core/analysis/Combinations.h"
#include "core/analysis/DrawAgain.h"
#include "core/analysis/WideVectors.h"

namespace {

constexpr int kPickEmDraw = 2;

using LinePays = std::array<std::uint32_t, kLanes>;  // coins, by lane
using TotalsByDraw = std::array<std::int64_t, kHandSize + 1>;

constexpr auto kCardsDrawn = [] {
    std::array<int, kHolds> drawn{};
    for (std::size_t mask = 0; mask < kHolds; ++mask) drawn[mask] = kHandSize - std::popcount(mask);
    return drawn;
}();

std::size_t KnownInHand(const PayTable& table) {
    return table.type == GameType::kPickEm ? 3 : kHandSize;
}

bool UsesFirstDraw(const PayTable& table, const KnownCards& cards) {
    if (table.type == GameType::kPickEm) return true;
    return table.gameId == kSneakPeakGameId && cards.firstDraw != CardFace();
}

// Jokers are alike, so there may be as many of them as the deck holds.
bool AreDistinctCardsOfDeck(const LineTables& tables, const PayTable& table,
                            const KnownCards& cards) {
    std::array<CardFace, kHandSize + 1> known;
    const std::size_t inHand = KnownInHand(table);
    const bool usesFirstDraw = UsesFirstDraw(table, cards);
    std::copy_n(cards.hand.begin(), inHand, known.begin());
    if (usesFirstDraw) known[inHand] = cards.firstDraw;
    int jokers = 0;
    for (std::size_t i = 0; i < inHand + (usesFirstDraw ? 1 : 0); ++i) {
        if (!tables.Contains(known[i])) return false;
        if (known[i].rank == 0) {
            ++jokers;
        } else if (std::find(known.begin(), known.begin() + static_cast<std::ptrdiff_t>(i),
                             known[i]) != known.begin() + static_cast<std::ptrdiff_t>(i)) {
            return false;
        }
    }
    return jokers <= table.jokers;
}

LinePays PaysFor(const PayTable& table, int bet) {
    LinePays pays{};
    for (std::size_t line = 0; line < table.lines.size(); ++line) {
        pays[line] = static_cast<std::uint32_t>(LineUnitPay(table, static_cast<int>(line), bet));
    }
    return pays;
}

// The sum over the lines is exact: equal returns come out as equal doubles because each hold's sum
// is divided just once.
double Return(std::uint64_t sum, std::int64_t totalHands, double coin) {
    return static_cast<double>(sum) / static_cast<double>(totalHands) * coin;
}

inline void Fill(const LineCounts& counts, const LinePays& pays, std::int64_t totalHands,
                 int cardsDrawn, double coin, HoldResult& result) {
    std::uint64_t sum = 0;
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        sum += std::uint64_t{counts[lane]} * pays[lane];
    }
    result.expectedReturn = Return(sum, totalHands, coin);
    result.totalHands = totalHands;
    result.nothing = counts[kNothingLane];
    for (std::size_t line = 0; line < kMaxPayLines; ++line) result.lineCounts[line] = counts[line];
    result.cardsDrawn = cardsDrawn;
    result.knownCardPosition = -1;
}

TOLVANE_WIDE_VECTORS
void FillAll(const HoldCounts& counts, const LinePays& pays, const TotalsByDraw& totals,
             double coin, HoldAnalysis& analysis) {
    for (std::size_t mask = 0; mask < kHolds; ++mask) {
        const int drawn = kCardsDrawn[mask];
        Fill(counts[mask], pays, totals[static_cast<std::size_t>(drawn)], drawn, coin,
             analysis.holds[mask]);
    }
}

// What a hold's draws are counted from and in: cards left in the deck, cards drawn, in order or
// not.
std::int64_t TotalHands(int cardsLeft, int drawn, bool ordered) {
    const std::int64_t draws = drawn == 0 ? 1 : Combinations(cardsLeft, drawn);
    return ordered ? draws * kDrawOrders[static_cast<std::size_t>(drawn)] : draws;
}

void ChooseByReturnAndWinRate(HoldAnalysis& analysis) {
    analysis.best = 0;
    analysis.bestReturn = analysis.holds[0].expectedReturn;
    for (HoldMask mask = 0; mask <= kStandPat; ++mask) {
        const HoldResult& hold = analysis.holds[static_cast<std::size_t>(mask)];
        if (hold.expectedReturn < analysis.bestReturn) continue;
        const HoldResult& best = analysis.holds[static_cast<std::size_t>(analysis.best)];
        if (hold.expectedReturn > analysis.bestReturn || mask == kStandPat ||
            hold.WinRate() > best.WinRate()) {
            analysis.best = mask;
            analysis.bestReturn = hold.expectedReturn;
        }
    }
}

void ChooseStandPatOrGreatest(HoldAnalysis& analysis) {
    analysis.best = kStandPat;
    analysis.bestReturn = analysis.holds[kStandPat].expectedReturn;
    for (HoldMask mask = 0; mask < kStandPat; ++mask) {
        const double expected = analysis.holds[static_cast<std::size_t>(mask)].expectedReturn;
        if (expected > analysis.bestReturn) {
            analysis.best = mask;
            analysis.bestReturn = expected;
        }
    }
}

void AnalyzeOrdinary(const LineTables& tables, const PayTable& table, const Hand& hand,
                     const LinePays& pays, double coin, HoldAnalysis& analysis) {
    HoldCounts counts;
    CountDraws(tables, hand, counts);
    const bool ordered = table.type == GameType::kAcesBonus;
    const int aceLine = AceLine(table);
    if (ordered) {
        OrderDraws(tables, hand, aceLine, counts);
    } else {
        PayAcesInOrder(hand, aceLine, counts[kStandPat]);
    }
    TotalsByDraw totals{};
    for (int drawn = 0; drawn <= kHandSize; ++drawn) {
        totals[static_cast<std::size_t>(drawn)] =
            TotalHands(tables.DeckSize() - kHandSize, drawn, ordered);
    }
    FillAll(counts, pays, totals, coin, analysis);
    ChooseByReturnAndWinRate(analysis);
}

int LeftmostDiscard(HoldMask mask) {
    int position = 0;
    while (Holds(mask, position)) ++position;
    return position;
}

// The known card is the first replacement whatever is discarded, so it lies in the leftmost gap; a
// line that asks for positions is counted for standing pat only, and no other gap could return
// more.
void AnalyzeSneakPeak(const LineTables& tables, const PayTable& table, const KnownCards& cards,
                      const LinePays& pays, double coin, HoldAnalysis& analysis) {
    HoldCounts counts;
    CountDrawsBehind(tables, cards.hand, cards.firstDraw, counts);
    PayAcesInOrder(cards.hand, AceLine(table), counts[kStandPat]);
    // With one discard the known card is the whole draw, and that is one draw.
    const int cardsLeft = tables.DeckSize() - kHandSize - 1;
    TotalsByDraw totals{};
    for (int drawn = 0; drawn <= kHandSize; ++drawn) {
        totals[static_cast<std::size_t>(drawn)] =
            TotalHands(cardsLeft, std::max(drawn - 1, 0), false);
    }
    FillAll(counts, pays, totals, coin, analysis);
    for (HoldMask mask = 0; mask < kStandPat; ++mask) {
        analysis.holds[static_cast<std::size_t>(mask)].knownCardPosition = LeftmostDiscard(mask);
    }
    ChooseStandPatOrGreatest(analysis);
}

void AnalyzePile(const LineTables& tables, const std::array<CardFace, 3>& held, CardFace other,
                 const LinePays& pays, double coin, HoldResult& result) {
    LineCounts counts;
    CountPileDraws(tables, held, other, counts);
    const std::int64_t total = TotalHands(tables.DeckSize() - 4, kPickEmDraw, false);
    Fill(counts, pays, total, kPickEmDraw, coin, result);
}

void AnalyzePickEm(const LineTables& tables, const KnownCards& cards, const LinePays& pays,
                   double coin, HoldAnalysis& analysis) {
    const Hand& hand = cards.hand;
    const CardFace otherPile = cards.firstDraw;
    HoldResult& firstHold = analysis.holds[kLeftPile];
    HoldResult& otherHold = analysis.holds[kRightPile];
    AnalyzePile(tables, {hand[0], hand[1], hand[2]}, otherPile, pays, coin, firstHold);
    AnalyzePile(tables, {hand[0], hand[1], otherPile}, hand[2], pays, coin, otherHold);
    const bool otherIsBetter = otherHold.expectedReturn > firstHold.expectedReturn;
    analysis.best = otherIsBetter ? kRightPile : kLeftPile;
    analysis.bestReturn = (otherIsBetter ? otherHold : firstHold).expectedReturn;
}

}  // namespace

void AnalyzeHand(const LineTables& tables, const PayTable& table, const KnownCards& cards, int bet,
                 double coin, HoldAnalysis& analysis) {
    const bool pickEm = table.type == GameType::kPickEm;
    if (!AreDistinctCardsOfDeck(tables, table, cards)) {
        analysis = HoldAnalysis();
        return;
    }
    if (pickEm) analysis.holds.fill({});  // 30 of them are never evaluated
    const LinePays pays = PaysFor(table, bet);
    if (pickEm) {
        AnalyzePickEm(tables, cards, pays, coin, analysis);
    } else if (UsesFirstDraw(table, cards)) {
        AnalyzeSneakPeak(tables, table, cards, pays, coin, analysis);
    } else {
        AnalyzeOrdinary(tables, table, cards.hand, pays, coin, analysis);
        if (table.type == GameType::kDoubleDraw) {
            AnalyzeSecondDraw(tables, table, cards.hand, bet, coin, analysis);
            ChooseStandPatOrGreatest(analysis);
        }
    }
}
