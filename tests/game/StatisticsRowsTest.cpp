#include "game/reports/StatisticsRows.h"

#include <gtest/gtest.h>

#include "core/analysis/LineTableCache.h"
#include "tests/core/TestGames.h"
#include "tests/game/TestMachine.h"

namespace {

using enum StatisticsRow;

struct StatisticsRowsTest : testing::Test {
    StatisticsRowsTest() {
        engine.settings.gameName = "Jacks or Better";
        engine.settings.bet = 5;
        engine.settings.coin = 0.25;
        engine.payTable = JacksOrBetter();
        Statistics& statistics = engine.statistics;
        statistics.handsPlayed = {1000, 40000};
        statistics.handsWon = {400, 18200};
        statistics.creditsPlayed = {5000, 200000};
        statistics.creditsWon = {4000, 210000};
        statistics.doubleUpCredits = {300, 300};
        statistics.playErrors = {7, 9};
        statistics.bestReturns = {1250, 50000};
        statistics.errorCosts = {2.5, 12.5};
        engine.payTable.lines[0].totalWins = 3;
    }
    ReportTable Table() { return StatisticsRows(engine, expected, 0); }

    // From the column of what was seen in the session on.
    static std::string Cells(const ReportTable& table, int id) {
        const auto row = std::ranges::find(table.rows, id, &ReportRow::id);
        if (row == table.rows.end()) return "(none)";
        std::string text;
        for (std::size_t i = 2; i < row->cells.size(); ++i) text += row->cells[i].text + '|';
        return text;
    }
    static std::string Cells(const ReportTable& table, StatisticsRow row) {
        return Cells(table, static_cast<int>(row));
    }

    GameEngine engine;
    std::optional<ExpectedPlay> expected;
};

TEST_F(StatisticsRowsTest, SessionAndGameStandBesideWhatIsExpected) {
    LineTableCache tables;
    expected = AnalyzePlay(engine.payTable, tables, [] { return true; });
    const ReportTable table = Table();
    // A royal flush comes once in 40,390.55 hands; three of the 0.99 expected are seen by 7.8 %.
    EXPECT_EQ(Cells(table, 0), "0|0.0248|as expected|3|0.9903|1 in 13 players sees so many|");
    // 45.46 % of the hands win.
    EXPECT_EQ(Cells(table, kHandsWon),
              "400|454.57|1 in 3,530 players sees so few|18,200|18,182.61|as expected|");
    EXPECT_EQ(Cells(table, kHandsPlayed), "1,000|||40,000|||");
    EXPECT_EQ(Cells(table, kCreditsWon), "4,000|4,977.2||210,000|199,087.8||");
    EXPECT_EQ(Cells(table, kNetGain), "-700|-22.8||10,300|-912.2||");
    // One deviation of the return is 4.4175 / sqrt(1000), and for the game 4.4175 / 200.
    EXPECT_EQ(Cells(table, kReturn),
              "80.00|99.5439|1.4 deviations below|105.00|99.5439|2.5 deviations above|");
    EXPECT_EQ(Cells(table, kReturnWithExtras), "86.00|||105.15|||");
    EXPECT_EQ(Cells(table, kPlayErrors), "7|0||9|0||");
    EXPECT_EQ(Cells(table, kErrorCost), "2.5000|0||12.5000|0||");
    EXPECT_EQ(Cells(table, kErrorShare), "0.2000|0||0.0250|0||");
    EXPECT_EQ(table.rows[1].cells[1].text, "2.20");
    EXPECT_EQ(table.warning, "");
    EXPECT_EQ(table.head.back().value,
              "best play of 5 coins in every hand, without bonuses and double ups");
    for (const ReportRow& row : table.rows) EXPECT_EQ(row.cells.size(), table.columns.size());
}

TEST_F(StatisticsRowsTest, WhatIsNotKnownIsSaidAndNotMadeUp) {
    EXPECT_EQ(Cells(Table(), kHandsWon), "18,200|") << "behind the session's";
    EXPECT_EQ(Table().columns.size(), 3U);
    EXPECT_EQ(Table().head.back().value, "being analysed");
    engine.payTable.gameId = kSneakPeakGameId;
    EXPECT_EQ(Table().head.back().value, "there is no exact analysis of this game");
    expected.emplace();  // a table that pays nothing, and counters of an edited file
    engine.statistics = {};
    engine.statistics.handsPlayed = {0, -7};
    engine.statistics.handsWon = {5, 5};
    EXPECT_EQ(Cells(Table(), kHandsWon), "5|||5|||");
    EXPECT_EQ(Cells(Table(), kReturn), "0.00|0.0000||0.00|0.0000||");
}

TEST_F(StatisticsRowsTest, MixedBetsAreToldApartFromABetInPlay) {
    engine.statistics.creditsPlayed.total += 5;
    EXPECT_EQ(Table().warning,
              "200,005 credits were played on 40,000 hands, not 5 on each: bets were mixed, or "
              "hands given up. The return expected is that of the present bet, 5 coins.");
    engine.handOver = false;
    EXPECT_EQ(Table().warning, "");
    engine.settings.bet = 1;
    EXPECT_TRUE(Table().warning.ends_with("the present bet, 1 coin."));
    expected.emplace();
    expected->otherBets.meanReturn = 0.5;
    EXPECT_EQ(Cells(Table(), kNetGain), "-699|-2,499.5||10,296|-100,002.0||") << "of another bet";
}

TEST_F(StatisticsRowsTest, AHandInPlayIsComparedOnceItIsPlayed) {
    expected.emplace();
    expected->fullBet.meanReturn = 0.995;
    engine.statistics = {};
    engine.statistics.creditsPlayed = {5, 5};
    engine.handOver = false;
    EXPECT_EQ(Cells(Table(), kNetGain), "0|0.0||0|0.0||");
    EXPECT_EQ(Table().head[5].value, "5 coins, not counted here");
    engine.statistics.handsPlayed = {1, 1};
    engine.handOver = true;
    EXPECT_EQ(Cells(Table(), kNetGain), "-5|0.0||-5|0.0||") << "-0.025";
}

TEST_F(StatisticsRowsTest, AHandInWhichTheStatisticsWereResetIsNoMixedBet) {
    engine.statistics = {};  // in play, and its bet was counted before
    engine.handOver = false;
    EXPECT_EQ(Table().warning, "");
    EXPECT_EQ(Cells(Table(), kCreditsPlayed), "0|");
    engine.handOver = true;
    engine.statistics.handsPlayed = {1, 1};
    engine.statistics.creditsWon = {5, 5};
    EXPECT_EQ(Cells(Table(), kReturn), "100.00|");
    for (const int hands : {2, 100}) {
        engine.statistics.handsPlayed = {hands, hands};
        engine.statistics.creditsPlayed = {5 * hands - 5, 5 * hands - 5};
        EXPECT_EQ(Table().warning, "");
    }
}

}  // namespace
