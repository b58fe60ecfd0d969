#include "core/analysis/HandByHand.h"

#include <algorithm>
#include <bit>

#include "core/analysis/AceOrder.h"

namespace {

constexpr HoldMask kLeftPileHeld = 26;  // position 3 holds the left pile's card here
constexpr double kAceGameFactor = 5;    // hands count five times where the order of the aces pays

void TakeBest(const HoldAnalysis& analysis, BestHold& best) {
    const HoldResult& hold = analysis.holds[static_cast<std::size_t>(analysis.best)];
    best.mask = analysis.best;
    best.cardsDrawn = hold.cardsDrawn;
    best.expectedReturn = analysis.bestReturn;
    best.totalHands = hold.totalHands;
    for (std::size_t line = 0; line < kMaxPayLines; ++line) {
        best.counts[line] = static_cast<std::uint32_t>(hold.lineCounts[line]);
    }
    best.counts[kNothingLane] = static_cast<std::uint32_t>(hold.nothing);
}

// The placement with a card brought to a position, and the card there put where that one was.
Placement Brought(Placement placement, std::size_t card, std::size_t position) {
    std::ranges::replace(placement, position, placement[card]);
    placement[card] = position;
    return placement;
}

Hand Placed(const Hand& cards, const Placement& placement) {
    Hand placed;
    for (std::size_t i = 0; i < kHandSize; ++i) placed[placement[i]] = cards[i];
    return placed;
}

// Each card first with each other one last.
const std::vector<Placement>& EndCards() {
    static const std::vector<Placement> all = [] {
        std::vector<Placement> orders;
        for (std::size_t first = 0; first < kHandSize; ++first) {
            for (std::size_t last = 0; last < kHandSize; ++last) {
                if (first == last) continue;
                orders.push_back(Brought(Brought(kAsGiven, first, 0), last, kHandSize - 1));
            }
        }
        return orders;
    }();
    return all;
}

// Where the aces of a hand, given as bits by card, can lie, the others keeping their order.
std::vector<Placement> MakePlacements(unsigned aces) {
    std::vector<Placement> placements;
    Placement order = kAsGiven;  // the positions of the aces, then those of the others, rising
    do {
        if (!std::is_sorted(order.begin() + std::popcount(aces), order.end())) continue;
        Placement& placement = placements.emplace_back();
        std::size_t next = 0;
        for (const bool ace : {true, false}) {
            for (std::size_t card = 0; card < kHandSize; ++card) {
                if ((aces >> card & 1) == (ace ? 1U : 0U)) placement[card] = order[next++];
            }
        }
    } while (std::ranges::next_permutation(order).found);
    return placements;
}

const std::vector<Placement>& PlacementsOf(unsigned aces) {
    static const auto all = [] {
        std::array<std::vector<Placement>, std::size_t{1} << kHandSize> byAces;
        for (unsigned bits = 0; bits < byAces.size(); ++bits) byAces[bits] = MakePlacements(bits);
        return byAces;
    }();
    return all[aces];
}

bool LieInOrderFrom(std::size_t first, const Hand& cards, unsigned aces,
                    const Placement& placement) {
    for (std::size_t card = 0; card < kHandSize; ++card) {
        if ((aces >> card & 1) == 0) continue;
        const auto wanted = static_cast<std::size_t>(cards[card].suit - kSpades) + first;
        if (placement[card] != wanted) return false;
    }
    return true;
}

}  // namespace

HandByHand::HandByHand(const LineTables& tables, const PayTable& table, double coin,
                       GameTally& tally)
    : tables(tables), table(table), coin(coin), tally(tally) {
    if (BestHoldFinder::Serves(table)) finder.emplace(tables, table, kFullBet, coin);
}

void HandByHand::Play(const Hand& cards, double weight) {
    if (table.type == GameType::kAcesBonus) return PlayAceOrders(cards, weight);
    PlayUnordered(cards, weight);
}

// Plays a dealt hand whose order only standing pat on four aces asks for.
void HandByHand::PlayUnordered(const Hand& cards, double weight) {
    if (table.type == GameType::kPickEm || AceLine(table) < 0 ||
        AcesWithPlaces(cards) < kAcesInOrder) {
        return PlayAlone(cards, weight);
    }
    std::vector<Placement> orders;
    Placement order = kAsGiven;
    do {
        orders.push_back(order);
    } while (std::ranges::next_permutation(order).found);
    PlayOrders(cards, orders, weight);
}

void HandByHand::PlayAlone(const Hand& cards, double weight) {
    PlayedHand& hand = played.emplace_back();
    hand.cards = cards;
    hand.weight = weight;
    if (table.type == GameType::kPickEm) {
        FindBestPile(cards, hand.best);
    } else {
        if (finder) Look(cards);
        FindBest(kAsGiven, hand);
    }
    tally.AddReturn(weight, hand.best.expectedReturn);
    tally.AddDraws(hand);
}

