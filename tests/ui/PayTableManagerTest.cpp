// The pay table manager, worked with keys and clicks.
#include <QCheckBox>
#include <QComboBox>
#include <QScrollArea>

#include "tests/ui/ManagerWindow.h"

namespace {

TEST(PayTableManagerTest, ASecondTableIsAddedToABuiltInGameAndSteppedTo) {
    Machine m;
    std::string told;
    DialogRobot robot{
        Enter("payout3", "8"),
        Press(Qt::Key_Return),  // saves, which this table does not allow
        Note(told),
        ClickOn("addTable"),
        ExpectText("index", "1"),
        Enter("payout3", "7"),
        ClickOn("saveTable"),
        Choose(QMessageBox::No),
        ExpectText("index", "2"),
        ClickOn("prevTable"),
        ExpectText("payout3", "8"),
        ClickOn("prevTable"),
        ClickOn("nextTable"),
        ClickOn("nextTable"),
        ClickOn("makeActive"),
        Press(Qt::Key_Escape),
    };
    EditCurrentPayTable(m.seat, m.paths);
    EXPECT_EQ(told, "Error: You can not overwrite the default pay table for a pre-defined game");
    EXPECT_EQ(StatsSection(m.engine), "Jacks or Better(2)");
}

TEST(PayTableManagerTest, ARefusalPutsTheCursorWhereItBelongs) {
    Machine m;
    m.MakeMyGame();
    std::string told;
    std::string question;
    DialogRobot robot{
        Enter("description8", " "),
        Press(Qt::Key_Backspace),
        [](QDialog& dialog) {
            dialog.resize(dialog.minimumSizeHint());
            PartOf<QScrollArea>(dialog, "lines").ensureVisible(0, 0);
        },
        ClickOn("makeActive"),
        Note(told),
        [](QDialog& dialog) {
            EXPECT_EQ(dialog.focusWidget()->objectName(), "description8");
            EXPECT_FALSE(dialog.focusWidget()->visibleRegion().isEmpty()) << "scrolled to";
        },
        Type("JACKS"),
        ClickOn("makeActive"),
        ClickOn("deleteTable"),
        Note(question),
        ClickOn("loadTemplate"),
        Type("All"),  // All American Poker
        Press(Qt::Key_Return),
        ExpectText("payout4", "8"),
        ClickOn("renameGame"),
        Type("Better Jacks"),
        Press(Qt::Key_Return),
        ExpectText("gameName", "Better Jacks"),
        ClickOn("done"),
        Choose(QMessageBox::Discard),
    };
    auto editor = m.Manager("My Game", 9001);
    EXPECT_TRUE(m.player.ShowPayTableManager(editor));
    EXPECT_EQ(told, "Input Error: Description can not be blank");
    EXPECT_TRUE(question.starts_with("Confirm Delete: Deleting the default pay table will"))
        << question;
}

TEST(PayTableManagerTest, TheLineAboveTheTableFollowsTyping) {
    OpenManager m("Jacks or Better", 300);
    const auto comesToSay = [&](const char* line) {
        return QTest::qWaitFor([&] { return m.Live().startsWith(line) && !m.IsLiveWaiting(); },
                               20000);
    };
    EXPECT_TRUE(comesToSay("Return 99.5439%  Variance 19.51")) << m.Live().toStdString();
    auto& fullHouse = m.Part<QLineEdit>("maxPayout3");
    fullHouse.setFocus();
    fullHouse.selectAll();
    QTest::keyClicks(&fullHouse, "40");  // the 8/6 game
    EXPECT_EQ(m.Live(), "Return 99.5439%  Variance 19.51 …");
    EXPECT_TRUE(m.IsLiveWaiting());
    EXPECT_TRUE(comesToSay("Return 98.392")) << m.Live().toStdString();
    fullHouse.selectAll();
    QTest::keyClicks(&fullHouse, "45");
    // What was done is said until the next change.
    m.Click("makeActive");
    EXPECT_TRUE(m.Live().startsWith("Table 0 is saved and active.")) << m.Live().toStdString();
    EXPECT_TRUE(comesToSay("Table 0 is saved and active.  Return 99.5439%  Variance 19.51"))
        << m.Live().toStdString();
    QTest::keyClicks(&m.Part<QLineEdit>("maxBet"), "0");
    EXPECT_FALSE(m.Live().contains("saved")) << m.Live().toStdString();
}

TEST(PayTableManagerTest, AfterADeletionNothingIsOfferedButAnotherGame) {
    Machine m;
    m.MakeMyGame(2);
    DialogRobot robot{
        ClickOn("deleteTable"),
        Choose(QMessageBox::Ok),
        ExpectOff({"saveTable", "makeActive", "addTable", "clear", "loadTemplate", "renameGame",
                   "deleteTable", "nextTable", "prevTable", "maxBet", "rank0", "payout0"}),
        [](QDialog& dialog) { EXPECT_EQ(dialog.focusWidget()->objectName(), "changeGame"); },
        Press(Qt::Key_Space),
        Type("Deu"),
        Press(Qt::Key_Return),
        ExpectOff({"renameGame"}),
        [](QDialog& dialog) { EXPECT_TRUE(IsOn(dialog, "saveTable")); },
        ClickOn("done"),
    };
    auto editor = m.Manager("My Game", 9001, 1);
    EXPECT_TRUE(m.player.ShowPayTableManager(editor));
}

TEST(PayTableManagerTest, KeysAreTakenWhileTheReturnIsReckoned) {
    OpenManager m("One-Eyed Jacks", 317);
    EXPECT_TRUE(m.IsLiveWaiting()) << "it has begun by itself";
    auto& box = m.Part<QLineEdit>("payout0");
    box.setFocus();
    QElapsedTimer time;
    time.start();
    QTest::keyClick(&box, Qt::Key_1);
    qint64 longest = 0;  // that a key would have to wait, until the return is there
    const auto isReckoned = [&] {
        longest = std::max(longest, time.restart());
        return !m.IsLiveWaiting();
    };
    EXPECT_TRUE(QTest::qWaitFor(isReckoned, 60'000));
    EXPECT_LT(longest, 100) << "milliseconds for a key";
}

TEST(PayTableManagerTest, BoxesAndRanksChangeWhatTheyDecideAbout) {
    OpenManager m("User Game 1", 9001, true);
    EXPECT_FALSE(IsOn(m.dialog, "wildsOK0") || IsOn(m.dialog, "jokers"));
    m.Click("wilds");
    EXPECT_TRUE(IsOn(m.dialog, "jokers") && m.Part<QCheckBox>("wildsOK14").isChecked());
    m.Click("fiveAces");
    EXPECT_FALSE(IsOn(m.dialog, "jokers") || IsOn(m.dialog, "wilds") || IsOn(m.dialog, "oej"));
    auto& rank = m.Part<QComboBox>("rank0");
    rank.setFocus();
    QTest::keyClicks(&rank, "FUL");
    EXPECT_EQ(m.Part<QLineEdit>("description0").text(), "FULL HOUSE;FH");
    QTest::keyClick(&rank, Qt::Key_End);
    EXPECT_EQ(rank.currentIndex(), -1) << "the end of the table is shown as nothing";
}

TEST(PayTableManagerTest, ARankThatIsNotOfferedStaysWhereItIs) {
    ManagerTable t;
    t.MakeMyGame();
    t.machine.file.WriteString("My Game(0)", "Rank1", "17", t.paths.mainProfile);
    auto editor = t.Manager("My Game", 9001);
    const PayTableManagerDialog dialog(editor, nullptr);
    EXPECT_EQ(dialog.findChild<QComboBox*>("rank1")->currentText(), "ALL RED/BLACK");
    EXPECT_EQ(dialog.findChild<QComboBox*>("rank0")->findText("ALL RED/BLACK"), -1);
}

TEST(PayTableManagerTest, EveryFieldHasAWayInByKeyboardAndAName) {
    OpenManager m("My Game", 9001, true);
    QStringList seen;
    for (QWidget* focus = m.dialog.focusWidget(); !seen.contains(focus->objectName());
         focus = m.dialog.focusWidget()) {
        seen.append(focus->objectName());
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    for (const char* name : {"maxBet", "oej", "minPair", "rank14", "maxPayout14", "saveTable"}) {
        EXPECT_TRUE(seen.contains(name)) << name;
    }
    EXPECT_LT(seen.indexOf("gameName"), seen.indexOf("rank0"));
    EXPECT_EQ(seen.indexOf("description0") + 1, seen.indexOf("payout0"));
    EXPECT_LT(seen.indexOf("maxPayout14"), seen.indexOf("changeGame"));
    EXPECT_LE(m.dialog.minimumSizeHint().width(), 620);
    EXPECT_LE(m.dialog.minimumSizeHint().height(), 440);
    for (const QWidget* field : m.dialog.findChildren<QLineEdit*>()) {
        const bool named = !field->accessibleName().isEmpty() ||
                           std::ranges::any_of(m.dialog.findChildren<QLabel*>(), [&](auto* label) {
                               return label->buddy() == field;
                           });
        EXPECT_TRUE(named) << field->objectName().toStdString();
    }
}

TEST(PayTableManagerTest, ItClosesFromWithinAQuestionThatWouldBeAskedAgain) {
    Machine m;
    m.MakeMyGame();
    DialogRobot robot{
        ClickOn("renameGame"),
        Type("Deuces Wild"),
        Press(Qt::Key_Return),
        [&](QDialog&) { m.player.RefuseAll(); },
    };
    auto editor = m.Manager("My Game", 9001);
    EXPECT_FALSE(m.player.ShowPayTableManager(editor));
    EXPECT_EQ(editor.gameName, "My Game");
}

}  // namespace
