// The menu bar: what stands in it, when it may be chosen, and what it does.
#include <QActionGroup>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QTimer>

#include "core/paytable/GameCatalogue.h"
#include "game/seat/ShowScene.h"
#include "tests/game/TestMachine.h"
#include "tests/ui/TestProgram.h"

namespace {

std::string EntryText(const QAction& action) {
    if (action.isSeparator()) return " --\n";
    if (action.menu()) return " " + action.text().toStdString() + " >\n";
    const QString keys = action.shortcut().toString();
    return (" " + QString::number(action.data().toInt()) + " " +
            action.text().replace(u'\t', u' ') + (keys.isEmpty() ? "" : " " + keys) +
            (action.isEnabled() ? "\n" : " (greyed)\n"))
        .toStdString();
}

class MenuTest : public ProgramTest {
  protected:
    static QMenu* MenuOf(const TestProgram& p, const char* name) {
        return p.frame->findChild<QMenu*>(name);
    }

    std::vector<QAction*> OpenedEntries() {
        std::vector<QAction*> entries;
        const auto menus = program->frame->findChildren<QMenu*>();
        for (auto* menu : menus) emit menu->aboutToShow();
        for (auto* menu : menus) {
            for (QAction* action : menu->actions()) {
                if (action->data().isValid()) entries.push_back(action);
            }
        }
        return entries;
    }

