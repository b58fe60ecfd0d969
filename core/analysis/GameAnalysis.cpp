#include "core/analysis/GameAnalysis.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <vector>

#include "core/analysis/Combinations.h"
#include "core/analysis/HoldAnalysis.h"

namespace {

using Ranks = std::array<int, kHandSize>;  // 0 a joker
using Order = std::array<std::size_t, kHandSize>;

constexpr std::size_t kEmptyPosition = 2;  // of Pick 'Em hands
constexpr HoldMask kPickEmFirstPile = 28;
constexpr HoldMask kPickEmFirstPileHeld = 26;  // position 3 holds the first pile's card here
constexpr double kAceGameFactor = 5;  // hands count five times where the order of the aces pays
constexpr double kPickEmFactor = 6;   // ways to choose the player's two of four cards

// Positions swapped, one after the other, that make each pair of the four cards the player's once.
constexpr std::array<std::array<std::size_t, 2>, 5> kPickEmSwaps = {
    {{1, 3}, {1, 4}, {0, 3}, {1, 4}, {0, 4}}};

double WeightOfAll(const PayTable& table) {
    const auto hands = [&](int cards) {
        return static_cast<double>(Combinations(table.deckSize, cards));
    };
    if (table.type == GameType::kPickEm) return hands(4) * kPickEmFactor;
    return hands(kHandSize) * (table.type == GameType::kAcesBonus ? kAceGameFactor : 1);
}

bool SameBestPlay(const BestHold& a, const BestHold& b) {
    return a.mask == b.mask && a.counts == b.counts && a.expectedReturn == b.expectedReturn;
}

BestHold BestOf(const HoldAnalysis& analysis) {
    const HoldResult& hold = analysis.holds[static_cast<std::size_t>(analysis.best)];
    BestHold best;
    best.mask = analysis.best;
    best.cardsDrawn = hold.cardsDrawn;
    best.expectedReturn = analysis.bestReturn;
    best.totalHands = hold.totalHands;
    for (std::size_t line = 0; line < kMaxPayLines; ++line) {
        best.counts[line] = static_cast<std::uint32_t>(hold.lineCounts[line]);
    }
    best.counts[kNothingLane] = static_cast<std::uint32_t>(hold.nothing);
    return best;
}

// One run over all starting hands.
class GameRun {
  public:
    GameRun(const LineTables& tables, const PayTable& table, double coin,
            const GameAnalysisWatcher& watcher)
        : tables(tables),
          table(table),
          coin(coin),
          watcher(watcher),
          patterns(table),
          all(WeightOfAll(table)) {
        if (BestHoldFinder::Serves(table)) finder.emplace(tables, table, kFullBet, coin);
    }

    GameTotals Play() {
        const bool handByHand = table.type == GameType::kOneEyedJacks && watcher.hand;
        if (handByHand) {
            PlayEveryHand();
        } else {
            PlayRanks(0, table.jokers > 0 ? 0 : 1, {});
        }
        return totals;
    }

  private:
    bool IsPickEm() const { return table.type == GameType::kPickEm; }

    // All multisets of ranks, in rising order from the first position on.
    void PlayRanks(std::size_t position, int lowest, Ranks ranks) {
        if (IsPickEm() && position == kEmptyPosition) return PlayRanks(position + 1, lowest, ranks);
        if (position == kHandSize) {
            if (IsPickEm()) {
                PlayPickEm(ranks);
            } else {
                ArrangeForPatterns(ranks);
                PlayPatterns(ranks);
            }
            return;
        }
        for (int rank = lowest; rank <= 13 && !totals.cancelled; ++rank) {
            ranks[position] = rank;
            if (rank == 0 && static_cast<int>(position) >= table.jokers) continue;
            PlayRanks(position + 1, rank, ranks);
        }
    }

    // The same four cards six times, each pair of them once the player's.
    void PlayPickEm(Ranks ranks) {
        PlayPickEmPatterns(ranks);
        for (const auto& [a, b] : kPickEmSwaps) {
            std::swap(ranks[a], ranks[b]);
            PlayPickEmPatterns(ranks);
        }
    }

    // Of three equal ranks with one of them the player's, the tables know only hands whose single
    // card comes first. The player's two cards have no order, so they may change places.
    void PlayPickEmPatterns(Ranks ranks) {
        const bool singleIsSecond =
            ranks[0] == ranks[3] && ranks[3] == ranks[4] && ranks[0] != ranks[1];
        if (singleIsSecond) std::swap(ranks[0], ranks[1]);
        PlayPatterns(ranks);
    }

    void PlayPatterns(const Ranks& ranks) {
        const HandShape shape = ShapeOf(ranks, table.type);
        const double factor =
            shape.jokers > 0 ? static_cast<double>(Combinations(table.jokers, shape.jokers)) : 1;
        for (const SuitPattern& row : patterns.Select(shape)) {
            if (totals.cancelled) return;
            PlayRow(ranks, row, factor, shape.aces);
        }
    }