// Where the order of the aces pays, a hand is worth what the order of its cards is, and every order
// has the same share of its weight. Only two things matter: where the aces lie, and, when they lie
// as they have to, which card lies in the place beside them. Without aces the four may come to
// either side of a card that lies first or last.
void HandByHand::PlayAceOrders(const Hand& cards, double weight) {
    Look(cards);
    unsigned aces = 0;
    for (std::size_t i = 0; i < kHandSize; ++i) aces |= (cards[i].rank == 1 ? 1U : 0U) << i;
    const double all = weight * kAceGameFactor;
    if (aces == 0) {
        PlayOrders(cards, EndCards(), all);
    } else {
        const std::vector<Placement>& placements = PlacementsOf(aces);
        const double share = all / static_cast<double>(placements.size());
        for (const Placement& placement : placements) {
            PlayAcePlacement(cards, aces, placement, share);
        }
    }
    if (!IsPlayedAsOne()) return;
    PlayedHand hand{cards, all, {}};
    FindBest(kAsGiven, hand);
    tally.AddDraws(hand);
}

void HandByHand::PlayAcePlacement(const Hand& cards, unsigned aces, const Placement& placement,
                                  double weight) {
    orders.clear();
    for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
        if (!LieInOrderFrom(first, cards, aces, placement)) continue;
        const std::size_t beside = first == 0 ? kHandSize - 1 : 0;
        for (std::size_t card = 0; card < kHandSize; ++card) {
            if ((aces >> card & 1) == 0) orders.push_back(Brought(placement, card, beside));
        }
        break;
    }
    if (orders.empty()) orders.push_back(placement);
    PlayOrders(cards, orders, weight);
}

// Whether nobody asks for the single orders of a hand that is played alike in all of them.
bool HandByHand::IsPlayedAsOne() const {
    return finder && finder->HasOneBest() && !tally.IsWatched();
}

// Orders of the same weight; those with the same cards held and the same draws are one
// representative.
void HandByHand::PlayOrders(const Hand& cards, const std::vector<Placement>& orders,
                            double weight) {
    const std::size_t before = played.size();
    const double share = weight / static_cast<double>(orders.size());
    if (IsPlayedAsOne()) {
        tally.CountRepresentatives(1);
        for (std::size_t i = 0; i < orders.size(); ++i) {
            tally.AddReturn(share, finder->GreatestReturn());
        }
        return;
    }
    heldCards.clear();
    PlayedHand hand;
    for (const Placement& order : orders) {
        hand.cards = Placed(cards, order);
        hand.weight = share;
        FindBest(order, hand);
        tally.AddReturn(share, hand.best.expectedReturn);
        HoldMask held = 0;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            if (Holds(hand.best.mask, order[i])) held |= 1 << i;
        }
        std::size_t alike = 0;
        while (alike < heldCards.size() &&
               !(heldCards[alike] == held && SameDraws(played[before + alike].best, hand.best))) {
            ++alike;
        }
        if (alike < heldCards.size()) {
            played[before + alike].weight += hand.weight;
        } else {
            heldCards.push_back(held);
            played.push_back(hand);
        }
    }
    for (std::size_t i = before; i < played.size(); ++i) tally.AddDraws(played[i]);
}

// The hand lies in the order, from the cards that the finder looks at.
void HandByHand::FindBest(const Placement& order, PlayedHand& hand) {
    if (finder) return finder->Best(order, hand.best);
    AnalyzeHand(tables, table, {hand.cards, {}}, kFullBet, coin, analysis);
    TakeBest(analysis, hand.best);
}

void HandByHand::FindBestPile(const Hand& cards, BestHold& best) {
    KnownCards known;
    known.hand = {cards[0], cards[1], cards[3], {}, {}};
    known.firstDraw = cards[4];
    AnalyzeHand(tables, table, known, kFullBet, coin, analysis);
    TakeBest(analysis, best);
    if (best.mask == kLeftPile) best.mask = kLeftPileHeld;
}

void HandByHand::Look(const Hand& cards) {
    std::array<SetCard, kHandSize> setCards;
    for (std::size_t i = 0; i < kHandSize; ++i) setCards[i] = tables.ToSetCard(cards[i]);
    finder->Look(setCards);
}

void HandByHand::EndRow() {
    if (played.empty()) return;
    const bool ordered = table.type == GameType::kAcesBonus;
    const BestHold& first = played.front().best;
    if (!ordered && std::ranges::all_of(played, [&first](const PlayedHand& hand) {
            return hand.best.mask == first.mask && SameDraws(hand.best, first);
        })) {
        for (std::size_t i = 1; i < played.size(); ++i) played[0].weight += played[i].weight;
        played.resize(1);
    }
    tally.Report(played);
    played.clear();
}
