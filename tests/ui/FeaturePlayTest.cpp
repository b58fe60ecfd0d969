// Double up, the features, Pick 'Em and fixed hands, played at the table.
#include "tests/ui/TestProgram.h"

namespace {

constexpr std::string_view kAllRed = "2D 4D 6H 8H TD";
constexpr int kSpinDraw = 2;
constexpr int kTargetDraw = 149;

class FeaturePlayTest : public ProgramTest {
  protected:
    TestProgram& p() { return *program; }
    int Credits() const { return program->engine.settings.credits; }

    // Ends a hand after which the feature waits.
    TestProgram& StartFeature(const char* flag, std::string_view cards, int draw = 0) {
        SetInTable("Jacks or Better", flag, "1");
        TestProgram& p = Start();
        p.DecideFeatures(
            [draw](CombinedRandom random) { return draw == 0 || random.IRandom(1, 150) == draw; });
        p.Deal(cards);
        p.HoldAll();
        p.Key(Qt::Key_D);
        EXPECT_EQ(Credits(), 95);
        return p;
    }

    // Won with the cards dealt.
    void WinWithTwoPair() {
        program->Deal(kJacksAndTens);
        program->HoldAll();
        program->Key(Qt::Key_D);
        ASSERT_EQ(program->Message(), "WON 10");
    }

