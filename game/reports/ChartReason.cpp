#include "game/reports/ChartReason.h"

#include <algorithm>
#include <cmath>

#include "core/analysis/HoldAnalysis.h"
#include "core/strategy/Why.h"

namespace {

// Returns are told apart to so small a part of a bet: less is a rounding error of the analysis.
constexpr std::int64_t kPartsOfBet = 1'000'000'000;

// Where each card of a hand comes to lie when it is sorted.
std::array<std::size_t, kHandSize> Sort(const LineTables& tables, const Hand& hand,
                                        SortedCards& cards) {
    std::array<std::pair<SetCard, std::size_t>, kHandSize> placed;
    for (std::size_t i = 0; i < kHandSize; ++i) placed[i] = {tables.ToSetCard(hand[i]), i};
    std::ranges::sort(placed);
    std::array<std::size_t, kHandSize> places{};
    for (std::size_t i = 0; i < kHandSize; ++i) {
        cards[i] = placed[i].first;
        places[placed[i].second] = i;
    }
    return places;
}

}  // namespace

std::string ChartReason(const LineTables& tables, const PayTable& table, const AskedHand& asked,
                        const Chart& chart) {
    const auto inDeck = [&](CardFace face) { return !face.IsEmpty() && tables.Contains(face); };
    if (chart.empty() || !std::ranges::all_of(asked.hand, inDeck)) return "";
    HoldAnalysis analysis;
    AnalyzeHand(tables, table, {asked.hand, {}}, kFullBet, 1.0 / kFullBet, analysis);
    if (analysis.holds[0].totalHands == 0) return "";

    StartingHand hand;
    const auto places = Sort(tables, asked.hand, hand.cards);
    hand.line = tables.LineOfFive(hand.cards);
    const auto subsetOf = [&](HoldMask mask) {
        std::size_t subset = 0;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            if (Holds(mask, i)) subset |= std::size_t{1} << places[i];
        }
        return subset;
    };
    for (HoldMask mask = 0; mask <= kStandPat; ++mask) {
        const double bets = analysis.holds[static_cast<std::size_t>(mask)].expectedReturn;
        hand.values[subsetOf(mask)] = std::llround(bets * static_cast<double>(kPartsOfBet));
    }
    hand.best = std::ranges::max(hand.values);
    std::optional<std::size_t> other;
    if (asked.played) other = subsetOf(*asked.played);
    if (other && hand.values[*other] == hand.best) other.reset();
    return WhyText(Terms(tables, table), chart, hand, other, kPartsOfBet);
}
