#include "core/analysis/GameAnalysis.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/analysis/AceOrder.h"
#include "core/analysis/Combinations.h"
#include "core/analysis/GameTally.h"
#include "core/analysis/HandByHand.h"
#include "core/analysis/PatternBatches.h"
#include "core/analysis/PileBatches.h"

namespace {

constexpr std::size_t kEmptyPosition = 2;  // of Pick 'Em hands
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

// One run over all starting hands.
class GameRun {
  public:
    GameRun(const LineTables& tables, const PayTable& table, double coin,
            const GameAnalysisWatcher& watcher)
        : table(table),
          eachHandReported(table.type == GameType::kOneEyedJacks && watcher.hand),
          patterns(table),
          tally(tables, watcher, WeightOfAll(table)),
          batchGame(tables, table, kFullBet, coin),
          batches(batchGame),
          piles(batchGame),
          handByHand(tables, table, coin, tally) {}

    GameTotals Play() {
        // Only files edited by hand have these. The patterns of equal ranks give the player and the
        // piles suits in an order that matters to no flush, but to colours.
        const bool noPatterns =
            IsPickEm() && (table.jokers > 0 || HasLine(table, HandRank::kAllRedOrBlack));
        if (eachHandReported || noPatterns) {
            PlayEveryHand();
        } else {
            PlayRanks(0, table.jokers > 0 ? 0 : 1, {});
        }
        return tally.Total();
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
        for (int rank = lowest; rank <= 13 && !tally.Cancelled(); ++rank) {
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
        const std::span<const SuitPattern> rows = patterns.Select(shape);
        if (rows.empty()) return;
        const std::int64_t factor = shape.jokers > 0 ? Combinations(table.jokers, shape.jokers) : 1;
        if (IsPickEm()) return PlayTogether(piles, ranks, rows, factor);
        if (PlayedTogether(shape)) return PlayTogether(batches, ranks, rows, factor);
        for (const SuitPattern& row : rows) {
            if (tally.Cancelled()) return;
            PlayRow(ranks, row, factor);
        }
    }

    // Whether the best holds of hands can be found in batches: the second draw and aces in order
    // ask for more.
    bool PlayedTogether(const HandShape& shape) const {
        switch (table.type) {
            case GameType::kAcesBonus:
                return false;
            case GameType::kDoubleDraw:
                return shape.aces < 2;
            default:
                return shape.aces < kAcesInOrder || AceLine(table) < 0;
        }
    }

    // The batches find the best holds of hands, or the better piles.
    template <typename Batches>
    void PlayTogether(Batches& batches, const Ranks& ranks, std::span<const SuitPattern> rows,
                      std::int64_t factor) {
        const auto variants = batches.Find(ranks, rows);
        const auto jokers = static_cast<double>(factor);
        std::int64_t hands = 0;
        for (const PatternVariant& variant : variants) {
            tally.AddReturn(jokers * variant.count, batches.Return(variant));
            hands += variant.count;
        }
        batches.AddDraws(factor, tally.Draws());
        for (std::size_t first = 0; first < variants.size();) {
            const std::size_t size = variants[first].ofRow;
            ReportRow(batches, ranks, variants.subspan(first, size), jokers);
            first += size;
        }
        tally.Progress(jokers * static_cast<double>(hands));
    }

    // The variants of a row are one representative as long as they are played alike.
    template <typename Batches>
    void ReportRow(const Batches& batches, const Ranks& ranks, std::span<const PatternVariant> row,
                   double jokers) {
        const bool alike = std::ranges::all_of(row.subspan(1), [&](const auto& variant) {
            return batches.AreAlike(row.front(), variant);
        });
        if (!tally.IsWatched()) {
            return tally.CountRepresentatives(alike ? 1 : static_cast<std::int64_t>(row.size()));
        }
        std::vector<PlayedHand> hands;
        for (const auto& variant : row) {
            const double weight = jokers * variant.count;
            if (alike && !hands.empty()) {
                hands.front().weight += weight;
            } else {
                hands.push_back({Deal(ranks, variant.suits), weight, batches.Best(variant)});
            }
        }
        tally.Report(hands);
    }

    void PlayRow(const Ranks& ranks, const SuitPattern& row, std::int64_t factor) {
        double hands = 0;
        for (const SuitVariant& variant : row.variants) {
            const double weight = static_cast<double>(factor) * variant.count;
            handByHand.Play(Deal(ranks, variant.suits), weight);
            hands += weight;
        }
        handByHand.EndRow();
        tally.Progress(hands * (table.type == GameType::kAcesBonus ? kAceGameFactor : 1));
    }

    Hand Deal(const Ranks& ranks, const PositionSuits& suits) const {
        Hand cards;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            if (IsPickEm() && i == kEmptyPosition) continue;
            cards[i] = {ranks[i], suits[i]};
        }
        return cards;
    }

    void PlayEveryHand() {
        const CardTable deck = BuildCardTable(DeckOf(table));
        PlayCardsFrom(deck, 0, 0, {});
    }

    void PlayCardsFrom(const CardTable& deck, std::size_t position, CardCode from, Hand cards) {
        if (IsPickEm() && position == kEmptyPosition) return PlayCardsFrom(deck, 3, from, cards);
        if (position == kHandSize) {
            const auto play = [this](const Hand& deal) {
                handByHand.Play(deal, 1);
                handByHand.EndRow();
                tally.Progress(1);
            };
            return IsPickEm() ? ForEachPickEmDeal(cards, play) : play(cards);
        }
        for (CardCode card = from; card < deck.deckSize && !tally.Cancelled(); ++card) {
            cards[position] = FaceOf(deck, card);
            PlayCardsFrom(deck, position + 1, card + 1, cards);
        }
    }

    const PayTable& table;
    bool eachHandReported;
    SuitPatternTables patterns;
    GameTally tally;
    BatchGame batchGame;
    PatternBatches batches;
    PileBatches piles;
    HandByHand handByHand;
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
