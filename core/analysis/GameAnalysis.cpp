#include "core/analysis/GameAnalysis.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "core/analysis/AceOrder.h"
#include "core/analysis/Combinations.h"
#include "core/analysis/DrawSums.h"
#include "core/analysis/HoldAnalysis.h"
#include "core/analysis/PatternBatches.h"

namespace {

constexpr std::size_t kEmptyPosition = 2;  // of Pick 'Em hands
constexpr HoldMask kLeftPileHeld = 26;     // position 3 holds the left pile's card here
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

bool SameDraws(const BestHold& a, const BestHold& b) {
    return a.counts == b.counts && a.expectedReturn == b.expectedReturn;
}

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
          batchGame(tables, table, kFullBet, coin),
          batches(batchGame),
          sums(tables),
          all(WeightOfAll(table)) {
        if (BestHoldFinder::Serves(table)) finder.emplace(tables, table, kFullBet, coin);
    }

    GameTotals Play() {
        const bool eachHandReported = table.type == GameType::kOneEyedJacks && watcher.hand;
        // Only files edited by hand have these. The patterns of equal ranks give the player and the
        // piles suits in an order that matters to no flush, but to colours.
        const bool noPatterns =
            IsPickEm() && (table.jokers > 0 || HasLine(table, HandRank::kAllRedOrBlack));
        if (eachHandReported || noPatterns) {
            PlayEveryHand();
        } else {
            PlayRanks(0, table.jokers > 0 ? 0 : 1, {});
        }
        AddSums();
        return totals;
    }

  private:
    bool IsPickEm() const { return table.type == GameType::kPickEm; }

