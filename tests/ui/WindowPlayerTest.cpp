// The questions of a flow as the window asks them.
#include "app/WindowPlayer.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QWidget>

#include "game/paytables/PayTableEditor.h"
#include "game/session/AnalyzeGame.h"
#include "tests/game/FakePorts.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"

namespace {

class WindowPlayerTest : public testing::Test {
  protected:
    void SetUp() override {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QWidget window;
    PictureStore store;
    TestMachine machine;
    Recorder ports{machine.engine};
    WindowPlayer player{window, store, ports};
};

TEST_F(WindowPlayerTest, AQuestionIsYesOnlyWhenYesIsChosen) {
    const auto answered = [this](const DialogRobot::Step& answer) {
        DialogRobot robot{answer};
        return player.SaysYes("Double Up", "Do you wish to double up?");
    };
    EXPECT_FALSE(answered(Press(Qt::Key_Return)) || answered(Press(Qt::Key_Escape)));
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
                      Press(Qt::Key_Return),  // it is not to be replaced
                      TypeFile("New Game File", folder.Path("taken")),
                      Choose(QMessageBox::Yes),
                      TypeFile("Open", folder.Path("missing.qdx")),
                      Press(Qt::Key_Return),
                      TypeFile("Open", taken)};
    EXPECT_EQ(player.AskFileToSave(proposed), folder.Path("new.qdx"));
    EXPECT_EQ(player.AskNewGameFile(proposed), taken);
    EXPECT_EQ(player.AskFileToOpen(folder.Path()), taken) << "only a file that is there";
}

TEST_F(WindowPlayerTest, AWindowThatClosesRefusesWhatIsOpen) {
    DialogRobot robot{Type("0"), Press(Qt::Key_Return), [this](QDialog&) { player.RefuseAll(); },
                      Type("77"), Press(Qt::Key_Return)};
    EXPECT_EQ(player.AskDollars(100), std::nullopt) << "with a message over it";
    player.AnswerAgain();
    EXPECT_EQ(player.AskHandCount(), 77);
}

TEST_F(WindowPlayerTest, RefusedEveryLaterAnswerIsNoAtOnce) {
    auto running = player.ShowProgress("Hands played...0%");
    const QWidget* modal = QApplication::activeModalWidget();
    EXPECT_TRUE(modal && modal->objectName() == "progress") << "nothing else is let through";
    EXPECT_TRUE(running->Show("Hands played...1%", 1));
    player.RefuseAll();
    EXPECT_FALSE(running->Show("Hands played...2%", 2));
    EXPECT_FALSE(player.ShowProgress("Hands played...0%")->Show("", 0));
    player.Tell("Caption", "Text", MessageIcon::kError);
    player.ShowStatistics(machine.engine);
    Seat seat = SeatOf(machine, ports, player);
    PayTableEditor editor(seat, machine.paths, {300, "Jacks or Better", 0});
    EXPECT_FALSE(player.GoesOnAfterError("Continue?") || player.SaysYes("Caption", "Question?") ||
                 player.AskFixedHand(machine.engine) || player.ShowPayTableManager(editor));
    EXPECT_FALSE(player.AskDollars(100) || player.AskHandCount() || player.AskAnalysisFiles({}));
    EXPECT_FALSE(player.AskFileToOpen("/tmp") || player.AskFileToSave("/tmp/a.qdx") ||
                 player.AskNewGameFile("/tmp/a.qdx") || player.AskGame({"A"}, "A"));
    GameEngine spare;
    GameReportPages pages(seat, spare, machine.paths);
    EXPECT_EQ(player.ShowGameReport(pages), ReportAnswer::kDone);
}

TEST_F(WindowPlayerTest, APlayErrorIsHeardAndTheHandAnalysedOverIt) {
    int beeps = 0;
    int analyses = 0;
    player.beep = [&] { ++beeps; };
    player.showAnalysis = [&](QWidget& over) { analyses += over.objectName() == "bestPlayError"; };
    DialogRobot robot{ClickOn("analysis"), ClickOn("yes")};
    EXPECT_TRUE(player.GoesOnAfterError("Continue?"));
    EXPECT_TRUE(beeps == 1 && analyses == 1);
}

}  // namespace
