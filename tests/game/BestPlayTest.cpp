#include "game/engine/BestPlay.h"

#include <gtest/gtest.h>

#include "core/store/ErrorLog.h"
#include "tests/game/TestMachine.h"

namespace {

struct BestPlayTest : testing::Test, TestMachine {
    bool goesOn = true;             // what the player answers
    std::vector<std::string> told;  // each error
    GoesOnAfterError player = [this](const std::string& error) {
        told.push_back(error);
        return goesOn;
    };
};

TEST_F(BestPlayTest, TheBestHoldIsCountedWithoutAWord) {
    Deal("JS JD TC 9H 2S");
    Hold(engine.analysis.best);
    EXPECT_TRUE(CheckBestPlay(engine, files, player, true));
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(engine.statistics.bestReturns.total, engine.analysis.bestReturn);
    EXPECT_EQ(engine.statistics.playErrors, Counter{});
}

TEST_F(BestPlayTest, AnErrorIsSaidEveryTimeAndLoggedOnce) {
    engine.settings.coin = 0.25;
    Deal("JS JD TC 9H 2S");
    Hold(0b10000);
    goesOn = false;
    EXPECT_FALSE(CheckBestPlay(engine, files, player, true));
    EXPECT_FALSE(CheckBestPlay(engine, files, player, false));
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[0].substr(0, 53), "JJ___ is the best play for this hand. Continue?\r\n\r\nBe");
    EXPECT_EQ(engine.statistics.playErrors.total, 1);
    EXPECT_EQ(engine.statistics.nextError, 1);
    const double cost = engine.analysis.bestReturn - engine.analysis.holds[16].expectedReturn;
    EXPECT_DOUBLE_EQ(engine.statistics.errorCosts.session, cost);
    const auto entry = ParseEntry(ReadErrorText(file, files.gamePath, StatsSection(engine), 0));
    EXPECT_EQ(entry.hand, engine.hand);
    EXPECT_EQ(entry.player, 0b10000);
    EXPECT_NE(folder.Read("game.qdx").find("PlayErrors=1"), std::string::npos)
        << "on the disk at once";
}

TEST_F(BestPlayTest, DrawingAgainIsJudgedByTheLineOfTheFirstDraw) {
    Play("Dbl Draw Bonus", 318);
    Deal("AS AH TC 9H 2S 3C 4C 5D");
    Draw(0b11000);
    const int again = engine.analysis.drawAgain[0b11000].drawAgainLine;
    ASSERT_EQ(engine.finalLine, again) << "the pair of aces alone";
    EXPECT_TRUE(CheckDrawAgain(engine, player, true));
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(CheckDrawAgain(engine, player, false)) << "holds all the same";
    goesOn = false;
    EXPECT_TRUE(CheckDrawAgain(engine, player, false)) << "thinks better of it";
    EXPECT_EQ(told.back(), "The best play is to draw again. Do you still wish to hold?");
    engine.finalLine = again - 1;
    EXPECT_FALSE(CheckDrawAgain(engine, player, true));
    EXPECT_EQ(told.back(), "The best play is to hold. Do you still wish to draw again?");
    EXPECT_FALSE(CheckDrawAgain(engine, player, false));
    goesOn = true;
    EXPECT_TRUE(CheckDrawAgain(engine, player, true));
}

}  // namespace