    // The commands with a check mark, by their order in the bar, once the menus are opened.
    std::vector<int> Checked() {
        std::vector<int> checked;
        for (const QAction* action : OpenedEntries()) {
            if (action->isChecked()) checked.push_back(action->data().toInt());
        }
        return checked;
    }
};

TEST_F(MenuTest, TheMenuBarHoldsItsEntriesInOrderAndGreysMostDuringAHand) {
    TestProgram& p = Start();
    const auto greyed = [&] {
        return std::ranges::count(OpenedEntries(), false, &QAction::isEnabled);
    };
    p.Key(Qt::Key_D);
    OpenedEntries();
    std::string text;
    for (const QAction* popup : p.frame->menuBar()->actions()) {
        text += popup->text().toStdString() + "\n";
        for (const QAction* action : popup->menu()->actions()) {
            if (action->isVisible()) text += EntryText(*action);
        }
    }
    // A line for each entry: command and caption; "--" is a separator, "(greyed)" during a hand.
    EXPECT_EQ(text, TestData("menu-bar.txt"));
    EXPECT_FALSE(p.Action(9001)->isEnabled());
    p.Key(Qt::Key_D);
    EXPECT_EQ(greyed(), 4) << "the Edit menu";
    Answer({ClickOn("ok")}, [&] { p.Key(Qt::Key_A); });
    EXPECT_EQ(greyed(), 4) << "during a fixed hand";
}

TEST_F(MenuTest, AGreyedCommandDoesNothing) {
    TestProgram& p = Start();
    p.Key(Qt::Key_D);
    const Scene dealt = p.ShownScene();
    for (const int command : {330, 9001, 405, 406, 407, 503, 504, 57600}) p.document->Run(command);
    p.Key(Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(p.ShownScene() == dealt);
    EXPECT_TRUE(p.engine.settings.sounds && p.engine.settings.doubleUp);
    p.Key(Qt::Key_D);
    p.clock.inPause = [&] { p.Choose(330); };
    p.Key(Qt::Key_D);
    EXPECT_EQ(p.engine.settings.gameId, 300) << "greyed by the time its turn has come";
}

TEST_F(MenuTest, ChecksFollowTheMachine) {
    TestProgram& p = Start();
    EXPECT_EQ(Checked(), (std::vector{300, 406, 407, 420, 422, 500, 603, 800}));
    for (const int command : {330, 406, 407, 408, 424, 502, 601, 801, 801}) p.Choose(command);
    EXPECT_EQ(Checked(), (std::vector{330, 408, 420, 424, 502, 601, 801}));
    for (const int command : {350, 406, 420, 421, 423, 503, 600, 802}) p.Choose(command);
    EXPECT_EQ(Checked(), (std::vector{350, 406, 408, 421, 423, 503, 504, 600, 802}))
        << "Error Log practises with fixed hands";
    p.Choose(501);
    p.engine.settings.coin = 0.1;
    EXPECT_EQ(Checked(), (std::vector{350, 406, 408, 421, 423, 501, 802})) << "no such coin";
    p.Choose(602);
}

TEST_F(MenuTest, WhatBelongsToTheDesktopIsDoneInTheMiddleOfAHandAndKeptForTheNextStart) {
    Start().clock.inPause = [this] { program->Choose(kFourColourDeck); };
    program->Key(Qt::Key_D);
    EXPECT_TRUE(program->document->Desktop().FourColourDeck());
    EXPECT_EQ(program->document->Actions().WaitingPresses(), 0);
    program->Choose(kFirstCardBack + 1);
    const DesktopSettings& later = Start().document->Desktop();
    EXPECT_TRUE(later.FourColourDeck() && later.Animation());
    EXPECT_EQ(later.CardBack(), 1);
    QSettings().setValue("table/cardBack", 7);
    EXPECT_EQ(later.CardBack(), 0);
}

TEST_F(MenuTest, AGameChangeBringsItsTitleAndItsPlaces) {
    SetInTable("Deuces Wild", "CharlieBonus", "1");
    TestProgram& p = Start();
    p.frame->resize(1024, 724);
    const QRect panel = p.Places().namePanel;
    p.Choose(330);
    EXPECT_EQ(p.Title(), "Deuces Wild - Tolvane");
    EXPECT_NE(p.Places().namePanel, panel) << "laid out for one more line";
    p.frame->resize(kMinimumMachineSize);
    EXPECT_TRUE(p.Places().plate.isEmpty()) << "the charlie needs its place";
    EXPECT_EQ(p.Title(), "Deuces Wild - Tolvane [Table 0, Casino]");
}

TEST_F(MenuTest, ThePlayersOwnGamesAreListedAnewAtEachOpening) {
    {
        ProfileFile file;
        const std::string main = folder.Path("Tolvane.ini");
        file.WriteString("User Games", "4", "405,Clear Error Log", main);  // no number of a game
        file.SetSectionText("User Game 2(0)", *file.GetSectionText("Deuces Wild(0)", main), main);
    }
    TestProgram& p = Start();
    const auto listed = [&] {
        emit MenuOf(p, "gamesMenu")->aboutToShow();
        std::string text;
        for (const QAction* action : MenuOf(p, "userGamesMenu")->actions()) {
            text += (action->isChecked() ? "*" : "") + EntryText(*action);
        }
        return text;
    };
    EXPECT_EQ(std::ranges::count(listed(), '\n'), 9);
    p.file.WriteString("User Games", "1", "9001,Practice & More", p.paths.mainProfile);
    EXPECT_NE(listed().find(" 9001 Practice && More\n"), std::string::npos);
    p.Choose(9002);
    EXPECT_EQ(p.Title(), "User Game 2 - Tolvane");
    EXPECT_NE(listed().find("* 9002 User Game 2\n"), std::string::npos);
}

TEST_F(MenuTest, MenusAreWorkedByKeysAndGiveThemBack) {
    TestProgram& p = Start();
    const auto type = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(popup ? popup : focus ? focus : p.frame.get(), key, modifiers);
        QApplication::processEvents();
    };
    type(Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(MenuOf(p, "coinMenu")->isVisible());
    type(Qt::Key_Escape);
    EXPECT_TRUE(p.view->hasFocus());
    type(Qt::Key_S, Qt::AltModifier);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Down, Qt::Key_Return}) type(key);
    EXPECT_EQ(p.engine.settings.speed, Speed::kNormal);
    EXPECT_TRUE(p.engine.handOver) << "letters opened menus only";
    type(Qt::Key_D);
    EXPECT_FALSE(p.engine.handOver);
}

TEST_F(MenuTest, ALetterGoesToTheNextEntryThatBeginsWithItAndHomeAndEndToTheEnds) {
    TestProgram& p = Start();
    const auto reached = [&](const char* menu, const QString& keys, Qt::Key last = Qt::Key(0)) {
        QMenu* opened = MenuOf(p, menu);
        opened->popup({0, 0});
        QTest::keyClicks(opened, keys);
        if (last) QTest::keyClick(opened, last);
        const QAction* active = opened->activeAction();
        const std::string text = opened->isVisible() && active ? active->text().toStdString() : "";
        opened->close();
        return text;
    };
    EXPECT_EQ(reached("gamesMenu", "j"), "Jacks or Better");
    EXPECT_EQ(reached("gamesMenu", "jJ"), "Joker Poker - Kings or Better");
    EXPECT_EQ(reached("gamesMenu", "jjjjj"), "Jacks or Better") << "after the last, the first";
    EXPECT_EQ(reached("gamesMenu", "u"), "User Games");
    EXPECT_EQ(reached("gamesMenu", "jz"), "Jacks or Better") << "none begins with it";
    EXPECT_EQ(reached("gamesMenu", "j", Qt::Key_End), "Pick Em Poker");
    EXPECT_EQ(reached("gamesMenu", "u", Qt::Key_Home), "Jacks or Better");
    EXPECT_EQ(reached("optionsMenu", "c"), "Cash Out\tO") << "as the key of the machine alone does";
    EXPECT_EQ(reached("optionsMenu", "ccc"), "Calculate Combinations");
    EXPECT_EQ(reached("fileMenu", "e"), "E&xit") << "which its letter x chooses";
    p.Key(Qt::Key_D);
    EXPECT_EQ(reached("fileMenu", "s"), "") << "both that begin with it are greyed";
    EXPECT_EQ(reached("optionsMenu", "c"), "Cash Out\tO");
    EXPECT_EQ(reached("optionsMenu", "cc"), "Calculate Combinations") << "past what is greyed";
    EXPECT_EQ(p.engine.settings.gameId, 300) << "none was chosen";
    EXPECT_EQ(Told([&] { reached("helpMenu", "a"); }), "About Tolvane") << "chosen by its letter";
}

