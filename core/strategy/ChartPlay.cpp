#include "core/strategy/ChartPlay.h"

#include <algorithm>

namespace {

// The quicker look does not see whether a wild card has the suit of the others either.
bool NeedsAll(const Row& row) { return row.AsksOfDiscards() || row.suitedWild != Condition::kAny; }

}  // namespace

ChartReader::ChartReader(const Terms& terms, const Chart& chart)
    : terms(terms),
      chart(chart),
      at(std::ranges::any_of(chart, NeedsAll) ? LookAt::kDiscardsToo : LookAt::kHeldCards) {}

ChartPlay ChartReader::Play(const StartingHand& hand) {
    HandLooks looks{};
    LookAtHand(terms, hand, at, looks);
    ChartPlay play;
    for (std::size_t held = 0; held < kSubsets; ++held) play.rowOf[held] = FirstRow(looks[held]);
    play.row = *std::ranges::min_element(play.rowOf);
    if (play.row == chart.size()) return play;
    bool first = true;
    for (std::size_t held = 0; held < kSubsets; ++held) {
        if (play.rowOf[held] != play.row) continue;
        if (first || hand.values[held] < hand.values[play.held]) play.held = held;
        if (first || hand.values[held] > hand.values[play.luckiest]) play.luckiest = held;
        first = false;
    }
    return play;
}

std::size_t ChartReader::FirstRow(HoldLook look) {
    const std::uint32_t number = index.NumberOf(look);
    if (number == firstRows.size()) {
        const HoldTraits hold = TraitsOf(terms, look);
        const auto fits = [&](const Row& row) { return Fits(row, hold, terms); };
        firstRows.push_back(
            static_cast<std::size_t>(std::ranges::find_if(chart, fits) - chart.begin()));
    }
    return firstRows[number];
}
