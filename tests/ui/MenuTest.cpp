// The menu bar: what stands in it, when it may be chosen, and what it does.
#include <QMenu>
#include <QMenuBar>

#include "core/paytable/GameCatalogue.h"
#include "tests/ui/TestProgram.h"

namespace {

// A line for each entry: command and caption; "--" is a separator.
constexpr const char* kMenuBarText = R"(&File
 57600 &New Ctrl+N
 57601 &Open... Ctrl+O
 57603 &Save Ctrl+S
 57604 Save &As...
 --
 57665 E&xit
&Edit
 57643 &Undo Ctrl+Z
 57635 Cu&t Ctrl+X
 57634 &Copy Ctrl+C
 57637 &Paste Ctrl+V
&Games
 300 Jacks or Better
 301 Bonus Poker
 302 Double Bonus Poker
 303 Double Double Bonus Poker
 304 Super Double Bonus Poker
 305 Super Double Double Bonus
 306 Bonus Poker Deluxe
 307 Triple Bonus Poker
 308 2 Pair Poker
 309 Aces and Faces
 310 Double Aces and Faces
 311 Double Double Aces and Faces
 312 All American Poker
 313 5 Aces Bonus Poker
 314 5 Aces Double Bonus Poker
 315 5 Aces Double Double Poker
 317 One-Eyed Jacks
 --
 330 Deuces Wild
 331 Deuces and Joker Wild
 332 Deuces Deluxe
 333 Sevens Wild
 334 Bonus Deuces Wild
 335 Super Bonus Deuces Wild
 --
 340 Joker Poker - Kings or Better
 341 Joker Poker - Aces or Better
 342 Joker Poker - 2 Pair
 343 Atlantic City 5K Joker Poker
 344 2 Joker Poker
 345 4 Joker Poker
 346 5 Joker Poker
 --
 User Games >
 --
 350 Pick Em Poker
&Options
 400 Cash Out
 412 Enter Credits
 401 Reset Statistics to 0
 404 View Error Log
 405 Clear Error Log
 402 Edit Pay Table
 403 Assign Fixed Hand
 --
 406 Sound Effects
 407 Double Up
 408 Show Credits as Cash
 --
 411 Calculate Combinations
&Play Mode
 500 Casino
 501 Warning
 502 AutoHold
 503 Error Log
 410 Autoplay
 --
 504 Fixed Hand
&Coin
 600 Nickel
 601 Quarter
 602 50 Cents
 603 Dollar
&Speed
 800 Fast
 801 Normal
 802 Slow
&Analyze
 700 Game Play
 701 Hand
 702 Game
&Help
 57666 Help Index F1
 57664 &About Tolvane...
)";

// Chosen at any time, but for the Edit menu, which never is; all others not while a hand is in
// play.
const std::vector<int> kAlwaysEnabled = {57665, 400, 412, 401, 404, 403, 411, 410, 600,   601,
                                         602,   603, 800, 801, 802, 700, 701, 702, 57666, 57664};
const std::vector<int> kNeverEnabled = {57643, 57635, 57634, 57637};

std::string EntryText(const QAction& action) {
    if (action.isSeparator()) return " --\n";
    if (action.menu()) return " " + action.text().toStdString() + " >\n";
    const QString keys = action.shortcut().toString();
    return (" " + QString::number(action.data().toInt()) + " " + action.text() +
            (keys.isEmpty() ? "" : " " + keys) + "\n")
        .toStdString();
}

class MenuTest : public ProgramTest {
  protected:
    static QMenu* MenuOf(const TestProgram& p, const char* name) {
        return p.frame->findChild<QMenu*>(name);
    }

    // The commands with a check mark, by their order in the bar, once the menus are opened.
    std::vector<int> Checked() {
        std::vector<int> checked;
        for (const QAction* action : OpenedEntries()) {
            if (action->isChecked()) checked.push_back(action->data().toInt());
        }
        return checked;
    }

