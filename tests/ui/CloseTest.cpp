// The end of the program at any moment, and the start after it. What was played is in the file, and
// nothing holds the end up.
#include <QElapsedTimer>
#include <QTimer>

#include "tests/ui/TestProgram.h"

namespace {

class CloseTest : public ProgramTest {
  protected:
    void ExpectClosed() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !program->frame->isVisible(); }));
        EXPECT_FALSE(program->document->Actions().Busy());
    }
};

TEST_F(CloseTest, AWindowClosedDuringAnAnimationEndsItAtOnce) {
    Set("Speed", "1");
    TestProgram& p = Start(true);
    p.Stack(kJacksAndTens, 5);
    QTimer::singleShot(100, [&] {
        p.Keys({Qt::Key_D, Qt::Key_D});
        p.Choose(kExit);  // behind no press that waits, nor refused after one that was
    });
    QElapsedTimer time;
    time.start();
    p.Key(Qt::Key_D);
    ExpectClosed();
    EXPECT_LT(time.elapsed(), 1000) << "a slow deal takes 1.75 seconds";
    EXPECT_EQ(Stored("Credits"), "95");
}

TEST_F(CloseTest, AWindowClosedOverAQuestionTakesItBack) {
    Set("Mode", "2");
    TestProgram& p = Start();
    p.Deal("AS AD KC 9H 2S");
    Answer({[&](QDialog&) { p.frame->close(); }}, [&] { p.Key(Qt::Key_D); });
    ExpectClosed();
    EXPECT_EQ(Stored("Credits"), "95");
    EXPECT_EQ(Stored("PlayErrors", "Jacks or Better(0)"), "1");
}

TEST_F(CloseTest, WhatTheWindowsBesideItAskIsTakenBackToo) {
    TestProgram& p = Start();
    for (int command = kAllGames; command <= kBankroll; ++command) p.Choose(command);
    int asked = 0;
    int refused = 0;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (qobject_cast<BesideWindow*>(window) == nullptr) continue;
        auto* question = new QDialog(window);
        QObject::connect(question, &QDialog::rejected, [&refused] { ++refused; });
        question->open();
        ++asked;
    }
    EXPECT_EQ(asked, 5);
    p.frame->close();
    EXPECT_EQ(refused, asked);
    ExpectClosed();
}

TEST_F(CloseTest, WhatWaitsItsTurnIsNotBegunAnyMoreAndASecondCloseAsksNothing) {
    TestProgram& p = Start();
    DialogRobot robot{[&](QDialog& /*dialog*/) {
        for (const int command : {kAbout, kCombinations, kPlayStatistics, kAutoplay, kCashOut}) {
            p.document->Run(command);
        }
        p.frame->close();
        p.document->Run(kAbout);
        p.frame->close();
    }};
    p.Choose(kEnterCredits);
    ExpectClosed();
    EXPECT_EQ(Stored("Credits"), "100");
}

TEST_F(CloseTest, LongWorkEndsWithTheWindow) {
    TestProgram& p = Start();
    QTimer::singleShot(200, [&] { p.frame->close(); });  // as the desktop would ask it
    DialogRobot robot{Type("999999999"), Press(Qt::Key_Return)};
    p.Choose(kAutoplay);
    ExpectClosed();
    const auto played = p.spare.statistics.handsPlayed.session;
    EXPECT_TRUE(played > 0 && played < 999999999);
}

TEST_F(CloseTest, ASessionThatMayEndIsSavedWithoutEndingTheHandOrAQuestion) {
    Set("Speed", "2");
    TestProgram& p = Start();
    p.clock.inPause = [&] { p.document->SaveForNow(); };
    p.Key(Qt::Key_D);
    EXPECT_EQ(Stored("Credits"), "95");
    EXPECT_EQ(Stored("CurrGame", "main", "Tolvane.ini"), p.paths.defaultGame);
    EXPECT_FALSE(p.engine.handOver);
    std::filesystem::remove(folder.Path("Default.qdx"));
    p.document->SaveForNow();  // asks nothing: the desktop waits
}

TEST_F(CloseTest, AGameThatCannotBeSavedKeepsTheWindowUnlessThePlayerGivesItUp) {
    TestProgram& p = Start();
    std::filesystem::remove(folder.Path("Default.qdx"));
    std::string told;
    Answer({Note(told), Note(told)}, [&] { p.frame->close(); });
    EXPECT_NE(told.find(": The game could not be saved. Close all the same"), std::string::npos)
        << told;
    EXPECT_TRUE(p.frame->isVisible());
    p.Key(Qt::Key_D);
    EXPECT_FALSE(p.engine.handOver) << "it is played on";
    Answer({Choose(QMessageBox::Yes)}, [&] { p.frame->close(); });
    ExpectClosed();
}

TEST_F(CloseTest, AFileThatWaitsForTheHandIsNotOpenedByTheCloseThatEndsIt) {
    folder.Write("other.qdx", "[main]\nCredits=9\n");
    TestProgram& p = Start();
    p.Key(Qt::Key_D);
    p.clock.inPause = [&] {
        p.document->OpenFile(QString::fromStdString(folder.Path("other.qdx")));
        p.frame->close();
    };
    p.Key(Qt::Key_D);
    EXPECT_EQ(p.document->Title(), "Jacks or Better - Tolvane");
}

TEST_F(CloseTest, TheWindowIsFirstMaximizedAndThenAsItWasLeft) {
    Start();
    EXPECT_TRUE(program->frame->isMaximized());
    program->frame->showNormal();
    program->frame->resize(670, 560);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !program->frame->isMaximized(); }));
    const QSize size = program->frame->size();
    // F11 works at any time, Esc only to leave; the window then has the size that it had.
    const auto reopen = [&](std::initializer_list<Qt::Key> keys) {
        program->Keys(keys);
        const bool full = program->frame->isFullScreen();
        program->frame->close();
        Start();
        EXPECT_EQ(program->frame->isFullScreen(), full);
        EXPECT_FALSE(program->frame->isMaximized());
        return full;
    };
    EXPECT_FALSE(reopen({Qt::Key_F11, Qt::Key_Escape, Qt::Key_Escape}));
    EXPECT_EQ(program->frame->size(), size);
    EXPECT_TRUE(reopen({Qt::Key_F11}));
    EXPECT_FALSE(reopen({Qt::Key_Escape}));
    EXPECT_EQ(program->frame->size(), size);
    program->Key(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !program->frame->isVisible(); }));
}

}  // namespace
