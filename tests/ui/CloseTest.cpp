// The end of the program at any moment, and the start after it. What was played is in the file, and
// nothing holds the end up.
#include <QElapsedTimer>
#include <QTimer>

#include "tests/ui/TestProgram.h"

namespace {

constexpr std::string_view kTwoPair = "JS JD TC TH 2S";

class CloseTest : public ProgramTest {
  protected:
    void DealAndHoldAll(std::string_view cards) {
        program->Stack(cards, 5);
        program->Keys({Qt::Key_D, Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5});
    }

    // The window asks to be closed as the desktop would ask it, while something else goes on.
    void CloseSoon(int milliseconds) {
        soon.setSingleShot(true);
        QObject::connect(&soon, &QTimer::timeout, [this] { program->frame->close(); });
        soon.start(milliseconds);
    }

    void ExpectClosed() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !program->frame->isVisible(); }));
        EXPECT_FALSE(program->document->actions.Busy());
    }

    QTimer soon;
};

TEST_F(CloseTest, ExitSavesSettingsAndStatisticsForTheNextStart) {
    {
        TestProgram& p = Start();
        DealAndHoldAll(kTwoPair);
        p.Key(Qt::Key_D);
        p.Keys({Qt::Key_B, Qt::Key_B});
        p.Choose(kExit);
        ExpectClosed();
    }
    EXPECT_EQ(Stored("Credits"), "105");
    EXPECT_EQ(Stored("HandsPlayed", "Jacks or Better(0)"), "1");
    TestProgram& p = Start();
    EXPECT_EQ(p.Scene().credits, "105");
    EXPECT_EQ(p.Scene().bet, "2");
    EXPECT_EQ(p.engine.statistics.handsWon.total, 1);
    EXPECT_EQ(p.Message(), "PRESS DEAL");
}

TEST_F(CloseTest, AWindowClosedDuringAHandHasTakenTheBet) {
    TestProgram& p = Start();
    p.Key(Qt::Key_D);
    EXPECT_TRUE(p.frame->close());
    EXPECT_EQ(Stored("Credits"), "95");
}

TEST_F(CloseTest, AWindowClosedDuringAnAnimationEndsItAtOnce) {
    Set("Speed", "1");
    TestProgram& p = Start(true);
    p.Stack(kTwoPair, 5);
    CloseSoon(100);
    QElapsedTimer time;
    time.start();
    p.Key(Qt::Key_D);
    ExpectClosed();
    EXPECT_LT(time.elapsed(), 1000) << "a slow deal takes 1.75 seconds";
    EXPECT_EQ(Stored("Credits"), "95");
}

TEST_F(CloseTest, AWindowClosedDuringACountUpHasPaidTheWholeWin) {
    Set("Speed", "2");
    TestProgram& p = Start(true);
    DealAndHoldAll(kTwoPair);
    CloseSoon(100);
    p.Key(Qt::Key_D);
    ExpectClosed();
    EXPECT_EQ(Stored("Credits"), "105");
}

TEST_F(CloseTest, AWindowClosedOverAQuestionTakesItBack) {
    Set("Mode", "2");
    TestProgram& p = Start();
    p.Stack("AS AD KC 9H 2S", 5);
    p.Key(Qt::Key_D);
    {
        DialogRobot robot{[&](QDialog& /*question*/) { p.frame->close(); }};
        p.Key(Qt::Key_D);
    }
    ExpectClosed();
    EXPECT_EQ(Stored("Credits"), "95");
    EXPECT_EQ(Stored("PlayErrors", "Jacks or Better(0)"), "1");
}

TEST_F(CloseTest, ADoubleUpThatIsAskedAboutIsCollected) {
    TestProgram& p = Start();
    DealAndHoldAll(kTwoPair);
    p.Key(Qt::Key_D);
    p.DecideNextDuel(1);
    p.Key(Qt::Key_U);
    {
        DialogRobot robot{[&](QDialog& /*question*/) { p.frame->close(); }};
        p.Key(Qt::Key_2);
    }
    ExpectClosed();
    EXPECT_EQ(Stored("Credits"), "115");
}

TEST_F(CloseTest, DialogsThatLieOverOneAnotherAllGo) {
    TestProgram& p = Start();
    {
        DialogRobot robot{Type("0"), Press(Qt::Key_Return),
                          [&](QDialog& /*refusal*/) { p.frame->close(); }};
        p.Choose(kEnterCredits);
    }
    ExpectClosed();
    EXPECT_EQ(Stored("Credits"), "100");
}

