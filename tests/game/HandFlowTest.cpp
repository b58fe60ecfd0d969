#include "game/HandFlow.h"

#include <gtest/gtest.h>

#include "game/WinDisplay.h"
#include "tests/game/FakePorts.h"

namespace {

// Shows credits, bets one coin, offers no double up.
struct OneCoinTable : TestTable {
    explicit OneCoinTable(const std::string& game = "Jacks or Better", int gameId = 300)
        : TestTable(game, gameId) {
        ports.logsOwned = true;
        engine.settings.showDollar = false;
        engine.settings.doubleUp = false;
        engine.settings.bet = 1;
    }

    void Deal(std::string_view cards, std::size_t count) {
        machine.Stack(cards, count);
        DealDraw(table);
        TakeLog();
    }
};

TEST(HandFlowTest, AHandIsDealtHeldDrawnPaidAndCountedUp) {
    OneCoinTable t;
    t.machine.Stack("JS 7D TC 9H 2S JC 7H 4D", 8);
    DealDraw(t);
    EXPECT_EQ(
        t.TakeSteps(),
        R"(owns 99, double up button gone, message GOOD LUCK!, held 0 off, card 0 back, held 1 off,
card 1 back, held 2 off, card 2 back, held 3 off, card 3 back, held 4 off, card 4 back,
credits 99, pause 250
card 0 JS, pause 100
card 1 7D, pause 100
card 2 TC, pause 100
card 3 9H, pause 100
card 4 2S, pause 100
message HOLD/DRAW
)");
    EXPECT_TRUE(t.engine.handInProgress);

    ToggleHold(t, 0);
    ToggleHold(t, 1);
    ToggleHold(t, 4);
    ToggleHold(t, 4);
    DealDraw(t);
    EXPECT_EQ(
        t.TakeSteps(),
        R"(held 0 on, held 1 on, held 4 on, held 4 off, card 2 back, card 3 back, card 4 back, pause 250
owns 101, card 2 JC, pause 100
card 3 7H, pause 100
card 4 4D, pause 100
line 7 won 2, beep, message WON 2, beep, message PAID 1, credits 100, beep, pause with input 80
message PAID 2, credits 101, beep, pause with input 80
)");
    EXPECT_FALSE(t.engine.handInProgress);
    EXPECT_EQ(t.engine.statistics.creditsWon.total, 2);

    t.engine.settings.speed = Speed::kFast;
    t.machine.Stack("2C 3D 5H 8S KC", 5);
    DealDraw(t);
    EXPECT_EQ(
        t.TakeSteps(),
        R"(line 7 plain 2, owns 100, double up button gone, message GOOD LUCK!, held 0 off, held 1 off,
held 2 off, held 3 off, held 4 off, credits 100, pause 1
card 0 2C, pause 1
card 1 3D, pause 1
card 2 5H, pause 1
card 3 8S, pause 1
card 4 KC, pause 1
message HOLD/DRAW
)") << "the last win's mark goes; at full speed no backs are seen";
}

TEST(HandFlowTest, ADealtWinThatIsKeptIsAnnouncedOnceAndTheDoubleUpOffered) {
    OneCoinTable t;
    t.engine.settings.doubleUp = true;
    t.engine.settings.speed = Speed::kFast;
    t.Deal("JS JD TC 9H 2S", 5);
    for (int i = 0; i < kHandSize; ++i) ToggleHold(t, i);
    t.TakeLog();
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), R"(pause 1
owns 100, double up button shown, message WON 1, credits 100
)");
    EXPECT_TRUE(t.engine.doubleUpOffered);
    t.machine.Stack("2C 3D 5H 8S KC", 5);
    DealDraw(t);
    EXPECT_FALSE(t.engine.doubleUpOffered) << "a deal withdraws it";
}

TEST(HandFlowTest, ALostDrawTakesTheMarkOfTheDealOff) {
    OneCoinTable t;
    t.Deal("JS JD TC 9H 2S 3C 4D 5H 6S 8C", 10);
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(),
              R"(card 0 back, card 1 back, card 2 back, card 3 back, card 4 back, pause 250
card 0 3C, pause 100
card 1 4D, pause 100
card 2 5H, pause 100
card 3 6S, pause 100
card 4 8C, pause 100
line 8 plain 1, message GAME OVER
)");
}