    void PlayRow(const Ranks& ranks, const SuitPattern& row, double factor, int aces) {
        played.clear();
        for (const SuitVariant& variant : row.variants) {
            const HandFaces cards = Deal(ranks, variant.suits);
            const double weight = factor * variant.count;
            if (table.type == GameType::kAcesBonus) {
                PlayAceOrders(cards, weight, aces);
            } else {
                PlayHand(cards, weight);
            }
        }
        Report();
    }

    HandFaces Deal(const Ranks& ranks, const PositionSuits& suits) const {
        HandFaces cards;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            if (IsPickEm() && i == kEmptyPosition) continue;
            cards[i] = {ranks[i], suits[i]};
        }
        return cards;
    }

    // Where the order of the aces pays, a dealt hand is worth what its order is. Every way to place
    // the aces has the same share of the hand's weight; where the aces lie as they have to, the
    // card that lies in the place beside four of them can be kept, so each of the others has its
    // share of it.
    void PlayAceOrders(const HandFaces& cards, double weight, int aces) {
        if (aces == 0) return PlayHand(cards, weight * kAceGameFactor);
        HandFaces sorted = cards;
        std::ranges::stable_partition(sorted, [](CardFace face) { return face.rank == 1; });
        Order order{};  // of the positions: the aces' first, then the others' rising
        std::iota(order.begin(), order.end(), std::size_t{0});
        const auto count = static_cast<std::size_t>(aces);
        std::vector<Order> placements;
        do {
            if (std::is_sorted(order.begin() + aces, order.end())) placements.push_back(order);
        } while (std::ranges::next_permutation(order).found);
        const double share = weight * kAceGameFactor / static_cast<double>(placements.size());
        for (const Order& placement : placements) PlayPlacement(sorted, count, placement, share);
    }

    void PlayPlacement(const HandFaces& sorted, std::size_t aces, const Order& placement,
                       double weight) {
        HandFaces hand;
        for (std::size_t i = 0; i < kHandSize; ++i) hand[placement[i]] = sorted[i];
        const auto beside = PlaceBesideAces(hand);
        if (!beside || hand[*beside].rank == 1 || aces + 1 == kHandSize) {
            return PlayHand(hand, weight);
        }
        const double share = weight / static_cast<double>(kHandSize - aces);
        const CardFace besideFirst = hand[*beside];
        for (std::size_t i = aces; i < kHandSize; ++i) {
            HandFaces turned = hand;
            turned[placement[i]] = besideFirst;
            turned[*beside] = sorted[i];
            PlayHand(turned, share);
        }
    }

    // The place that four aces leave when all aces of the hand lie as they have to.
    static std::optional<std::size_t> PlaceBesideAces(const HandFaces& hand) {
        for (const std::size_t first : {0, 1}) {
            bool inOrder = true;
            for (std::size_t i = 0; i < kHandSize; ++i) {
                const bool lies = i == static_cast<std::size_t>(hand[i].suit - kSpades) + first;
                if (hand[i].rank == 1 && !lies) inOrder = false;
            }
            if (inOrder) return first == 0 ? 4 : 0;
        }
        return std::nullopt;
    }

    void PlayHand(const HandFaces& cards, double weight) {
        PlayedHand hand{cards, weight, {}};
        if (IsPickEm()) {
            hand.best = BestPile(cards);
        } else if (finder) {
            hand.best = BestByFinder(cards);
        } else {
            AnalyzeHand(tables, table, {cards, {}}, kFullBet, coin, analysis);
            hand.best = BestOf(analysis);
        }
        Add(hand);
        played.push_back(hand);
        done += weight;
        if (watcher.progress && !watcher.progress(done, all)) totals.cancelled = true;
    }

    BestHold BestPile(const HandFaces& cards) {
        KnownCards known;
        known.hand = {cards[0], cards[1], cards[3], {}, {}};
        known.firstDraw = cards[4];
        AnalyzeHand(tables, table, known, kFullBet, coin, analysis);
        BestHold best = BestOf(analysis);
        if (best.mask == kPickEmFirstPile) best.mask = kPickEmFirstPileHeld;
        return best;
    }

    BestHold BestByFinder(const HandFaces& cards) {
        std::array<std::uint8_t, kHandSize> kinds{};
        std::array<std::uint8_t, kHandSize> suits{};
        for (std::size_t i = 0; i < kHandSize; ++i) {
            const SetCard card = tables.ToSetCard(cards[i]);
            kinds[i] = card.kind;
            suits[i] = card.suit;
        }
        if (kinds != finderKinds) {
            finder->SetKinds(kinds);
            finderKinds = kinds;
        }
        BestHold best;
        finder->Play(suits, best);
        return best;
    }

