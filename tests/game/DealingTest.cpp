#include "game/Dealing.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>

#include "core/analysis/ErrorLog.h"
#include "tests/game/TestMachine.h"

namespace {

TEST(DealingTest, DiscardsAreReplacedFromLeftToRight) {
    TestMachine machine;
    GameEngine& engine = machine.engine;
    machine.Stack("AS KD TC 9H 2S 3C 4C 5C 6C 7C", 10);
    EXPECT_EQ(machine.DealOrDraw(), 0);
    EXPECT_EQ(machine.HandText(), "AS KD TC 9H 2S ");
    EXPECT_FALSE(engine.handOver);
    EXPECT_EQ(engine.statistics.creditsPlayed.total, 5);
    EXPECT_EQ(engine.settings.credits, 100) << "the caller takes the bet";
    EXPECT_EQ(engine.statistics.setCards, engine.hand);
    EXPECT_GT(engine.analysis.bestReturn, 0);

    machine.Hold(0b10101);
    EXPECT_EQ(machine.DealOrDraw(), 0);
    EXPECT_EQ(machine.HandText(), "AS 3C TC 4C 2S ");
    EXPECT_EQ(engine.playedHold, 0b10101);
    EXPECT_TRUE(engine.handOver);
    EXPECT_EQ(engine.finalLine, -1);
    EXPECT_EQ(engine.statistics.handsPlayed.session, 1);
    EXPECT_EQ(engine.dealtCopy[1], engine.statistics.setCards[1]) << "the hand as dealt is kept";
}

TEST(DealingTest, AWinIsPaidAndCounted) {
    TestMachine machine;
    GameEngine& engine = machine.engine;
    machine.Stack("JS JD TC 9H 2S JC 4C 5C", 8);
    machine.DealOrDraw();
    EXPECT_EQ(engine.dealtLine, 8);
    EXPECT_TRUE(engine.handWins);
    machine.Hold(0b11000);
    EXPECT_EQ(machine.DealOrDraw(), 15) << "three jacks at five coins";
    EXPECT_EQ(engine.settings.credits, 115);
    EXPECT_EQ(engine.finalLine, 6);
    EXPECT_EQ(engine.payTable.lines[6].sessionWins, 1);
    EXPECT_EQ(engine.statistics.creditsWon.total, 15);
    EXPECT_EQ(engine.statistics.handsWon.session, 1);
}

TEST(DealingTest, CreditsStopAtTheLargestNumber) {
    TestMachine machine;
    machine.engine.settings.credits = INT_MAX - 7;
    machine.Stack("AS KS QS JS TS", 5);
    machine.DealOrDraw();
    machine.Hold(kStandPat);
    EXPECT_EQ(machine.DealOrDraw(), 4000);
    EXPECT_EQ(machine.engine.settings.credits, INT_MAX);
}

TEST(DealingTest, ACharliePaysItsBonusBeside) {
    TestMachine machine("5 Card Charlie", 353);
    GameEngine& engine = machine.engine;
    machine.Stack("2S 2H 3S 3H AS", 5);
    machine.DealOrDraw();
    EXPECT_TRUE(engine.charlieOnDeal);
    machine.Hold(kStandPat);
    const int linePay = LineUnitPay(engine.payTable, engine.dealtLine, 5);
    EXPECT_EQ(machine.DealOrDraw(), 5 * linePay);
    EXPECT_EQ(engine.statistics.creditsWon.total, linePay);
    EXPECT_EQ(engine.statistics.bonusCredits.total, 4 * linePay);
    EXPECT_EQ(engine.settings.credits, 100 + 5 * linePay);
}

TEST(DealingTest, ASecondDrawTakesTheFirstOneBack) {
    TestMachine machine("Dbl Draw Bonus", 318);
    GameEngine& engine = machine.engine;
    machine.Stack("AS AH TC 9H 2S AC 4C 5C", 8);
    machine.DealOrDraw();
    machine.Hold(0b11000);
    EXPECT_GT(machine.DealOrDraw(), 0);
    const HandCards first = engine.hand;
    PrepareSecondDraw(engine);
    EXPECT_FALSE(engine.handOver);
    EXPECT_EQ(engine.settings.credits, 100);
    EXPECT_EQ(engine.statistics.handsPlayed, Counter{});
    EXPECT_EQ(engine.statistics.handsWon, Counter{});
    EXPECT_EQ(engine.statistics.creditsWon, Counter{});
    EXPECT_EQ(engine.payTable.lines[static_cast<std::size_t>(engine.finalLine)].totalWins, 0);
    EXPECT_EQ(engine.win, 0);
    machine.DealOrDraw();
    std::set<CardCode> seen(first.begin(), first.end());
    seen.insert(engine.hand.begin() + 2, engine.hand.end());
    EXPECT_EQ(seen.size(), 8U) << "three new cards, none of them seen before";
    EXPECT_EQ(engine.statistics.handsPlayed.total, 1);
}

TEST(DealingTest, AFixedHandFillsWhatItLeavesOpenAndCountsNothing) {
    TestMachine machine;
    GameEngine& engine = machine.engine;
    engine.fixedHand = true;
    engine.statistics.setCards = {0, 12, kNoCard, 56, kNoCard};  // 56 is in no deck of 52 cards
    engine.statistics.setDraws = {5, kNoCard, kNoCard, kNoCard, kNoCard};
    std::set<CardCode> others;
    for (int i = 0; i < 300; ++i) {
        engine.readyToDeal = true;
        machine.DealOrDraw();
        EXPECT_EQ(engine.hand[0], 0);
        EXPECT_EQ(engine.hand[1], 12);
        EXPECT_EQ(std::set<CardCode>(engine.hand.begin(), engine.hand.end()).size(), 5U);
        EXPECT_EQ(engine.drawCards, (HandCards{5, kNoCard, kNoCard, kNoCard, kNoCard}));
        others.insert(engine.hand.begin() + 2, engine.hand.end());
    }
    EXPECT_EQ(others.size(), 49U) << "all but the two held cards and the first to be drawn";
    EXPECT_EQ(engine.statistics.creditsPlayed, Counter{});

    engine.statistics.setCards = {0, 12, 11, 10, 9};
    engine.readyToDeal = true;
    machine.DealOrDraw();
    machine.Hold(kStandPat);
    EXPECT_EQ(machine.DealOrDraw(), 4000);
    EXPECT_EQ(engine.settings.credits, 100);
    EXPECT_EQ(engine.statistics.handsPlayed, Counter{});
}

TEST(DealingTest, ErrorLogModeDealsOneLoggedHandAfterTheOther) {
    TestMachine machine;
    GameEngine& engine = machine.engine;
    std::int32_t next = 0;
    for (const CardCode first : {0, 13}) {
        ErrorLogEntry entry;
        for (int i = 0; i < kHandSize; ++i) entry.hand[static_cast<std::size_t>(i)] = first + i;
        AppendError(machine.file, machine.files.gamePath, StatsSection(engine), entry, next);
    }
    ChoosePlayMode(engine, PlayMode::kErrorLog);
    EXPECT_TRUE(engine.fixedHand);
    machine.DealOrDraw();
    EXPECT_EQ(machine.HandText(), "AS 2S 3S 4S 5S ");
    engine.readyToDeal = true;
    machine.DealOrDraw();
    EXPECT_EQ(machine.HandText(), "AH 2H 3H 4H 5H ");
    EXPECT_EQ(engine.replayIndex, 2);
}

TEST(DealingTest, APickEmDealKnowsBothPiles) {
    TestMachine machine("Pick Em Poker", 350);
    GameEngine& engine = machine.engine;
    machine.Stack("KS 9H TD 3C 4C 9C 5D 6D", 8);
    machine.DealOrDraw();
    EXPECT_EQ(engine.payTable.lines[static_cast<std::size_t>(engine.dealtLine)].rank, kOnePair)
        << "the nine on the other pile";
    EXPECT_EQ(engine.analysis.best, 25);
    machine.Hold(0b11000);
    machine.DealOrDraw();
    EXPECT_EQ(machine.HandText(), "KS 9H 9C 5D 6D ");
}

}  // namespace
