#include "game/engine/PlayErrorText.h"

#include <gtest/gtest.h>

#include "core/store/ErrorLog.h"
#include "tests/game/TestMachine.h"

namespace {

struct PlayErrorTextTest : testing::Test, TestMachine {};

TEST_F(PlayErrorTextTest, AHoldShowsTheRanksOfTheHeldPlaces) {
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

TEST_F(PlayErrorTextTest, TheMessageSaysWhatTheErrorCost) {
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
