// What the program does when nothing else happens.
#include "app/IdleWork.h"

#include <QAbstractEventDispatcher>

#include "tests/core/profile/FullDisk.h"
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
    p.Keys({Qt::Key_D, Qt::Key_D, Qt::Key_D});
    const auto isKept = [&] { return Stored("HandsPlayed", "Jacks or Better(0)") == "1"; };
    EXPECT_FALSE(QTest::qWaitFor(isKept, 2 * IdleWork::kRest)) << "the second hand is open";
    p.Key(Qt::Key_D);
    p.engine.settings.bet = 3;
    EXPECT_TRUE(QTest::qWaitFor([&] { return Stored("Bet") == "3"; }, 2 * IdleWork::kRest));
    EXPECT_EQ(Stored("HandsPlayed", "Jacks or Better(0)"), "2");
    EXPECT_EQ(Stored("Credits"), std::to_string(p.engine.settings.credits));
    p.clock.now += 60;
    p.Keys({Qt::Key_D, Qt::Key_D});
    EXPECT_EQ(Stored("HandsPlayed", "Jacks or Better(0)"), "3") << "steady play does not wait";
    p.Choose(kCoinQuarter);
    EXPECT_EQ(Stored("Coin"), "0.25");
}

TEST_F(IdleWorkTest, AFileThatCannotBeWrittenIsToldOnce) {
    TestProgram& p = StartIdle();
    PassesUntilAsleep();
    {
        const FullDisk disk(100);
        const std::string told = Told([&] {
            p.Choose(kCoinQuarter);
            PassesUntilAsleep();
        });
        EXPECT_TRUE(told.starts_with("Save Error: ")) << told;
        p.Choose(kCoinHalf);
        EXPECT_EQ(PassesUntilAsleep(), IdleWork::kMaxCalls) << "without a second message";
    }
    p.Choose(kFileSave);
    EXPECT_EQ(Stored("Coin"), "0.50");
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
