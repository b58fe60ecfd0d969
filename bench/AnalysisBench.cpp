#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "core/analysis/GameAnalysis.h"
#include "core/analysis/HoldAnalysis.h"
#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"

namespace {

PayTable Shipped(const std::string& game) {
    ProfileFile file;
    const std::string path = TOLVANE_DATA_FOLDER "/Tolvane.ini";
    return LoadPayTable({file, path}, {GameIdFromName({file, path}, game), game}, "");
}

void BuildTables(benchmark::State& state, const std::string& game, const std::string& promise) {
    const PayTable table = Shipped(game);
    while (state.KeepRunning()) {
        const LineTables tables(table);
        benchmark::DoNotOptimize(tables.DeckSize());
    }
    const LineTables tables(table);
    state.SetLabel(promise + "; they take " + std::to_string(tables.Bytes() / 1024) + " KB");
}

// Hands as they come, so that the tables are read where a player would read them.
std::vector<KnownCards> RandomHands(const LineTables& tables) {
    std::vector<CardFace> deck;
    for (int rank = 1; rank <= 13; ++rank) {
        for (int suit = kSpades; suit <= kDiamonds; ++suit) deck.push_back({rank, suit});
    }
    for (int joker = 52; joker < tables.DeckSize(); ++joker) deck.push_back({0, kNoSuit});
    std::mt19937 random(1);
    std::vector<KnownCards> hands(4096);
    for (KnownCards& known : hands) {
        std::shuffle(deck.begin(), deck.end(), random);
        std::copy_n(deck.begin(), kHandSize, known.hand.begin());
        known.firstDraw = deck[kHandSize];
    }
    return hands;
}

void OneHand(benchmark::State& state, const std::string& game) {
    const PayTable table = Shipped(game);
    const LineTables tables(table);
    const auto hands = RandomHands(tables);
    HoldAnalysis analysis;
    std::size_t next = 0;
    while (state.KeepRunning()) {
        AnalyzeHand(tables, table, hands[next++ % hands.size()], 5, 1, analysis);
        benchmark::DoNotOptimize(analysis.bestReturn);
    }
    state.SetLabel("1 µs");
}

void WholeGame(benchmark::State& state, const std::string& game, const std::string& promise) {
    const PayTable table = Shipped(game);
    while (state.KeepRunning()) {
        const LineTables tables(table);
        benchmark::DoNotOptimize(AnalyzeGame(tables, table, 1, {}).payoutPercent);
    }
    state.SetLabel(promise);
}

void AllGames(benchmark::State& state) {
    while (state.KeepRunning()) {
        for (const BuiltInGame& game : BuiltInGames()) {
            const PayTable table = Shipped(std::string(game.name));
            const LineTables tables(table);
            benchmark::DoNotOptimize(AnalyzeGame(tables, table, 1, {}).payoutPercent);
        }
    }
    state.SetLabel("0.95 s");
}

BENCHMARK_CAPTURE(BuildTables, 52_cards, "Jacks or Better", "40 ms");
BENCHMARK_CAPTURE(BuildTables, deuces_wild, "Deuces Wild", "40 ms");
BENCHMARK_CAPTURE(BuildTables, one_eyed_jacks, "One-Eyed Jacks", "40 ms");
BENCHMARK_CAPTURE(BuildTables, 53_cards, "Joker Poker - Kings or Better", "80 ms");
BENCHMARK_CAPTURE(BuildTables, 54_cards, "2 Joker Poker", "80 ms");
BENCHMARK_CAPTURE(BuildTables, 56_cards, "4 Joker Poker", "80 ms");
BENCHMARK_CAPTURE(BuildTables, 57_cards, "5 Joker Poker", "80 ms");
BENCHMARK_CAPTURE(OneHand, 52_cards, "Jacks or Better");
BENCHMARK_CAPTURE(OneHand, deuces_wild, "Deuces Wild");
BENCHMARK_CAPTURE(OneHand, 57_cards, "5 Joker Poker");
BENCHMARK_CAPTURE(OneHand, aces_in_order, "Aces Bonus Poker");
BENCHMARK_CAPTURE(OneHand, double_draw, "Dbl Draw Bonus");
BENCHMARK_CAPTURE(OneHand, sneak_peak, "Sneak Peak Poker");
BENCHMARK_CAPTURE(WholeGame, 52_cards, "Jacks or Better", "0.012 s");
BENCHMARK_CAPTURE(WholeGame, deuces_wild, "Deuces Wild", "0.014 s");
BENCHMARK_CAPTURE(WholeGame, five_aces, "5 Aces Bonus Poker", "0.016 s");
BENCHMARK_CAPTURE(WholeGame, one_eyed_jacks, "One-Eyed Jacks", "0.04 s");
BENCHMARK_CAPTURE(WholeGame, pick_em, "Pick Em Poker", "0.02 s");
BENCHMARK_CAPTURE(WholeGame, double_draw, "Dbl Draw Bonus", "0.04 s");
BENCHMARK_CAPTURE(WholeGame, aces_in_order, "Aces Bonus Poker", "0.25 s");
BENCHMARK_CAPTURE(WholeGame, 53_cards, "Joker Poker - Kings or Better", "0.016 s");
BENCHMARK_CAPTURE(WholeGame, 54_cards, "2 Joker Poker", "0.016 s");
BENCHMARK_CAPTURE(WholeGame, 56_cards, "4 Joker Poker", "0.016 s");
BENCHMARK_CAPTURE(WholeGame, 57_cards, "5 Joker Poker", "0.016 s");
BENCHMARK(AllGames)->Unit(benchmark::kMillisecond);

}  // namespace
