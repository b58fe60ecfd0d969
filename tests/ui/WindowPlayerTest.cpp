// The questions of a flow as the window asks them.
#include "ui/dialogs/WindowPlayer.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QWidget>

#include "game/Clock.h"
#include "tests/game/TestMachine.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"

namespace {

class StandingClock : public Clock {
  public:
    std::int64_t Now() override { return 1'790'000'000; }
    void Pause(int /*milliseconds*/) override {}
    void PauseWithInput(int /*milliseconds*/) override {}
};

class WindowPlayerTest : public testing::Test {
  protected:
    void SetUp() override {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    DialogRobot::Step RefuseAll() {
        return [this](QDialog& /*dialog*/) { player.RefuseAll(); };
    }

    // In a file dialog.
    DialogRobot::Step TypeFile(const std::string& path) {
        return [path](QDialog& dialog) {
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            ASSERT_NE(name, nullptr) << dialog.objectName().toStdString();
            name->setText(QString::fromStdString(path));
            QTest::keyClick(name, Qt::Key_Return);
        };
    }

    QWidget window;
    PictureStore store;
    StandingClock clock;
    WindowPlayer player{window, store, clock};
};

TEST_F(WindowPlayerTest, AQuestionIsYesOnlyWhenYesIsChosen) {
    const auto answered = [this](const DialogRobot::Step& answer) {
        DialogRobot robot{answer};
        return player.SaysYes("Double Up", "Do you wish to double up?");
    };
    EXPECT_FALSE(answered(Press(Qt::Key_Return)));
    EXPECT_FALSE(answered(Press(Qt::Key_Escape)));
    EXPECT_FALSE(answered([](QDialog& dialog) { dialog.close(); }));
    EXPECT_TRUE(answered(Press(Qt::Key_Y, Qt::AltModifier)));
}

TEST_F(WindowPlayerTest, WhatIsAskedLeavesTheCardsToBeSeen) {
    window.resize(800, 600);
    window.move(100, 50);
    const int middle = window.mapToGlobal(window.rect().center()).y();
    int top = 0;
    int bottom = middle;
    const auto look = [&](QDialog& dialog) {
        top = dialog.frameGeometry().top();
        bottom = dialog.frameGeometry().bottom();
        dialog.reject();
    };
    DialogRobot robot{look, look, look};
    const auto expectAbove = [&](const char* what) {
        EXPECT_GE(top, window.geometry().top()) << what;
        EXPECT_LT(bottom, middle) << what;
    };
    player.SaysYes("Double Up Tie", "Do you wish to play again?");
    expectAbove("question");
    player.IsTold("Caption", "Text", MessageIcon::kNone);
    expectAbove("message");
    player.GoesOnAfterError("A____ is the best play for this hand. Continue?");
    expectAbove("play error");
}

TEST_F(WindowPlayerTest, WhatIsToldHasItsCaptionAndIcon) {
    const auto icon = [this](MessageIcon told) {
        QMessageBox::Icon shown = QMessageBox::Question;
        DialogRobot robot{[&](QDialog& dialog) {
            const auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.windowTitle(), "Caption");
            EXPECT_EQ(box.text(), "Text");
            shown = box.icon();
            dialog.reject();
        }};
        player.IsTold("Caption", "Text", told);
        return shown;
    };
    EXPECT_EQ(icon(MessageIcon::kNone), QMessageBox::NoIcon);
    EXPECT_EQ(icon(MessageIcon::kExclamation), QMessageBox::Warning);
    EXPECT_EQ(icon(MessageIcon::kError), QMessageBox::Critical);
}

TEST_F(WindowPlayerTest, NumbersAreEnteredOrCancelled) {
    {
        DialogRobot robot{Press(Qt::Key_Return), Type("77"), Press(Qt::Key_Return)};
        EXPECT_EQ(player.EntersDollars(250), 250);
        EXPECT_EQ(player.EntersHandCount(), 77);
    }
    DialogRobot robot{Press(Qt::Key_Escape), Press(Qt::Key_Escape)};
    EXPECT_EQ(player.EntersDollars(250), std::nullopt);
    EXPECT_EQ(player.EntersHandCount(), std::nullopt) << "cancelled is not 0 hands";
}

TEST_F(WindowPlayerTest, AnExtensionIsAddedBeforeAFileIsReplaced) {
    const TemporaryFolder folder;
    const std::string taken = folder.Write("taken.qdx", "[main]\n");
    DialogRobot robot{TypeFile(folder.Path("new")),   TypeFile(folder.Path("taken")),
                      Press(Qt::Key_Return),  // no, not that one
                      TypeFile(folder.Path("taken")), Choose(QMessageBox::Yes),
                      Press(Qt::Key_Escape)};
    EXPECT_EQ(player.ChoosesFileToSave(folder.Path("proposed.qdx")), folder.Path("new.qdx"));
    EXPECT_EQ(player.ChoosesFileToSave(folder.Path("proposed.qdx")), taken);
    EXPECT_EQ(player.ChoosesFileToSave(folder.Path("proposed.qdx")), std::nullopt);
}

TEST_F(WindowPlayerTest, OnlyAFileThatIsThereIsOpened) {
    const TemporaryFolder folder;
    const std::string there = folder.Write("there.qdx", "[main]\n");
    DialogRobot robot{TypeFile(folder.Path("missing.qdx")), Press(Qt::Key_Return), TypeFile(there)};
    EXPECT_EQ(player.ChoosesFileToOpen(folder.Path()), there);
}

TEST_F(WindowPlayerTest, AWindowThatClosesRefusesWhatIsOpen) {
    DialogRobot robot{Type("0"), Press(Qt::Key_Return), RefuseAll()};
    EXPECT_EQ(player.EntersDollars(100), std::nullopt) << "with a message over it";
}

TEST_F(WindowPlayerTest, AWindowThatClosesReplacesNoFile) {
    const TemporaryFolder folder;
    folder.Write("taken.qdx", "[main]\n");
    DialogRobot robot{TypeFile(folder.Path("taken")), RefuseAll()};
    EXPECT_EQ(player.ChoosesFileToSave(folder.Path("proposed.qdx")), std::nullopt);
}

TEST_F(WindowPlayerTest, RefusedEveryLaterAnswerIsNoAtOnce) {
    TestMachine machine;
    auto running = player.SeesProgress("Hands played...0%");
    const QWidget* modal = QApplication::activeModalWidget();
    EXPECT_TRUE(modal && modal->objectName() == "progress") << "nothing else is let through";
    EXPECT_TRUE(running->Show("Hands played...1%", 1));
    player.RefuseAll();
    EXPECT_FALSE(running->Show("Hands played...2%", 2));
    EXPECT_FALSE(player.SeesProgress("Hands played...0%")->Show("", 0));
    EXPECT_FALSE(player.GoesOnAfterError("Continue?"));
    EXPECT_FALSE(player.SaysYes("Caption", "Question?"));
    player.IsTold("Caption", "Text", MessageIcon::kError);
    EXPECT_EQ(player.EntersDollars(100), std::nullopt);
    EXPECT_EQ(player.EntersHandCount(), std::nullopt);
    EXPECT_FALSE(player.AssignsFixedHand(machine.engine));
    EXPECT_EQ(player.ChoosesFileToOpen("/tmp"), std::nullopt);
    EXPECT_EQ(player.ChoosesFileToSave("/tmp/a.qdx"), std::nullopt);
    player.ReadsStatistics(machine.engine);
}

TEST_F(WindowPlayerTest, AFixedHandAndStatisticsAreShown) {
    TestMachine machine;
    QString shown;
    const auto note = [&](QDialog& dialog) {
        shown += dialog.windowTitle() + ';';
        QTest::keyClick(&dialog, Qt::Key_Return);
    };
    DialogRobot robot{note, note};
    EXPECT_TRUE(player.AssignsFixedHand(machine.engine));
    EXPECT_TRUE(machine.engine.fixedHand);
    player.ReadsStatistics(machine.engine);
    EXPECT_EQ(shown, "Assign Fixed Hand;Game Play Analysis;");
}

TEST_F(WindowPlayerTest, APlayErrorOffersTheAnalysisThatTheWindowHas) {
    int beeps = 0;
    int analyses = 0;
    player.beep = [&] { ++beeps; };
    player.showAnalysis = [&](QWidget& /*over*/) { ++analyses; };
    DialogRobot robot{ClickOn("analysis"), ClickOn("yes")};
    EXPECT_TRUE(player.GoesOnAfterError("Continue?"));
    EXPECT_EQ(beeps, 1);
    EXPECT_EQ(analyses, 1);
}

}  // namespace
