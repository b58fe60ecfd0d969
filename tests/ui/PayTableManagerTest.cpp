// The pay table manager, worked with keys and clicks.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QScrollArea>

#include "app/WindowPlayer.h"
#include "tests/game/ManagerTable.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/paytables/PayTableManagerDialog.h"

namespace {

using Step = DialogRobot::Step;

// Over what stands in the box.
Step Enter(const QString& name, const QString& text) {
    return [=](QDialog& dialog) {
        auto* box = dialog.findChild<QLineEdit*>(name);
        ASSERT_TRUE(box && box->isEnabled()) << name.toStdString();
        QTest::mouseClick(box, Qt::LeftButton);
        box->selectAll();
        QTest::keyClicks(box, text);
    };
}

Step ExpectText(const QString& name, const QString& text) {
    return [=](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>(name)->text(), text) << name.toStdString();
    };
}

bool IsOn(const QDialog& dialog, const char* name) {
    return dialog.findChild<QWidget*>(name)->isEnabled();
}

Step ExpectOff(std::initializer_list<const char*> names) {
    return [off = std::vector(names)](QDialog& dialog) {
        for (const char* name : off) EXPECT_FALSE(IsOn(dialog, name)) << name;
    };
}

struct Machine : ManagerTable {
    QWidget window;
    PictureStore pictures;
    WindowPlayer player{window, pictures, ports};
    Seat seat = SeatOf(machine, ports, player);

    Machine() { window.show(); }
};

// The manager opened by itself, for what needs no answers.
struct OpenManager : ManagerTable {
    explicit OpenManager(const std::string& game, int id, bool newGame = false)
        : editor(Manager(game, id, 0, newGame)), dialog(editor, nullptr) {
        ShowDialog(dialog);
    }
    QString Live() const { return Part<QLabel>("live").text(); }
    bool IsLiveWaiting() const { return !IsOn(dialog, "live"); }
    template <typename Widget>
    Widget& Part(const QString& name) const {
        return PartOf<Widget>(dialog, name);
    }
    void Click(const QString& name) const {
        QTest::mouseClick(&Part<QWidget>(name), Qt::LeftButton, {}, QPoint(5, 8));
    }

    PayTableEditor editor;
    PayTableManagerDialog dialog;
};

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
    QTRY_COMPARE_WITH_TIMEOUT(m.Live(), QString("Return 99.5439%  Variance 19.51"), 20000);
    auto& fullHouse = m.Part<QLineEdit>("maxPayout3");
    fullHouse.setFocus();
    fullHouse.selectAll();
    QTest::keyClicks(&fullHouse, "40");  // the 8/6 game
    EXPECT_EQ(m.Live(), "Return 99.5439%  Variance 19.51 …");
    EXPECT_TRUE(m.IsLiveWaiting());
    QTRY_VERIFY_WITH_TIMEOUT(m.Live().startsWith("Return 98.392"), 20000);
    fullHouse.selectAll();
    QTest::keyClicks(&fullHouse, "45");
    // What was done is said until the next change.
    m.Click("makeActive");
    EXPECT_TRUE(m.Live().startsWith("Table 0 is saved and active.")) << m.Live().toStdString();
    QTRY_COMPARE_WITH_TIMEOUT(
        m.Live(), QString("Table 0 is saved and active.  Return 99.5439%  Variance 19.51"), 20000);
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

Step ExpectChanged(bool changed) {
    return [=](QDialog& dialog) {
        EXPECT_EQ(dialog.isWindowModified(), changed);
        EXPECT_EQ(dialog.windowTitle(), changed ? "Pay Table Manager[*]" : "Pay Table Manager");
    };
}

Step Trigger(const char* action) {
    return [=](QDialog& dialog) { dialog.findChild<QAction*>(action)->trigger(); };
}

