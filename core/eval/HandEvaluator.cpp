#include "core/eval/HandEvaluator.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "core/paytable/PayTable.h"

namespace {

constexpr int kStraight = 4;
constexpr int kFlush = 10;
constexpr int kAceHigh = 14;
constexpr int kQuadPairs = 6;
constexpr int kQuintPairs = 10;

// [natural pairs][wild cards] -> pairs of the best hand that the wild cards make of them. The zero
// cells cannot occur among five cards. It serves pairs of equal suit as well.
constexpr int kWildTable[7][5] = {
    {0, 1, 3, 6, 10}, {1, 3, 6, 10, 0}, {2, 4, 0, 0, 0},  {3, 6, 10, 0, 0},
    {4, 0, 0, 0, 0},  {5, 0, 0, 0, 0},  {6, 10, 0, 0, 0},
};

void CountNeighbours(const Hand& hand, const WildFlags& wild, std::size_t i, const PayTable& table,
                     HandFeatures& features) {
    for (std::size_t j = i + 1; j < kHandSize; ++j) {
        if (hand[j].IsEmpty()) continue;
        const bool bothNatural = !wild[i] && !wild[j];
        if (hand[i].rank == hand[j].rank) {
            if (bothNatural && !hand[i].IsJoker()) ++features.pairs;
            if (IsHigh(hand[i].rank, table)) ++features.highPairs;
        }
        if (bothNatural && hand[i].suit == hand[j].suit) ++features.suitPairs;
    }
}

void CountCard(CardFace card, bool wild, const PayTable& table, HandFeatures& features) {
    const auto [rank, suit] = card;
    if (rank == 1) ++features.aces;
    if (!wild && (rank > 9 || rank == 1)) ++features.royalCards;
    if (IsHigh(rank, table)) ++features.highCards;
    if (wild) ++features.wilds;
    if (suit == kHearts || suit == kDiamonds) ++features.reds;
    if (suit == kSpades || suit == kClubs) ++features.blacks;
}

void CountCards(const Hand& hand, const WildFlags& wild, const PayTable& table,
                HandFeatures& features) {
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if (hand[i].IsEmpty()) continue;
        CountNeighbours(hand, wild, i, table, features);
        CountCard(hand[i], wild[i], table, features);
    }
}

// Moves the ace at position first to the end, where it is 14.
void PlayAceHigh(SortedRanks& ranks, std::size_t first) {
    std::copy(ranks.begin() + static_cast<std::ptrdiff_t>(first) + 1, ranks.end(),
              ranks.begin() + static_cast<std::ptrdiff_t>(first));
    ranks.back() = kAceHigh;
}

// False when the ranks lie too far apart for any straight, wild cards being out of play.
bool CountStraightSteps(SortedRanks& ranks, const PayTable& table, HandFeatures& features) {
    if (ranks[0] == 1 && ranks[4] >= 10) PlayAceHigh(ranks, 0);
    if (!table.usesWilds && ranks[0] != -1 && ranks[4] - ranks[0] > 4) return false;
    for (std::size_t i = 0; i + 1 < kHandSize; ++i) {
        if (ranks[i] >= 0 && ranks[i] + 1 == ranks[i + 1]) ++features.straightSteps;
    }
    return true;
}

void SpendWildCards(SortedRanks& ranks, HandFeatures& features) {
    const auto wilds = static_cast<std::size_t>(features.wilds);
    if (wilds == kHandSize) {
        // No natural card is left to look a count up by: the hand is whatever its wild cards can
        // be.
        features.pairs = kQuintPairs;
        features.suitPairs = kFlush;
        features.straightSteps = kStraight;
        features.royalCards = kHandSize;
        return;
    }
    if (ranks[wilds] == 1 && ranks[4] >= 6) PlayAceHigh(ranks, wilds);
    if (ranks[4] - ranks[wilds] < 5 && features.pairs == 0) {
        features.straightSteps = std::min(features.straightSteps + 2 * features.wilds, kStraight);
    }
    features.straightSteps = std::min(features.straightSteps, kStraight);
    features.pairs = kWildTable[features.pairs][wilds];
    features.suitPairs = kWildTable[features.suitPairs][wilds];
    if (features.highCards > 0 && features.highPairs == 0) features.highPairs = 1;
    features.royalCards += features.wilds;
}

bool Contains(const std::vector<int>& ranks, int rank) {
    return std::ranges::find(ranks, rank) != ranks.end();
}

int CountRank(const Hand& hand, int rank) {
    return static_cast<int>(std::ranges::count(hand, rank, &CardFace::rank));
}

