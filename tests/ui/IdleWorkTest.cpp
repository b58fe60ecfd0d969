// What the program does when nothing else happens.
#include "app/IdleWork.h"

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

    // Passes made since the last look, once the program has come to rest.
    int PassesUntilAsleep() {
        const auto passes = [this] { return program->engine.deck.shufflePasses; };
        int before = 0;
        do {
            before = passes();
            QTest::qWait(50);
        } while (passes() != before);
        return before - std::exchange(seen, before);
    }

    std::unique_ptr<IdleWork> idle;
    int seen = 0;
};

TEST_F(IdleWorkTest, TheDeckIsShuffledAHundredAndTwoTimesAndThenTheProgramSleeps) {
    TestProgram& p = StartIdle();
    PassesUntilAsleep();
    QTest::mouseMove(p.view, p.Places().coin.center());
    QTest::keyClick(p.view, Qt::Key_X);
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
    DialogRobot robot{ClickOn("ok")};
    p.Key(Qt::Key_A);
    p.Choose(kFixedHand);
    PassesUntilAsleep();
    p.engine.fixedHand = true;
    p.Key(Qt::Key_X);
    EXPECT_EQ(PassesUntilAsleep(), 0);
    p.engine.fixedHand = false;
}

TEST_F(IdleWorkTest, AChangedFileIsWrittenBack) {
    TestProgram& p = StartIdle();
    p.Choose(kCoinQuarter);
    EXPECT_TRUE(p.file.IsDirty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !p.file.IsDirty(); }));
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