TEST(PayTableManagerTest, ChangesAreMarkedAndNotLostByLeaving) {
    Machine m;
    std::string refusal;
    DialogRobot robot{
        ExpectChanged(false),
        Press(Qt::Key_Return),  // saves nothing and asks nothing
        Enter("payout3", "8"),
        ExpectChanged(true),
        Press(Qt::Key_Escape),
        Press(Qt::Key_Return),  // Cancel
        ClickOn("done"),
        Choose(QMessageBox::Save),
        Note(refusal),
        ExpectText("payout3", "8"),
        ClickOn("changeGame"),
        Choose(QMessageBox::Discard),
        Type("Deuces W"),
        Press(Qt::Key_Return),
        ExpectText("payout3", "15"),
        ExpectChanged(false),
        ClickOn("addTable"),
        Enter("payout3", "16"),
        ClickOn("saveTable"),
        Press(Qt::Key_Return),  // Cancel: no table is added by accident
        ClickOn("prevTable"),
        Choose(QMessageBox::Save),
        Choose(QMessageBox::Yes),
        ExpectText("index", "0"),
        Press(Qt::Key_Escape),
    };
    EditCurrentPayTable(m.seat, m.paths);
    EXPECT_TRUE(refusal.starts_with("Error: You can not overwrite")) << refusal;
    EXPECT_EQ(m.InMain("Deuces Wild(1)", "Payout3"), "16");
    EXPECT_EQ(m.InMain("Deuces Wild(2)", "Payout3"), "(none)");
    EXPECT_EQ(m.InMain("Jacks or Better(0)", "Payout3"), "9");
}

// Of a copy of Jacks or Better.
struct OwnManager : OpenManager {
    OwnManager() : OpenManager("My Game", 9001, true) {
        editor.texts = ReadPayTableTexts(Files().main, "Jacks or Better", 0);
        for (int i = 0; i < 2; ++i) Click("wilds");  // on and off again
    }
    void Key(const QString& name, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        auto& part = Part<QWidget>(name);
        part.setFocus();
        QTest::keyClick(&part, key, modifiers);
    }
    std::string Focus() { return dialog.focusWidget()->objectName().toStdString(); }
    std::string Text(const QString& name) { return Part<QLineEdit>(name).text().toStdString(); }
};

TEST(PayTableManagerTest, KeysMoveLikeInASpreadsheetAndStepsAreTakenBack) {
    OwnManager m;
    m.Key("maxPayout3", Qt::Key_Down);
    EXPECT_EQ(m.Focus(), "maxPayout4");
    m.Key("rank14", Qt::Key_Down);
    EXPECT_EQ(m.Focus(), "rank14");
    m.Key("kicker2", Qt::Key_Up);
    EXPECT_EQ(m.Focus(), "kicker2") << "no other line takes any";
    QTest::keyClicks(&m.Part<QLineEdit>("payout1"), "7");
    m.Click("wilds");
    m.Key("description5", Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(m.Text("description6"), "STRAIGHT");
    EXPECT_EQ(m.Focus(), "description6");
    m.Key("description6", Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(m.Text("description7"), "STRAIGHT");
    m.Key("description1", Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(m.Text("description1"), "4 OF A KIND");
    m.Click("clear");
    for (int i = 0; i < 5; ++i) m.Key("payout1", Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(m.Text("payout1"), "750");
    EXPECT_FALSE(m.Part<QCheckBox>("wilds").isChecked());
    m.Key("payout1", Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(m.Text("payout1"), "50");
    m.Key("gameName", Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(m.Text("payout1"), "750");
}

TEST(PayTableManagerTest, RowsAreDraggedAndPasted) {
    OwnManager m;
    auto& handle = m.Part<QLabel>("handle8");
    const auto at = [&](const char* name) {
        return handle.mapFromGlobal(m.Part<QWidget>(name).mapToGlobal(QPoint(2, 6)));
    };
    QTest::mousePress(&handle, Qt::LeftButton, {}, QPoint(2, 6));
    QTest::mouseMove(&handle, at("handle5"));
    QTest::mouseRelease(&handle, Qt::LeftButton, {}, at("handle2"));
    EXPECT_EQ(m.Text("description2"), "JACKS OR BETTER");
    EXPECT_EQ(m.Text("description8"), "2 PAIR");
    QApplication::clipboard()->setText("10\t50\n11\t55\n");
    m.Key("payout9", Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(m.Text("maxPayout10"), "55");
    std::string told;
    QApplication::clipboard()->setText("FLUSH\nNOTHING\n");
    Answer({Note(told)}, [&] { m.Key("rank9", Qt::Key_V, Qt::ControlModifier); });
    EXPECT_EQ(told, "Input Error: Row 2: \"NOTHING\" is no hand rank.");
    EXPECT_EQ(m.Part<QComboBox>("rank9").currentIndex(), -1);
}

TEST(PayTableManagerTest, EveryLineHasItsFiguresOrSaysWhyItHasNone) {
    OwnManager m;
    auto& gameName = m.Part<QLineEdit>("gameName");
    gameName.selectAll();
    QTest::keyClicks(&gameName, "deuces wild");
    const auto detail = [&] { return m.Part<QLabel>("liveDetail").text(); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return detail().endsWith("breaks even at 4,880"); }, 30000))
        << detail().toStdString();
    EXPECT_TRUE(detail().startsWith("\"deuces wild\" already exists")) << detail().toStdString();
    EXPECT_EQ(m.Part<QLabel>("share0").text(), "1.9807");
    EXPECT_EQ(m.Part<QLabel>("probability8").text(), "21.4585");
    EXPECT_EQ(m.Part<QLabel>("coinMore8").text(), "4.29170");
    EXPECT_EQ(m.Part<QLabel>("share9").text(), "");
    m.Key("rank4", Qt::Key_D, Qt::ControlModifier);
    const auto& reason = m.Part<QLabel>("reason5");
    EXPECT_TRUE(QTest::qWaitFor([&] { return reason.isVisible(); }, 30000));
    EXPECT_EQ(reason.text(), "Never paid: lines 1, 2 and 5 take all its hands.");
    m.Key("rank5", Qt::Key_I, Qt::ControlModifier);  // an empty line in between
    EXPECT_EQ(m.Part<QLabel>("reason6").text(), "Not in the table: line 6 has no hand rank.");
    // Headings stay above their columns.
    auto& area = PartOf<QScrollArea>(m.dialog, "lines");
    m.dialog.resize(m.dialog.minimumSizeHint());
    area.ensureVisible(0, 10'000);
    const auto& box = m.Part<QWidget>("payout14");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !box.visibleRegion().isEmpty(); }));
    const QLabel* payout = nullptr;
    for (const auto* label : area.findChildren<QLabel*>()) {
        if (label->text() == "Pa&yout") payout = label;
    }
    EXPECT_EQ(payout->visibleRegion().boundingRect(), payout->rect());
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return payout->mapToGlobal(QPoint()).x() == box.mapToGlobal(QPoint()).x();
    })) << payout->mapToGlobal(QPoint()).x()
        << " " << box.mapToGlobal(QPoint()).x();
}

