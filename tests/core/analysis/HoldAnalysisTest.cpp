#include "core/analysis/HoldAnalysis.h"

#include <gtest/gtest.h>

#include <climits>

#include "tests/core/TestGames.h"

namespace {

TEST(HoldAnalysisTest, TheBetChoosesThePays) {
    EXPECT_EQ(Analyzed(JacksOrBetter(), "AS KS QS JS TS", 5, 0.25).bestReturn, 1000);
    EXPECT_EQ(Analyzed(JacksOrBetter(), "AS KS QS JS TS", 4).bestReturn, 1000);
    EXPECT_EQ(Analyzed(JacksOrBetter(), "AS KS QS JS TS", INT_MAX).bestReturn, INT_MAX);
}

TEST(HoldAnalysisTest, StandingPatWinsATie) {
    // Quads pay the same whatever comes with them.
    EXPECT_EQ(Analyzed(JacksOrBetter(), "9S 9H 9C 9D 3S").best, kStandPat);
    PayTable worthless = JacksOrBetter();
    for (PayLine& line : worthless.lines) line.payout = line.maxPayout = 0;
    EXPECT_EQ(Analyzed(worthless, "AS AD TC 9H 2S").best, kStandPat) << "all returns are 0";
}

// Nine cards make the flush and eight the straight, which pays as much more.
TEST(HoldAnalysisTest, AmongEqualReturnsTheLargerShareOfWinsIsBestAndThenTheLowerMask) {
    PayTable table = JacksOrBetter();
    table.lines = {Natural(kStraight, 9), Natural(kFlush, 8)};
    const auto analysis = Analyzed(table, "KS 5S 6S 8S 7H");
    EXPECT_EQ(analysis.holds[0b01111].expectedReturn, analysis.bestReturn);
    EXPECT_EQ(analysis.best, 0b11110);
    table.lines = {Natural(kFlush, 6)};
    EXPECT_EQ(Analyzed(table, "2S 3S 4H 5H 7C").best, 0b00110) << "two of each suit";
}

TEST(HoldAnalysisTest, CardsThatAreNotFiveOfTheDeckGiveNothing) {
    const PayTable table = JokerPoker(1);
    const LineTables tables(table);
    KnownCards known = Known(table, "W AS KS QS JS");
    HoldAnalysis analysis;
    for (const CardFace face : {CardFace{}, CardFace{0, 0}, CardFace{1, kSpades}, CardFace{14, 1},
                                CardFace{1, kStars}, CardFace{3, 0}, CardFace{3, 9}}) {
        known.hand[4] = face;
        AnalyzeHand(tables, table, known, 5, 1, analysis);
        EXPECT_EQ(analysis.bestReturn, 0) << face.rank << " " << face.suit;
        EXPECT_EQ(analysis.holds[0].totalHands, 0);
    }
}

// Two aces held of AS AH 2C 7D 9H: 45 quads, 165 full houses, 1854 trips, 2592 two pairs and 11559
// pairs among 16215 draws, worth 124575 coins. Keeping what beats a pair and drawing the pairs
// again is worth 66780/16215 + 11559/16215 x 124575/16215.
TEST(HoldAnalysisTest, APairOfAcesIsDrawnAgainWhenNothingBetterCame) {
    const auto analysis = Analyzed(DoubleDraw(), "AS AH 2C 7D 9H");
    const HoldResult& hold = analysis.holds[0b11000];
    const DrawAgainResult& again = analysis.drawAgain[0b11000];
    EXPECT_EQ(hold.lineCounts,
              (std::array<std::int64_t, 15>{0, 0, 45, 165, 0, 0, 1854, 2592, 11559}));
    EXPECT_EQ(again.heldLine, 8);
    EXPECT_EQ(again.drawAgainLine, 8);
    const double second = 124575.0 / 16215;
    EXPECT_NEAR(hold.expectedReturn, 66780.0 / 16215 + 11559.0 / 16215 * second, 1e-9);
    EXPECT_EQ(analysis.best, 0b11000);
    EXPECT_NEAR(again.probabilities[2], 45.0 / 16215 * (1 + 11559.0 / 16215), 1e-12);
    EXPECT_NEAR(again.contributions[8], 11559.0 / 16215 * 11559.0 / 16215 * 5, 1e-9);

    EXPECT_EQ(analysis.drawAgain[0b10000].drawAgainLine, -1);
    EXPECT_EQ(analysis.drawAgain[31].drawAgainLine, -1);
    EXPECT_EQ(analysis.drawAgain[31].heldLine, 8);
}

// Four aces cannot get better, so drawing again is worth the same; the better lines keep their
// draw.
TEST(HoldAnalysisTest, QuadsOfOtherRanksAreNotDrawnAgain) {
    PayTable table = DoubleDraw();
    table.lines[2] = Natural(kBonusFourOfAKind, 80, {{2, 3}, {}});
    const auto analysis = Analyzed(table, "AS AH AC AD 9H");
    EXPECT_EQ(analysis.drawAgain[0b11110].heldLine, -1);
    EXPECT_EQ(analysis.drawAgain[0b11110].drawAgainLine, -1);
    EXPECT_EQ(analysis.drawAgain[0b11100].heldLine, 6) << "three aces";
    table.lines[2].bonusQuads.clear();
    const auto anyQuads = Analyzed(table, "AS AH 2C 7D 9H").drawAgain[0b11000];
    EXPECT_NEAR(anyQuads.probabilities[2], 45.0 / 16215, 1e-12) << "a list that names no aces";

    const PayTable ordered = WithLine(DoubleDraw(), Natural(kFourAcesInOrder, 800), 1);
    EXPECT_EQ(Analyzed(ordered, "AS AH AC AD 9H").drawAgain[0b11110].heldLine, 1);
    EXPECT_EQ(Analyzed(ordered, "9H AS AH AC AD").drawAgain[0b01111].heldLine, 1);
    EXPECT_EQ(Analyzed(ordered, "9H AS AC AH AD").drawAgain[0b01111].heldLine, 3) << "not in order";
}

}  // namespace