TEST_F(CloseTest, WhatWaitsItsTurnIsNotBegunAnyMore) {
    TestProgram& p = Start();
    {
        DialogRobot robot{[&](QDialog& /*dialog*/) {
            for (const int command :
                 {kAbout, kCombinations, kPlayStatistics, kAutoplay, kCashOut}) {
                p.document->Run(command);
            }
            p.frame->close();
            p.document->Run(kAbout);
        }};
        p.Choose(kEnterCredits);
    }
    ExpectClosed();
    EXPECT_EQ(Stored("Credits"), "100");
}

TEST_F(CloseTest, LongWorkEndsWithTheWindow) {
    TestProgram& p = Start();
    CloseSoon(200);
    DialogRobot robot{Type("999999999"), Press(Qt::Key_Return)};
    p.Choose(kAutoplay);
    ExpectClosed();
    EXPECT_GT(p.spare.statistics.handsPlayed.session, 0);
    EXPECT_LT(p.spare.statistics.handsPlayed.session, 999999999);
}

TEST_F(CloseTest, ASessionThatMayEndIsSavedWithoutEndingTheHand) {
    Set("Speed", "2");
    TestProgram& p = Start();
    p.clock.inPause = [&] { p.document->SaveForNow(); };
    p.Key(Qt::Key_D);
    EXPECT_EQ(Stored("Credits"), "95");
    EXPECT_EQ(Stored("CurrGame", "main", "Tolvane.ini"), p.paths.defaultGame);
    EXPECT_FALSE(p.engine.handOver);
    p.Key(Qt::Key_D);
    EXPECT_EQ(p.engine.statistics.handsPlayed.total, 1);
}

TEST_F(CloseTest, ASessionThatEndsIsNotHeldUpByAFileThatCannotBeSaved) {
    TestProgram& p = Start();
    std::filesystem::remove(folder.Path("Default.qdx"));
    p.document->SaveForNow();
    QString caption;
    QString text;
    DialogRobot robot{ReadMessage(caption, text)};
    p.Choose(kFileSave);
    EXPECT_EQ(caption, "Save Error") << "the player is told when he is there";
}

TEST_F(CloseTest, AGameThatCannotBeSavedKeepsTheWindowUnlessThePlayerGivesItUp) {
    TestProgram& p = Start();
    std::filesystem::remove(folder.Path("Default.qdx"));
    QString caption;
    QString text;
    {
        DialogRobot robot{ReadMessage(caption, text), ReadMessage(caption, text)};
        p.frame->close();
    }
    EXPECT_TRUE(text.startsWith("The game could not be saved. Close all the same"))
        << text.toStdString();
    EXPECT_TRUE(p.frame->isVisible());
    p.Key(Qt::Key_D);
    EXPECT_FALSE(p.engine.handOver) << "it is played on";
    {
        DialogRobot robot{Choose(QMessageBox::Yes)};
        p.frame->close();
    }
    ExpectClosed();
}

TEST_F(CloseTest, AWindowClosedTwiceOverAQuestionAsksNothingMore) {
    TestProgram& p = Start();
    {
        DialogRobot robot{[&](QDialog& /*dialog*/) {
            p.frame->close();
            p.frame->close();
        }};
        p.Choose(kEnterCredits);
    }
    ExpectClosed();
}

TEST_F(CloseTest, TheWindowIsFirstMaximizedAndThenAsItWasLeft) {
    QSize size;
    {
        TestProgram& p = Start();
        EXPECT_TRUE(p.frame->isMaximized());
        p.frame->showNormal();
        p.frame->resize(670, 560);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !p.frame->isMaximized(); }));
        size = p.frame->size();
        p.frame->close();
    }
    TestProgram& p = Start();
    EXPECT_FALSE(p.frame->isMaximized());
    EXPECT_EQ(p.frame->size(), size);
}

TEST_F(CloseTest, AStoredErrorLogModeStartsWithPractice) {
    Set("Mode", "4");
    TestProgram& p = Start();
    EXPECT_TRUE(p.engine.fixedHand);
    QString caption;
    QString text;
    DialogRobot robot{ReadMessage(caption, text)};
    p.Key(Qt::Key_D);
    EXPECT_EQ(text, "No errors in log");
}

TEST_F(CloseTest, AMissingGameFileIsToldAfterTheStart) {
    std::filesystem::remove(folder.Path("Default.qdx"));
    QString caption;
    QString text;
    DialogRobot robot{ReadMessage(caption, text)};
    TestProgram& p = Start();
    EXPECT_EQ(caption, "Save Error");
    EXPECT_EQ(p.Scene().credits, "$0.00");
}

}  // namespace
