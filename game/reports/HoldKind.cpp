#include "game/reports/HoldKind.h"

#include <algorithm>
#include <array>
#include <vector>

#include "core/eval/HandEvaluator.h"
#include "core/paytable/PayTable.h"

namespace {

constexpr int kHighAce = 14;
constexpr int kTen = 10;

int AceHigh(int rank) { return rank == 1 ? kHighAce : rank; }

// The cards held, the wild ones only counted.
struct Held {
    std::vector<CardFace> naturals;
    int wilds = 0;

    int Count() const { return static_cast<int>(naturals.size()) + wilds; }
};

Held HeldOf(const Hand& hand, HoldMask mask, const PayTable& table) {
    const EvaluatedHand evaluated = WithWildFlags(hand, table);
    Held held;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if (!Holds(mask, i) || hand[i].IsEmpty()) continue;
        if (evaluated.wild[i]) {
            ++held.wilds;
        } else {
            held.naturals.push_back(hand[i]);
        }
    }
    return held;
}

// How many cards of a rank lie together, the most first: 2, 2 for two pairs.
std::vector<int> Groups(const Held& held) {
    std::array<int, kHighAce> ofRank{};
    for (const CardFace& card : held.naturals) ++ofRank[static_cast<std::size_t>(card.rank)];
    std::vector<int> groups;
    std::ranges::copy_if(ofRank, std::back_inserter(groups), [](int count) { return count > 0; });
    std::ranges::sort(groups, std::greater());
    return groups;
}

std::string OfGroups(const std::vector<int>& groups) {
    const bool twoPairs = groups.size() > 1 && groups[0] == 2 && groups[1] == 2;
    const std::string name = groups[0] == 4   ? "Four of a kind"
                             : groups[0] == 3 ? "Three of a kind"
                             : twoPairs       ? "Two pairs"
                                              : "Pair";
    const bool kicker = groups.back() == 1;
    return kicker ? name + " with kicker" : name;
}

// The ranks from the lowest to the highest, the ace as told; at most five of a straight.
bool FitsStraight(const Held& held, bool aceHigh) {
    if (held.naturals.empty()) return true;
    const auto [low, high] = std::ranges::minmax(
        held.naturals, {}, [=](CardFace card) { return aceHigh ? AceHigh(card.rank) : card.rank; });
    const auto rank = [=](CardFace card) { return aceHigh ? AceHigh(card.rank) : card.rank; };
    return rank(high) - rank(low) < kHandSize;
}

// Of cards without a pair.
std::string OfDistinct(const Held& held) {
    const std::string count = std::to_string(held.Count());
    if (held.naturals.size() <= 1 && held.wilds == 0) return "One card";
    if (held.naturals.empty()) return held.wilds == 1 ? "Wild card" : count + " wild cards";
    const bool suited = std::ranges::all_of(
        held.naturals, [&](CardFace card) { return card.suit == held.naturals.front().suit; });
    const bool straight = FitsStraight(held, false) || FitsStraight(held, true);
    if (suited && held.naturals.size() > 1) {
        const bool royal = std::ranges::all_of(
            held.naturals, [](CardFace card) { return AceHigh(card.rank) >= kTen; });
        if (royal) return count + " to a royal flush";
        return count + (straight ? " to a straight flush" : " to a flush");
    }
    if (straight && held.Count() > 2) return count + " to a straight";
    return count + " cards";
}

}  // namespace

std::string HoldKind(const Hand& hand, HoldMask mask, const PayTable& table) {
    if (table.type == GameType::kPickEm) return mask == kLeftPile ? "Left pile" : "Right pile";
    if (mask == kStandPat) return "Pat hand";
    const Held held = HeldOf(hand, mask, table);
    if (held.Count() == 0) return "Nothing held";
    const auto groups = Groups(held);
    const bool paired = !groups.empty() && groups.front() > 1;
    const std::string name = paired ? OfGroups(groups) : OfDistinct(held);
    if (held.wilds == 0 || held.naturals.empty()) return name;
    return name + ", " + std::to_string(held.wilds) + " wild";
}