TEST_F(MenuTest, AChoiceIsMarkedByADotAndWhatIsOnOrOffByABox) {
    Start();
    for (const QAction* action : OpenedEntries()) {
        const int id = action->data().toInt();
        const bool isBox = (id >= kToggleSounds && id <= kToggleShowDollar) || id == kFixedHand ||
                           id == kAnimation || id == kFourColourDeck || id == kFullScreen;
        EXPECT_EQ(action->isCheckable(), isBox || action->isChecked()) << id;
        const bool isDot = action->actionGroup() && action->actionGroup()->isExclusive();
        EXPECT_EQ(isDot && action->isChecked(), action->isChecked() && !isBox) << id;
    }
}

TEST_F(MenuTest, ResettingFromTheMenuClearsTheErrorLogTooAndKeyZeroDoesNot) {
    TestProgram& p = Start();
    for (const int command : {kResetStatistics, kClearErrorLog}) {
        p.engine.replayIndex = 1;
        p.Choose(command);
        EXPECT_EQ(p.engine.replayIndex, 0) << command;
    }
    p.engine.replayIndex = p.engine.statistics.handsPlayed.total = 1;
    p.Key(Qt::Key_0);
    EXPECT_EQ(p.engine.replayIndex, 1);
    EXPECT_EQ(p.engine.statistics.handsPlayed.total, 0);
}

TEST_F(MenuTest, AResetIsToldUntilSomethingElseIsButInAHandForAMomentOnly) {
    TestProgram& p = Start();
    p.Key(Qt::Key_0);
    p.Key(Qt::Key_C);
    EXPECT_EQ(p.Message(), "STATISTICS RESET");
    p.Keys({Qt::Key_D, Qt::Key_0});
    ShowAtRest(p.document->PlayersSeat());
    EXPECT_EQ(p.Message(), "STATISTICS RESET");
    EXPECT_TRUE(QTest::qWaitFor([&] { return p.Message() == "HOLD/DRAW"; }, 3000));
}

TEST_F(MenuTest, EveryDialogIsOpenedByItsCommandOrKey) {
    TestProgram& p = Start();
    const std::pair<int, const char*> dialogs[] = {
        {kCombinations, "Combinations"},
        {kAbout, "About Tolvane"},
        {kAnalyzeGame, "Game Analysis"},
        {kEnterCredits, "Dialog"},
        {kViewErrorLog, "Empty Error Log: No errors in log"}};
    for (const auto& [command, caption] : dialogs) {
        EXPECT_EQ(Told([&, id = command] { p.Choose(id); }), caption);
    }
    // These stand in the menus as well.
    const std::pair<Qt::Key, const char*> keys[] = {{Qt::Key_A, "Assign Fixed Hand"},
                                                    {Qt::Key_S, "Game Play Analysis"},
                                                    {Qt::Key_H, "Hand Analysis"},
                                                    {Qt::Key_E, "Select Game"},
                                                    {Qt::Key_T, "Pay Table Manager"}};
    for (const auto& [key, caption] : keys) {
        EXPECT_EQ(Told([&, pressed = key] { p.Key(pressed); }), caption);
    }
    p.Key(Qt::Key_D);
    {
        const DialogRobot nothingOpens{};  // no table is edited that a bet is on
        p.Keys({Qt::Key_E, Qt::Key_T});
        p.DoubleClick(p.Places().namePanel);
    }
    p.Key(Qt::Key_C);
    EXPECT_TRUE(p.engine.settings.showDollar) << "greyed in the menu alone";
}

