#include "game/MachineCommands.h"

#include <gtest/gtest.h>

#include <climits>

#include "tests/game/TestMachine.h"

namespace {

struct MachineCommandsTest : testing::Test, TestMachine {};

TEST_F(MachineCommandsTest, DollarsBecomeCreditsAndBack) {
    engine.settings.credits = 0;
    engine.settings.coin = 0.05;
    EnterDollars(engine, 100);
    EXPECT_EQ(engine.settings.credits, 2000);
    EXPECT_EQ(engine.settings.dollarIn, 100);
    EXPECT_EQ(engine.settings.creditsEntered, 100);
    EXPECT_EQ(engine.statistics.sessionDollarsIn, 100);
    for (const int refused : {0, -5, 1'000'000}) EnterDollars(engine, refused);
    EXPECT_EQ(engine.settings.credits, 2000);

    ChangeCoin(engine, 0.25);
    engine.settings.credits = 37;
    EXPECT_EQ(CashOut(engine), "Paid $9.25");
    EXPECT_EQ(engine.settings.credits, 0);
    EXPECT_EQ(engine.settings.creditsEntered, 91) << "whole dollars";
    engine.settings.credits = 4'940'000;
    EXPECT_EQ(CashOut(engine), "Paid $1,235,000.00");
    EXPECT_EQ(engine.settings.creditsEntered, 0) << "never below 0";
}

TEST_F(MachineCommandsTest, CreditsNeverWrap) {
    engine.settings.coin = 0.05;
    engine.settings.credits = INT_MAX - 5;
    engine.settings.creditsEntered = INT_MAX;
    EnterDollars(engine, kMostDollars);
    EXPECT_EQ(engine.settings.credits, INT_MAX);
    EXPECT_EQ(engine.settings.creditsEntered, INT_MAX);
    engine.settings.coin = 1;
    ChangeCoin(engine, 0.05);
    EXPECT_EQ(engine.settings.credits, INT_MAX);
}

TEST_F(MachineCommandsTest, AnotherCoinKeepsWhatConvertsWhole) {
    const auto converted = [&](int credits, double from, double to) {
        engine.settings.credits = credits;
        engine.settings.coin = from;
        ChangeCoin(engine, to);
        return engine.settings.credits;
    };
    EXPECT_EQ(converted(7, 0.05, 1), 0);
    EXPECT_EQ(converted(3, 0.25, 0.5), 1);
    for (int dollars = 1; dollars <= 100'000; ++dollars) {
        ASSERT_EQ(converted(dollars * 20, 0.05, 1), dollars);
        ASSERT_EQ(converted(dollars * 5, 0.05, 0.25), dollars);
    }
}

TEST_F(MachineCommandsTest, TheBetGoesRoundBelowTheTablesMost) {
    engine.settings.bet = 4;
    BetOne(engine);
    EXPECT_EQ(engine.settings.bet, 5);
    BetOne(engine);
    EXPECT_EQ(engine.settings.bet, 1);
    engine.settings.bet = 10;  // of another game
    BetOne(engine);
    EXPECT_EQ(engine.settings.bet, 1);
    BetMax(engine);
    EXPECT_EQ(engine.settings.bet, 5);
}

TEST_F(MachineCommandsTest, APlayModeEndsTheHandInPlay) {
    Deal("JS JD TC 9H 2S");
    Hold(0b11000);
    ChoosePlayMode(engine, PlayMode::kAutoHold);
    EXPECT_TRUE(engine.handOver);
    EXPECT_EQ(HeldMask(engine), 0);
    EXPECT_EQ(engine.finalLine, engine.dealtLine) << "so that its mark is taken away";
    EXPECT_EQ(engine.settings.credits, 100);
}

}  // namespace
