// The questions of a flow as the window asks them.
#include "app/WindowPlayer.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDesktopServices>
#include <QPlainTextEdit>
#include <QTextOption>
#include <QUrl>

#include "game/paytables/PayTableEditor.h"
#include "game/session/AnalyzeGame.h"
#include "tests/game/FakePorts.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/charts/ShareChart.h"

// Takes what is to be shown to the desktop.
class OpenedFolder : public QObject {
    Q_OBJECT

  public:
    OpenedFolder() { QDesktopServices::setUrlHandler("file", this, "Open"); }
    ~OpenedFolder() override { QDesktopServices::unsetUrlHandler("file"); }

    QUrl url;

  public slots:
    void Open(const QUrl& shown) { url = shown; }
};

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
    Seat seat = SeatOf(machine, ports, player);
    GameEngine spare;
};

TEST_F(WindowPlayerTest, OnlyYesIsYesAndAPlayErrorIsHeardAndTheHandAnalysedOverIt) {
    const auto saysYes = [this](const DialogRobot::Step& answer) {
        DialogRobot robot{answer};
        return player.SaysYes("Double Up", "Do you wish to double up?");
    };
    EXPECT_FALSE(saysYes(Press(Qt::Key_Return)) || saysYes(Press(Qt::Key_Escape)));
    EXPECT_TRUE(saysYes(Press(Qt::Key_Y, Qt::AltModifier)));
    int beeps = 0;
    int analyses = 0;
    player.beep = [&] { ++beeps; };
    player.showAnalysis = [&](QWidget& over) { analyses += over.objectName() == "bestPlayError"; };
    const auto goesOn = [this](std::initializer_list<DialogRobot::Step> steps) {
        const DialogRobot robot(steps);
        return player.GoesOnAfterError("Continue?");
    };
    const auto yInText = [](QDialog& dialog) {
        QTest::keyClick(&PartOf<QWidget>(dialog, "message"), Qt::Key_Y);
    };
    EXPECT_FALSE(goesOn({Press(Qt::Key_Return)}) || goesOn({Press(Qt::Key_N)}));
    EXPECT_TRUE(goesOn({ClickOn("analysis"), yInText}));
    EXPECT_TRUE(beeps == 3 && analyses == 1);
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

TEST_F(WindowPlayerTest, AWindowThatClosesRefusesWhatIsOpenAndWhatComesLater) {
    Answer({Type("0"), Press(Qt::Key_Return), [this](QDialog&) { player.RefuseAll(); }},
           [this] { EXPECT_EQ(player.AskDollars(1), std::nullopt) << "with a message over it"; });
    player.AnswerAgain();
    auto running = player.ShowProgress("Hands played...0%");
    const QWidget* modal = QApplication::activeModalWidget();
    EXPECT_TRUE(modal && modal->objectName() == "progress") << "nothing else is let through";
    EXPECT_TRUE(running->Show("Hands played...1%", 1));
    player.RefuseAll();
    EXPECT_FALSE(running->Show("Hands played...2%", 2));
    EXPECT_FALSE(player.ShowProgress("Hands played...0%")->Show("", 0));
    player.Tell("Caption", "Text", MessageIcon::kError);
    player.ShowStatistics(machine.engine);
    PayTableEditor editor(seat, machine.paths, {300, "Jacks or Better", 0});
    EXPECT_FALSE(player.GoesOnAfterError("Continue?") || player.SaysYes("Caption", "Question?") ||
                 player.AskFixedHand(machine.engine) || player.ShowPayTableManager(editor));
    EXPECT_FALSE(player.AskDollars(100) || player.AskHandCount() || player.AskAnalysisFiles({}));
    EXPECT_FALSE(player.AskFileToOpen("/tmp") || player.AskFileToSave("/tmp/a.qdx") ||
                 player.AskNewGameFile("/tmp/a.qdx") || player.AskGame({"A"}, "A"));
    GameReportPages pages(seat, spare, machine.paths);
    EXPECT_EQ(player.ShowGameReport(pages), ReportAnswer::kDone);
}

TEST_F(WindowPlayerTest, ARunIsAskedForAndItsReportAndTheFilesThatAreCheckedFollow) {
    QString summaryText;
    const auto lookAtFiles = [&](QDialog& dialog) {
        EXPECT_FALSE(PartOf<QCheckBox>(dialog, "summary").isChecked());
        summaryText = PartOf<QPlainTextEdit>(dialog, "summaryText").toPlainText();
        PartOf<QCheckBox>(dialog, "detail").click();
    };
    const auto lookAtReport = [](QDialog& dialog) {
        const auto& box = PartOf<QPlainTextEdit>(dialog, "report");
        EXPECT_TRUE(box.toPlainText().contains("Game Payout\t99.5439%\n"));
        EXPECT_TRUE(dialog.findChild<ShareChart*>()->accessibleDescription().startsWith(
            "ROYAL FLUSH: 2.0 % of the return, 81.0 % of the variance\n"));
        const auto tabs = box.document()->defaultTextOption().tabs();
        ASSERT_EQ(tabs.size(), 12);
        for (int i = 1; i < tabs.size(); ++i) {
            EXPECT_GT(tabs[i].position - tabs[i - 1].position,
                      QFontMetricsF(box.font()).horizontalAdvance("999,999,999,999,999"));
        }
        dialog.reject();
    };
    const OpenedFolder opened;
    std::string told;
    Answer({ClickOn("run"), lookAtFiles, ClickOn("ok"),
            [&](QDialog& box) {
                told = dynamic_cast<QMessageBox&>(box).text().toStdString();
                QTest::mouseClick(&PartOf<QPushButton>(box, "openFolder"), Qt::LeftButton);
            },
            lookAtReport},
           [this] { AnalyzeGameCommand(seat, spare, machine.paths); });
    EXPECT_TRUE(summaryText.endsWith(
        QString::fromStdString("named " + machine.folder.Path("Jacks or Better(0) Summary.txt."))));
    EXPECT_EQ(told, "Written in " + machine.folder.Path() + "/:\nJacks or Better(0) Detail.txt");
    EXPECT_EQ(opened.url, QUrl::fromLocalFile(QString::fromStdString(machine.folder.Path())));
    EXPECT_EQ(machine.folder.Read("Jacks or Better(0) Summary.txt"), "(missing)");
    EXPECT_NE(machine.folder.Read("Jacks or Better(0) Detail.txt"), "(missing)");
}

TEST_F(WindowPlayerTest, GamesAndTablesOfTheReportAreBrowsedByKeys) {
    machine.files.mainPath = machine.folder.Write(
        "own.ini",
        "[Jacks or Better(0)]\nNextIndex=2\nPayLines=1\nRank0=11\nPayout0=1\n"
        "[Jacks or Better(2)]\nPrevIndex=0\nPayLines=1\nRank0=11\nPayout0=7\n"
        "[User Games]\n3=9003,Own\n[Own(0)]\nPayLines=1\nRank0=11\nDescr0=OWN LINE\nPayout0=9\n");
    // "<" and ">" stand for the tables before and after the one that is shown.
    const auto shows = [](const std::string& wanted) -> DialogRobot::Step {
        return [wanted](QDialog& dialog) {
            const auto shown = (PartOf<QWidget>(dialog, "previousTable").isEnabled() ? "<" : "") +
                               PartOf<QLineEdit>(dialog, "index").text() +
                               (PartOf<QWidget>(dialog, "nextTable").isEnabled() ? ">" : "") +
                               PartOf<QPlainTextEdit>(dialog, "report").toPlainText();
            EXPECT_TRUE(shown.startsWith(QString::fromStdString(wanted))) << shown.toStdString();
        };
    };
    Answer({shows("0>Game:\tJacks or Better\n\n\t1\n"), ClickOn("nextTable"),
            shows("<2Game:\tJacks or Better\n\n\t7\n"), ClickOn("previousTable"),
            Press(Qt::Key_G, Qt::AltModifier), Press(Qt::Key_End),
            shows("0Game:\tOwn\n\nOWN LINE\t9\n"), Press(Qt::Key_Escape)},
           [this] { AnalyzeGameCommand(seat, spare, machine.paths); });
}

}  // namespace

#include "WindowPlayerTest.moc"
