#include "core/analysis/HoldAnalysis.h"

#include <gtest/gtest.h>

#include <climits>

#include "tests/core/TestGames.h"

namespace {

TEST(HoldAnalysisTest, TheBetChoosesThePays) {
    EXPECT_EQ(Analyzed(JacksOrBetter(), "AS KS QS JS TS", 5, 0.25).bestReturn, 1000);
    EXPECT_EQ(Analyzed(JacksOrBetter(), "AS KS QS JS TS", 4).bestReturn, 1000);
    EXPECT_EQ(Analyzed(JacksOrBetter(), "AS KS QS JS TS", 1).bestReturn, 250);
    EXPECT_EQ(Analyzed(JacksOrBetter(), "AS KS QS JS TS", INT_MAX).bestReturn, INT_MAX);
}

TEST(HoldAnalysisTest, StandingPatWinsATie) {
    // Quads pay the same whatever comes with them.
    EXPECT_EQ(Analyzed(JacksOrBetter(), "9S 9H 9C 9D 3S").best, kStandPat);
    PayTable worthless = JacksOrBetter();
    for (PayLine& line : worthless.lines) line.payout = line.maxPayout = 0;
    EXPECT_EQ(Analyzed(worthless, "AS AD TC 9H 2S").best, kStandPat) << "all returns are 0";
    worthless.lines.clear();
    EXPECT_EQ(Analyzed(worthless, "AS KD TC 9H 2S").best, kStandPat);
}

TEST(HoldAnalysisTest, AmongEqualReturnsTheLargerShareOfWinsIsBest) {
    // Three cards to a pat flush: one discard each, the same two returns and shares, the lower
    // mask.
    PayTable flushes = JacksOrBetter();
    flushes.lines = {Natural(kFlush, 6)};
    auto analysis = Analyzed(flushes, "2S 5S 8S JS KH");
    EXPECT_EQ(analysis.best, 0b11110);
    analysis = Analyzed(flushes, "2S 3H 4C 5D 7S");
    EXPECT_GT(analysis.bestReturn, 0);
    for (HoldMask mask = 0; mask < analysis.best; ++mask) {
        EXPECT_LT(analysis.holds[static_cast<std::size_t>(mask)].expectedReturn,
                  analysis.bestReturn);
    }
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
    EXPECT_EQ(again.heldAces, 2);
    EXPECT_EQ(again.heldLine, 8);
    EXPECT_EQ(again.drawAgainLine, 8);
    const double second = 124575.0 / 16215;
    EXPECT_NEAR(hold.expectedReturn, 66780.0 / 16215 + 11559.0 / 16215 * second, 1e-9);
    EXPECT_EQ(analysis.best, 0b11000);
    EXPECT_NEAR(again.probabilities[2], 45.0 / 16215 * (1 + 11559.0 / 16215), 1e-12);
    EXPECT_NEAR(again.contributions[8], 11559.0 / 16215 * 11559.0 / 16215 * 5, 1e-9);
    double sum = 0;
    for (const double part : again.contributions) sum += part;
    EXPECT_NEAR(sum, hold.expectedReturn, 1e-9);

    EXPECT_EQ(analysis.drawAgain[0b10000].heldAces, 1);
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
}

}  // namespace
