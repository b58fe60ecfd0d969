#include "game/engine/BestPlay.h"

#include <gtest/gtest.h>

#include "core/store/ErrorLog.h"
#include "game/engine/PlayErrorText.h"
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

TEST_F(BestPlayTest, AnErrorIsSaidEveryTimeAndLoggedOnce) {
    engine.settings.coin = 0.25;
    Deal("JS JD TC 9H 2S");
    Hold(0b10000);
    goesOn = false;
    EXPECT_FALSE(CheckBestPlay(engine, files, player, true));
    EXPECT_FALSE(CheckBestPlay(engine, files, player, false));
    EXPECT_EQ(told.size(), 2U);
    EXPECT_EQ(engine.statistics.playErrors.total, 1);
    EXPECT_EQ(engine.statistics.bestReturns.total, engine.analysis.bestReturn);
    const double cost = engine.analysis.bestReturn - engine.analysis.holds[16].expectedReturn;
    EXPECT_DOUBLE_EQ(engine.statistics.errorCosts.session, cost);
    const auto entry = ParseEntry(ReadErrorText({file, files.gamePath}, StatsSection(engine), 0));
    EXPECT_EQ(entry.hand, engine.hand);
    EXPECT_EQ(entry.player, 0b10000);
    EXPECT_EQ(ReadErrorDate({file, files.gamePath}, StatsSection(engine), 0), 1'790'000'000);
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

TEST_F(BestPlayTest, AHoldShowsTheRanksOfTheHeldPlaces) {
    Play("Joker Poker - Kings or Better", 340);
    const auto text = [this](const HandCards& hand, HoldMask hold) {
        return HoldText(engine, hand, 1, hold);
    };
    EXPECT_EQ(text({51, 0, 36, 13, 22}, 0b01011), "_A_W9");
    EXPECT_EQ(text({kNoCard, kCardBack, 53, 0, 0}, kStandPat), "???AA");
    Play("Pick Em Poker", 350);
    EXPECT_EQ(text({51, 0, 35, kNoCard, kNoCard}, kLeftPile), "KA_T_");
    EXPECT_EQ(text({51, 0, 35, kNoCard, kNoCard}, kRightPile), "KA__2");
}

TEST_F(BestPlayTest, TheMessageSaysWhatTheErrorCost) {
    engine.settings.coin = 0.25;
    const ErrorLogEntry entry{{51, 0, 35, 21, 20}, kNoCards, 0b11000, 0, 1.53649, 1.5};
    EXPECT_EQ(BestPlayErrorText(engine, entry),
              "KA___ is the best play for this hand. Continue?\r\n\r\n"
              "Best Play Return ($): 1.5365   \r\n"
              "Your Play Return ($): 1.5000   \r\n"
              "Cost of error ($): 0.0365   \r\n"
              "Cost in Coin: 0.1460   \r\n\r\n");
}

}  // namespace
