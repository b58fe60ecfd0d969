#include "core/whatif/GameComparison.h"

#include <algorithm>

#include "core/strategy/Grade.h"
#include "core/whatif/HoldWords.h"
#include "core/whatif/Sensitivity.h"
#include "tests/core/whatif/WhatIfTables.h"

namespace {

constexpr double kNear = 1e-9;

double PercentOf(Worth part, const PlayComparison& play) { return Percent(part, play.Bet()); }

TEST(ComparisonTest, NineFiveJacksAndEightFiveBonusDifferInThePublishedHands) {
    const PayTable a = NineFive();
    const PayTable b = Shipped("Bonus Poker");
    const GameComparison comparison = CompareGames(a, b);
    ASSERT_TRUE(comparison.play);
    const PlayComparison& play = *comparison.play;
    EXPECT_EQ(play.hands, 2'598'960);
    EXPECT_EQ(play.differentHands, 3'168);
    // The whole-game analysis counts by other classes of hands, and knows no parts of a coin.
    EXPECT_NEAR(PercentOf(play.bestOnA, play), comparison.a.percent, kNear);
    EXPECT_NEAR(PercentOf(play.bestOnB, play), comparison.b.percent, kNear);
    EXPECT_NEAR(comparison.a.royalCycle, 40'169, 1);

    std::int64_t hands = 0;
    Worth costOnA = 0;
    Worth costOnB = 0;
    double byLine = 0;
    for (const PlayDifference& found : play.classes) {
        hands += found.hands;
        costOnA += found.costOnA;
        costOnB += found.costOnB;
        // One of the hands, analysed by itself on both tables.
        const HoldAnalysis onA = Analyzed(a, found.example);
        const HoldAnalysis onB = Analyzed(b, found.example);
        EXPECT_LT(ReturnOf(onB, onA.best), onB.bestReturn) << found.a;
        EXPECT_LT(ReturnOf(onA, onB.best), onA.bestReturn) << found.b;
    }
    EXPECT_EQ(hands, play.differentHands);
    EXPECT_TRUE(costOnA == play.costOnA && costOnB == play.costOnB);
    EXPECT_TRUE(std::ranges::is_sorted(play.classes, std::greater(), &PlayDifference::costOnB));
    for (const LineDifference& line : comparison.lines) byLine += line.byFrequency + line.byPay;
    EXPECT_NEAR(byLine, comparison.b.percent - comparison.a.percent, kNear);
}

TEST(ComparisonTest, TiesAreNoDifference) {
    const PayTable jacks = Shipped("Jacks or Better");
    PayTable doubled = jacks;
    for (PayLine& line : doubled.lines) line.maxPayout *= 2;
    const PlayComparison play = ComparePlay(TwoTables(jacks, doubled));
    EXPECT_EQ(play.differentHands, 0);
    EXPECT_TRUE(play.classes.empty() && play.costOnA == 0 && play.costOnB == 0);
    EXPECT_TRUE(play.bestOnB == 2 * play.bestOnA);

    // Where nothing is paid, every hold is a best one.
    PayTable nothing = jacks;
    for (PayLine& line : nothing.lines) line.maxPayout = 0;
    EXPECT_EQ(ComparePlay(TwoTables(nothing, jacks)).differentHands, 0);
}

// A line of one colour tells suits apart that the other table does not.
TEST(ComparisonTest, TablesWithDifferentSuitsAreComparedHandByHand) {
    const PayTable plain = Shipped("Jacks or Better");
    PayTable coloured = plain;
    coloured.lines.emplace_back().rank = HandRank::kAllRedOrBlack;
    coloured.lines.back().maxPayout = 5;
    for (const auto& [a, b] :
         {std::pair<const PayTable*, const PayTable*>(&plain, &coloured), {&coloured, &plain}}) {
        const GameComparison comparison = CompareGames(*a, *b);
        ASSERT_TRUE(comparison.play);
        EXPECT_EQ(comparison.play->hands, 2'598'960);
        EXPECT_NEAR(PercentOf(comparison.play->bestOnA, *comparison.play), comparison.a.percent,
                    kNear);
        EXPECT_NEAR(PercentOf(comparison.play->bestOnB, *comparison.play), comparison.b.percent,
                    kNear);
    }
}

TEST(ComparisonTest, TablesOfOtherDecksOrPlaysAreRefusedWithTheReason) {
    const PayTable jacks = Shipped("Jacks or Better");
    const GameComparison deuces = CompareGames(jacks, Shipped("Deuces Wild"));
    EXPECT_FALSE(deuces.play);
    EXPECT_NE(deuces.whyNoPlay.find("other wild cards"), std::string::npos);
    EXPECT_NEAR(deuces.b.percent, 100.761961, 1e-6);
    EXPECT_NE(TwoTables::WhyNot(jacks, Shipped("Dbl Draw Bonus")).find("second draw"),
              std::string::npos);
    EXPECT_NE(TwoTables::WhyNot(jacks, Shipped("Pick Em Poker")), "");
    EXPECT_NE(TwoTables::WhyNot(Shipped("Aces Bonus Poker"), jacks), "");

    int asked = 0;
    EXPECT_TRUE(
        CompareGames(jacks, NineFive(), [&asked](double) { return ++asked < 3; }).cancelled);
    EXPECT_EQ(asked, 3);
    EXPECT_TRUE(ComparePlay(TwoTables(jacks, jacks), [](double) { return false; }).cancelled);
}

// Whatever a hold is called, a row of these words fits it.
TEST(ComparisonTest, HoldsAreCalledByWordsThatFitThem) {
    for (const char* game :
         {"Jacks or Better", "Deuces Wild", "2 Joker Poker", "5 Aces Bonus Poker"}) {
        const PayTable table = Shipped(game);
        const LineTables tables(table);
        const Terms terms(tables, table);
        HandLooks looks{};
        int hands = 0;
        int named = 0;
        StartingHands(tables, table).ForEach([&](const StartingHand& hand) {
            if (++hands % 297 != 0) return true;
            LookAtHand(terms, hand, LookAt::kHeldCards, looks);
            for (const HoldLook look : looks) {
                const HoldTraits hold = TraitsOf(terms, look);
                const auto row = RowOfHold(terms, hold);
                if (!row) continue;
                ++named;
                EXPECT_TRUE(Fits(*row, hold, terms)) << HoldWords(terms, look);
            }
            return !testing::Test::HasFailure();
        });
        EXPECT_GT(named, hands / 297 * 30);
    }
}

TEST(ComparisonTest, TheLinesAddUpToTheDifferenceOfTheReturns) {
    const PayTable twice = Shipped("Dbl Draw Bonus");
    for (const auto& [a, b] : {std::pair(NineFive(), Shipped("Double Double Bonus Poker")),
                               {Shipped("Deuces Wild"), Shipped("Deuces and Joker Wild")},
                               {twice, Shipped("Dbl Draw Dbl Bonus")},
                               {NineFive(), twice}}) {
        const GameComparison found = CompareGames(a, b);
        double sum = 0;
        for (const LineDifference& line : found.lines) sum += line.byFrequency + line.byPay;
        EXPECT_NEAR(sum, found.b.percent - found.a.percent, kNear) << a.gameId << " " << b.gameId;
        EXPECT_EQ(found.lines.back().description == "(second draws)",
                  b.type == GameType::kDoubleDraw);
    }
}

TEST(ComparisonTest, OneCoinMoreIsWorthWhatTheGameThenReturnsMore) {
    const PayTable table = EightFive();
    const LineTables tables(table);
    const GameTotals totals = AnalyzeGame(tables, table, 1, {});
    const auto lines = LineSensitivities(tables, table, totals);
    // Published: 8/5 returns 97.2984 %, 9/5 98.4498 %, 8/6 98.3927 %.
    EXPECT_NEAR(lines[3].gain, 98.4498 - 97.2984, 1e-4);
    EXPECT_NEAR(lines[4].gain, 98.3927 - 97.2984, 1e-4);
    for (const LineSensitivity& line : lines) EXPECT_GE(line.gain, *line.slope - kNear);
    const auto stopped = LineSensitivities(tables, table, totals, [] { return false; });
    EXPECT_TRUE(!stopped[0].known && stopped[8].slope == lines[8].slope);
}

}  // namespace
