// Whole hands at the machine's table by mouse and by keyboard.
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMenu>
#include <QTimer>

#include "tests/ui/TestProgram.h"
#include "ui/machine/MachineKeys.h"

namespace {

// Two jacks, and a third among the cards drawn when they are held: 15 credits.
constexpr std::string_view kJacks = "JS JD TC 9H 2S JC 4C 5C";

class MachinePlayTest : public ProgramTest {
  protected:
    MachineSettings& Settings() { return program->engine.settings; }
};

TEST_F(MachinePlayTest, ANewcomerIsToldTheKeysUntilThreeHandsArePlayedAndNeverAgain) {
    TestProgram& p = Start();
    for (int hand = 0; hand < 3; ++hand) {
        EXPECT_TRUE(p.ShownScene().hint.starts_with("D: deal")) << hand;
        p.Key(Qt::Key_D);
        EXPECT_EQ(p.ShownScene().hint, "1 to 5: hold a card   D: draw");
        p.Key(Qt::Key_D);
    }
    EXPECT_EQ(p.ShownScene().hint, "");
    EXPECT_EQ(Start().ShownScene().hint, "");
}

TEST_F(MachinePlayTest, AHandIsPlayedByMouseInASmallWindowAndInALargeOne) {
    for (const QSize window : {QSize(800, 700), QSize(2300, 1500)}) {
        TestProgram& p = Start();
        p.frame->resize(window);
        EXPECT_EQ(p.view->fit.zoom > 2, window.width() > 2000);
        const std::string credits = p.ShownScene().credits;
        p.Stack(kJacks, 8);
        p.Click(p.Places().deal);
        EXPECT_EQ(p.Message(), "HOLD/DRAW");
        p.Click(p.Places().cards[0]);
        p.Click(p.Places().holdButtons[1]);
        EXPECT_EQ(p.Held(), 0b11000);
        p.Click(p.Places().deal);
        EXPECT_EQ(p.HandText(), "JS JD JC 4C 5C");
        EXPECT_EQ(p.Meters(), "WON 15, bet 5, credits " + std::to_string(std::stoi(credits) + 10));
        const QRect panel = p.Places().PayTablePanel();
        EXPECT_EQ(Told([&] {
                      p.DoubleClick({panel.bottomRight(), QSize(1, 1)});
                  }),
                  "Pay Table Manager");
    }
}

TEST_F(MachinePlayTest, AHandIsPlayedByRightPressesOnTheClothWithKeysAndClicksForItsCards) {
    TestProgram& p = Start();
    p.Stack(kNothing, 5);
    p.RightPress(p.Places().cards[2]);
    EXPECT_EQ(p.Message(), "HOLD/DRAW");
    p.Key(Qt::Key_3);
    EXPECT_EQ(p.Held(), 0b00100);
    p.Click(p.Places().cards[2]);
    EXPECT_EQ(p.Held(), 0);
    p.DoubleClick(p.Places().cards[2]);
    EXPECT_EQ(p.Held(), 0) << "two quick presses are two presses";
    p.RightPress(p.Places().betValue.rect);
    p.RightPress(p.Places().betLabel.rect);
    EXPECT_FALSE(p.engine.handOver) << "the bet meter keeps still during a hand";
    p.RightPress(p.Places().namePanel);
    EXPECT_TRUE(p.engine.handOver);
}

TEST_F(MachinePlayTest, AButtonIsDownUnderThePointerAloneAndActsWhereItIsLetGo) {
    TestProgram& p = Start();
    const ButtonLook& deal = p.ShownScene().buttons.deal;
    p.Press(p.Places().deal);
    p.MoveTo(p.Places().betOne);
    EXPECT_EQ(deal, ButtonLook::kReleased);
    EXPECT_EQ(p.ShownScene().buttons.betOne, ButtonLook::kReleased) << "was not pressed";
    p.MoveTo(p.Places().deal);
    EXPECT_EQ(deal, ButtonLook::kPressed);
    p.Release(p.Places().coin);
    EXPECT_TRUE(deal == ButtonLook::kReleased && p.engine.handOver) << "not dealt";
    p.MoveTo(p.Places().deal);
    EXPECT_EQ(deal, ButtonLook::kReleased) << "nothing is held down";
    p.Deal(kNothing);
    p.Press(p.Places().holdButtons[3]);
    EXPECT_EQ(p.ShownScene().places[3].holdButton, ButtonLook::kPressed);
    EXPECT_EQ(p.Held(), 0b00010) << "held by the press already";
    p.Release(p.Places().coin);
}

TEST_F(MachinePlayTest, AKeyHoldsItsButtonDownAndActsOnceWhenItIsLetGo) {
    TestProgram& p = Start();
    const Scene& scene = p.ShownScene();
    const auto down = [&](Qt::Key key, const ButtonLook& button, bool goesDown = true) {
        QTest::keyPress(p.view, key);
        EXPECT_EQ(button == ButtonLook::kPressed, goesDown) << key;
        QKeyEvent repeat(QEvent::KeyPress, key, {}, {}, true);
        QApplication::sendEvent(p.view, &repeat);
        QTest::keyRelease(p.view, key);
        EXPECT_NE(button, ButtonLook::kPressed) << key;
    };
    down(Qt::Key_B, scene.buttons.betOne);
    EXPECT_EQ(scene.bet, "1") << "one step from five";
    down(Qt::Key_M, scene.buttons.maxBet);
    down(Qt::Key_3, scene.places[2].holdButton, false);
    EXPECT_TRUE(scene.places[2].holdDimmed);
    p.Stack(kNothing, 5);
    down(Qt::Key_Space, scene.buttons.deal);
    EXPECT_TRUE(scene.buttons.betsDimmed && !scene.places[2].holdDimmed);
    down(Qt::Key_3, scene.places[2].holdButton);
    EXPECT_EQ(p.Held(), 0b00100);
    down(Qt::Key_B, scene.buttons.betOne, false);
    QTest::keyPress(p.view, Qt::Key_D);
    p.view->clearFocus();
    EXPECT_EQ(scene.buttons.deal, ButtonLook::kReleased);
    QTest::keyRelease(p.view, Qt::Key_D);
    EXPECT_FALSE(p.engine.handOver) << "another window came between";
}

TEST_F(MachinePlayTest, BetsAreMadeWithButtonsMeterAndKeys) {
    TestProgram& p = Start();
    const MachineLayout& places = p.Places();
    for (const QRect& place : {places.betOne, places.betValue.rect, places.betLabel.rect}) {
        p.Click(place);
    }
    p.Key(Qt::Key_B);
    EXPECT_EQ(p.ShownScene().bet, "4");
    const std::function<void()> mostBets[] = {[&] { p.Click(places.maxBet); },
                                              [&] { p.Key(Qt::Key_M); },
                                              [&] { p.RightPress(places.betValue.rect); }};
    for (const auto& betMost : mostBets) {
        betMost();
        EXPECT_EQ(p.ShownScene().bet, "5");
        p.Key(Qt::Key_B);
    }
}

TEST_F(MachinePlayTest, TheCreditMeterTurnsToCashAndPaysOutByKeysDuringAHandToo) {
    TestProgram& p = Start();
    p.Click(p.Places().creditValue.rect);
    EXPECT_EQ(p.Meters(), "PRESS DEAL, bet $5.00, credits $100.00");
    p.Click(p.Places().creditLabel.rect);
    EXPECT_EQ(p.ShownScene().credits, "100");
    p.Deal(kNothing);
    p.Key(Qt::Key_C);
    p.Click(p.Places().creditValue.rect);
    EXPECT_EQ(p.ShownScene().credits, "$95.00") << "the meter waits for the end of the hand";
    p.Key(Qt::Key_O);
    EXPECT_EQ(p.Message(), "Paid $95.00");
    EXPECT_FALSE(p.engine.handOver) << "the hand goes on";
    p.Key(Qt::Key_D);
    Settings().credits = 7;
    p.RightPress(p.Places().creditValue.rect);
    EXPECT_EQ(p.Message(), "Paid $7.00");
}

TEST_F(MachinePlayTest, APressDuringACountUpOnlyStopsItWithAllThatBelongsToIt) {
    Set("Speed", "2");
    TestProgram& p = Start();
    const QRect& deal = p.Places().deal;
    const auto repeat = [&](QEvent::Type type) {
        QKeyEvent event(type, Qt::Key_D, Qt::NoModifier, "d", true);
        QApplication::sendEvent(p.view, &event);
    };
    const auto doublePress = [&](Qt::MouseButton button) {
        QTest::mouseDClick(p.view, button, {}, deal.center());
        QTest::mouseRelease(p.view, button, {}, deal.center());
    };
    struct Case {
        std::function<void()> before, during, after;
    };
    const auto none = [] {};
    const Case cases[] = {
        {none, [&] { p.Key(Qt::Key_D); }, none},
        {none, [&] { p.Key(Qt::Key_X); }, none},
        {none, [&] { QTest::keyPress(p.view, Qt::Key_D); },
         [&] {
             repeat(QEvent::KeyRelease);
             repeat(QEvent::KeyPress);
             QTest::keyRelease(p.view, Qt::Key_D);
         }},
        {[&] { QTest::keyPress(p.view, Qt::Key_Space); }, [&] { repeat(QEvent::KeyPress); },
         [&] { QTest::keyRelease(p.view, Qt::Key_D); }},
        {none, [&] { p.Press(deal); },
         [&] {
             p.Release(deal);
             doublePress(Qt::LeftButton);
         }},
        {[&] { p.Press(deal); }, [&] { p.Release(deal); }, none},
        {none, [&] { p.RightPress(deal); }, [&] { doublePress(Qt::RightButton); }},
        {none, [&] { p.document->Run(kCashOut); }, none},
        {none, [&] { emit p.frame->findChild<QMenu*>("coinMenu")->aboutToShow(); }, none},
    };
    for (const Case& press : cases) {
        const int credits = Settings().credits;
        p.Deal(kJacksAndTens);
        p.HoldAll();
        press.before();
        p.clock.pausesWithInput = 0;
        p.clock.inPauseWithInput = press.during;
        p.Key(Qt::Key_D);
        EXPECT_EQ(p.clock.pausesWithInput, 1) << &press - cases;
        press.after();
        EXPECT_EQ(p.Message(), "WON 10") << &press - cases;
        EXPECT_EQ(Settings().credits, credits + 5) << &press - cases;
        EXPECT_TRUE(p.engine.doubleUpOffered && p.engine.handOver) << &press - cases;
    }
    p.Key(Qt::Key_D);
    EXPECT_FALSE(p.engine.handOver) << "the next press is one";
}

TEST_F(MachinePlayTest, APressFromBeforeTheCountUpIsUsedUpByIt) {
    Set("Speed", "2");
    TestProgram& p = Start();
    for (const bool byKey : {true, false}) {
        p.Deal(kJacksAndTens);
        p.HoldAll();
        p.clock.pausesWithInput = 0;
        p.clock.inPause = [&] { byKey ? p.Key(Qt::Key_D) : p.Press(p.Places().deal); };
        p.Key(Qt::Key_D);
        p.Release(p.Places().deal);
        EXPECT_EQ(p.clock.pausesWithInput, 1) << "the first step is shown";
        EXPECT_EQ(p.Message(), "WON 10");
        EXPECT_TRUE(p.engine.doubleUpOffered) << "it was not seen when the press was made";
    }
}

TEST_F(MachinePlayTest, DuringTheDealAllHoldsAndOneDrawWaitAndNothingBehindIt) {
    Set("Speed", "2");
    TestProgram& p = Start();
    p.Stack(kJacks, 8);
    p.clock.inPause = [&] {
        p.Key(Qt::Key_1);
        p.Click(p.Places().holdButtons[4]);
        p.Click(p.Places().holdButtons[4]);
        QTest::keyPress(p.view, Qt::Key_2);
        p.Key(Qt::Key_C);
        p.Key(Qt::Key_D);
        for (int i = 0; i < 100; ++i) {
            p.Keys({Qt::Key_D, Qt::Key_C, Qt::Key_3});
            p.RightPress(p.Places().coin);
            p.Click(p.Places().deal);
        }
        p.Press(p.Places().deal);
        EXPECT_EQ(p.document->Actions().WaitingPresses(), 8) << "releases counted";
        EXPECT_EQ(p.Held(), 0);
    };
    p.Key(Qt::Key_D);
    QTest::keyRelease(p.view, Qt::Key_2);
    p.Release(p.Places().deal);
    EXPECT_EQ(p.HandText(), "JS JD JC 4C 5C");
    EXPECT_EQ(p.Meters(), "PAID $15.00, bet $5.00, credits $110.00");

    p.Stack("JS JD TC 9H 2S JC 4C 5C 6C", 9);
    p.clock.inPause = [&] {
        p.Press(p.Places().cards[0]);
        p.Release(p.Places().deal);
        p.Keys({Qt::Key_2, Qt::Key_D});
    };
    p.Key(Qt::Key_D);
    EXPECT_EQ(p.HandText(), "JS JC 4C 5C 6C") << "let go on DEAL, a hold is a draw as well";

    p.clock.inPause = [&] {
        p.Press(p.Places().cards[0]);
        p.Key(Qt::Key_D);
        p.Release(p.Places().deal);
    };
    p.Key(Qt::Key_D);
    EXPECT_TRUE(p.engine.handOver) << "two draws would deal again";

    p.engine.fixedHand = true;
    p.Key(Qt::Key_D);
    p.clock.inPause = [&] { p.Keys({Qt::Key_4, Qt::Key_5, Qt::Key_C, Qt::Key_C, Qt::Key_D}); };
    p.Key(Qt::Key_D);
    EXPECT_EQ(p.Held(), 0b00011) << "of a fixed hand too; behind what is refused all is";
    p.engine.fixedHand = false;
    p.Key(Qt::Key_D);
}

TEST_F(MachinePlayTest, OtherwiseOnePressWaitsAndWhatIsRefusedIsNoneLaterEither) {
    Set("Speed", "2");
    TestProgram& p = Start();
    const auto draw = [&](const std::function<void()>& during) {
        p.Deal(kNothing);
        p.clock.inPause = during;
        p.Key(Qt::Key_D);
    };
    draw([&] {
        p.Keys({Qt::Key_B, Qt::Key_B, Qt::Key_D});
        p.Click(p.Places().betOne);
        p.document->Run(kCashOut);
        QTest::keyPress(p.view, Qt::Key_D);
        p.Press(p.Places().deal);
        EXPECT_EQ(p.document->Actions().WaitingPresses(), 1);
    });
    p.Release(p.Places().deal);
    QTest::keyRelease(p.view, Qt::Key_D);
    EXPECT_EQ(p.Meters(), "GAME OVER, bet 1, credits 95");

    p.Deal(kNothing);
    p.Press(p.Places().deal);
    p.clock.inPause = [&] {
        p.Key(Qt::Key_B);
        p.Release(p.Places().deal);
        EXPECT_EQ(p.ShownScene().buttons.deal, ButtonLook::kReleased);
    };
    p.Key(Qt::Key_D);
    EXPECT_EQ(p.Meters(), "GAME OVER, bet 2, credits 94") << "pressed before, let go too late";

    draw([&] {
        p.Key(Qt::Key_Shift);
        QTest::keyPress(p.view, Qt::Key_D);
        QFocusEvent lost(QEvent::FocusOut);
        QApplication::sendEvent(p.view, &lost);
        p.Key(Qt::Key_B);
    });
    EXPECT_EQ(p.Meters(), "GAME OVER, bet 3, credits 92") << "the key will be let go elsewhere";
    draw([&] {
        p.Press(p.Places().namePanel);
        QTest::keyPress(p.view, Qt::Key_D);
        p.Release(p.Places().betOne);
    });
    EXPECT_EQ(p.Meters(), "GAME OVER, bet 4, credits 89") << "one press from down to up";
}

TEST_F(MachinePlayTest, TheWindowsOwnPausesLastAndGoOnPainting) {
    Set("Speed", "2");
    TestProgram& p = Start(true);
    p.Stack(kNothing, 5);
    QTimer::singleShot(300, [&] { p.Key(Qt::Key_2); });
    QElapsedTimer time;
    time.start();
    p.Key(Qt::Key_D);
    EXPECT_GE(time.elapsed(), 740) << "250 milliseconds, and 100 for each card";
    EXPECT_EQ(p.Held(), 0b01000);
}

TEST_F(MachinePlayTest, OnlyWhatIsPressedAtTheTableIsInput) {
    TestProgram& p = Start();
    QTest::keyRelease(p.view, Qt::Key_D);
    EXPECT_TRUE(p.engine.handOver) << "let go after a dialog has closed";
    QTest::keyPress(p.view, Qt::Key_D);
    p.Press(p.Places().deal);
    EXPECT_EQ(Told([&] { p.Key(Qt::Key_S); }), "Game Play Analysis");
    EXPECT_EQ(p.frame->focusWidget(), p.view);
    QTest::keyRelease(p.view, Qt::Key_D);
    p.Release(p.Places().deal);
    EXPECT_TRUE(p.engine.handOver) << "the presses were for something before the dialog";
    QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_D, Qt::NoModifier, "d", true);
    QTest::keyPress(p.view, Qt::Key_D);
    QApplication::sendEvent(p.view, &repeated);
    EXPECT_TRUE(p.engine.handOver) << "it is still down";
    QTest::keyRelease(p.view, Qt::Key_D);
    EXPECT_FALSE(p.engine.handOver);
    p.Key(Qt::Key_D, Qt::ControlModifier);
    p.Key(Qt::Key_D, Qt::AltModifier);
    EXPECT_FALSE(p.engine.handOver) << "a shortcut is no key of the table";
}

