#include "game/flows/HandFlow.h"

#include <gtest/gtest.h>

#include "game/seat/Wins.h"
#include "tests/game/FakePorts.h"

namespace {

struct HandFlowTest : testing::Test, OneCoinTable {};

TEST_F(HandFlowTest, AHandIsDealtHeldDrawnPaidAndCountedUp) {
    engine.settings.speed = Speed::kNormal;
    Deal("JS 7D TC 9H 2S JC 7H 4D");
    EXPECT_EQ(TakeSteps(),
              "credits 99, message GOOD LUCK!, pause 250, card 0 JS, pause 100, card 1 7D, "
              "pause 100, card 2 TC, pause 100, card 3 9H, pause 100, card 4 2S, pause 100, "
              "message HOLD/DRAW");
    EXPECT_TRUE(engine.handInProgress);

    for (const int position : {0, 1, 4, 4}) ToggleHold(seat, position);
    DealDraw(seat);
    EXPECT_EQ(TakeSteps(),
              "held 0 on, held 1 on, held 4 on, held 4 off, card 2 back, card 3 back, "
              "card 4 back, pause 250, card 2 JC, pause 100, card 3 7H, pause 100, card 4 4D, "
              "pause 100, line 7 won 2, beep, message WON 2, beep, message PAID 1, credits 100, "
              "beep, pause 80, message PAID 2, credits 101, beep, pause 80");
    EXPECT_FALSE(engine.handInProgress);

    Deal("2C 3D 5H 8S KC");
    EXPECT_TRUE(TakeSteps().starts_with(
        "line 7 plain, credits 100, message GOOD LUCK!, held 0 off, card 0 back, "));
    engine.settings.speed = Speed::kFast;
    Draw(0);
    EXPECT_EQ(TakeLog().find("back"), std::string::npos) << "at full speed no backs are seen";
}

TEST_F(HandFlowTest, ADealtWinThatIsKeptIsAnnouncedOnceAndTheDoubleUpOffered) {
    engine.settings.doubleUp = true;
    Deal("JS JD TC 9H 2S");
    Draw(kStandPat);
    EXPECT_EQ(TakeSteps(), "pause 1, double up button shown, message WON 1, credits 100");
    Deal("2C 3D 5H 8S KC");
    EXPECT_FALSE(engine.doubleUpOffered) << "a deal withdraws it";
}

TEST_F(HandFlowTest, FromAHundredCreditsOnAWinFlashesFiveTimesIfItIsHeard) {
    engine.handOver = false;  // as after a deal
    const auto announced = [&](int pay) {
        ClearLine(seat, 2);
        TakeLog();
        engine.payTable.lines[2].payout = pay;
        AnnounceWin(seat, 2);
        return TakeSteps();
    };
    EXPECT_EQ(announced(99), "line 2 won 99, beep");
    std::string flashes = "line 2 won 100";
    for (int i = 0; i < 5; ++i) {
        flashes +=
            ", beep exclamation, pause 600, line 2 won, cell dark 100, pause 600, line 2 won 100";
    }
    EXPECT_EQ(announced(100), flashes);
    engine.settings.sounds = false;
    EXPECT_EQ(announced(100), "line 2 won 100");
}

TEST_F(HandFlowTest, ACountUpBeepsWheneverItHasPaidTheBet) {
    for (engine.settings.bet = 2; engine.settings.bet <= 5; ++engine.settings.bet) {
        for (const int over : {-1, 0}) {
            engine.win = 2 * engine.settings.bet + over;
            log.clear();
            CountUp(seat);
            EXPECT_EQ(std::ranges::count(log, "beep"), over < 0 ? 2 : 3) << engine.win;
        }
    }
}

TEST_F(HandFlowTest, AStoppedCountLeavesTheMetersComplete) {
    engine.settings.credits = 1000;
    engine.win = 500;
    int pauses = 0;
    ports.duringInput = [&] {
        engine.stopCountUp = ++pauses == 2;
        EXPECT_EQ(seat.scene.credits, pauses == 1 ? "501" : "502");
    };
    CountUp(seat);
    EXPECT_EQ(pauses, 2);
    EXPECT_EQ(seat.scene.credits, "1,000");
    EXPECT_EQ(seat.scene.message, "GAME OVER");
}

TEST_F(HandFlowTest, ACharlieDrawnIsPaidFiveTimesWithItsPicture) {
    machine.Play("5 Card Charlie", 353);
    Deal("2S 2D 3C 3H KS AC");
    bool pictured = false;  // while its line flashes, and when the next hand begins
    ports.looks = [&](const Scene&, const Scene& now) {
        if (now.lines[7].mark == LineMark::kWonCellDark) pictured = now.charlie;
        if (now.message == "GOOD LUCK!") pictured = now.charlie;
    };
    Draw(0b11110);
    EXPECT_NE(TakeSteps().find("line 7 won 5, beep exclamation"), std::string::npos);
    EXPECT_TRUE(pictured);
    EXPECT_EQ(engine.settings.credits, 104);
    Deal("2C 4D 5H 8S KC");
    EXPECT_FALSE(pictured) << "from the bet on";
}

TEST_F(HandFlowTest, AnErrorThatThePlayerBacksOutOfLeavesTheHandAndIsLoggedOnce) {
    engine.settings.mode = PlayMode::kWarning;
    Deal("JS JD TC 9H 2S 3C 4D 5H 6S 8C");
    answers = {"no", "yes"};
    Draw(0);
    EXPECT_EQ(TakeLog(), "ask JJ___ is the best play for this hand. Continue?\n");
    Draw(0);
    EXPECT_NE(TakeLog().find("line 8 plain\nmessage GAME OVER\n"), std::string::npos);
    EXPECT_EQ(engine.statistics.playErrors.total, 1);
}

TEST_F(HandFlowTest, AutoHoldMarksTheBestHoldAndSneakPeakShowsTheFirstDraw) {
    machine.Play("Sneak Peak Poker", 351);
    engine.settings.mode = PlayMode::kAutoHold;
    Deal("JS JD TC 9H 2S JC 4D 5H");
    EXPECT_TRUE(TakeLog().ends_with("held 0 on\nheld 1 on\nfirst draw JC\nmessage HOLD/DRAW\n"));
    DealDraw(seat);
    EXPECT_TRUE(TakeLog().starts_with("first draw none\npause 1\n"));
}

// Two aces of a double-draw game; the first draw leaves them a pair.
struct DoubleDrawTest : HandFlowTest {
    DoubleDrawTest() {
        machine.Play("Dbl Draw Bonus", 318);
        Deal("AS AH TC 9H 2S 3C 4C 5D");
    }
};

TEST_F(DoubleDrawTest, ASecondDrawTakesTheFirstOnesWinBack) {
    answers = {"yes"};
    Draw(0b11000);
    const std::string steps = TakeLog();
    EXPECT_NE(steps.find("WON 1\npause 1000\nask Draw Again?: Do you wish to draw again?\n"
                         "line 10 plain\n"),
              std::string::npos);
    EXPECT_NE(steps.find("line 10 won 1\nmessage WON 1\n", steps.find("ask")), std::string::npos);
    EXPECT_EQ(engine.settings.credits, 99 + engine.win);
    EXPECT_EQ(machine.Counted(), "CreditsPlayed 1, CreditsWon 1, HandsPlayed 1, HandsWon 1");
}

TEST_F(DoubleDrawTest, AfterABackedOutSecondDrawNoLineIsMarked) {
    Draw(kStandPat);
    engine.settings.mode = PlayMode::kWarning;
    Deal("AS AH TC 9H 2S AC AD 5D 6D");
    answers = {"yes", "yes", "no"};  // an error; a second draw; the error again
    Draw(0b10000);
    EXPECT_TRUE(answers.empty()) << TakeLog();
    EXPECT_FALSE(engine.handOver);
    EXPECT_TRUE(std::ranges::all_of(seat.scene.lines, [](const LineLook& line) {
        return line == LineLook{};
    })) << "the first draw's win is taken back";
    EXPECT_EQ(seat.scene.message, "GOOD LUCK!");
}

TEST_F(DoubleDrawTest, AFirstDrawStandsWhenThePlayerWantsIt) {
    answers = {"no", "yes"};
    Draw(0b11000);
    EXPECT_NE(TakeLog().find(
                  "ask The best play is to draw again. Do you still wish to hold?\ncredits 100\n"),
              std::string::npos);
    EXPECT_EQ(engine.settings.credits, 100);
}

TEST_F(DoubleDrawTest, NobodyIsAskedToDrawAgainWithoutTwoAcesADrawAndAWin) {
    Draw(kStandPat);
    EXPECT_TRUE(engine.handOver) << "no draw";
    Deal("AS KH TC 9H 2S AC 4C 5D 6D");
    Draw(0b10000);
    EXPECT_TRUE(engine.handOver) << "one ace";
    Deal("AS AH TC 9H 2S 3C 4C 5D 7D 8S");
    Draw(0);
    EXPECT_TRUE(engine.handOver) << "no win";
}

TEST_F(HandFlowTest, WithoutTheCreditsForTheBetDollarsAreAskedForAndNothingIsDealt) {
    engine.settings.coin = 0.25;
    engine.settings.bet = 5;
    engine.settings.credits = 4;
    answers = {"cancel", "3"};
    DealDraw(seat);
    EXPECT_EQ(TakeLog(), "ask dollars 100\n");
    DealDraw(seat);
    EXPECT_EQ(seat.scene.credits, "16");
    EXPECT_TRUE(engine.handOver);
    engine.settings.credits = 5;
    DealDraw(seat);
    EXPECT_EQ(engine.settings.credits, 0) << "the last coins can be bet";
}

TEST_F(HandFlowTest, AGameWithoutPayLinesSaysSoInsteadOfDealing) {
    machine.Play("No Such Game", 9001);
    for (const bool fixed : {false, true}) {
        engine.fixedHand = fixed;
        DealDraw(seat);
        EXPECT_TRUE(TakeLog().starts_with("told Missing pay table: "));
    }
    EXPECT_EQ(engine.settings.credits, 100);
}

struct ShowSceneTest : testing::Test, TestSeat {
    Scene& scene = seat.scene;
};

TEST_F(ShowSceneTest, AWinIsMarkedInTheColumnOfTheBet) {
    engine.settings.bet = 8;  // announced in the fifth column
    Deal("JS JD TC 9H 2S JC 4C 5C");
    EXPECT_EQ(scene.lines[8], (LineLook{LineMark::kWon, 8, 4}));
    Draw(0b11000);
    EXPECT_EQ(scene.lines[8], LineLook{});
    EXPECT_EQ(scene.lines[6], (LineLook{LineMark::kWon, 24, 4}));
    engine.finalLine = 99;
    ShowAtRest(seat);
    EXPECT_TRUE(std::ranges::all_of(scene.lines, [](const auto& line) {
        return line == LineLook{};
    })) << "a line that is not there";
}

TEST_F(ShowSceneTest, ADecidedPickIsShownFaceUpWithItsMark) {
    engine.hand = {1, 2, 3, 4, 5};
    engine.held = {false, false, true, false, false};
    engine.doubleUpPick = engine.doubleUpClosed = true;
    ShowAtRest(seat);
    EXPECT_EQ(scene.places[2].card, 2);
    EXPECT_TRUE(scene.places[2].held);
    engine.doubleUpClosed = false;
    ShowAtRest(seat);
    EXPECT_EQ(scene.places[2].card, kCardBack);
    EXPECT_FALSE(scene.places[2].held);
}

TEST_F(ShowSceneTest, AButtonStaysDownUntilItIsReleasedAndOneThatIsNotThereDoesNotGoDown) {
    PressButton(scene.buttons.deal);
    PressButton(scene.buttons.doubleUp);
    EXPECT_EQ(scene.buttons.doubleUp, ButtonLook::kHidden);
    ShowAtRest(seat);
    EXPECT_EQ(scene.buttons.deal, ButtonLook::kPressed);
    engine.doubleUpPick = true;  // takes it off the table
    ShowAtRest(seat);
    PressButton(scene.places[1].holdButton);
    ReleaseAllButtons(scene);
    EXPECT_EQ(scene.places[1].holdButton, ButtonLook::kReleased);
    EXPECT_EQ(scene.buttons.deal, ButtonLook::kHidden);
}

TEST(HandLightsTest, TheCardsThatMadeTheLineAreLitUntilTheNextDeal) {
    CreditTable t;
    const auto lit = [&] {
        std::string text;
        for (const PlaceLook& place : t.seat.scene.places) text += place.lit ? '1' : '0';
        return text;
    };
    std::vector<std::string> seen;
    std::string atWin;
    t.ports.looks = [&](const Scene&, const Scene& now) {
        if (seen.empty() || seen.back() != lit()) seen.push_back(lit());
        if (atWin.empty() && now.message.starts_with("WON ")) atWin = lit();
    };
    t.Deal("JS JD KC 9H 2S 4C 5C KD 6H");
    t.Draw(0b00100);  // the kings make the line that the jacks had made
    EXPECT_EQ(atWin, "00110") << "before it is counted up";
    t.Deal("JS 3D KC 9H 2S");
    const std::vector<std::string> expected = {"00000", "11000", "01000",
                                               "00000", "00110", "00000"};
    EXPECT_EQ(seen, expected);
    t.Draw(kStandPat);
    t.engine.payTable.charlieBonus = true;
    t.Deal("AS AD 3C 4H 2S");
    EXPECT_EQ(lit(), "11111") << "all five add up to 21";
}

}  // namespace
