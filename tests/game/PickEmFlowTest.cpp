#include "game/flows/PickEmFlow.h"

#include <gtest/gtest.h>

#include "tests/game/FakePorts.h"

namespace {

struct PickEmFlowTest : testing::Test, OneCoinTable {
    PickEmFlowTest() { machine.Play("Pick Em Poker", 350); }

    // Forgets what was logged before.
    void Choose(Pile pile) {
        TakeLog();
        ChoosePile(seat, pile);
    }
};

// The left pile is the better one: with the kings of the player three of a kind.
constexpr std::string_view kKings = "KS KD KC 9H 2S 3C 4D 5H";

TEST_F(PickEmFlowTest, TheHandIsLaidOutWithTwoPiles) {
    engine.settings.speed = Speed::kNormal;
    Deal(kKings);
    EXPECT_EQ(TakeSteps(),
              "credits 99, message GOOD LUCK!, card 0 none, card 1 none, card 2 none, "
              "card 3 none, card 4 none, pause 250, pile 3 1, pause 100, pile 4 1, pause 100, "
              "pile 3 2, pause 100, pile 4 2, pause 100, card 0 KS, pause 100, card 1 KD, "
              "pause 100, pile top 3 KC, pause 100, pile top 4 3C, pause 100, line 6 won 5, "
              "beep, message HOLD/DRAW");
    DealDraw(seat);
    EXPECT_EQ(TakeSteps(), "") << "the deal button does nothing until a pile is chosen";
}

TEST_F(PickEmFlowTest, TheLeftPileIsPlayedAsItLies) {
    Deal(kKings);
    Choose(Pile::kLeft);
    EXPECT_TRUE(TakeSteps().starts_with(
        "hold button 3 pressed, card 3 none, card 4 none, card 2 KC, card 3 9H, "));
    EXPECT_EQ(machine.HandText(), "KS KD KC 9H 2S ");
    Choose(Pile::kLeft);
    EXPECT_EQ(TakeSteps(), "") << "the hand is over";
}

TEST_F(PickEmFlowTest, WarningModeJudgesThePileByItsTopCard) {
    engine.settings.mode = PlayMode::kWarning;
    Deal(kKings);
    answers = {"no", "yes"};
    Choose(Pile::kRight);
    EXPECT_EQ(TakeSteps(),
              "hold button 4 pressed, ask KK_K_ is the best play for this hand. Continue?, hold "
              "button 4 shown");
    EXPECT_FALSE(engine.handOver);
    EXPECT_EQ(HeldMask(engine), 0);
    Choose(Pile::kRight);
    EXPECT_EQ(machine.HandText(), "KS KD 3C 4D 5H ");
    EXPECT_EQ(engine.statistics.playErrors.total, 1);
}

TEST_F(PickEmFlowTest, AutoHoldLabelsTheBetterPileOrBoth) {
    engine.settings.mode = PlayMode::kAutoHold;
    Deal(kKings);
    EXPECT_EQ(seat.scene.places[3].label, "PLAY");
    EXPECT_EQ(seat.scene.places[4].label, "");
    Choose(Pile::kLeft);
    EXPECT_TRUE(engine.handOver) << "without a question";

    Deal("KS 2D 4C 9H 2S 4D 8D 5H");
    EXPECT_EQ(seat.scene.places[3].label, "EITHER");
    EXPECT_EQ(seat.scene.places[4].label, "EITHER");
    Choose(Pile::kRight);
    EXPECT_TRUE(engine.handOver) << "nor for one of two equals";
}

TEST_F(PickEmFlowTest, AWinMayBeDoubledButStartsNoFeature) {
    engine.settings.doubleUp = true;
    engine.payTable.spinBonus = true;
    engine.payTable.redBlackBonus = true;
    Deal("KD QD JD TD 9D 3C 4D 5H");
    Choose(Pile::kLeft);
    EXPECT_TRUE(engine.doubleUpOffered);
    EXPECT_FALSE(FeaturePending(engine));
}

}  // namespace
