#include "game/PickEmFlow.h"

#include <gtest/gtest.h>

#include "game/HandFlow.h"
#include "tests/game/FakePorts.h"

namespace {

// Shows credits, bets one coin, offers no double up. The left pile is the better one: with the
// kings of the player three of a kind.
struct PickEmTable : TestTable {
    explicit PickEmTable(PlayMode mode = PlayMode::kCasino, Speed speed = Speed::kFast)
        : TestTable("Pick Em Poker", 350) {
        ports.logsOwned = true;
        engine.settings.showDollar = false;
        engine.settings.doubleUp = false;
        engine.settings.bet = 1;
        engine.settings.mode = mode;
        engine.settings.speed = speed;
    }

    void Deal(std::string_view cards) {
        machine.Stack(cards, 8);
        DealDraw(table);
        TakeLog();
    }
};

constexpr std::string_view kKings = "KS KD KC 9H 2S 3C 4D 5H";

TEST(PickEmFlowTest, TheHandIsLaidOutWithTwoPiles) {
    PickEmTable t(PlayMode::kCasino, Speed::kNormal);
    t.machine.Stack(kKings, 8);
    DealDraw(t);
    EXPECT_EQ(
        t.TakeSteps(),
        R"(owns 99, credits 99, message GOOD LUCK!, card 0 none, card 1 none, card 2 none, card 3 none,
card 4 none, double up button gone, pause 250
pile 3 one back, pause 100
pile 4 one back, pause 100
pile 3 stack, pause 100
pile 4 stack, pause 100
card 0 KS, pause 100
card 1 KD, pause 100
pile top 3 KC, pause 100
pile top 4 3C, pause 100
line 6 won 5, beep, message HOLD/DRAW
)");
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), "") << "the deal button does nothing until a pile is chosen";
}

TEST(PickEmFlowTest, TheLeftPileIsPlayedAsItLies) {
    PickEmTable t(PlayMode::kCasino, Speed::kNormal);
    t.Deal(kKings);
    t.engine.settings.sounds = false;
    ChoosePile(t, Pile::kLeft);
    EXPECT_EQ(t.TakeSteps(),
              R"(hold button 3 pressed, card 3 none, card 4 none, owns 104, card 2 KC, pause 100
card 3 back, pause 100
card 4 back, pause 250
card 3 9H, pause 100
card 4 2S, line 6 won 5, message WON 5, message PAID 1, credits 100, pause with input 80
message PAID 2, credits 101, pause with input 80
message PAID 3, credits 102, pause with input 80
message PAID 4, credits 103, pause with input 80
message PAID 5, credits 104, pause with input 80
hold button 3 released
)");
    EXPECT_EQ(t.engine.playedHold, kStandPat);
    ChoosePile(t, Pile::kLeft);
    EXPECT_EQ(t.TakeSteps(), "") << "the hand is over";
}

TEST(PickEmFlowTest, TheRightPileTakesTheFirstThreeDrawCards) {
    PickEmTable t;
    t.Deal(kKings);
    ChoosePile(t, Pile::kRight);
    EXPECT_EQ(
        t.TakeSteps(),
        R"(hold button 4 pressed, card 3 none, card 4 none, owns 101, card 2 3C, card 3 4D, pause 1
card 4 5H, line 6 plain 5, line 8 won 2, beep, message WON 2, credits 101,
hold button 4 released
)");
    EXPECT_EQ(t.machine.HandText(), "KS KD 3C 4D 5H ");
    EXPECT_TRUE(t.engine.handOver);
}

TEST(PickEmFlowTest, WarningModeJudgesThePileByItsTopCard) {
    PickEmTable t(PlayMode::kWarning);
    t.Deal(kKings);
    t.answers = {"no", "yes"};
    ChoosePile(t, Pile::kRight);
    EXPECT_EQ(t.TakeSteps(),
              R"(hold button 4 pressed, ask KK_K_ is the best play for this hand. Continue?,
hold button 4 released
)");
    EXPECT_FALSE(t.engine.handOver);
    EXPECT_EQ(t.engine.held, decltype(t.engine.held){});
    ChoosePile(t, Pile::kRight);
    EXPECT_TRUE(t.engine.handOver);
    EXPECT_TRUE(t.answers.empty());
    EXPECT_EQ(t.engine.statistics.playErrors.total, 1);
}

TEST(PickEmFlowTest, AutoHoldLabelsTheBetterPileOrBoth) {
    PickEmTable t(PlayMode::kAutoHold);
    t.machine.Stack(kKings, 8);
    DealDraw(t);
    const std::string left = t.TakeLog();
    EXPECT_NE(left.find("pile top 3 KC PLAY\npause 1\npile top 4 3C\n"), std::string::npos) << left;
    ChoosePile(t, Pile::kLeft);
    EXPECT_TRUE(t.engine.handOver) << "without a question";
    t.TakeLog();

    t.machine.Stack("KS 2D 4C 9H 2S 4D 8D 5H", 8);
    DealDraw(t);
    const std::string either = t.TakeLog();
    EXPECT_NE(either.find("pile top 3 4C EITHER\npause 1\npile top 4 4D EITHER\n"),
              std::string::npos)
        << either;
    ChoosePile(t, Pile::kRight);
    EXPECT_TRUE(t.engine.handOver) << "nor for one of two equals";
}

TEST(PickEmFlowTest, AWinMayBeDoubledButStartsNoFeature) {
    PickEmTable t;
    t.engine.settings.doubleUp = true;
    t.engine.payTable.spinBonus = true;
    t.engine.payTable.redBlackBonus = true;
    t.Deal("KD QD JD TD 9D 3C 4D 5H");
    ChoosePile(t, Pile::kLeft);
    EXPECT_TRUE(t.engine.doubleUpOffered);
    EXPECT_FALSE(FeaturePending(t.engine));
    EXPECT_FALSE(t.engine.handInProgress);
}

}  // namespace