TEST_F(MachinePlayTest, DigitsArePlacesOfTheMainRowAndLettersAreFoundWithoutLatinOnes) {
    EXPECT_EQ(TableKeyOf(Qt::Key_Exclam, 10), Qt::Key_1) << "with Shift";
    EXPECT_EQ(TableKeyOf(Qt::Key_Eacute, 11), Qt::Key_2) << "on a French keyboard";
    EXPECT_EQ(TableKeyOf(Qt::Key_Agrave, 19), Qt::Key_0);
    EXPECT_EQ(TableKeyOf(0x412, 40), Qt::Key_D) << "on a Russian keyboard";
    EXPECT_EQ(TableKeyOf(0x42F, 52), Qt::Key_Z);
    EXPECT_EQ(TableKeyOf(0x11E, 26), 0x11E) << "a Turkish letter is Latin";
    EXPECT_EQ(TableKeyOf(Qt::Key_A, 24), Qt::Key_A) << "where an American keyboard has Q";
    EXPECT_EQ(TableKeyOf(Qt::Key_4, 83), Qt::Key_4) << "of the keypad";
    EXPECT_EQ(TableKeyOf(Qt::Key_Left, 113), Qt::Key_Left);
    EXPECT_EQ(TableKeyOf(Qt::Key_D, 0), Qt::Key_D) << "on another platform";
}

}  // namespace