    void Add(const PlayedHand& hand) {
        const auto drawn = static_cast<std::size_t>(hand.best.cardsDrawn);
        const double weight = hand.weight;
        totals.initHands[drawn] += weight;
        totals.initHandsTotal += weight;
        totals.er += weight * hand.best.expectedReturn;
        double sum = 0;
        for (std::size_t line = 0; line < kMaxPayLines; ++line) {
            const double hands = weight * hand.best.counts[line];
            totals.final[drawn][line] += hands;
            totals.total[line] += hands;
            sum += hands;
        }
        const double nothing = weight * hand.best.counts[kNothingLane];
        totals.nothing[drawn] += nothing;
        totals.nothingTotal += nothing;
        totals.finalHands[drawn] += sum + nothing;
        totals.finalHandsTotal += sum + nothing;
    }

    // The variants of a row are one representative as long as they are played alike.
    void Report() {
        if (played.empty()) return;
        const bool ordered = table.type == GameType::kAcesBonus;
        const bool alike = !ordered && std::ranges::all_of(played, [this](const PlayedHand& hand) {
            return SameBestPlay(hand.best, played.front().best);
        });
        if (alike) {
            for (std::size_t i = 1; i < played.size(); ++i) played[0].weight += played[i].weight;
            played.resize(1);
        }
        totals.representatives += static_cast<std::int64_t>(played.size());
        if (!watcher.hand) return;
        for (const PlayedHand& hand : played) watcher.hand(hand);
    }

    void PlayEveryHand() {
        const CardTable deck = BuildCardTable(DeckOf(table));
        PlayCardsFrom(deck, 0, 0, {});
    }

    void PlayCardsFrom(const CardTable& deck, std::size_t position, CardCode from,
                       HandFaces cards) {
        if (position == kHandSize) {
            played.clear();
            PlayHand(cards, 1);
            return Report();
        }
        for (CardCode card = from; card < deck.deckSize && !totals.cancelled; ++card) {
            const CardInfo& info = deck.cards[static_cast<std::size_t>(card)];
            cards[position] = {info.rank, info.suit};
            PlayCardsFrom(deck, position + 1, card + 1, cards);
        }
    }

    const LineTables& tables;
    const PayTable& table;
    double coin;
    const GameAnalysisWatcher& watcher;
    SuitPatternTables patterns;
    std::optional<BestHoldFinder> finder;
    std::array<std::uint8_t, kHandSize> finderKinds{kMaxKinds};  // of no hand yet
    HoldAnalysis analysis;
    std::vector<PlayedHand> played;  // of the row at work
    double all;
    double done = 0;
    GameTotals totals;
};

// Puts the lines of hands with different draws on one footing: each starting hand counts the same,
// however many final hands its draws make.
void Summarize(const PayTable& table, GameTotals& totals) {
    const bool pickEm = table.type == GameType::kPickEm;
    const double scale =
        pickEm ? static_cast<double>(Combinations(table.deckSize - 4, kHandSize))
               : static_cast<double>(Combinations(table.deckSize - kHandSize, kHandSize)) * 5;
    for (std::size_t drawn = 0; drawn < kDraws; ++drawn) {
        const auto share = [&](double hands) {
            return hands == 0 ? 0
                              : scale * totals.initHands[drawn] * hands / totals.finalHands[drawn];
        };
        for (std::size_t line = 0; line < kMaxPayLines; ++line) {
            const double part = share(totals.final[drawn][line]);
            totals.summary[line] += part;
            totals.denominator += part;
        }
        const double part = share(totals.nothing[drawn]);
        totals.summaryNothing += part;
        totals.denominator += part;
    }
}

void ComputeVariance(const PayTable& table, GameTotals& totals) {
    if (totals.denominator == 0) return;
    const double coinReturn = totals.payoutPercent / 100;
    for (std::size_t line = 0; line < table.lines.size(); ++line) {
        const double probability = totals.summary[line] / totals.denominator;
        const double gain = table.lines[line].maxPayout / kFullBet - coinReturn;
        totals.lineVariance[line] = probability * gain * gain;
        totals.variance += totals.lineVariance[line];
    }
    totals.nothingVariance = totals.summaryNothing / totals.denominator * coinReturn * coinReturn;
    totals.variance += totals.nothingVariance;
}

}  // namespace

bool CanAnalyzeGame(const PayTable& table) { return table.gameId != kSneakPeakGameId; }

GameTotals AnalyzeGame(const LineTables& tables, const PayTable& table, double coin,
                       const GameAnalysisWatcher& watcher) {
    if (!CanAnalyzeGame(table)) return {};
    GameTotals totals = GameRun(tables, table, coin, watcher).Play();
    totals.cost = WeightOfAll(table) * kFullBet * coin;
    totals.payoutPercent = totals.er / totals.cost * 100;
    Summarize(table, totals);
    ComputeVariance(table, totals);
    return totals;
}

double LinePercentReturn(const GameTotals& totals, const PayTable& table, std::size_t line) {
    if (totals.denominator == 0) return 0;
    const double pay = LineUnitPay(table, static_cast<int>(line), kFullBet);
    return pay * totals.summary[line] / (kFullBet * totals.denominator) * 100;
}
