#include "game/reports/GameReport.h"

#include <gtest/gtest.h>

#include "core/profile/ProfileFile.h"
#include "game/engine/GameEngine.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

constexpr const char* kCache =
    "[Triple Coconut(3)]\n"
    "Coin=0.25\nER=1.5\nCost=2\nPayout%=75.0000\nVar=4.0000\nInitHands=1;2;3\nFinal=4;5\n"
    "Payline0=800;0;0;0;0;0;0;4;40;1:9.00;25.00;3.0000\n"
    "Payline1=1;0;0;0;0;0;0;4;1,040;1:2.00;50.00;0.5000\n"
    "Nothing=0;0;0;0;0;0;0;4;1,040;1:2.00;0.00;0.5000\n";

struct GameReportTest : testing::Test {
    GameReportTest() {
        engine.settings.gameName = "Triple Coconut";
        engine.settings.activeTable = 3;
        for (const char* description : {"ROYAL FLUSH", "1 PAIR"}) {
            engine.payTable.lines.emplace_back().description = description;
        }
    }

    TemporaryFolder folder;
    ProfileFile file;
    GameEngine engine;
    ProfileOnDisk cache{file, folder.Write("cache.ini", kCache)};
};

TEST_F(GameReportTest, ATableIsAnalyzedWhenTheCacheHasItsReturn) {
    EXPECT_TRUE(IsAnalyzed(engine, cache));
    file.WriteString("Triple Coconut(3)", "ER", "", cache.path);
    EXPECT_TRUE(IsAnalyzed(engine, cache)) << "an empty value is a value";
    file.WriteString("Triple Coconut(3)", "ER", "Not Found", cache.path);
    EXPECT_FALSE(IsAnalyzed(engine, cache));
}

TEST_F(GameReportTest, WhatTheCacheLacksReadsZero) {
    cache.path = folder.Write("other.ini", "[Triple Coconut(3)]\nER=1;2\n");
    const std::string text = GameReport(engine, cache);
    EXPECT_EQ(text.substr(0, text.find("\tPayout")),
              "Game:\tTriple Coconut\r\nCoin\t$0\r\n\r\nExp Ret ($)\t1\t2\r\nBreak Even ($)\t0\r\n"
              "Game Payout\t0%\r\nVariance\t0\r\n\r\n");
    EXPECT_NE(text.find("\r\n\r\nROYAL FLUSH\t0\r\n1 PAIR\t0\r\nNOTHING\t0\r\n\r\n** "),
              std::string::npos);
}

TEST_F(GameReportTest, ATableNotAnalyzedShowsWhatACoinIsPaidAtTheFullBet) {
    cache.path = folder.Write("other.ini", "");
    constexpr int pays[][3] = {{250, 4000, 800}, {9, 45, 9}, {3, 4, 3}, {3, 19, 3}, {1, 0, 1}};
    for (const auto& [payout, maxPayout, shown] : pays) {
        engine.payTable.lines[0].payout = payout;
        engine.payTable.lines[0].maxPayout = maxPayout;
        const std::string line = "\r\nROYAL FLUSH\t" + std::to_string(shown) + "\r\n1 PAIR\t0\r\n";
        EXPECT_NE(GameReport(engine, cache).find(line), std::string::npos) << line;
    }
}

TEST_F(GameReportTest, SharesAddUpToTheWholeReturnAndTheWholeVariance) {
    const auto shares = LineShares(engine, cache);
    ASSERT_EQ(shares.size(), 3U);
    EXPECT_EQ(shares[0].percentReturn, 25);
    EXPECT_DOUBLE_EQ(shares[0].returnShare, 100.0 / 3);
    EXPECT_EQ(shares[0].varianceShare, 75);
    EXPECT_EQ(shares[2].description, "NOTHING");
    EXPECT_EQ(shares[2].returnShare, 0);
    EXPECT_EQ(shares[2].varianceShare, 12.5);
}

TEST_F(GameReportTest, RowsOfAnEditedCacheGiveNoShareWhereTheyHaveNone) {
    const std::string section = "Triple Coconut(3)";
    file.WriteString(section, "Payline0", "1;2", cache.path);
    file.WriteString(section, "Payline1", ";;;;;;;;;;-5;x", cache.path);
    file.WriteString(section, "Nothing", "", cache.path);
    for (const LineShare& share : LineShares(engine, cache)) {
        EXPECT_EQ(share.returnShare, 0);
        EXPECT_EQ(share.varianceShare, 0);
    }
    file.WriteString(section, "Payline0", ";;;;;;;;;;1.5;1,234.5", cache.path);
    EXPECT_EQ(LineShares(engine, cache)[0].variance, 1234.5);
    cache.path += ".missing";
    EXPECT_TRUE(LineShares(engine, cache).empty());
}

}  // namespace
