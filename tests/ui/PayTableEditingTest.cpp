// Changes at the pay table manager: marked, taken back, dragged and pasted, sent out and brought
// in, and what is said of them at once.
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QScrollArea>

#include "tests/ui/ManagerWindow.h"

namespace {

Step ExpectChanged(bool changed) {
    return [=](QDialog& dialog) {
        EXPECT_EQ(dialog.isWindowModified(), changed);
        EXPECT_EQ(dialog.windowTitle(), changed ? "Pay Table Manager[*]" : "Pay Table Manager");
    };
}

Step Trigger(const char* action) {
    return [=](QDialog& dialog) { dialog.findChild<QAction*>(action)->trigger(); };
}

TEST(PayTableEditingTest, ChangesAreMarkedAndNotLostByLeaving) {
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

TEST(PayTableEditingTest, KeysMoveLikeInASpreadsheetAndStepsAreTakenBack) {
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

TEST(PayTableEditingTest, WithNothingToTakeBackNothingComesBack) {
    OpenManager m("User Game 1", 9001, true);
    auto& box = m.Part<QLineEdit>("description0");
    box.setFocus();
    QTest::keyClicks(&box, "x");
    QTest::keyClick(&box, Qt::Key_Backspace);
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(m.editor.CanUndo());
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(box.text(), "");
    }
}

TEST(PayTableEditingTest, KeysOfALineAreTakenAmongTheLinesAlone) {
    OwnManager m;
    const auto shifted = Qt::ControlModifier | Qt::ShiftModifier;
    QApplication::clipboard()->setText("77");
    m.Key("payout5", Qt::Key_V, shifted);
    EXPECT_EQ(m.Text("payout5"), "77");
    QApplication::clipboard()->setText("88");
    for (const auto key : {Qt::Key_V, Qt::Key_K, Qt::Key_Up}) m.Key("maxBet", key, shifted);
    EXPECT_EQ(m.Text("payout5") + m.Text("maxBet"), "775");
    const auto paste = [&] { m.dialog.findChild<QAction*>("pasteRows")->trigger(); };
    paste();  // from the menu
    EXPECT_EQ(m.Text("payout5"), "88");
    m.Part<QWidget>("rank5").setFocus();
    Answer({Choose(QMessageBox::Discard), Type("Deuces W"), Press(Qt::Key_Return)},
           [&] { m.Click("changeGame"); });
    QApplication::clipboard()->setText("99");
    paste();
    EXPECT_EQ(m.Text("payout5"), "99") << "the ranks of this game can not be changed";
}

TEST(PayTableEditingTest, RowsAreDraggedAndPasted) {
    OwnManager m;
    auto& handle = m.Part<QLabel>("handle8");
    const auto at = [&](const char* name) {
        return handle.mapFromGlobal(m.Part<QWidget>(name).mapToGlobal(QPoint(2, 6)));
    };
    QTest::mousePress(&handle, Qt::LeftButton, {}, QPoint(2, 6));
    EXPECT_EQ(handle.cursor().shape(), Qt::ClosedHandCursor);
    QTest::mousePress(&handle, Qt::RightButton, {}, QPoint(2, 6));  // gives it up
    EXPECT_EQ(handle.cursor().shape(), Qt::OpenHandCursor);
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

TEST(PayTableEditingTest, EveryLineHasItsFiguresOrSaysWhyItHasNone) {
    OwnManager m;
    auto& gameName = m.Part<QLineEdit>("gameName");
    gameName.selectAll();
    QTest::keyClicks(&gameName, "deuces wild");
    const auto detail = [&] { return m.Part<QLabel>("liveDetail").text(); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return detail().endsWith("breaks even at 4,880"); }, 30000))
        << detail().toStdString();
    EXPECT_TRUE(detail().startsWith("\"deuces wild\" already exists")) << detail().toStdString();
    EXPECT_EQ(m.Part<QLabel>("share0").text(), "1.9897");
    EXPECT_EQ(m.Part<QLabel>("probability8").text(), "21.4585");
    EXPECT_EQ(m.Part<QLabel>("coinMore8").text(), "4.29170");
    EXPECT_EQ(m.Part<QLabel>("share9").text(), "");
    m.Key("maxBet", Qt::Key_0);
    const auto& share = m.Part<QLabel>("share0");
    EXPECT_FALSE(share.isEnabled() || m.Part<QLabel>("liveDetail").isEnabled()) << "not yet again";
    EXPECT_TRUE(QTest::qWaitFor([&] { return share.isEnabled(); }, 30000));
    m.Key("rank4", Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(share.text(), "") << "of other lines";
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

TEST(PayTableEditingTest, ALineThatCannotBeChangedIsAsLegibleAsOthers) {
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

TEST(PayTableEditingTest, TablesGoOutAndComeInByFiles) {
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
