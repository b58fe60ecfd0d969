#include "core/analysis/GameAnalysis.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>

#include "tests/Sanitized.h"
#include "tests/core/TestGames.h"

namespace {

GameTotals Analyze(const PayTable& table, double coin = 1,
                   const GameAnalysisWatcher& watcher = {}) {
    return AnalyzeGame(LineTables(table), table, coin, watcher);
}

// The ways to deal so many cards: of four, two in the hand and one on top of each pile.
std::vector<KnownCards> DealsOf(const CardTable& deck, const std::vector<CardCode>& cards) {
    const auto at = [&](std::size_t i) { return FaceOf(deck, cards[i]); };
    if (cards.size() == kHandSize) return {{{at(0), at(1), at(2), at(3), at(4)}, {}}};
    return {{{at(0), at(1), at(2)}, at(3)}, {{at(0), at(2), at(1)}, at(3)},
            {{at(0), at(3), at(1)}, at(2)}, {{at(1), at(2), at(0)}, at(3)},
            {{at(1), at(3), at(0)}, at(2)}, {{at(2), at(3), at(0)}, at(1)}};
}

// Every starting hand, analysed by itself.
double SumOfReturns(const PayTable& table) {
    const LineTables tables(table);
    const CardTable deck = BuildCardTable(DeckOf(table));
    HoldAnalysis analysis;
    double sum = 0;
    const std::size_t seen = table.type == GameType::kPickEm ? 4 : kHandSize;
    ForEachChoice(deck, seen, [&](const std::vector<CardCode>& cards) {
        for (const KnownCards& known : DealsOf(deck, cards)) {
            AnalyzeHand(tables, table, known, kFullBet, 1, analysis);
            sum += analysis.bestReturn;
        }
    });
    return sum;
}

TEST(GameAnalysisTest, TheReturnIsThatOfEveryHandDealt) {
    if (kSanitized) GTEST_SKIP() << "takes minutes under sanitizers";
    // Flushes that pay more than quads, so that hands of three or four of a kind are broken up.
    PayTable flushJokers = JokerPoker(1);
    flushJokers.lines = {Wild(kFlush, 500), Wild(kFiveOfAKind, 3), Wild(kFourOfAKind, 2)};
    PayTable flushAces = FiveAces();
    flushAces.lines = {Natural(kFlush, 500), Natural(kFourOfAKind, 2), Natural(kTwoPair, 1)};
    PayTable colours = PickEm();
    colours.lines = {Natural(kAllRedOrBlack, 5)};
    for (const PayTable& table :
         {DeucesDeluxe(), flushJokers, flushAces, OneEyedJacks(), DoubleDraw(), PickEm(), colours,
          WithLine(JokerPoker(2), Wild(kAllRedOrBlack, 3), 1),
          WithLine(OneEyedJacks(), Wild(kAllRedOrBlack, 3), 2)}) {
        const double er = Analyze(table).er;
        EXPECT_NEAR(er, SumOfReturns(table), er * 1e-10) << table.gameId;
    }
}

// The best returns of a hand in all orders of its cards.
double SumOverOrders(const LineTables& tables, const PayTable& table, const Hand& hand) {
    HoldAnalysis analysis;
    double sum = 0;
    Placement order = kAsGiven;
    do {
        KnownCards known;
        for (std::size_t at = 0; at < kHandSize; ++at) known.hand[order[at]] = hand[at];
        AnalyzeHand(tables, table, known, kFullBet, 1, analysis);
        sum += analysis.bestReturn;
    } while (std::ranges::next_permutation(order).found);
    return sum;
}

using SortedFaces = std::vector<std::pair<int, int>>;

// The cards of a hand under the renaming of suits that puts them lowest.
SortedFaces ClassOf(const Hand& cards) {
    std::array<int, 5> suits = {0, 1, 2, 3, 4};
    SortedFaces least;
    do {
        SortedFaces renamed;
        for (const CardFace face : cards) {
            renamed.emplace_back(face.rank, suits[static_cast<std::size_t>(face.suit)]);
        }
        std::ranges::sort(renamed);
        if (least.empty() || renamed < least) least = renamed;
    } while (std::next_permutation(suits.begin() + 1, suits.end()));
    return least;
}

// The analysis knows every hand by its class; dealing all 120 orders of a hand one by one must come
// to the same.
TEST(GameAnalysisTest, FourAcesInOrderAreExactOverAllOrders) {
    if (kSanitized) GTEST_SKIP() << "takes a minute under sanitizers";
    PayTable plain = JacksOrBetter();
    plain.type = GameType::kAcesBonus;
    plain = WithLine(plain, Natural(kFourAcesInOrder, 800), 1);
    std::mt19937 random(5);
    // In a table of another type, standing pat on two of the 120 orders makes the line.
    for (const PayTable& table :
         {plain, AcesBonus(), WithLine(JacksOrBetter(), Natural(kFourAcesInOrder, 4000)),
          WithLine(JokerPoker(1), Natural(kFourAcesInOrder, 4000))}) {
        std::map<SortedFaces, std::pair<double, double>> classes;  // weight x return, weight
        GameAnalysisWatcher watcher;
        watcher.hand = [&classes](const PlayedHand& hand) {
            auto& [worth, weight] = classes[ClassOf(hand.cards)];
            worth += hand.weight * hand.best.expectedReturn;
            weight += hand.weight;
        };
        Analyze(table, 1, watcher);
        const LineTables tables(table);
        for (int i = 0; i < (kSanitized ? 200 : 3000); ++i) {
            // Of every five hands, one has at least four aces, one three, and so on.
            std::array<int, 52> deck;
            std::iota(deck.begin(), deck.end(), 0);
            std::shuffle(deck.begin(), deck.end(), random);
            std::stable_partition(deck.begin(), deck.end(), [left = i % 5](int card) mutable {
                return card % 13 == 0 && left-- > 0;
            });
            Hand hand;
            for (std::size_t at = 0; at < kHandSize; ++at)
                hand[at] = {deck[at] % 13 + 1, deck[at] / 13 + 1};
            const double sum = SumOverOrders(tables, table, hand);
            const auto& [worth, weight] = classes.at(ClassOf(hand));
            ASSERT_NEAR(worth / weight, sum / 120, 1e-9) << testing::PrintToString(ClassOf(hand));
        }
    }
}

TEST(GameAnalysisTest, OneEyedJacksCanBePlayedHandByHand) {
    if (kSanitized) GTEST_SKIP() << "takes a minute under sanitizers";
    std::int64_t hands = 0;
    GameAnalysisWatcher watcher;
    watcher.hand = [&hands](const PlayedHand& hand) { hands += hand.weight == 1 ? 1 : 0; };
    const PayTable table = OneEyedJacks();
    const GameTotals one = Analyze(table, 1, watcher);
    const GameTotals grouped = Analyze(table);
    EXPECT_EQ(hands, 2598960);
    EXPECT_EQ(one.representatives, 2598960);
    EXPECT_NEAR(one.er, grouped.er, one.er * 1e-11);
}

TEST(GameAnalysisTest, WhatCannotBeAnalysedHasNoFigures) {
    EXPECT_FALSE(CanAnalyzeGame(SneakPeak()));
    EXPECT_EQ(Analyze(SneakPeak()).initHandsTotal, 0);
    PayTable nothingPays = JacksOrBetter();
    nothingPays.lines.clear();
    const GameTotals totals = Analyze(nothingPays);
    EXPECT_EQ(totals.payoutPercent, 0);
    EXPECT_EQ(totals.initHands[0], 2598960) << "standing pat wins the tie of nothing";
}

// What AnalyzeHand makes of a reported hand; in Pick 'Em the mask is that of the report.
BestHold Alone(const LineTables& tables, const PayTable& table, const Hand& cards, double coin) {
    KnownCards known{cards, {}};
    const bool pickEm = table.type == GameType::kPickEm;
    if (pickEm) known = {{cards[0], cards[1], cards[3]}, cards[4]};
    HoldAnalysis analysis;
    AnalyzeHand(tables, table, known, kFullBet, coin, analysis);
    const HoldResult& hold = analysis.holds[static_cast<std::size_t>(analysis.best)];
    BestHold best{analysis.best, hold.cardsDrawn, analysis.bestReturn, hold.totalHands, {}};
    if (pickEm && best.mask == kLeftPile) best.mask = 26;
    std::ranges::transform(hold.lineCounts, best.counts.begin(),
                           [](std::int64_t draws) { return static_cast<std::uint32_t>(draws); });
    best.counts[kNothingLane] = static_cast<std::uint32_t>(hold.nothing);
    return best;
}

// The totals, which count no hand's draws, against the draws of the hands that are reported, and
// those against each hand analysed by itself: ties, draws and the last bit of the return.
void ExpectSumOfItsHands(const PayTable& table, double coin) {
    const LineTables tables(table);
    const GameTotals totals = AnalyzeGame(tables, table, coin, {});
    std::array<std::array<double, kLanes>, kDraws> final{};
    std::array<double, kDraws> hands{};
    double er = 0;
    std::int64_t reported = 0;
    GameAnalysisWatcher watcher;
    watcher.hand = [&](const PlayedHand& hand) {
        const auto drawn = static_cast<std::size_t>(hand.best.cardsDrawn);
        hands[drawn] += hand.weight;
        er += hand.weight * hand.best.expectedReturn;
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            final[drawn][lane] += hand.weight * hand.best.counts[lane];
        }
        if (++reported % (kSlow ? 997 : 29) != 0) return;
        const BestHold alone = Alone(tables, table, hand.cards, coin);
        ASSERT_EQ(hand.best.mask, alone.mask) << "hand " << reported;
        ASSERT_EQ(hand.best.expectedReturn, alone.expectedReturn) << "hand " << reported;
        ASSERT_EQ(hand.best.counts, alone.counts) << "hand " << reported;
        ASSERT_EQ(hand.best.totalHands, alone.totalHands);
    };
    const GameTotals watched = AnalyzeGame(tables, table, coin, watcher);
    EXPECT_EQ(watched.er, totals.er);
    EXPECT_EQ(watched.erSquares, totals.erSquares);
    EXPECT_EQ(watched.final, totals.final);
    EXPECT_EQ(totals.representatives, reported);
    EXPECT_NEAR(er, totals.er, totals.er * 1e-10);
    for (std::size_t drawn = 0; drawn < kDraws; ++drawn) {
        EXPECT_NEAR(totals.initHands[drawn], hands[drawn], 1e-6);
        EXPECT_NEAR(totals.nothing[drawn], final[drawn][kNothingLane],
                    final[drawn][kNothingLane] * 1e-12);
        for (std::size_t line = 0; line < kMaxPayLines; ++line) {
            EXPECT_NEAR(totals.final[drawn][line], final[drawn][line], final[drawn][line] * 1e-12);
        }
    }
}

