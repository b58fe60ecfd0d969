#include "core/analysis/HandByHand.h"

#include <algorithm>
#include <functional>

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

// Where the order of the aces pays, a hand is worth what the order of its cards is, and every
// order has the same share of its weight. Only two things matter: where the aces lie, and, when
// they lie as they have to, which card lies in the place beside them.
void HandByHand::PlayAceOrders(const Hand& cards, double weight) {
    Look(cards);
    std::vector<std::size_t> aces;
    std::vector<std::size_t> others;
    for (std::size_t i = 0; i < kHandSize; ++i) (cards[i].rank == 1 ? aces : others).push_back(i);
    const double all = weight * kAceGameFactor;
    if (aces.empty()) return PlayEndCards(cards, all);
    Placement order = kAsGiven;  // the positions of the aces, then those of the others, rising
    double placements = 1;
    for (std::size_t i = 0; i < aces.size(); ++i) placements *= static_cast<double>(kHandSize - i);
    do {
        if (!std::is_sorted(order.begin() + static_cast<std::ptrdiff_t>(aces.size()),
                            order.end())) {
            continue;
        }
        Placement placement{};
        for (std::size_t i = 0; i < aces.size(); ++i) placement[aces[i]] = order[i];
        for (std::size_t i = 0; i < others.size(); ++i) {
            placement[others[i]] = order[aces.size() + i];
        }
        PlayAcePlacement(cards, placement, others, all / placements);
    } while (std::ranges::next_permutation(order).found);
}

void HandByHand::PlayAcePlacement(const Hand& cards, const Placement& placement,
                                  const std::vector<std::size_t>& others, double weight) {
    const Hand placed = Placed(cards, placement);
    const auto fromFirst = AceChanceFrom(placed, 0);
    const auto chance = fromFirst ? fromFirst : AceChanceFrom(placed, 1);
    if (!chance) return PlayOrders(cards, {{placement}}, weight);
    const auto beside = static_cast<std::size_t>(chance->besidePosition);
    std::vector<Placement> orders;
    orders.reserve(others.size());
    for (const std::size_t card : others) orders.push_back(Brought(placement, card, beside));
    PlayOrders(cards, orders, weight);
}

// Without aces the four may come to either side of a card that lies first or last.
void HandByHand::PlayEndCards(const Hand& cards, double weight) {
    std::vector<Placement> orders;
    for (std::size_t first = 0; first < kHandSize; ++first) {
        for (std::size_t last = 0; last < kHandSize; ++last) {
            if (first == last) continue;
            orders.push_back(Brought(Brought(kAsGiven, first, 0), last, kHandSize - 1));
        }
    }
    PlayOrders(cards, orders, weight);
}

// Orders of the same weight; those with the same cards held and the same draws are one
// representative.
void HandByHand::PlayOrders(const Hand& cards, const std::vector<Placement>& orders,
                            double weight) {
    const std::size_t before = played.size();
    const double share = weight / static_cast<double>(orders.size());
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