    // Plays all multisets of ranks, in rising order from the first position on.
    void PlayRanks(std::size_t position, int lowest, Ranks ranks) {
        if (IsPickEm() && position == kEmptyPosition) return PlayRanks(position + 1, lowest, ranks);
        if (position == kHandSize) {
            if (IsPickEm()) {
                ForEachPickEmDeal(ranks, [this](const Ranks& deal) { PlayPickEmPatterns(deal); });
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

    // Visits the same four cards six times, each pair of them once the player's.
    template <typename Cards, typename Visitor>
    static void ForEachPickEmDeal(Cards cards, Visitor visit) {
        visit(cards);
        for (const auto& [a, b] : kPickEmSwaps) {
            std::swap(cards[a], cards[b]);
            visit(cards);
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
        const std::span<const SuitPattern> rows = patterns.Select(shape);
        if (rows.empty()) return;
        if (PlayedTogether(shape)) return PlayTogether(ranks, rows, factor);
        for (const SuitPattern& row : rows) {
            if (totals.cancelled) return;
            PlayRow(ranks, row, factor);
        }
    }

    // Whether the best holds of hands can be found in batches: the second draw and aces in order
    // ask for more.
    bool PlayedTogether(const HandShape& shape) const {
        switch (table.type) {
            case GameType::kPickEm:
            case GameType::kAcesBonus:
                return false;
            case GameType::kDoubleDraw:
                return shape.aces < 2 && !paysAcesInOrder;
            default:
                return shape.aces < kAcesInOrder || !paysAcesInOrder;
        }
    }

    void PlayTogether(const Ranks& ranks, std::span<const SuitPattern> rows, double factor) {
        const auto variants = batches.Find(ranks, rows);
        for (std::size_t first = 0; first < variants.size();) {
            std::size_t end = first;
            do AddVariant(variants[end], factor);
            while (!variants[end++].endsRow);
            ReportRow(ranks, variants.subspan(first, end - first), factor);
            first = end;
        }
        if (watcher.progress && !watcher.progress(done, all)) totals.cancelled = true;
    }

    void AddVariant(const PatternBatches::Variant& variant, double factor) {
        const HoldBatch& batch = batches.BatchOf(variant);
        const double weight = factor * variant.count;
        const double worth = batch.Return(variant.number);
        done += weight;
        totals.initHands[batch.CardsDrawn(variant.number)] += weight;
        totals.initHandsTotal += weight;
        totals.er += weight * worth;
        totals.erSquares += weight * worth * worth;
        batch.AddDraws(variant.number, static_cast<std::int64_t>(weight), sums);
    }

    PlayedHand PlayedOf(const Ranks& ranks, const PatternBatches::Variant& variant, double factor) {
        const HoldBatch& batch = batches.BatchOf(variant);
        PlayedHand hand{Deal(ranks, variant.suits), factor * variant.count, {}};
        hand.best.mask = batch.Mask(variant.number);
        hand.best.cardsDrawn = static_cast<int>(batch.CardsDrawn(variant.number));
        hand.best.expectedReturn = batch.Return(variant.number);
        hand.best.totalHands = batchGame.worths.draws[batch.CardsDrawn(variant.number)];
        batch.CountLines(variant.number, hand.best.counts);
        return hand;
    }

    // A row of one variant that nobody watches is one representative without a look at it.
    void ReportRow(const Ranks& ranks, std::span<const PatternBatches::Variant> row,
                   double factor) {
        if (row.size() == 1 && !watcher.hand) {
            ++totals.representatives;
            return;
        }
        for (const auto& variant : row) played.push_back(PlayedOf(ranks, variant, factor));
        EndRow();
    }

    void AddSums() {
        const DrawSums::Sums draws = sums.Total();
        for (std::size_t drawn = 0; drawn < kDraws; ++drawn) {
            for (std::size_t line = 0; line < kMaxPayLines; ++line) {
                const auto hands = static_cast<double>(draws[drawn][line]);
                totals.final[drawn][line] += hands;
                totals.total[line] += hands;
                totals.finalHands[drawn] += hands;
                totals.finalHandsTotal += hands;
            }
            const auto nothing = static_cast<double>(draws[drawn][kNothingLane]);
            totals.nothing[drawn] += nothing;
            totals.nothingTotal += nothing;
            totals.finalHands[drawn] += nothing;
            totals.finalHandsTotal += nothing;
        }
    }

    void PlayRow(const Ranks& ranks, const SuitPattern& row, double factor) {
        for (const SuitVariant& variant : row.variants) {
            const Hand cards = Deal(ranks, variant.suits);
            const double weight = factor * variant.count;
            if (table.type == GameType::kAcesBonus) {
                PlayAceOrders(cards, weight);
            } else {
                PlayUnordered(cards, weight);
            }
        }
        Report();
    }

    // Plays a dealt hand whose order only standing pat on four aces asks for.
    void PlayUnordered(const Hand& cards, double weight) {
        if (IsPickEm() || AceLine(table) < 0 || AcesWithPlaces(cards) < kAcesInOrder) {
            return AnalyzeStartingHand(cards, weight);
        }
        std::vector<Placement> orders;
        Placement order = kAsGiven;
        do {
            orders.push_back(order);
        } while (std::ranges::next_permutation(order).found);
        PlayOrders(cards, orders, weight);
    }

    Hand Deal(const Ranks& ranks, const PositionSuits& suits) const {
        Hand cards;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            if (IsPickEm() && i == kEmptyPosition) continue;
            cards[i] = {ranks[i], suits[i]};
        }
        return cards;
    }

    // Where the order of the aces pays, a hand is worth what the order of its cards is, and every
    // order has the same share of its weight. Only two things matter: where the aces lie, and, when
    // they lie as they have to, which card lies in the place beside them.
    void PlayAceOrders(const Hand& cards, double weight) {
        Look(cards);
        std::vector<std::size_t> aces;
        std::vector<std::size_t> others;
        for (std::size_t i = 0; i < kHandSize; ++i)
            (cards[i].rank == 1 ? aces : others).push_back(i);
        const double all = weight * kAceGameFactor;
        if (aces.empty()) return PlayEndCards(cards, all);
        Placement order = kAsGiven;  // the positions of the aces, then those of the others, rising
        double placements = 1;
        for (std::size_t i = 0; i < aces.size(); ++i)
            placements *= static_cast<double>(kHandSize - i);
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

    void PlayAcePlacement(const Hand& cards, const Placement& placement,
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
    void PlayEndCards(const Hand& cards, double weight) {
        std::vector<Placement> orders;
        for (std::size_t first = 0; first < kHandSize; ++first) {
            for (std::size_t last = 0; last < kHandSize; ++last) {
                if (first == last) continue;
                orders.push_back(Brought(Brought(kAsGiven, first, 0), last, kHandSize - 1));
            }
        }
        PlayOrders(cards, orders, weight);
    }

    // The placement with a card brought to a position, and the card there put where that one was.
    static Placement Brought(Placement placement, std::size_t card, std::size_t position) {
        std::ranges::replace(placement, position, placement[card]);
        placement[card] = position;
        return placement;
    }

    static Hand Placed(const Hand& cards, const Placement& placement) {
        Hand placed;
        for (std::size_t i = 0; i < kHandSize; ++i) placed[placement[i]] = cards[i];
        return placed;
    }

    // Orders of the same weight; those with the same cards held and the same draws are one
    // representative.
    void PlayOrders(const Hand& cards, const std::vector<Placement>& orders, double weight) {
        const std::size_t before = played.size();
        std::vector<HoldMask> heldCards;
        for (const Placement& order : orders) {
            PlayedHand hand{Placed(cards, order), weight / static_cast<double>(orders.size()), {}};
            FindBest(order, hand);
            HoldMask held = 0;
            for (std::size_t i = 0; i < kHandSize; ++i) {
                if (Holds(hand.best.mask, order[i])) held |= 1 << i;
            }
            Add(hand);
            std::size_t alike = 0;
            while (
                alike < heldCards.size() &&
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
    }

    // The hand lies in the order, from the cards that the finder looks at.
    void FindBest(const Placement& order, PlayedHand& hand) {
        if (finder) return finder->Best(order, hand.best);
        AnalyzeHand(tables, table, {hand.cards, {}}, kFullBet, coin, analysis);
        TakeBest(analysis, hand.best);
    }

    void AnalyzeStartingHand(const Hand& cards, double weight) {
        // Filled in place: there are hundreds of thousands of them.
        PlayedHand& hand = played.emplace_back();
        hand.cards = cards;
        hand.weight = weight;
        if (IsPickEm()) {
            FindBestPile(cards, hand.best);
        } else {
            if (finder) Look(cards);
            FindBest(kAsGiven, hand);
        }
        Add(hand);
    }

    void Look(const Hand& cards) {
        std::array<SetCard, kHandSize> setCards;
        for (std::size_t i = 0; i < kHandSize; ++i) setCards[i] = tables.ToSetCard(cards[i]);
        finder->Look(setCards);
    }

    void FindBestPile(const Hand& cards, BestHold& best) {
        KnownCards known;
        known.hand = {cards[0], cards[1], cards[3], {}, {}};
        known.firstDraw = cards[4];
        AnalyzeHand(tables, table, known, kFullBet, coin, analysis);
        TakeBest(analysis, best);
        if (best.mask == kLeftPile) best.mask = kLeftPileHeld;
    }

    void Add(const PlayedHand& hand) {
        const auto drawn = static_cast<std::size_t>(hand.best.cardsDrawn);
        const double weight = hand.weight;
        done += weight;
        totals.initHands[drawn] += weight;
        totals.initHandsTotal += weight;
        totals.er += weight * hand.best.expectedReturn;
        totals.erSquares += weight * hand.best.expectedReturn * hand.best.expectedReturn;
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

    // Ends a row. Its variants are one representative as long as they are played alike.
    void Report() {
        if (played.empty()) return;
        EndRow();
        if (watcher.progress && !watcher.progress(done, all)) totals.cancelled = true;
    }

    void EndRow() {
        const bool ordered = table.type == GameType::kAcesBonus;
        const BestHold& first = played.front().best;
        if (!ordered && std::ranges::all_of(played, [&first](const PlayedHand& hand) {
                return hand.best.mask == first.mask && SameDraws(hand.best, first);
            })) {
            for (std::size_t i = 1; i < played.size(); ++i) played[0].weight += played[i].weight;
            played.resize(1);
        }
        totals.representatives += static_cast<std::int64_t>(played.size());
        if (watcher.hand) {
            for (const PlayedHand& hand : played) watcher.hand(hand);
        }
        played.clear();
    }

    void PlayEveryHand() {
        const CardTable deck = BuildCardTable(DeckOf(table));
        PlayCardsFrom(deck, 0, 0, {});
    }

    void PlayCardsFrom(const CardTable& deck, std::size_t position, CardCode from, Hand cards) {
        if (IsPickEm() && position == kEmptyPosition) return PlayCardsFrom(deck, 3, from, cards);
        if (position == kHandSize) {
            const auto play = [this](const Hand& deal) {
                PlayUnordered(deal, 1);
                Report();
            };
            return IsPickEm() ? ForEachPickEmDeal(cards, play) : play(cards);
        }
        for (CardCode card = from; card < deck.deckSize && !totals.cancelled; ++card) {
            cards[position] = FaceOf(deck, card);
            PlayCardsFrom(deck, position + 1, card + 1, cards);
        }
    }

    const LineTables& tables;
    const PayTable& table;
    double coin;
    const GameAnalysisWatcher& watcher;
    SuitPatternTables patterns;
    BatchGame batchGame;
    PatternBatches batches;
    DrawSums sums;
    std::optional<BestHoldFinder> finder;
    HoldAnalysis analysis;
    std::vector<PlayedHand> played;  // of the row at work
    double all;
    double done = 0;
    const bool paysAcesInOrder = AceLine(table) >= 0;
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
        const int coins = table.lines[line].maxPayout / kFullBet;  // whole, as in the Summary
        const double gain = coins - coinReturn;
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
    const double mean = totals.er / totals.cost;
    totals.payoutPercent = mean * 100;
    totals.holdVariance = totals.erSquares / (totals.cost * kFullBet * coin) - mean * mean;
    Summarize(table, totals);
    ComputeVariance(table, totals);
    return totals;
}

double LinePercentReturn(const GameTotals& totals, const PayTable& table, std::size_t line) {
    if (totals.denominator == 0) return 0;
    const double pay = LineUnitPay(table, static_cast<int>(line), kFullBet);
    return pay * totals.summary[line] / (kFullBet * totals.denominator) * 100;
}