TEST(GameAnalysisTest, TheTotalsAreThoseOfTheHandsThatAreReported) {
    PayTable flat = JacksOrBetter();  // ties everywhere
    for (PayLine& line : flat.lines) line.maxPayout = 5;
    PayTable large = DeucesDeluxe();  // worths beyond 32 bits
    for (PayLine& line : large.lines) line.maxPayout = 2'147'483'647;
    PayTable twins = JokerPoker(2);  // wild ranks beside jokers
    SetWildCards(twins, 2, std::array{4, 12, 1});
    PayTable coloured = WithLine(JacksOrBetter(), Natural(kAllRedOrBlack, 3), 4);
    PayTable jacks = JacksOrBetter();  // rows that fall into variants
    SetWildCards(jacks, 0, std::array{11});
    struct Case {
        std::string name;
        PayTable table;
        double coin = 1;
    };
    for (const auto& [name, table, coin] :
         {Case{"flat", flat, 0.05}, Case{"large", large}, Case{"twins", twins, 0.25},
          Case{"coloured", coloured}, Case{"jacks", jacks}, Case{"free", JacksOrBetter(), 0},
          Case{"five aces", FiveAces()}, Case{"pick 'em", PickEm(), 0.05},
          Case{"double draw", DoubleDraw()}, Case{"aces bonus", AcesBonus()},
          Case{"joker", JokerPoker(5)},
          Case{"standing aces", WithLine(JokerPoker(1), Natural(kFourAcesInOrder, 4000))}}) {
        SCOPED_TRACE(name);
        ExpectSumOfItsHands(table, coin);
    }
}

