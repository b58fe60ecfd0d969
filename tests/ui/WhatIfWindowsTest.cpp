// The windows Compare and Meter, and the column of the Game window, used by keyboard and pointer.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableView>
#include <QTableWidget>
#include <stdexcept>

#include "tests/ui/TestProgram.h"
#include "ui/tables/ReportTableView.h"

namespace {

QWidget& TopLevel(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible()) return *window;
    }
    throw std::runtime_error(name);
}

QTableView& TableIn(const QWidget& window, const char* name) {
    return PartOf<QTableView>(PartOf<ReportTableView>(window, name), "table");
}

QString TextAt(const QTableView& table, int row, int column) {
    return table.model()->index(row, column).data().toString();
}

bool Says(const QLabel& label, const char* text) {
    return QTest::qWaitFor([&] { return label.text().contains(text); }, 60'000);
}

class WhatIfWindowsTest : public ProgramTest {};

TEST_F(WhatIfWindowsTest, CompareSetsATableBesideItselfWithOtherPays) {
    TestProgram& p = Start();
    p.Choose(kCompare);
    QWidget& window = TopLevel("compare");
    const auto& words = PartOf<QLabel>(window, "words");
    EXPECT_TRUE(Says(words, "No hand is played differently."));
    PartOf<QCheckBox>(window, "otherPays").click();
    auto& pays = PartOf<QTableWidget>(window, "pays");
    EXPECT_TRUE(pays.isVisible());
    pays.item(4, 2)->setText("five");
    EXPECT_EQ(pays.item(4, 2)->text(), "6") << "what is no pay is put back";
    pays.item(4, 2)->setText("5");
    EXPECT_TRUE(Says(words, "11,568 of 2,598,960 hands are played differently"))
        << words.text().toStdString();
    auto& played = TableIn(window, "played");
    EXPECT_EQ(TextAt(played, 0, 0), "4 to a flush");
    EXPECT_EQ(TextAt(played, 0, 1), "3 to a royal flush");

    // The hand on both, each in a window of its own.
    played.setCurrentIndex(played.model()->index(0, 0));
    QTest::keyClick(&played, Qt::Key_Return);
    int hands = 0;
    for (const QWidget* shown : QApplication::topLevelWidgets()) {
        if (shown->objectName() == "handAside" && shown->isVisible()) ++hands;
    }
    EXPECT_EQ(hands, 2);
    EXPECT_EQ(TopLevel("handAside").findChild<QWidget*>("refresh"), nullptr);

    QTest::keyClick(&window, Qt::Key_F5);
    EXPECT_EQ(pays.item(4, 2)->text(), "5") << "what was typed stays";

    PartOf<QCheckBox>(window, "otherPays").click();
    auto& b = PartOf<QComboBox>(window, "tableB");
    b.setCurrentIndex(b.findText("Deuces Wild, table 0"));
    EXPECT_TRUE(Says(words, "other wild cards"));
    EXPECT_EQ(played.model()->rowCount(), 0);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(WhatIfWindowsTest, TheMeterFollowsItsSlider) {
    TestProgram& p = Start();
    p.Choose(kMeter);
    QWidget& window = TopLevel("meter");
    const auto& words = PartOf<QLabel>(window, "words");
    EXPECT_TRUE(Says(words, "At 4,000 coins the game returns 99.5439 %"));
    EXPECT_TRUE(words.text().contains("17,600 hands from here"));
    auto& slider = PartOf<QSlider>(window, "slider");
    slider.setValue(4880);
    EXPECT_TRUE(words.text().contains("100.0000 %")) << "at once";
    EXPECT_EQ(PartOf<QSpinBox>(window, "coins").value(), 4880);
    auto& turns = TableIn(window, "turns");
    EXPECT_EQ(TextAt(turns, 0, 0), "4,005");

    // Another line grows beside the first one, which stays where it is.
    auto& line = PartOf<QComboBox>(window, "line");
    line.setCurrentIndex(1);
    EXPECT_TRUE(Says(words, "With ROYAL FLUSH at 4,880."));
    EXPECT_EQ(slider.value(), 250);

    // Of a table that has changed, the meters begin anew: its lines may be others.
    PartOf<QComboBox>(window, "line").setCurrentIndex(8);
    slider.setValue(8);
    p.file.WriteString("Jacks or Better(0)", "PayLines", "8", p.paths.mainProfile);
    QTest::keyClick(&window, Qt::Key_F5);
    EXPECT_TRUE(Says(words, "At 10 coins")) << words.text().toStdString();
    EXPECT_FALSE(words.text().contains("With"));

    auto& game = PartOf<QComboBox>(window, "game");
    game.setCurrentIndex(game.findText("Pick Em Poker, table 0"));
    EXPECT_TRUE(Says(words, "It is even at")) << words.text().toStdString();
    EXPECT_EQ(turns.model()->rowCount(), 0);
}

}  // namespace
