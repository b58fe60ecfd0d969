#include "game/reports/StatisticsReport.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/game/TestMachine.h"

namespace {

using enum StatisticsDisplay;

constexpr std::int64_t kStart = 1'790'000'000;

PayLine Paying(const std::string& description, int payout, int maxPayout) {
    PayLine line;
    line.description = description;
    line.payout = payout;
    line.maxPayout = maxPayout;
    return line;
}

GameEngine FreshGame() {
    GameEngine engine;
    engine.settings.gameName = "Triple Coconut";
    engine.payTable.lines = {Paying("ROYAL FLUSH", 250, 4000), Paying("2 PAIR", 2, 10),
                             Paying("JACKS OR BETTER", 1, 5)};
    engine.statistics.sessionStart = kStart;
    return engine;
}

GameEngine PlayedGame() {
    GameEngine engine = FreshGame();
    engine.settings.coin = 0.25;
    engine.settings.creditsEntered = 1001;
    engine.payTable.spinBonus = true;
    Statistics& statistics = engine.statistics;
    statistics.handsPlayed = {1000, 12345};
    statistics.handsWon = {450, 5000};
    statistics.elapsedBase = 10.5;
    statistics.bonusTries = {7, 1234};
    statistics.doubleUpTries = {3, 40};
    statistics.doubleUpsLost = {1, 15};
    statistics.doubleUpsTied = {1, 5};
    statistics.sessionDollarsIn = 20;
    statistics.creditsWon = {4500, 56789};
    statistics.bonusCredits = {50, 600};
    statistics.doubleUpCredits = {20, 300};
    statistics.doubleUpCreditsLost = {10, 100};
    statistics.creditsPlayed = {5000, 61725};
    statistics.playErrors = {12, 123};
    statistics.bestReturns = {1234.5, 15000};
    statistics.errorCosts = {2.25, 30.125};
    constexpr int wins[][2] = {{0, 1}, {3, 1500}, {200, 2469}};
    for (std::size_t i = 0; i < 3; ++i) {
        engine.payTable.lines[i].sessionWins = wins[i][0];
        engine.payTable.lines[i].totalWins = wins[i][1];
    }
    return engine;
}

std::string Boxes(const GameEngine& engine, std::int64_t now) {
    return StatisticsHands(engine, now) + StatisticsCredits(engine) + StatisticsErrors(engine);
}

// The stored texts were worked out by hand, to the last blank.
std::string Stored(const std::string& name) { return TestData("statistics-" + name + ".txt"); }

// The line of a text that has this label, without the label and its tab.
std::string ValuesOf(const std::string& text, const std::string& label) {
    const auto at = text.find(label + '\t');
    if (at == std::string::npos) return "(none)";
    const auto begin = at + label.size() + 1;
    return text.substr(begin, text.find("\r\n", begin) - begin);
}

std::string TimePlayed(const GameEngine& engine, std::int64_t minutes) {
    return ValuesOf(StatisticsHands(engine, kStart + minutes * 60), "Total Playing Time (hh:mm):");
}

TEST(StatisticsReportTest, AFreshGameReadsZeroEverywhereAndHasNoBonusLines) {
    const GameEngine engine = FreshGame();
    EXPECT_EQ(Boxes(engine, kStart + 59) + StatisticsLines(engine, kHands), Stored("fresh"));
    EXPECT_EQ(StatisticsLines(engine, kFrequency), StatisticsLines(engine, kHands));
}

TEST(StatisticsReportTest, SessionAndGameStandSideBySide) {
    GameEngine engine = PlayedGame();
    EXPECT_EQ(Boxes(engine, kStart + 3959), Stored("boxes"));  // 65 minutes, 59 seconds
    EXPECT_EQ(StatisticsLines(engine, kHands), Stored("hands"));
    EXPECT_EQ(StatisticsLines(engine, kFrequency), Stored("frequency"));
    EXPECT_EQ(StatisticsLines(engine, kShareOfReturn), Stored("return"));
    engine.settings.bet = 2;  // a royal pays its full pay for five coins only: 500 of 56,789
    EXPECT_EQ(ValuesOf(StatisticsLines(engine, kShareOfReturn), "ROYAL FLUSH"), "0\t0.88  \t");
}

TEST(StatisticsReportTest, AnyBonusOfTheTableBringsTheBonusLines) {
    for (bool PayTable::*bonus : {&PayTable::charlieBonus, &PayTable::redBlackBonus,
                                  &PayTable::spinBonus, &PayTable::targetBonus}) {
        GameEngine engine = FreshGame();
        engine.payTable.*bonus = true;
        EXPECT_EQ(ValuesOf(StatisticsHands(engine, kStart), "Bonus Attempts:"), "0\t0");
    }
}

TEST(StatisticsReportTest, NoMinutePlayedIsLostToBinaryFractions) {
    GameEngine engine = FreshGame();
    EXPECT_EQ(TimePlayed(engine, 119), "1:59\t1:59");
    EXPECT_EQ(TimePlayed(engine, -90), "0:0\t0:0");  // the clock was set back
    engine.statistics.elapsedBase = 2.05;            // 123 minutes, and in binary a hair less
    EXPECT_EQ(TimePlayed(engine, 57), "0:57\t3:0");
}

TEST(StatisticsReportTest, CountersOfAnEditedFileAreShownAsTheyCome) {
    GameEngine engine = PlayedGame();
    Statistics& statistics = engine.statistics;
    engine.settings.coin = 0;
    statistics.elapsedBase = std::numeric_limits<double>::max();
    statistics.handsPlayed = {0, -2147483647 - 1};
    statistics.playErrors = {5, 2147483647};
    statistics.doubleUpTries = {0, 2};
    statistics.doubleUpsLost = {0, 2};
    statistics.creditsPlayed.total = -2147483647 - 1;
    statistics.creditsWon = {0, 2147483647};
    EXPECT_EQ(ValuesOf(StatisticsCredits(engine), "Net Gain:"), "-4,940\t4,294,968,095");
    const auto hands = StatisticsHands(engine, kStart);
    EXPECT_EQ(ValuesOf(hands, "Pct Dbl Up Attempts Won:"), "0.00\t0.00");
    EXPECT_EQ(ValuesOf(hands, "Hands Per Hour:"), "0\t0");
    const auto errors = StatisticsErrors(engine);
    EXPECT_EQ(ValuesOf(errors, "Pct Play Errors:"), "100.0000    \t-100.0000   ");
    EXPECT_EQ(ValuesOf(errors, "Cost in Coins:"), "0.0000      \t0.0000      ");
}

}  // namespace
