// The error log viewer with the keys and clicks of a person.
#include "ui/reports/ErrorLogDialog.h"

#include <QLineEdit>
#include <QPushButton>

#include "core/store/ErrorLog.h"
#include "game/seat/Seat.h"
#include "tests/game/TestMachine.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/parts/ReportBox.h"

namespace {

class ErrorLogDialogTest : public testing::Test {
  protected:
    // Entry i has the card of the deck of that number in its first place, and cost i dollars.
    void Open(int errors, const std::string& game = "Jacks or Better", int gameId = 300) {
        machine = std::make_unique<TestMachine>(game, gameId);
        GameEngine& engine = machine->engine;
        for (int i = 0; i < errors; ++i) {
            const CardCode first = i % 40;
            const ErrorLogEntry entry{
                {first, 40, 41, 42, 43}, {44, 45, 46, 47, 48}, 31, 0, i + 1.0, 1.0};
            AppendError(machine->files.Game(), StatsSection(engine), entry,
                        engine.statistics.nextError);
        }
        engine.statistics.playErrors = {errors, errors};
        engine.statistics.handsPlayed = {200, 200};
        dialog = std::make_unique<ErrorLogDialog>(engine, machine->files, store, nullptr);
        ShowDialog(*dialog);
    }

    template <typename Widget>
    Widget& Part(const char* name) {
        return *dialog->findChild<Widget*>(name);
    }
    QString NameOfPlace(int place) {
        return Part<QWidget>(qPrintable(QString("place%1").arg(place))).accessibleName();
    }
    bool CanGo(const char* button) { return Part<QPushButton>(button).isEnabled(); }
    void PressKey(Qt::Key key) { QTest::keyClick(dialog->focusWidget(), key); }

    std::unique_ptr<TestMachine> machine;
    PictureStore store;
    std::unique_ptr<ErrorLogDialog> dialog;
};

TEST_F(ErrorLogDialogTest, AFullLogIsWalkedFromTheOldestToTheNewest) {
    Open(kErrorLogSize);
    for (int i = 0; i < kErrorLogSize; ++i) {
        ASSERT_EQ(Part<QLineEdit>("title").text(), QString("Error %1").arg(i + 1));
        ASSERT_TRUE(
            Part<ReportBox>("entry").toPlainText().contains(QString("\nCost ($)\t%1.0000").arg(i)));
        ASSERT_EQ(CanGo("previous"), i > 0);
        ASSERT_EQ(CanGo("next"), i + 1 < kErrorLogSize);
        QTest::mouseClick(&Part<QPushButton>("next"), Qt::LeftButton);
    }
}

TEST_F(ErrorLogDialogTest, KeysTurnThePagesWhereverTheFocusIs) {
    Open(7);
    for (const char* name : {"title", "entry", "summary", "ok"}) {
        Part<QWidget>(name).setFocus();
        const std::pair<Qt::Key, int> keys[] = {{Qt::Key_End, 6},
                                                {Qt::Key_PageDown, 6},
                                                {Qt::Key_PageUp, 5},
                                                {Qt::Key_Home, 0},
                                                {Qt::Key_PageUp, 0}};
        for (const auto& [key, index] : keys) {
            PressKey(key);
            EXPECT_EQ(dialog->Index(), index) << name;
        }
    }
}

TEST_F(ErrorLogDialogTest, AKeyHeldDownAtTheEndDoesNotCloseTheDialog) {
    Open(2);
    EXPECT_TRUE(Part<QPushButton>("next").hasFocus());
    for (const int index : {1, 0, 1}) {
        PressKey(Qt::Key_Space);
        EXPECT_EQ(dialog->Index(), index);
    }
    Open(1);
    EXPECT_FALSE(CanGo("next") || CanGo("previous"));
    EXPECT_TRUE(Part<QPushButton>("ok").hasFocus());
}

TEST_F(ErrorLogDialogTest, PilesAndTheSixthCardHaveTheirPlaces) {
    Open(1, "Pick Em Poker", 350);
    EXPECT_EQ(NameOfPlace(2), "no card");
    EXPECT_EQ(NameOfPlace(4), "6 of diamonds");
    Open(1, "Sneak Peak Poker", 351);
    EXPECT_TRUE(Part<QWidget>("firstDrawCard").isVisible());
    EXPECT_EQ(Part<QWidget>("knownCard").accessibleName(), "6 of diamonds");
}

TEST_F(ErrorLogDialogTest, WhatIsShownCanBeSaved) {
    Open(2);
    PressKey(Qt::Key_End);
    EXPECT_EQ(NameOfPlace(0), "2 of spades");
    EXPECT_FALSE(Part<QWidget>("firstDrawCard").isVisible());
    machine->engine.settings.gameName = "Foo %1";
    Answer({TypeFile("Save As", machine->folder.Path("error.txt"), "Foo %1 error 2.txt")},
           Part<ReportBox>("entry").saveAs);
    const std::string saved = machine->folder.Read("error.txt");
    EXPECT_TRUE(saved.starts_with("Error 2\nBest Play\t22345\nYour Play\t_____\n\n")) << saved;
    EXPECT_NE(saved.find("\n\nGame Summary\nHands Played\t200\n"), std::string::npos) << saved;
}

}  // namespace
