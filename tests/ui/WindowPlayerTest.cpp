// The questions of a flow as the window asks them.
#include "app/WindowPlayer.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QWidget>

#include "game/paytables/PayTableEditor.h"
#include "game/session/AnalyzeGame.h"
#include "game/table/Clock.h"
#include "tests/game/FakePorts.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"

namespace {

class StandingClock : public Clock {
  public:
    std::int64_t Now() override { return 1'790'000'000; }
    void Pause(int /*milliseconds*/) override {}
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
    static DialogRobot::Step TypeFile(const char* caption, const std::string& path) {
        return [=](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), caption);
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            ASSERT_NE(name, nullptr) << dialog.objectName().toStdString();
            name->setText(QString::fromStdString(path));
            QTest::keyClick(name, Qt::Key_Return);
        };
    }
    static DialogRobot::Step AnswerReplace(const char* caption,
                                           QMessageBox::StandardButton button) {
        return [=](QDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), caption);
            EXPECT_EQ(dynamic_cast<QMessageBox&>(dialog).defaultButton()->text(), "&No");
            Choose(button)(dialog);
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

TEST_F(WindowPlayerTest, WhatIsToldHasItsCaptionAndIconAndLeavesTheCardsToBeSeen) {
    window.resize(800, 600);
    window.move(100, 50);
    const int middle = window.mapToGlobal(window.rect().center()).y();
    const auto look = [&](QDialog& dialog) {
        EXPECT_GE(dialog.frameGeometry().top(), window.geometry().top());
        EXPECT_LT(dialog.frameGeometry().bottom(), middle) << dialog.objectName().toStdString();
        dialog.reject();
    };
    const std::pair<MessageIcon, QMessageBox::Icon> icons[] = {
        {MessageIcon::kNone, QMessageBox::NoIcon},
        {MessageIcon::kExclamation, QMessageBox::Warning},
        {MessageIcon::kError, QMessageBox::Critical}};
    for (const auto& [told, shown] : icons) {
        DialogRobot robot{[&, icon = shown](QDialog& dialog) {
            const auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.windowTitle() + ": " + box.text(), "Caption: Text");
            EXPECT_EQ(box.icon(), icon);
            look(dialog);
        }};
        player.Tell("Caption", "Text", told);
    }
    DialogRobot robot{look, look};
    player.SaysYes("Double Up Tie", "Do you wish to play again?");
    player.GoesOnAfterError("A____ is the best play for this hand. Continue?");
}

TEST_F(WindowPlayerTest, AnExtensionIsAddedBeforeAFileIsReplaced) {
    const TemporaryFolder folder;
    const std::string taken = folder.Write("taken.qdx", "[main]\n");
    const std::string proposed = folder.Path("proposed.qdx");
    DialogRobot robot{TypeFile("Save As", folder.Path("new")),
                      TypeFile("New Game File", folder.Path("taken")),
                      AnswerReplace("New Game File", QMessageBox::No),
                      TypeFile("New Game File", folder.Path("taken")),
                      AnswerReplace("New Game File", QMessageBox::Yes),
                      TypeFile("Open", folder.Path("missing.qdx")),
                      Press(Qt::Key_Return),
                      TypeFile("Open", taken)};
    EXPECT_EQ(player.AskFileToSave(proposed), folder.Path("new.qdx"));
    EXPECT_EQ(player.AskNewGameFile(proposed), taken);
    EXPECT_EQ(player.AskFileToOpen(folder.Path()), taken) << "only a file that is there";
}

TEST_F(WindowPlayerTest, AWindowThatClosesRefusesWhatIsOpen) {
    DialogRobot robot{Type("0"), Press(Qt::Key_Return), RefuseAll(), Type("77"),
                      Press(Qt::Key_Return)};
    EXPECT_EQ(player.AskDollars(100), std::nullopt) << "with a message over it";
    player.AnswerAgain();
    EXPECT_EQ(player.AskHandCount(), 77);
}

TEST_F(WindowPlayerTest, RefusedEveryLaterAnswerIsNoAtOnce) {
    TestMachine machine;
    auto running = player.ShowProgress("Hands played...0%");
    const QWidget* modal = QApplication::activeModalWidget();
    EXPECT_TRUE(modal && modal->objectName() == "progress") << "nothing else is let through";
    EXPECT_TRUE(running->Show("Hands played...1%", 1));
    player.RefuseAll();
    EXPECT_FALSE(running->Show("Hands played...2%", 2));
    EXPECT_FALSE(player.ShowProgress("Hands played...0%")->Show("", 0));
    EXPECT_FALSE(player.GoesOnAfterError("Continue?"));
    EXPECT_FALSE(player.SaysYes("Caption", "Question?"));
    player.Tell("Caption", "Text", MessageIcon::kError);
    EXPECT_EQ(player.AskDollars(100), std::nullopt);
    EXPECT_EQ(player.AskHandCount(), std::nullopt);
    EXPECT_FALSE(player.AskFixedHand(machine.engine));
    EXPECT_EQ(player.AskFileToOpen("/tmp"), std::nullopt);
    EXPECT_EQ(player.AskFileToSave("/tmp/a.qdx"), std::nullopt);
    EXPECT_EQ(player.AskNewGameFile("/tmp/a.qdx"), std::nullopt);
    EXPECT_EQ(player.AskGame({"A"}, "A"), std::nullopt);
    EXPECT_EQ(player.AskAnalysisFiles({}).has_value(), false);
    player.ShowStatistics(machine.engine);
    Recorder ports(machine.engine);
    GameTable table = TableOf(machine, ports, player);
    PayTableEditor editor(table, machine.paths, {300, "Jacks or Better", 0});
    EXPECT_FALSE(player.ShowPayTableManager(editor));
    GameEngine spare;
    GameReportPages pages(table, spare, machine.paths);
    EXPECT_EQ(player.ShowGameReport(pages), ReportAnswer::kDone);
}

TEST_F(WindowPlayerTest, AFixedHandStatisticsAndAPlayErrorAreShown) {
    TestMachine machine;
    int beeps = 0;
    int analyses = 0;
    player.beep = [&] { ++beeps; };
    player.showAnalysis = [&](QWidget& over) { analyses += over.objectName() == "bestPlayError"; };
    QString shown;
    const auto note = [&](QDialog& dialog) {
        shown += dialog.windowTitle() + ';';
        QTest::keyClick(&dialog, Qt::Key_Return);
    };
    DialogRobot robot{note, note, ClickOn("analysis"), ClickOn("yes")};
    EXPECT_TRUE(player.AskFixedHand(machine.engine));
    EXPECT_TRUE(machine.engine.fixedHand);
    player.ShowStatistics(machine.engine);
    EXPECT_EQ(shown, "Assign Fixed Hand;Game Play Analysis;");
    EXPECT_TRUE(player.GoesOnAfterError("Continue?"));
    EXPECT_EQ(beeps, 1);
    EXPECT_EQ(analyses, 1);
}

}  // namespace
