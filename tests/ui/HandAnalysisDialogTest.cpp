// The hand analysis with the keys and clicks of a person.
#include "ui/dialogs/HandAnalysisDialog.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QToolTip>

#include "tests/game/TestMachine.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/dialogs/HoldChart.h"
#include "ui/dialogs/PictureButton.h"
#include "ui/dialogs/ReportBox.h"

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
        dialog->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
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

TEST_F(HandAnalysisDialogTest, TheHandInPlayIsShownAndLeftAlone) {
    OpenJacks();
    EXPECT_TRUE(Line(2).startsWith("AKQJ_\t92.")) << Line(2).toStdString();
    EXPECT_EQ(NameOfPlace(1), "place 2, king of spades");
    EXPECT_EQ(Part<PictureButton>("placeSuit4").Shown(), Picture::kSpadesTile);
    EXPECT_FALSE(machine->engine.handOver);
    EXPECT_FALSE(machine->engine.fixedHand);
    EXPECT_TRUE(Part<QPushButton>("ok").hasFocus());
    QTest::keyClick(dialog.get(), Qt::Key_Return);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(HandAnalysisDialogTest, TheRadiosChangeWhatIsCounted) {
    OpenJacks();
    EXPECT_TRUE(Part<QRadioButton>("displayHands").isChecked());
    Click("displayOdds");
    EXPECT_EQ(Part<ReportBox>("report").toPlainText(),
              QString::fromStdString(HandReport(spare, HandDisplay::kOdds)).remove('\r').trimmed());
    QTest::keyClick(dialog.get(), Qt::Key_E, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Line(2).contains("\t100.00\t0\t"); }));
    Click("displayHands");
    EXPECT_TRUE(Line(2).contains("\t47\t23\t24\t12\t")) << Line(2).toStdString();
}

TEST_F(HandAnalysisDialogTest, AnotherHandIsChosenInTheEditor) {
    OpenJacks();
    // The nine, in the last place, goes back, and the ten takes its place.
    DialogRobot robot{ClickOn("placeRank4"), ClickOn("card1-10"), Press(Qt::Key_Return)};
    Click("changeHand");
    EXPECT_TRUE(Line(2).startsWith("AKQJT\t4,000.0000\t1\t1\t0")) << Line(2).toStdString();
    EXPECT_EQ(NameOfPlace(4), "place 5, 10 of spades");
    EXPECT_EQ(Part<HoldChart>("chart").Holds().front().value, 4000);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(HandAnalysisDialogTest, ACancelledEditorClosesTheAnalysis) {
    OpenJacks();
    DialogRobot robot{Press(Qt::Key_Escape)};
    Click("placeSuit2");  // a picture opens the editor, too
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
}

TEST_F(HandAnalysisDialogTest, AMissingCardIsAskedForUntilItIsThere) {
    OpenJacks();
    QString caption;
    QString text;
    const auto readAndAgree = [&](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        ASSERT_NE(box, nullptr);
        caption = box->windowTitle();
        text = box->text();
        EXPECT_EQ(box->icon(), QMessageBox::Critical);
        QTest::keyClick(box, Qt::Key_Return);
    };
    const QString before = Line(2);
    {
        DialogRobot robot{ClickOn("placeRank4"), Press(Qt::Key_Return), readAndAgree,
                          ClickOn("card4-2"), Press(Qt::Key_Return)};
        Click("changeHand");
    }
    EXPECT_EQ(caption, "Missing Card");
    EXPECT_EQ(text, "You must assign a card to each hand position to perform a hand analysis");
    EXPECT_EQ(NameOfPlace(4), "place 5, 2 of diamonds");
    EXPECT_NE(Line(2), before);
    {
        DialogRobot robot{ClickOn("clear"), Press(Qt::Key_Return), Press(Qt::Key_Escape)};
        Click("changeHand");
    }
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(HandAnalysisDialogTest, TheReportCanBeSelectedCopiedAndSaved) {
    OpenJacks();
    auto& report = Part<ReportBox>("report");
    EXPECT_TRUE(report.isReadOnly());
    report.setFocus();
    QTest::keyClick(&report, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&report, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), report.toPlainText());

    QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, report.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&report, &event);
    DialogRobot robot{[&](QDialog& save) {
        auto* name = save.findChild<QLineEdit*>("fileNameEdit");
        EXPECT_EQ(name->text(), "Jacks or Better hand.txt");
        name->setText(QString::fromStdString(machine->folder.Path("hand.txt")));
        QTest::keyClick(name, Qt::Key_Return);
    }};
    report.findChild<QAction*>("saveAsText")->trigger();
    const std::string saved = machine->folder.Read("hand.txt");
    EXPECT_TRUE(saved.starts_with("Hand\tExp Ret ($)\tHands\tWinners\tLosers\tPR\t2PR\t")) << saved;
    EXPECT_EQ(std::ranges::count(saved, '\n'), 34);
}