TEST(HandFlowTest, FromAHundredCreditsOnAWinFlashesFiveTimes) {
    OneCoinTable t;
    t.engine.settings.bet = 5;
    t.engine.settings.speed = Speed::kFast;
    t.Deal("9S 9D 9C 2H 3S 9H 4D", 7);
    for (int i = 0; i < 3; ++i) ToggleHold(t, i);
    t.TakeLog();
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), R"(pause 1
owns 220, card 3 9H, pause 1
card 4 4D, pause 1
line 6 plain 15, line 2 won 125, beep exclamation, pause 600
line 2 won, cell dark 125, pause 600
line 2 won 125, beep exclamation, pause 600
line 2 won, cell dark 125, pause 600
line 2 won 125, beep exclamation, pause 600
line 2 won, cell dark 125, pause 600
line 2 won 125, beep exclamation, pause 600
line 2 won, cell dark 125, pause 600
line 2 won 125, beep exclamation, pause 600
line 2 won, cell dark 125, pause 600
line 2 won 125, message WON 125, credits 220
)");

    t.engine.settings.sounds = false;
    t.Deal("9S 9D 9C 2H 3S 9H 4D", 7);
    for (int i = 0; i < 3; ++i) ToggleHold(t, i);
    t.TakeLog();
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), R"(pause 1
owns 340, card 3 9H, pause 1
card 4 4D, pause 1
line 6 plain 15, line 2 won 125, message WON 125, credits 340
)") << "without sounds the line is marked and nothing flashes";
}

TEST(HandFlowTest, ACharlieDrawnIsPaidFiveTimesWithItsPicture) {
    OneCoinTable t("5 Card Charlie", 353);
    t.engine.settings.speed = Speed::kFast;
    t.Deal("2S 2D 3C 3H KS AC", 6);
    for (int i = 0; i < 4; ++i) ToggleHold(t, i);
    t.TakeLog();
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), R"(pause 1
owns 104, card 4 AC, pause 1
line 7 won 5, charlie shown, beep exclamation, pause 600
line 7 won, cell dark 5, pause 600
line 7 won 5, beep exclamation, pause 600
line 7 won, cell dark 5, pause 600
line 7 won 5, beep exclamation, pause 600
line 7 won, cell dark 5, pause 600
line 7 won 5, beep exclamation, pause 600
line 7 won, cell dark 5, pause 600
line 7 won 5, beep exclamation, pause 600
line 7 won, cell dark 5, pause 600
line 7 won 5, message WON 5, credits 104
)");
    EXPECT_EQ(t.engine.statistics.bonusCredits.total, 4 * t.engine.win / 5);
    t.machine.Stack("2C 4D 5H 8S KC", 5);
    DealDraw(t);
    EXPECT_NE(t.TakeLog().find("charlie gone"), std::string::npos);
}

TEST(HandFlowTest, AnErrorThatThePlayerBacksOutOfLeavesTheHandAndIsLoggedOnce) {
    OneCoinTable t;
    t.engine.settings.mode = PlayMode::kWarning;
    t.engine.settings.speed = Speed::kFast;
    t.Deal("JS JD TC 9H 2S 3C 4D 5H 6S 8C", 10);
    t.answers = {"no", "yes"};
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), R"(ask JJ___ is the best play for this hand. Continue?
)");
    EXPECT_FALSE(t.engine.handOver);
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), R"(ask JJ___ is the best play for this hand. Continue?, pause 1
card 0 3C, pause 1
card 1 4D, pause 1
card 2 5H, pause 1
card 3 6S, pause 1
card 4 8C, pause 1
line 8 plain 1, message GAME OVER
)");
    EXPECT_TRUE(t.engine.handOver);
    EXPECT_EQ(t.engine.statistics.playErrors.total, 1);
}

TEST(HandFlowTest, AutoHoldMarksTheBestHoldAndSneakPeakShowsTheFirstDraw) {
    OneCoinTable t("Sneak Peak Poker", 351);
    t.engine.settings.mode = PlayMode::kAutoHold;
    t.engine.settings.speed = Speed::kFast;
    t.machine.Stack("JS JD TC 9H 2S JC 4D 5H", 8);
    DealDraw(t);
    EXPECT_EQ(
        t.TakeSteps(),
        R"(owns 99, double up button gone, message GOOD LUCK!, held 0 off, held 1 off, held 2 off,
held 3 off, held 4 off, credits 99, pause 1
card 0 JS, pause 1
card 1 JD, pause 1
card 2 TC, pause 1
card 3 9H, pause 1
card 4 2S, pause 1
line 10 won 1, beep, message HOLD/DRAW, first draw JC, held 0 on, held 1 on, held 2 off,
held 3 off, held 4 off
)");
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), R"(first draw none, pause 1
owns 101, card 2 JC, pause 1
card 3 4D, pause 1
card 4 5H, pause 1
line 10 plain 1, line 8 won 2, beep, message WON 2, credits 101
)");
}

// Two aces of a double-draw game, held; the first draw leaves them a pair.
struct DoubleDrawTable : OneCoinTable {
    DoubleDrawTable() : OneCoinTable("Dbl Draw Bonus", 318) {
        engine.settings.speed = Speed::kFast;
        Deal("AS AH TC 9H 2S 3C 4C 5D", 8);
        ToggleHold(table, 0);
        ToggleHold(table, 1);
        TakeLog();
    }
};

