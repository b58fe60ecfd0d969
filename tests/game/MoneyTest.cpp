#include "game/engine/Money.h"

#include <gtest/gtest.h>

#include <climits>

#include "game/commands/TableCommands.h"
#include "tests/game/FakePorts.h"

namespace {

struct MoneyTest : testing::Test, TestTable {};

TEST_F(MoneyTest, DollarsBecomeCreditsAndBack) {
    engine.settings.credits = 0;
    engine.settings.coin = 0.05;
    EnterDollars(engine, 100);
    EXPECT_EQ(engine.settings.credits, 2000);
    EXPECT_EQ(engine.settings.dollarIn, 100);
    EXPECT_EQ(engine.settings.creditsEntered, 100);
    EXPECT_EQ(engine.statistics.sessionDollarsIn, 100);
    for (const int refused : {0, -5, 1'000'000}) EnterDollars(engine, refused);
    EXPECT_EQ(engine.settings.credits, 2000);

    ChooseCoin(table, 0.25);
    engine.settings.credits = 37;
    CashOut(table);
    EXPECT_EQ(table.scene.message, "Paid $9.25");
    EXPECT_EQ(engine.settings.credits, 0);
    EXPECT_EQ(engine.settings.creditsEntered, 91) << "whole dollars";
    engine.settings.credits = 4'940'000;
    CashOut(table);
    EXPECT_EQ(table.scene.message, "Paid $1,235,000.00");
    EXPECT_EQ(engine.settings.creditsEntered, 0) << "never below 0";
}

TEST_F(MoneyTest, CreditsNeverWrap) {
    engine.settings.coin = 0.05;
    engine.settings.credits = INT_MAX - 5;
    engine.settings.creditsEntered = INT_MAX;
    EnterDollars(engine, kMostDollars);
    EXPECT_EQ(engine.settings.credits, INT_MAX);
    EXPECT_EQ(engine.settings.creditsEntered, INT_MAX);
    engine.settings.coin = 1;
    ChooseCoin(table, 0.05);
    EXPECT_EQ(engine.settings.credits, INT_MAX);
}

TEST_F(MoneyTest, AnotherCoinKeepsWhatConvertsWhole) {
    const auto converted = [](int credits, double from, double to) {
        return WholeAmount(credits * from / to);
    };
    EXPECT_EQ(converted(7, 0.05, 1), 0);
    EXPECT_EQ(converted(3, 0.25, 0.5), 1);
    for (int dollars = 1; dollars <= 100'000; ++dollars) {
        ASSERT_EQ(converted(dollars * 20, 0.05, 1), dollars);
        ASSERT_EQ(converted(dollars * 5, 0.05, 0.25), dollars);
    }
}

}  // namespace