TEST_F(HandAnalysisDialogTest, TheChartShowsTheBestHoldFirstAndNamesIt) {
    OpenJacks();
    QTest::keyClick(dialog.get(), Qt::Key_H, Qt::AltModifier);
    auto& chart = Part<HoldChart>("chart");
    ASSERT_TRUE(chart.isVisible());
    ASSERT_EQ(chart.Holds().size(), 32U);
    const HoldChart::Hold& best = chart.Holds().front();
    EXPECT_EQ(best.cards.join(" "), QString::fromUtf8("A♠ K♠ Q♠ J♠ –"));
    EXPECT_TRUE(best.best);
    EXPECT_TRUE(std::ranges::none_of(chart.Holds().begin() + 1, chart.Holds().end(),
                                     [](const HoldChart::Hold& hold) { return hold.best; }));
    EXPECT_TRUE(chart.accessibleDescription().startsWith(best.note));

    const QPoint row = chart.RowRect(0).center();
    EXPECT_EQ(chart.RowAt(row), 0);
    EXPECT_EQ(chart.RowAt({0, 0}), -1);
    QHelpEvent help(QEvent::ToolTip, row, chart.mapToGlobal(row));
    QApplication::sendEvent(&chart, &help);
    EXPECT_TRUE(QToolTip::text().startsWith(
        "Best hold: ace of spades, king of spades, queen of spades, jack of spades\nreturns $92."))
        << QToolTip::text().toStdString();
    EXPECT_TRUE(QToolTip::text().endsWith("\n47 draws, 23 of them win"));
}

TEST_F(HandAnalysisDialogTest, TheChartIsLegibleInADarkTheme) {
    OpenJacks();
    QPalette dark(QColor(45, 45, 45), QColor(45, 45, 45));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, Qt::white);
    auto& chart = Part<HoldChart>("chart");
    chart.setPalette(dark);
    chart.resize(chart.sizeHint());
    const QImage image = chart.grab().toImage();
    const auto lightness = [&](QPoint at) {
        return image.pixelColor(at * image.devicePixelRatio()).lightness();
    };
    const auto lightest = [&](const QRect& area) {
        int most = 0;
        for (int x = area.left(); x < area.right(); ++x) {
            for (int y = area.top(); y < area.bottom(); ++y)
                most = std::max(most, lightness({x, y}));
        }
        return most;
    };
    const QRect row = chart.RowRect(1);
    EXPECT_EQ(lightness({1, 1}), 30);
    EXPECT_GT(lightest({row.left(), row.top(), row.width() / 5, row.height()}), 180);
}

TEST_F(HandAnalysisDialogTest, PickEmShowsTwoHoldsAndAnEmptyPlace) {
    Open("Pick Em Poker", 350, "7S 8S JH 2D 3D 9S");
    EXPECT_EQ(NameOfPlace(2), "place 3, no card");
    EXPECT_EQ(NameOfPlace(3), "place 4, jack of hearts");
    EXPECT_EQ(NameOfPlace(4), "place 5, 9 of spades");
    EXPECT_EQ(Part<PictureButton>("placeRank2").Shown(), Picture::kEmptyPicture);
    EXPECT_EQ(Part<HoldChart>("chart").Holds().size(), 2U);
    EXPECT_EQ(Part<HoldChart>("chart").Holds().front().cards.join(" "),
              QString::fromUtf8("7♠ 8♠ – – 9♠"));
}

TEST_F(HandAnalysisDialogTest, SneakPeakShowsTheSixthCard) {
    Open("Sneak Peak Poker", 351, "AS AH KD 7C 2S 7D");
    EXPECT_EQ(Part<QWidget>("knownCard").accessibleName(), "7 of diamonds");
    EXPECT_TRUE(Line(2).startsWith("AAD7_\t")) << Line(2).toStdString();
    EXPECT_EQ(Part<HoldChart>("chart").Holds().front().cards.join(" "),
              QString::fromUtf8("A♠ A♥ D 7♣ –"));
}

TEST_F(HandAnalysisDialogTest, TheTabKeyReachesEveryPart) {
    OpenJacks();
    QStringList names;
    for (QWidget* focus = dialog->focusWidget(); !names.contains(focus->objectName());
         focus = dialog->focusWidget()) {
        names.append(focus->objectName());
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    for (const char* name : {"report", "displayHands", "placeRank0", "placeRank4", "changeHand"}) {
        EXPECT_TRUE(names.contains(name)) << name << " not in " << names.join(" ").toStdString();
    }
    EXPECT_LT(names.indexOf("report"), names.indexOf("displayHands"));
    EXPECT_LT(names.indexOf("placeRank4"), names.indexOf("changeHand"));
}

}  // namespace