TEST(HandFlowTest, ASecondDrawTakesTheFirstOnesWinBack) {
    DoubleDrawTable t;
    t.answers = {"yes"};
    DealDraw(t);
    const std::string steps = t.TakeSteps();
    EXPECT_EQ(steps.substr(0, steps.find("owns 99", steps.find("ask"))), R"(pause 1
owns 100, card 2 3C, pause 1
card 3 4C, pause 1
card 4 5D, pause 1
message WON 1, pause 1000
ask Draw Again?: Do you wish to draw again?, line 10 plain 1, )");
    EXPECT_TRUE(t.engine.handOver);
    EXPECT_TRUE(t.answers.empty()) << "asked once";
    EXPECT_EQ(t.engine.statistics.handsPlayed.total, 1);
    EXPECT_EQ(t.engine.settings.credits, 99 + t.engine.win);
    EXPECT_EQ(t.engine.statistics.creditsWon.total, t.engine.win);
}

TEST(HandFlowTest, AFirstDrawStandsWhenThePlayerWantsItOrThinksBetterOfIt) {
    DoubleDrawTable t;
    t.answers = {"no", "yes"};
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), R"(pause 1
owns 100, card 2 3C, pause 1
card 3 4C, pause 1
card 4 5D, pause 1
message WON 1, pause 1000
ask Draw Again?: Do you wish to draw again?,
ask The best play is to draw again. Do you still wish to hold?, message WON 1, credits 100
)");
    EXPECT_EQ(t.engine.settings.credits, 100);

    t.machine.Stack("AS AH TC 9H 2S AC AD 5D", 8);
    DealDraw(t);
    ToggleHold(t, 0);
    ToggleHold(t, 1);
    t.TakeLog();
    t.answers = {"yes", "no"};
    DealDraw(t);
    EXPECT_NE(t.TakeLog().find("ask The best play is to hold. Do you still wish to draw again?\n"),
              std::string::npos);
    EXPECT_EQ(t.engine.win, 80) << "four aces";
}

TEST(HandFlowTest, NobodyIsAskedToDrawAgainWithoutTwoAcesADrawAndAWin) {
    OneCoinTable one("Dbl Draw Bonus", 318);
    one.Deal("AS KH TC 9H 2S AC 4C 5D 6D", 9);
    ToggleHold(one, 0);
    DealDraw(one);
    EXPECT_TRUE(one.engine.handOver);

    OneCoinTable pat("Dbl Draw Bonus", 318);
    pat.Deal("AS AH TC 9H 2S", 5);
    for (int i = 0; i < kHandSize; ++i) ToggleHold(pat, i);
    DealDraw(pat);
    EXPECT_TRUE(pat.engine.handOver);

    OneCoinTable lost("Dbl Draw Bonus", 318);
    lost.Deal("AS AH TC 9H 2S 3C 4C 5D 7D 8S", 10);
    DealDraw(lost);
    EXPECT_TRUE(lost.engine.handOver);
}

TEST(HandFlowTest, WithoutTheCreditsForTheBetDollarsAreAskedForAndNothingIsDealt) {
    OneCoinTable t;
    t.engine.settings.coin = 0.25;
    t.engine.settings.credits = 0;
    t.answers = {"cancel", "3"};
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), "owns 0, ask dollars 100\n");
    DealDraw(t);
    EXPECT_EQ(t.TakeSteps(), "ask dollars 100, owns 12, credits 12\n");
    EXPECT_TRUE(t.engine.handOver);
    EXPECT_EQ(t.engine.settings.dollarIn, 3);
}

TEST(HandFlowTest, AGameWithoutPayLinesSaysSoInsteadOfDealing) {
    OneCoinTable t("No Such Game", 9001);
    DealDraw(t);
    EXPECT_EQ(
        t.TakeLog(),
        "told Missing pay table: Pay table does not exist for this game. Select Options->Edit "
        "Pay Table to create pay table.\n");
    EXPECT_EQ(t.engine.settings.credits, 100);
}

TEST(HandFlowTest, AStoppedCountLeavesTheMetersComplete) {
    OneCoinTable t;
    t.engine.settings.credits = 1000;
    t.engine.win = 500;
    int pauses = 0;
    t.ports.duringInput = [&] { t.engine.stopCountUp = ++pauses == 2; };
    CountUp(t);
    EXPECT_EQ(t.TakeSteps(),
              R"(owns 1000, beep, message PAID 1, credits 501, beep, pause with input 80
message PAID 2, credits 502, beep, pause with input 80
message GAME OVER, credits 1,000
)");
    EXPECT_FALSE(t.engine.countingUp);
}

TEST(HandFlowTest, CreditsNeverWrapWhenTheLargestWinIsCounted) {
    OneCoinTable t;
    t.engine.settings.speed = Speed::kFast;
    t.Deal("AS KS QS JS TS", 5);
    t.engine.settings.credits = 2'147'483'600;
    for (int i = 0; i < kHandSize; ++i) ToggleHold(t, i);
    DealDraw(t);
    EXPECT_EQ(t.engine.settings.credits, 2'147'483'647);
}

}  // namespace
