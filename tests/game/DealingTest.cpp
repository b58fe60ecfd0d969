#include "game/engine/Dealing.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cmath>
#include <set>
#include <vector>

#include "tests/game/TestMachine.h"

namespace {

struct DealingTest : testing::Test, TestMachine {};

TEST_F(DealingTest, DiscardsAreReplacedFromLeftToRight) {
    EXPECT_EQ(Deal("AS KD TC 9H 2S 3C 4C 5C 6C 7C"), 0);
    EXPECT_EQ(Counted(), "CreditsPlayed 5");
    EXPECT_EQ(engine.settings.credits, 100) << "the caller takes the bet";
    EXPECT_EQ(Draw(0b10101), 0);
    EXPECT_EQ(HandText(), "AS 3C TC 4C 2S ");
    EXPECT_EQ(Counted(), "CreditsPlayed 5, HandsPlayed 1");
    EXPECT_EQ(engine.dealtCopy[1], engine.statistics.setCards[1]) << "the hand as dealt is kept";
}

// Chi-square of what lies in each of ten places, over 52,000 deals; 1000 of each are expected.
template <std::size_t kKinds>
double ChiSquare(const std::array<std::array<int, kKinds>, kCardsOfHand>& counts) {
    double sum = 0;
    for (const auto& place : counts) {
        for (const int count : place) sum += (count - 1000.0) * (count - 1000.0) / 1000;
    }
    return sum;
}

// Hurried, a machine has no time to shuffle; or for a few passes, which are not even.
TEST_F(DealingTest, AnOrderThatWasDealtFromForetellsNothingWhateverPassesFollow) {
    for (const int passes : {0, 1, 3}) {
        std::array<std::array<int, 52>, kCardsOfHand> cards{};
        std::array<std::array<int, kCardsOfHand>, kCardsOfHand> again{};  // by places, old and new
        std::vector<CardCode> before;
        for (int deal = 0; deal < 52'000; ++deal) {
            engine.deck.Shuffle(passes);
            engine.readyToDeal = true;
            DealOrDraw();
            std::vector<CardCode> dealt(engine.hand.begin(), engine.hand.end());
            dealt.insert(dealt.end(), engine.drawCards.begin(), engine.drawCards.end());
            for (std::size_t place = 0; place < kCardsOfHand; ++place) {
                ++cards[place][static_cast<std::size_t>(dealt[place])];
                const auto old = std::ranges::find(before, dealt[place]) - before.begin();
                if (old < std::ssize(before)) ++again[place][static_cast<std::size_t>(old)];
            }
            before = dealt;
        }
        EXPECT_NEAR(ChiSquare(cards), 510, 5 * std::sqrt(2 * 510)) << passes;
        EXPECT_NEAR(ChiSquare(again), 100, 5 * std::sqrt(2 * 100)) << passes;
    }
}

TEST_F(DealingTest, CreditsStopAtTheLargestNumber) {
    engine.settings.credits = INT_MAX - 7;
    Deal("AS KS QS JS TS");
    EXPECT_EQ(Draw(kStandPat), 4000);
    EXPECT_EQ(engine.settings.credits, INT_MAX);
}

TEST_F(DealingTest, ACharliePaysItsBonusBeside) {
    Play("5 Card Charlie", 353);
    Deal("2S 2H 3S 3H AS");
    EXPECT_EQ(Draw(kStandPat), 25);
    EXPECT_EQ(Counted(),
              "CreditsPlayed 5, CreditsWon 5, HandsPlayed 1, HandsWon 1, BonusCredits 20");
    EXPECT_EQ(engine.settings.credits, 125);
}

TEST_F(DealingTest, ASecondDrawTakesTheFirstOneBack) {
    Play("Dbl Draw Bonus", 318);
    Deal("AS AH TC 9H 2S AC 4C 5C");
    EXPECT_GT(Draw(0b11000), 0);
    PrepareSecondDraw(engine);
    EXPECT_EQ(engine.settings.credits, 100);
    EXPECT_EQ(Counted(), "CreditsPlayed 5");
    EXPECT_EQ(engine.payTable.lines[static_cast<std::size_t>(engine.finalLine)].totalWins, 0);
    // Three would be drawn now, but all five are new.
    for (int again = 0; again < 20; ++again) {
        std::set<CardCode> seen(engine.hand.begin(), engine.hand.end());
        seen.insert(engine.drawCards.begin(), engine.drawCards.end());
        EXPECT_EQ(seen.size(), 10U);
        PrepareSecondDraw(engine);
    }
}

TEST_F(DealingTest, AFixedHandFillsWhatItLeavesOpenAndCountsNothing) {
    engine.fixedHand = true;
    engine.statistics.setCards = {0, 12, kNoCard, 56, kNoCard};  // 56 is in no deck of 52 cards
    engine.statistics.setDraws = {5, kNoCard, kNoCard, kNoCard, kNoCard};
    std::set<CardCode> others;
    for (int i = 0; i < 300; ++i) {
        engine.readyToDeal = true;
        DealOrDraw();
        EXPECT_EQ(engine.hand[0], 0);
        EXPECT_EQ(engine.hand[1], 12);
        EXPECT_EQ(std::set<CardCode>(engine.hand.begin(), engine.hand.end()).size(), 5U);
        EXPECT_EQ(engine.drawCards, (HandCards{5, kNoCard, kNoCard, kNoCard, kNoCard}));
        others.insert(engine.hand.begin() + 2, engine.hand.end());
    }
    EXPECT_EQ(others.size(), 49U) << "all but the two held cards and the first to be drawn";

    engine.statistics.setCards = {0, 12, 11, 10, 9};
    engine.readyToDeal = true;
    DealOrDraw();
    EXPECT_EQ(Draw(kStandPat), 4000);
    EXPECT_EQ(engine.settings.credits, 100);
    EXPECT_EQ(Counted(), "");
}

TEST_F(DealingTest, APickEmDealKnowsBothPiles) {
    Play("Pick Em Poker", 350);
    Deal("KS 9H TD 3C 4C 9C 5D 6D");
    EXPECT_EQ(engine.payTable.lines[static_cast<std::size_t>(engine.dealtLine)].rank, kOnePair)
        << "the nine on the other pile";
    EXPECT_EQ(engine.analysis.best, 25);
}

}  // namespace