// A wild card of the listed rank counts twice, as a card of the rank and as a wild card: a table
// that lists its own wild rank asks for no more natural cards than that.
bool HasBonusQuads(const EvaluatedHand& evaluated, const PayLine& line, int need) {
    int count = 0;
    for (const int rank : line.bonusQuads) {
        count = CountRank(evaluated.hand, rank) + evaluated.features.wilds;
        if (count >= 4) break;
    }
    return count >= need;
}

bool KickerFits(const PayLine& line, int kicker, int quadRank) {
    return kicker != quadRank && Contains(line.trailers, kicker);
}

bool HasQuadKicker(const EvaluatedHand& evaluated, const PayLine& line) {
    const SortedRanks ranks = SortRanks(evaluated.hand, evaluated.wild);
    if (ranks[0] != ranks[1]) return KickerFits(line, ranks[0], ranks[1]);
    if (ranks[3] == ranks[4]) return true;  // five of a kind has no kicker to ask for
    return KickerFits(line, ranks[4], ranks[0]);
}

bool MatchesWildCount(const EvaluatedHand& evaluated, const PayLine& line, int wildsNeeded) {
    if (evaluated.features.wilds != wildsNeeded) return false;
    if (line.bonusQuads.empty()) return true;
    if (std::ranges::none_of(line.bonusQuads, [&](int rank) {
            return CountRank(evaluated.hand, rank) == wildsNeeded;
        })) {
        return false;
    }
    if (line.trailers.empty()) return true;
    const SortedRanks& ranks = evaluated.sortedRanks;
    if (ranks[0] != ranks[1]) return KickerFits(line, ranks[0], ranks[1]);
    if (ranks[3] != ranks[4]) return KickerFits(line, ranks[4], ranks[3]);
    // Five wild cards have no kicker, so a line that asks for one is not theirs.
    return false;
}

bool AcesInOrderFrom(const Hand& hand, std::size_t first) {
    for (std::size_t i = 0; i < 4; ++i) {
        if (hand[first + i] != CardFace{1, static_cast<int>(i) + kSpades}) return false;
    }
    return true;
}

bool MatchesPairs(const EvaluatedHand& evaluated, const PayLine& line, int pairs) {
    if (evaluated.features.pairs != pairs) return false;
    if (pairs >= kQuadPairs && !line.bonusQuads.empty()) {
        const int need = pairs == kQuadPairs ? 4 : 5;
        if (!HasBonusQuads(evaluated, line, need)) return false;
        return line.trailers.empty() || HasQuadKicker(evaluated, line);
    }
    return line.rank != HandRank::kOnePair || evaluated.features.highPairs > 0;
}

bool Fits(int required, int count) { return required == 0 || required == count; }

bool MatchesCounts(const EvaluatedHand& evaluated, const PayLine& line) {
    const HandFeatures& features = evaluated.features;
    const HandRankInfo& info = RankInfo(line.rank);
    if (info.pairs != 0 && !MatchesPairs(evaluated, line, info.pairs)) return false;
    // Quads and quints with a list are settled by their ranks and kicker.
    if (!Fits(info.straightSteps, features.straightSteps)) return false;
    if (!Fits(info.suitPairs, features.suitPairs)) return false;
    if (!Fits(info.royalCards, features.royalCards)) return false;
    return line.rank != HandRank::kFiveCardCharlie || IsCharlie(evaluated.hand);
}

bool MatchesLine(const EvaluatedHand& evaluated, const PayLine& line) {
    const HandFeatures& features = evaluated.features;
    if (!line.wildsOK && features.wilds > 0) return false;
    switch (line.rank) {
        case HandRank::kUnknown:
            return false;
        case HandRank::kFourAcesInOrder:
            return AcesInOrderFrom(evaluated.hand, 0) || AcesInOrderFrom(evaluated.hand, 1);
        case HandRank::kAllRedOrBlack:
            return features.reds == kHandSize || features.blacks == kHandSize;
        case HandRank::kFiveOfAKindWithOneWild:
            return features.wilds == 1 && features.pairs == kQuintPairs;
        case HandRank::kFiveWilds:
        case HandRank::kFourWilds:
            return MatchesWildCount(evaluated, line, RankInfo(line.rank).wildsNeeded);
        default:
            return MatchesCounts(evaluated, line);
    }
}

}  // namespace

bool IsHigh(int rank, const PayTable& table) { return rank >= table.minPair || rank == 1; }

int Classification::Pay() const {
    constexpr std::int64_t largest = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(std::int64_t{linePay} * (charlie ? 5 : 1), largest));
}

EvaluatedHand WithWildFlags(const Hand& hand, const PayTable& table) {
    const DeckDescription deck = DeckOf(table);
    EvaluatedHand evaluated;
    evaluated.hand = hand;
    std::ranges::transform(hand, evaluated.wild.begin(), [&deck](CardFace card) {
        return IsWildCard(deck, card.rank, card.suit);
    });
    return evaluated;
}

