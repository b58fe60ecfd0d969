// The hand analysis with the keys and clicks of a person.
#include "ui/reports/HandAnalysisDialog.h"

#include <QHelpEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QToolTip>

#include "tests/game/TestMachine.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/charts/HoldChart.h"
#include "ui/parts/PictureButton.h"
#include "ui/parts/ReportBox.h"

namespace {

class HandAnalysisDialogTest : public testing::Test {
  protected:
    void Open(const std::string& game, int gameId, std::string_view cards) {
        machine = std::make_unique<TestMachine>(game, gameId);
        spare.settings = machine->engine.settings;
        LoadGame(spare, machine->files, machine->tables);
        machine->Stack(cards, 6);
        machine->DealOrDraw();
        LendHand(machine->engine, spare);
        dialog = std::make_unique<HandAnalysisDialog>(spare, store, nullptr);
        ShowDialog(*dialog);
        EXPECT_EQ(dialog->findChild<QWidget*>("firstDrawCard")->isVisible(),
                  gameId == kSneakPeakGameId);
    }
    void OpenJacks() { Open("Jacks or Better", 300, "AS KS QS JS 9S 2D"); }

    template <typename Widget>
    Widget& Part(const char* name) {
        return *dialog->findChild<Widget*>(name);
    }
    QString Line(int number) {
        return Part<ReportBox>("report").toPlainText().split(u'\n').value(number);
    }
    QString NameOfPlace(int place) {
        return Part<QWidget>(qPrintable(QString("placeRank%1").arg(place))).accessibleName();
    }
    void Click(const char* name) { QTest::mouseClick(&Part<QWidget>(name), Qt::LeftButton); }

    std::unique_ptr<TestMachine> machine;
    GameEngine spare;
    PictureStore store;
    std::unique_ptr<HandAnalysisDialog> dialog;
};

TEST_F(HandAnalysisDialogTest, TheHandInPlayIsShownAndCountedAsTheRadiosSay) {
    OpenJacks();
    EXPECT_TRUE(Line(2).startsWith("AKQJ_\t92.")) << Line(2).toStdString();
    EXPECT_TRUE(Line(2).contains("\t47\t23\t24\t12\t")) << Line(2).toStdString();
    EXPECT_EQ(NameOfPlace(1), "place 2, king of spades");
    QTest::keyClick(dialog.get(), Qt::Key_E, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Line(2).contains("\t100.00\t0\t"); }));
    EXPECT_FALSE(machine->engine.handOver || machine->engine.fixedHand) << "left alone";
}

TEST_F(HandAnalysisDialogTest, AMissingCardIsAskedForUntilItIsThere) {
    OpenJacks();
    // The nine, in the last place, goes back, and in the end the ten takes its place.
    Answer({ClickOn("placeRank4"), Press(Qt::Key_Return),
            [](QDialog& box) {
                EXPECT_EQ(dynamic_cast<QMessageBox&>(box).text(),
                          "You must assign a card to each hand position to perform a hand "
                          "analysis");
                Choose(QMessageBox::Ok)(box);
            },
            ClickOn("card1-10"), Press(Qt::Key_Return)},
           [this] { Click("changeHand"); });
    EXPECT_TRUE(Line(2).startsWith("AKQJT\t4,000.0000\t1\t1\t0")) << Line(2).toStdString();
    EXPECT_EQ(NameOfPlace(4), "place 5, 10 of spades");
    EXPECT_EQ(Part<HoldChart>("chart").Holds().front().value, 4000);
    DialogRobot robot{ClickOn("clear"), Press(Qt::Key_Return), Press(Qt::Key_Escape),
                      Press(Qt::Key_Escape)};
    Click("placeSuit2");  // a picture opens the editor, too
    EXPECT_FALSE(dialog->isVisible()) << "cancelled at the question";
    OpenJacks();
    Click("changeHand");
    EXPECT_FALSE(dialog->isVisible()) << "cancelled in the editor";
}

TEST_F(HandAnalysisDialogTest, TheReportCanBeSaved) {
    OpenJacks();
    Answer({TypeFile("Save As", machine->folder.Path("hand.txt"), "Jacks or Better hand.txt")},
           Part<ReportBox>("report").saveAs);
    EXPECT_TRUE(machine->folder.Read("hand.txt").starts_with("Hand\tExp Ret ($)\tHands\t"));
}

TEST_F(HandAnalysisDialogTest, TheChartShowsTheBestHoldFirstAndNamesIt) {
    OpenJacks();
    QTest::keyClick(dialog.get(), Qt::Key_H, Qt::AltModifier);
    auto& chart = Part<HoldChart>("chart");
    ASSERT_TRUE(chart.isVisible());
    const HoldChart::Hold& best = chart.Holds().front();
    EXPECT_EQ(best.cards.join(" "), QString::fromUtf8("A♠ K♠ Q♠ J♠ –"));
    EXPECT_TRUE(best.best);
    EXPECT_EQ(std::ranges::count(chart.Holds(), true, &HoldChart::Hold::best), 1);
    EXPECT_TRUE(chart.accessibleDescription().startsWith(best.note));

    const QPoint row = chart.RowRect(0).center();
    EXPECT_EQ(chart.RowAt({0, 0}), -1);
    QHelpEvent help(QEvent::ToolTip, row, chart.mapToGlobal(row));
    QApplication::sendEvent(&chart, &help);
    const QRegularExpression words(
        "^Best hold: ace of spades, king of spades, queen of spades, jack of spades\n"
        "returns \\$92\\.\\d+\n47 draws, 23 of them win$");
    EXPECT_TRUE(words.match(QToolTip::text()).hasMatch()) << QToolTip::text().toStdString();
}

TEST_F(HandAnalysisDialogTest, PickEmShowsTwoHoldsAndAnEmptyPlaceAndSneakPeakTheSixthCard) {
    const auto bestHold = [this] { return Part<HoldChart>("chart").Holds().front().cards; };
    Open("Pick Em Poker", 350, "7S 8S JH 2D 3D 9S");
    EXPECT_EQ(NameOfPlace(2), "place 3, no card");
    EXPECT_EQ(NameOfPlace(4), "place 5, 9 of spades");
    EXPECT_EQ(Part<HoldChart>("chart").Holds().size(), 2U);
    EXPECT_EQ(bestHold().join(" "), QString::fromUtf8("7♠ 8♠ – – 9♠"));
    Open("Sneak Peak Poker", 351, "AS AH KD 7C 2S 7D");
    EXPECT_EQ(Part<QWidget>("knownCard").accessibleName(), "7 of diamonds");
    EXPECT_EQ(bestHold().join(" "), QString::fromUtf8("A♠ A♥ D 7♣ –"));
}

}  // namespace