    std::vector<QAction*> OpenedEntries() {
        std::vector<QAction*> entries;
        for (auto* menu : program->frame->findChildren<QMenu*>()) {
            emit menu->aboutToShow();
        }
        for (auto* menu : program->frame->findChildren<QMenu*>()) {
            for (QAction* action : menu->actions()) {
                if (action->data().isValid()) entries.push_back(action);
            }
        }
        return entries;
    }

    void ExpectEnabled(bool likeGameOver, const std::string& when) {
        const auto isIn = [](const std::vector<int>& list, int id) {
            return std::ranges::find(list, id) != list.end();
        };
        for (const QAction* action : OpenedEntries()) {
            const int id = action->data().toInt();
            const bool expected =
                isIn(kAlwaysEnabled, id) || (likeGameOver && !isIn(kNeverEnabled, id));
            EXPECT_EQ(action->isEnabled(), expected) << id << " " << when;
        }
    }

    void AddUserGame(const std::string& slot, const std::string& value) const {
        ProfileFile().WriteString("User Games", slot, value, folder.Path("Tolvane.ini"));
    }

    void GivePayTable(const std::string& game) const {
        ProfileFile file;
        const std::string path = folder.Path("Tolvane.ini");
        file.SetSectionText(game + "(0)", *file.GetSectionText("Deuces Wild(0)", path), path);
    }
};

TEST_F(MenuTest, TheMenuBarHoldsItsEntriesInOrder) {
    TestProgram& p = Start();
    std::string text;
    for (const QAction* popup : p.frame->menuBar()->actions()) {
        text += popup->text().toStdString() + "\n";
        for (const QAction* action : popup->menu()->actions()) text += EntryText(*action);
    }
    EXPECT_EQ(text, kMenuBarText);
}

TEST_F(MenuTest, MostEntriesAreGreyedWhileAHandIsInPlayButNotInPractice) {
    TestProgram& p = Start();
    ExpectEnabled(true, "at the start");
    p.Key(Qt::Key_D);
    ExpectEnabled(false, "during a hand");
    p.Key(Qt::Key_D);
    ExpectEnabled(true, "after the hand");
    DialogRobot robot{ClickOn("ok")};
    p.Key(Qt::Key_A);
    ASSERT_FALSE(p.engine.handOver);
    ExpectEnabled(true, "during a fixed hand");
}