    // All that deals or bets otherwise.
    void ExpectMachineKeepsStill() {
        const std::string hand = p().HandText();
        for (const QRect& place : {p().Places().deal, p().Places().betOne, p().Places().maxBet,
                                   p().Places().creditValue.rect, p().Places().betValue.rect}) {
            p().Click(place);
            p().RightPress(place);
        }
        p().DoubleClick(p().Places().namePanel);
        p().Keys({Qt::Key_D, Qt::Key_Space, Qt::Key_M, Qt::Key_O, Qt::Key_C, Qt::Key_A, Qt::Key_0,
                  Qt::Key_T, Qt::Key_E, Qt::Key_H});
        EXPECT_EQ(p().engine.settings.bet, 5);
        EXPECT_EQ(Credits(), 95);
        EXPECT_EQ(p().HandText(), hand);
    }
};

TEST_F(FeaturePlayTest, TheWheelIsSpunByItsButtonOrKeyS) {
    for (const bool byKey : {false, true}) {
        Set("Credits", "100");
        TestProgram& p = StartFeature("SpinBonus", kNothing, kSpinDraw);
        ExpectMachineKeepsStill();
        byKey ? p.Key(Qt::Key_S) : p.Click(p.Places().spinButton);
        EXPECT_EQ(p.engine.statistics.bonusTries.total, 1);
        p.Key(Qt::Key_D);
        EXPECT_FALSE(p.engine.handOver) << "DEAL deals again";
    }
}

TEST_F(FeaturePlayTest, ThreeTargetsAreShotByMouseAndKeys) {
    TestProgram& p = StartFeature("TgtBonus", kNothing, kTargetDraw);
    ExpectMachineKeepsStill();
    const auto& values = p.document->PlayersSeat().target.values;
    p.Click(p.Places().targets[1]);
    p.Keys({Qt::Key_2, Qt::Key_5});
    EXPECT_EQ(p.document->PlayersSeat().target.shots, 2) << "one shot a target";
    p.Key(Qt::Key_1, Qt::KeypadModifier);
    EXPECT_EQ(Credits(), 95 + values[0] + values[1] + values[4]);
}

TEST_F(FeaturePlayTest, RedOrBlackIsGuessedByMouseAndKeysUntilAGuessIsWrong) {
    TestProgram& p = StartFeature("RBBonus", kAllRed);
    ExpectMachineKeepsStill();
    p.Click(p.Places().blackPanel);
    EXPECT_EQ(p.ShownScene().redBlack.lit, CardColour::kBlack) << "the first guess is right";
    p.DecideFeatures([](CombinedRandom random) {
        const bool red = random.IRandom(2, 1000) % 2 == 1;
        return red && random.IRandom(2, 1000) % 2 == 0;
    });
    p.Key(Qt::Key_R);
    EXPECT_EQ(p.Message(), "10 Bonus Credits");
    p.Click(p.Places().redPanel);
    EXPECT_EQ(p.ShownScene().credits, "105");
    p.Key(Qt::Key_B);
    EXPECT_EQ(p.engine.settings.bet, 1) << "a bet again";
}

TEST_F(FeaturePlayTest, WhatWaitsIsPaidWhenItsGameIsLeft) {
    for (const int command : {int{kExit}, int{kFileNew}}) {
        Set("Credits", "100");
        TestProgram& p = StartFeature("RBBonus", kAllRed);
        Answer({Press(Qt::Key_Escape)}, [&] { p.Choose(kFixedHand); });
        EXPECT_TRUE(p.engine.redBlackPending);
        if (command == kFileNew) {
            Answer({Press(Qt::Key_Return)}, [&] { p.Choose(command); });
        } else {
            p.Choose(command);
            QApplication::processEvents();
        }
        EXPECT_EQ(Stored("Credits"), "100") << command << ": 95, and a first guess is right";
    }
}

TEST_F(FeaturePlayTest, ADoubleUpIsWonAgainAndCollectedByMouse) {
    TestProgram& p = Start();
    WinWithTwoPair();
    p.DecideNextDuel(1);
    p.Press(p.Places().doubleUp);
    EXPECT_EQ(p.ShownScene().buttons.doubleUp, ButtonLook::kPressed);
    p.Release(p.Places().doubleUp);
    p.Click(p.Places().cards[0]);
    p.Click(p.Places().deal);
    p.RightPress(p.Places().namePanel);
    EXPECT_EQ(p.engine.statistics.doubleUpTries.total, 0) << "the dealer's card is none to pick";
    p.Press(p.Places().holdButtons[1]);
    EXPECT_EQ(p.ShownScene().places[1].holdButton, ButtonLook::kPressed);
    Answer({[&](QDialog& dialog) {
               EXPECT_EQ(dynamic_cast<QMessageBox&>(dialog).text(),
                         "You doubled up to 20. Double up again to 40?");
               p.DecideNextDuel(1);
               Choose(QMessageBox::Yes)(dialog);
           }},
           [&] { p.Release(p.Places().holdButtons[1]); });
    Answer({Choose(QMessageBox::No)}, [&] { p.Click(p.Places().cards[1]); });
    EXPECT_EQ(p.Meters(), "30 Bonus Credits, bet 5, credits 135") << "95, 10 won, 30 on top";
}

TEST_F(FeaturePlayTest, APressFromBeforeAQuestionIsNoneAfterIt) {
    TestProgram& p = Start();
    WinWithTwoPair();
    p.DecideNextDuel(1);
    p.Key(Qt::Key_U);
    p.clock.inPause = [&] { p.Click(p.Places().cards[1]); };
    Answer({Choose(QMessageBox::Yes)}, [&] { p.Click(p.Places().cards[1]); });
    EXPECT_EQ(p.engine.statistics.doubleUpTries.total, 1) << "the next one waits";
}

TEST_F(FeaturePlayTest, ADoubleUpIsPlayedByKeysAndLost) {
    TestProgram& p = Start();
    WinWithTwoPair();
    p.DecideNextDuel(-1);
    p.Keys({Qt::Key_U, Qt::Key_1, Qt::Key_D, Qt::Key_Space, Qt::Key_O, Qt::Key_U, Qt::Key_C});
    EXPECT_EQ(p.engine.statistics.doubleUpTries.total, 0) << "2 to 5 only";
    EXPECT_EQ(Credits(), 105);
    p.Key(Qt::Key_2, Qt::KeypadModifier);
    EXPECT_EQ(p.Meters(), "0 Bonus Credits, bet 5, credits 95");
}

TEST_F(FeaturePlayTest, APileIsChosenByButtonPlaceOrArrowKey) {
    TestProgram& p = Start("Pick Em Poker", 350);
    const MachineLayout& places = p.Places();
    for (const bool right : {false, true}) {
        const std::size_t pile = right ? 4 : 3;
        for (const std::function<void()>& choose : std::vector<std::function<void()>>{
                 [&] { p.Click(places.holdButtons[pile]); }, [&] { p.Click(places.cards[pile]); },
                 [&] { p.Key(right ? Qt::Key_Right : Qt::Key_Left); }}) {
            p.Deal("KC KD 9D AH 2S KS JH 3C", 8);
            choose();
            EXPECT_EQ(p.HandText(), right ? "KC KD KS JH 3C" : "KC KD 9D AH 2S");
        }
    }
}

TEST_F(FeaturePlayTest, OnlyThePilesRespondDuringAPickEmHand) {
    TestProgram& p = Start("Pick Em Poker", 350);
    p.RightPress(p.Places().coin);
    ASSERT_FALSE(p.engine.handOver);
    p.Click(p.Places().deal);
    p.RightPress(p.Places().deal);
    for (const std::size_t position : {0U, 2U}) {
        p.Click(p.Places().cards[position]);
        p.Click(p.Places().holdButtons[position]);
    }
    p.Keys({Qt::Key_D, Qt::Key_Space, Qt::Key_1, Qt::Key_4, Qt::Key_5, Qt::Key_B, Qt::Key_M});
    p.Press(p.Places().holdButtons[3]);
    EXPECT_EQ(p.ShownScene().places[3].holdButton, ButtonLook::kPressed);
    p.Release(p.Places().coin);
    EXPECT_FALSE(p.engine.handOver);
    EXPECT_EQ(p.Held(), 0);
}

TEST_F(FeaturePlayTest, AFixedHandIsComposedByKeyAOrARightPressOnDealInPracticeToo) {
    TestProgram& p = Start();
    Answer({ClickOn("clear"), ClickOn("card1-1"), ClickOn("ok")}, [&] { p.Key(Qt::Key_A); });
    EXPECT_EQ(p.HandText().substr(0, 2), "AS");
    Answer({ClickOn("clear"), ClickOn("card4-13"), ClickOn("ok")},
           [&] { p.RightPress(p.Places().deal); });
    EXPECT_EQ(p.HandText().substr(0, 2), "KD");
    p.Choose(kFixedHand);
    Answer({ClickOn("ok")}, [&] { p.RightPress(p.Places().deal); });
    EXPECT_TRUE(p.engine.fixedHand);
    EXPECT_EQ(Credits(), 100);
}

}  // namespace