// Both ways to find a best hold come to the same hold and the same draws.
TEST(BestHoldTest, TheFinderChoosesAsTheAnalysisDoes) {
    std::mt19937 random(9);
    PayTable flat = JacksOrBetter();  // ties everywhere
    for (PayLine& line : flat.lines) line.maxPayout = 5;
    for (const PayTable& table :
         {flat, DeucesDeluxe(), JokerPoker(5), FiveAces(), AcesBonus(), OneEyedJacks()}) {
        const LineTables tables(table);
        const CardTable deck = BuildCardTable(DeckOf(table));
        BestHoldFinder finder(tables, table, kFullBet, 0.25);
        HoldAnalysis analysis;
        for (int i = 0; i < 3000; ++i) {
            const KnownCards known = RandomHand(deck, random);
            std::array<SetCard, kHandSize> given;
            std::ranges::transform(known.hand, given.begin(),
                                   [&](CardFace face) { return tables.ToSetCard(face); });
            // The finder wants the suits of a rank rising; the placement puts every card where it
            // lies.
            Placement placement = kAsGiven;
            std::ranges::sort(placement, {}, [&](std::size_t at) { return given[at]; });
            std::ranges::sort(given);
            AnalyzeHand(tables, table, known, kFullBet, 0.25, analysis);
            BestHold best;
            finder.Look(given);
            finder.Best(placement, best);
            ASSERT_EQ(best.mask, analysis.best) << table.gameId << " hand " << i;
            const HoldResult& hold = analysis.holds[static_cast<std::size_t>(best.mask)];
            ASSERT_EQ(best.expectedReturn, analysis.bestReturn);
            ASSERT_EQ(best.totalHands, hold.totalHands);
            ASSERT_TRUE(
                std::equal(hold.lineCounts.begin(), hold.lineCounts.end(), best.counts.begin()));
            ASSERT_EQ(best.counts[kNothingLane], hold.nothing);
        }
    }
}

}  // namespace