TEST_F(MenuTest, AGreyedCommandDoesNothing) {
    TestProgram& p = Start();
    p.Key(Qt::Key_D);
    const TableScene dealt = p.Scene();
    for (const int command : {330, 9001, 402, 405, 406, 407, 408, 500, 503, 504, 57600, 57601}) {
        const QAction* action = p.Action(command);
        EXPECT_FALSE(action && action->isEnabled()) << command;
        p.document->Run(command);
    }
    p.Key(Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(p.Scene() == dealt);
    EXPECT_TRUE(p.engine.settings.sounds && p.engine.settings.doubleUp);
    EXPECT_EQ(p.engine.settings.mode, PlayMode::kCasino);
    EXPECT_FALSE(p.engine.handOver);
}

TEST_F(MenuTest, ACommandThatIsGreyedByTheTimeItsTurnComesDoesNothing) {
    TestProgram& p = Start();
    p.clock.inPause = [&] { p.Choose(330); };
    p.Key(Qt::Key_D);
    EXPECT_EQ(p.engine.settings.gameId, 300);
    EXPECT_FALSE(p.engine.handOver);
}

TEST_F(MenuTest, ChecksFollowTheMachine) {
    TestProgram& p = Start();
    EXPECT_EQ(Checked(), (std::vector{300, 406, 407, 500, 603, 800}));
    for (const int command : {330, 406, 407, 408, 502, 601, 801}) p.Choose(command);
    EXPECT_EQ(Checked(), (std::vector{330, 408, 502, 601, 801}));
    for (const int command : {350, 406, 503, 600, 802}) p.Choose(command);
    EXPECT_EQ(Checked(), (std::vector{350, 406, 408, 503, 504, 600, 802}))
        << "Error Log practises with fixed hands";
    p.Choose(501);
    p.Choose(602);
    EXPECT_EQ(Checked(), (std::vector{350, 406, 408, 501, 602, 802}));
    p.engine.settings.coin = 0.1;
    EXPECT_EQ(Checked(), (std::vector{350, 406, 408, 501, 802})) << "no such coin";
    p.Choose(603);
}

TEST_F(MenuTest, AnEntryChosenAgainKeepsItsCheck) {
    TestProgram& p = Start();
    p.Choose(500);
    p.Choose(603);
    p.Choose(300);
    EXPECT_EQ(Checked(), (std::vector{300, 406, 407, 500, 603, 800}));
}

TEST_F(MenuTest, AGameChangeBringsItsPayTableTitleAndSavesTheSwitch) {
    TestProgram& p = Start();
    EXPECT_EQ(p.Title(), "Jacks or Better - Tolvane");
    const QRect panel = p.Places().namePanel;
    p.Key(Qt::Key_B);
    p.Choose(330);
    EXPECT_EQ(p.Title(), "Deuces Wild - Tolvane");
    EXPECT_EQ(p.engine.payTable.lines.size(), 10U);
    EXPECT_NE(p.Places().namePanel, panel) << "laid out for one more line";
    EXPECT_EQ(Stored("GameName"), "Deuces Wild");
    EXPECT_EQ(Stored("GameID"), "330");
    EXPECT_EQ(p.Scene().bet, "1");
    EXPECT_EQ(p.Scene().credits, "100");
    EXPECT_EQ(p.Message(), "GAME OVER");
    p.Choose(350);
    EXPECT_EQ(p.Scene().places[0].holdButton, ButtonLook::kHidden) << "Pick 'Em holds nothing";
    p.Choose(300);
    EXPECT_EQ(p.Scene().places[0].holdButton, ButtonLook::kReleased);
    EXPECT_EQ(p.Places().namePanel, panel);
}

TEST_F(MenuTest, ThePlayersOwnGamesAreListedAnewAtEachOpening) {
    AddUserGame("3", "9003,Practice & More");
    AddUserGame("4", "405,Clear Error Log");  // no number of such a game
    TestProgram& p = Start();
    const auto listed = [&] {
        emit MenuOf(p, "gamesMenu")->aboutToShow();
        std::string text;
        for (const QAction* action : MenuOf(p, "userGamesMenu")->actions())
            text += EntryText(*action);
        return text;
    };
    const std::string first = listed();
    EXPECT_NE(first.find(" 9001 User Game 1\n"), std::string::npos) << first;
    EXPECT_NE(first.find(" 9003 Practice && More\n"), std::string::npos) << first;
    EXPECT_EQ(std::ranges::count(first, '\n'), 9);
    EXPECT_EQ(listed(), first);
    p.file.WriteString("User Games", "1", "9001,Renamed", p.paths.mainProfile);
    EXPECT_NE(listed().find(" 9001 Renamed\n"), std::string::npos);
}

TEST_F(MenuTest, AGameOfThePlayersOwnIsPlayedOnceItHasAPayTable) {
    GivePayTable("User Game 2");
    TestProgram& p = Start();
    p.Choose(9002);
    EXPECT_EQ(p.Title(), "User Game 2 - Tolvane");
    EXPECT_EQ(p.engine.payTable.lines.size(), 10U);
    const auto checked = Checked();
    EXPECT_NE(std::ranges::find(checked, 9002), checked.end());
}

TEST_F(MenuTest, AMenuIsOpenedAndAnEntryChosenByKeys) {
    TestProgram& p = Start();
    QTest::keyClick(p.frame.get(), Qt::Key_S, Qt::AltModifier);
    QMenu* menu = MenuOf(p, "speedMenu");
    ASSERT_TRUE(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_FALSE(menu->isVisible());
    EXPECT_EQ(p.engine.settings.speed, Speed::kNormal);
    EXPECT_TRUE(p.engine.handOver) << "the letter opened the menu only";
}

TEST_F(MenuTest, AMenuLeftWithEscGivesTheKeysBack) {
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
    type(Qt::Key_Right);
    type(Qt::Key_Left);
    EXPECT_TRUE(MenuOf(p, "speedMenu")->isVisible());
    type(Qt::Key_Return);
    type(Qt::Key_D);
    EXPECT_FALSE(p.engine.handOver);
}

TEST_F(MenuTest, AnOpeningMenuEndsACountUp) {
    Set("Speed", "2");
    TestProgram& p = Start();
    p.Stack("JS JD TC TH 2S", 5);
    p.Keys({Qt::Key_D, Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5});
    QMenu* menu = MenuOf(p, "coinMenu");
    p.clock.inPauseWithInput = [&] {
        QMenuBar& bar = *p.frame->menuBar();
        QTest::mouseClick(&bar, Qt::LeftButton, {},
                          bar.actionGeometry(menu->menuAction()).center());
        EXPECT_TRUE(menu->isVisible());
    };
    p.Key(Qt::Key_D);
    EXPECT_EQ(p.clock.pausesWithInput, 1);
    EXPECT_EQ(p.Scene().credits, "105");
    menu->close();
}

TEST_F(MenuTest, ACoinIsShownAndCountsTheCreditsAnew) {
    TestProgram& p = Start();
    p.Choose(kCoinQuarter);
    EXPECT_EQ(p.Scene().credits, "400");
    EXPECT_EQ(p.Scene().coin, 0.25);
    p.Choose(kToggleShowDollar);
    EXPECT_EQ(p.Scene().credits, "$100.00");
    EXPECT_EQ(p.Scene().bet, "$1.25");
}

TEST_F(MenuTest, CreditsAreEnteredAndPaidOutAtAnyTime) {
    TestProgram& p = Start();
    p.Key(Qt::Key_D);
    {
        DialogRobot robot{Type("50"), Press(Qt::Key_Return)};
        p.Choose(kEnterCredits);
    }
    EXPECT_EQ(p.Scene().credits, "145");
    EXPECT_FALSE(p.engine.handOver);
    p.Choose(kCashOut);
    EXPECT_EQ(p.Scene().credits, "0");
    EXPECT_EQ(p.Message(), "Paid $145.00");
}

TEST_F(MenuTest, ResettingFromTheMenuClearsTheErrorLogToo) {
    Set("Mode", "2");
    TestProgram& p = Start();
    p.Stack("AS AD KC 9H 2S", 5);
    p.Key(Qt::Key_D);
    {
        DialogRobot robot{ClickOn("yes")};
        p.Key(Qt::Key_D);
    }
    ASSERT_EQ(Stored("NextError", "Jacks or Better(0)"), "1");
    p.Choose(kResetStatistics);
    EXPECT_EQ(Stored("NextError", "Jacks or Better(0)"), "0");
    EXPECT_EQ(Stored("Error0", "Jacks or Better(0)"), "");
    EXPECT_EQ(p.engine.statistics.handsPlayed.total, 0);
}

TEST_F(MenuTest, AutoplayPlaysAsManyHandsAsAreEntered) {
    TestProgram& p = Start();
    QString caption;
    {
        DialogRobot robot{Type("25"), Press(Qt::Key_Return), [&](QDialog& dialog) {
                              caption = dialog.windowTitle();
                              dialog.reject();
                          }};
        p.Choose(kAutoplay);
    }
    EXPECT_EQ(p.spare.statistics.handsPlayed.session, 25);
    EXPECT_EQ(caption, "Game Play Analysis");
    EXPECT_EQ(p.engine.statistics.handsPlayed.total, 0) << "apart from the player's machine";
}

TEST_F(MenuTest, TheSmallDialogsOpen) {
    TestProgram& p = Start();
    QStringList captions;
    const auto note = [&](QDialog& dialog) {
        captions << dialog.windowTitle();
        dialog.reject();
    };
    for (const int command : {kCombinations, kAbout, kPlayStatistics, kAssignFixedHand}) {
        DialogRobot robot{note};
        p.Choose(command);
    }
    EXPECT_EQ(captions, (QStringList{"Combinations", "About Tolvane", "Game Play Analysis",
                                     "Assign Fixed Hand"}));
}

}  // namespace
