// What the program does when nothing else happens.
#include "app/IdleWork.h"

#include <QAbstractEventDispatcher>

#include "tests/ui/TestProgram.h"

namespace {

class IdleWorkTest : public ProgramTest {
  protected:
    TestProgram& StartIdle() {
        TestProgram& p = Start();
        idle = std::make_unique<IdleWork>(*p.document);
        qApp->installEventFilter(idle.get());
        QApplication::processEvents();
        return p;
    }

    // Passes made since the last look, once nothing is left to do.
    int PassesUntilAsleep() {
        while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
        }
        const int passes = program->engine.deck.shufflePasses;
        return passes - std::exchange(seen, passes);
    }

    std::unique_ptr<IdleWork> idle;
    int seen = 0;
};

TEST_F(IdleWorkTest, TheDeckIsShuffledAHundredAndTwoTimesAndThenTheProgramSleeps) {
    TestProgram& p = StartIdle();
    PassesUntilAsleep();
    p.Key(Qt::Key_X);
    EXPECT_EQ(PassesUntilAsleep(), IdleWork::kMaxCalls);
    EXPECT_EQ(PassesUntilAsleep(), 0);
}

TEST_F(IdleWorkTest, NoCardMovesDuringAHandOrPractice) {
    TestProgram& p = StartIdle();
    p.Key(Qt::Key_D);
    PassesUntilAsleep();
    const auto order = p.engine.deck.order;
    p.Key(Qt::Key_1);
    EXPECT_EQ(PassesUntilAsleep(), 0);
    EXPECT_EQ(p.engine.deck.order, order);
    p.Key(Qt::Key_D);
    EXPECT_EQ(PassesUntilAsleep(), IdleWork::kMaxCalls);
    p.engine.fixedHand = true;
    p.Key(Qt::Key_X);
    EXPECT_EQ(PassesUntilAsleep(), 0);
    p.engine.fixedHand = false;
}

TEST_F(IdleWorkTest, WhatWasPlayedIsOnTheDiskSomeSecondsLater) {
    TestProgram& p = StartIdle();
    const auto kept = [this] { return Stored("HandsPlayed", "Jacks or Better(0)"); };
    p.Keys({Qt::Key_D, Qt::Key_D});
    EXPECT_TRUE(QTest::qWaitFor([&] { return kept() == "1"; }, 2 * IdleWork::kRest));
    p.clock.now += 60;
    p.Keys({Qt::Key_D, Qt::Key_D});
    EXPECT_EQ(kept(), "2") << "steady play does not wait";
    p.Choose(kCoinQuarter);
    EXPECT_EQ(Stored("Coin"), "0.25");
}

TEST_F(IdleWorkTest, WhileSomethingRunsOrIsAskedTheProgramSleeps) {
    TestProgram& p = StartIdle();
    PassesUntilAsleep();
    DialogRobot robot{[&](QDialog& dialog) {
        QTest::keyClick(&dialog, Qt::Key_X);
        EXPECT_EQ(PassesUntilAsleep(), 0);
        dialog.reject();
    }};
    p.Choose(kEnterCredits);
    EXPECT_EQ(PassesUntilAsleep(), IdleWork::kMaxCalls);
}

}  // namespace