SortedRanks SortRanks(const Hand& hand, const WildFlags& wild) {
    SortedRanks sorted{};
    for (std::size_t i = 0; i < kHandSize; ++i) {
        sorted[i] = hand[i].IsEmpty() ? -1 : wild[i] ? 0 : hand[i].rank;
    }
    std::ranges::sort(sorted);
    return sorted;
}

void ComputeFeatures(EvaluatedHand& evaluated, const PayTable& table) {
    HandFeatures& features = evaluated.features;
    features = HandFeatures();
    CountCards(evaluated.hand, evaluated.wild, table, features);
    evaluated.sortedRanks = SortRanks(evaluated.hand, evaluated.wild);
    if (features.pairs == 0 && !CountStraightSteps(evaluated.sortedRanks, table, features)) return;
    if (table.usesWilds && features.wilds > 0) SpendWildCards(evaluated.sortedRanks, features);
}

void ComputePartialFeatures(EvaluatedHand& evaluated, const PayTable& table, HoldMask mask,
                            bool useWilds) {
    HandFeatures& features = evaluated.features;
    features = HandFeatures();
    Hand held = evaluated.hand;
    int heldCards = 0;
    int heldWilds = 0;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if (!Holds(mask, i)) {
            held[i] = {};
            continue;
        }
        if (evaluated.wild[i] && useWilds) {
            held[i] = {};
            ++heldWilds;
        } else {
            evaluated.wild[i] = false;
        }
        ++heldCards;
    }
    CountCards(held, evaluated.wild, table, features);
    evaluated.sortedRanks = SortRanks(held, evaluated.wild);
    if (heldCards == 1) {
        features.suitPairs = 1;
        features.straightSteps = 1;
    }
    if (features.pairs == 0) CountStraightSteps(evaluated.sortedRanks, table, features);
    features.wilds = heldWilds;
}

void ComputePickEmDealFeatures(EvaluatedHand& evaluated, const PayTable& table, int otherPileRank) {
    HandFeatures& features = evaluated.features;
    features = HandFeatures();
    evaluated.sortedRanks = {};
    const Hand& hand = evaluated.hand;
    const auto addPair = [&](int rank) {
        ++features.pairs;
        if (IsHigh(rank, table)) ++features.highPairs;
    };
    const int first = hand[0].rank;
    const int second = hand[1].rank;
    const int third = hand[2].rank;
    if (first == second) addPair(first);
    if (first == third || first == otherPileRank) addPair(first);
    if (second == third || second == otherPileRank) addPair(second);
    if (features.pairs == 2) features.pairs = 1;
}

void SaveFeatures(EvaluatedHand& evaluated) {
    evaluated.savedFeatures = evaluated.features;
    evaluated.savedSortedRanks = evaluated.sortedRanks;
    evaluated.savedWild = evaluated.wild;
}

void RestoreFeatures(EvaluatedHand& evaluated) {
    evaluated.features = evaluated.savedFeatures;
    evaluated.sortedRanks = evaluated.savedSortedRanks;
    evaluated.wild = evaluated.savedWild;
}

Classification ClassifyHand(EvaluatedHand& evaluated, const PayTable& table, int bet) {
    Classification result;
    bool natural = false;  // the features are those of the hand with its wild cards as printed
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        const PayLine& line = table.lines[i];
        const bool wantsNatural = table.usesWilds && !line.wildsOK;
        if (wantsNatural && !natural) {
            ComputePartialFeatures(evaluated, table, kStandPat, false);
        } else if (natural && !wantsNatural) {
            RestoreFeatures(evaluated);
        }
        natural = wantsNatural;
        if (MatchesLine(evaluated, line)) {
            result.line = static_cast<int>(i);
            result.linePay = LineUnitPay(table, result.line, bet);
            result.charlie = table.charlieBonus && IsCharlie(evaluated.hand);
            break;
        }
    }
    if (natural) RestoreFeatures(evaluated);
    return result;
}

Classification EvaluateHand(const Hand& hand, const PayTable& table, int bet) {
    EvaluatedHand evaluated = WithWildFlags(hand, table);
    ComputeFeatures(evaluated, table);
    SaveFeatures(evaluated);
    return ClassifyHand(evaluated, table, bet);
}

bool IsCharlie(const Hand& hand) {
    int sum = 0;
    for (const CardFace card : hand) sum += std::clamp(card.rank, 0, 10);
    return sum == 21 || (sum + 10 == 21 && CountRank(hand, 1) > 0);
}