TEST(PayTableManagerTest, ALineThatCannotBeChangedIsAsLegibleAsOthers) {
    const OpenManager m("Deuces Wild", 330);
    for (const char* name : {"rank0", "description0", "bonusQuads0"}) {
        const auto& part = m.Part<QWidget>(name);
        ASSERT_FALSE(part.isEnabled());
        for (const auto role : {QPalette::Text, QPalette::ButtonText}) {
            EXPECT_EQ(part.palette().color(QPalette::Disabled, role),
                      part.palette().color(QPalette::Active, role));
        }
    }
    EXPECT_TRUE(m.Part<QWidget>("restore").isVisible() && IsOn(m.dialog, "restore"));
}

TEST(PayTableManagerTest, TablesGoOutAndComeInByFiles) {
    Machine m;
    m.MakeMyGame(2);
    const std::string file = m.machine.folder.Path("out.txt");
    const std::string csv = m.machine.folder.Path("game.csv");
    std::string kept;
    std::string fault;
    m.machine.folder.Write("fault.txt", "[G(0)]\nRank=1\n");
    DialogRobot robot{
        Enter("payout3", "77"),
        Trigger("exportTable"),
        TypeFile("Export", file, "My Game(0).txt"),
        Trigger("exportGameCsv"),
        TypeFile("Export", csv, "My Game.csv"),
        Trigger("exportTable"),
        TypeFile("Export", csv),
        Note(kept),  // No
        [](QDialog& files) { files.reject(); },
        ClickOn("clear"),
        ExpectText("payout3", ""),
        Trigger("import"),
        TypeFile("Open", file),
        ExpectText("payout3", "77"),
        Trigger("import"),
        TypeFile("Open", m.machine.folder.Path("fault.txt")),
        Note(fault),
        ExpectText("payout3", "77"),
        Trigger("import"),
        TypeFile("Open", csv),
        Choose(QMessageBox::Discard),
        Choose(QMessageBox::Ok),
        ExpectText("index", "2"),
        ExpectText("payout3", "77"),
        ExpectChanged(false),
        ClickOn("nextTable"),
        ExpectText("payout3", "9"),
        ClickOn("done"),
    };
    auto editor = m.Manager("My Game", 9001);
    EXPECT_TRUE(m.player.ShowPayTableManager(editor));
    EXPECT_TRUE(kept.starts_with("Export: game.csv already exists")) << kept;
    EXPECT_EQ(fault, "Input Error: Line 2: \"Rank\" is no key of a pay table.");
    EXPECT_TRUE(m.machine.folder.Read("game.csv").starts_with("Game,Table,Type,"));
    EXPECT_EQ(m.InMain("My Game(0)", "Payout3"), "9");
}

}  // namespace