TEST_F(MenuTest, FileCommandsTakeTheFileThatIsTyped) {
    folder.Write("other.qdx", "[main]\nCredits=77\nBet=2\nGameID=330\nGameName=Deuces Wild\n");
    TestProgram& p = Start();
    p.Keys({Qt::Key_B, Qt::Key_B});
    p.Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Stored("Bet"), "2");
    Answer({TypeFile("Save As", folder.Path("copy"))}, [&] { p.Choose(kFileSaveAs); });
    EXPECT_EQ(p.Title(), "Jacks or Better (copy.qdx) - Tolvane");
    Answer({TypeFile("Open", folder.Path("other.qdx"))}, [&] { p.Choose(kFileOpen); });
    EXPECT_EQ(p.Title(), "Deuces Wild (other.qdx) - Tolvane");
    Answer({TypeFile("New Game File", folder.Path("new"))}, [&] { p.Choose(kFileNew); });
    EXPECT_EQ(p.Title(), "Deuces Wild (new.qdx) - Tolvane");
}

constexpr const char* kDeuces = "[main]\nCredits=50\nGameID=330\nGameName=Deuces Wild\n";

TEST_F(MenuTest, TheLastGameFilesStandInTheFileMenuUntilTheyAreGone) {
    ASSERT_TRUE(QDir(QString::fromStdString(folder.Path())).mkdir("more"));
    const std::vector<std::string> files{"a.qdx", "b & c.qdx", "more/a.qdx", "d.qdx", "e.qdx"};
    TestProgram& p = Start();
    const auto path = [&](const std::string& name) {
        return QString::fromStdString(folder.Path(name));
    };
    for (const std::string& file : files) {
        folder.Write(file, kDeuces);
        p.document->OpenFile(path(file));
    }
    const auto entry = [&](int i) {
        emit MenuOf(p, "fileMenu")->aboutToShow();
        return p.frame->findChild<QAction*>("lastGameFile" + QString::number(i));
    };
    EXPECT_EQ(entry(1)->text(), "&1 d.qdx") << "not the one in use";
    EXPECT_TRUE(entry(2)->text().startsWith("&2 a.qdx in ")) << entry(2)->text().toStdString();
    EXPECT_EQ(entry(3)->text(), "&3 b && c.qdx");
    EXPECT_EQ(entry(4)->toolTip(), path("a.qdx"));
    EXPECT_EQ(entry(5), nullptr);
    entry(4)->trigger();
    EXPECT_EQ(p.Title(), "Deuces Wild (a.qdx) - Tolvane");
    EXPECT_EQ(entry(1)->text(), "&1 e.qdx");
    QFile::remove(path("e.qdx"));
    EXPECT_TRUE(Told([&] { entry(1)->trigger(); }).find("e.qdx is missing") != std::string::npos);
    EXPECT_EQ(entry(1)->text(), "&1 d.qdx");
    p.Key(Qt::Key_D);
    EXPECT_FALSE(entry(1)->isEnabled());
}

TEST_F(MenuTest, AFileThatComesDuringAHandOrAQuestionWaitsAndTheNewestIsOpened) {
    for (const char* name : {"one.qdx", "two.qdx"}) folder.Write(name, kDeuces);
    TestProgram& p = Start();
    const auto open = [&](const char* name) {
        p.document->OpenFile(QString::fromStdString(folder.Path(name)));
    };
    p.Key(Qt::Key_D);
    const QSize machine = p.view->size();
    open("one.qdx");
    open("two.qdx");
    EXPECT_EQ(p.Title(), "two.qdx waits to be opened - Jacks or Better - Tolvane");
    const auto* note = p.frame->findChild<QLabel*>("waitingNote");
    EXPECT_TRUE(note->isVisible() && note->text().startsWith("two"));
    QApplication::processEvents();
    EXPECT_EQ(p.view->size(), machine);
    p.Key(Qt::Key_D);
    EXPECT_FALSE(note->isVisible());
    EXPECT_EQ(p.Title(), "Deuces Wild (two.qdx) - Tolvane");
    EXPECT_EQ(Told([&] {
                  QTimer::singleShot(0, [&] {
                      open("one.qdx");
                      EXPECT_TRUE(p.Title().starts_with("one.qdx waits"));
                  });
                  p.Choose(kAbout);
                  EXPECT_EQ(p.Title(), "Deuces Wild (one.qdx) - Tolvane");
              }),
              "About Tolvane");
}

}  // namespace
