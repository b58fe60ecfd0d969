// Each dialog by itself, with the keys and clicks of a person.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QToolTip>

#include "game/reports/StatisticsReport.h"
#include "tests/game/TestMachine.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/help/AboutDialog.h"
#include "ui/parts/PictureButton.h"
#include "ui/parts/ReportBox.h"
#include "ui/paytables/RenameGameDialog.h"
#include "ui/paytables/SelectGameDialog.h"
#include "ui/questions/AssignFixedHandDialog.h"
#include "ui/questions/AutoplayHandsDialog.h"
#include "ui/questions/BestPlayErrorDialog.h"
#include "ui/questions/CombinationsDialog.h"
#include "ui/questions/EnterDollarsDialog.h"
#include "ui/questions/ProgressDialog.h"
#include "ui/reports/StatisticsDialog.h"

namespace {

using Codes = std::array<CardCode, 5>;

// Pastes a text and presses Enter in the dialog; what is refused is told, and then another typed.
template <typename Dialog>
std::string RefusalOf(Dialog& dialog, const char* pasted, const char* then) {
    QApplication::clipboard()->setText(pasted);
    std::string told;
    DialogRobot robot{Press(Qt::Key_V, Qt::ControlModifier), Press(Qt::Key_Return), Note(told),
                      Type(then), Press(Qt::Key_Return)};
    EXPECT_EQ(dialog.exec(), QDialog::Accepted) << pasted;
    return told;
}

TEST(EnterDollarsDialogTest, OnlyAWholeAmountIsAccepted) {
    for (const char* typed : {"0", "1000000", "1,000,000", "-5", "1.5", "ten", "20 dollars", "4,00",
                              "99999999999999999999", " "}) {
        EnterDollarsDialog dialog(100, nullptr);  // which is typed over
        EXPECT_EQ(RefusalOf(dialog, typed, "999,999"),
                  "Tolvane: Enter an integer between 1 and 999999.");
        EXPECT_EQ(dialog.Dollars(), 999999) << typed;
    }
}

TEST(AutoplayHandsDialogTest, OnlyAWholeNumberIsAccepted) {
    const std::tuple<const char*, const char*, std::int64_t> cases[] = {
        {" ", "1,000,000", 1'000'000},
        {"5 hands", "  5000000000 ", 5'000'000'000},
        {"1,00", "-3", -3}};
    for (const auto& [refused, typed, hands] : cases) {
        AutoplayHandsDialog dialog(nullptr);
        EXPECT_EQ(RefusalOf(dialog, refused, typed), "Tolvane: Enter a whole number.") << refused;
        EXPECT_EQ(dialog.Hands(), hands);
    }
}

TEST(RenameGameDialogTest, ANameHasEightyBytesAtMostAndCanBeKeptInAFile) {
    RenameGameDialog dialog("Deuces", nullptr);
    ShowDialog(dialog);
    auto& box = PartOf<QLineEdit>(dialog, "newName");
    const auto refusal = Told([&] {
        QTest::keyClicks(&box, "A=B");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_TRUE(refusal.starts_with("Input Error: Game name can not")) << refusal;
    EXPECT_TRUE(dialog.isVisible());
    box.clear();
    QTest::keyClicks(&box, QString(81, u'x'));
    EXPECT_EQ(dialog.NewName(), std::string(80, 'x'));
    box.clear();
    QApplication::clipboard()->setText("Deuces\n" + QString(36, QChar(0xE4)));
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClicks(&box, "xyz");
    EXPECT_EQ(dialog.NewName().size(), 80U) << "36 letters of two bytes among them";
    EXPECT_TRUE(dialog.NewName().starts_with("Deuces \u00e4")) << "a line break is a blank";
}

TEST(SelectGameDialogTest, TheCurrentGameIsSelectedInAnyLetterCaseOrNone) {
    const std::vector<std::string> games{"Jacks or Better", "Deuces Wild"};
    Answer({Press(Qt::Key_Return)},
           [&] { EXPECT_EQ(AskGame(games, "DEUCES wild", nullptr), "Deuces Wild"); });
    const auto okWaits = [](QDialog& dialog) {
        EXPECT_FALSE(dialog.findChild<QPushButton*>("ok")->isEnabled());
        dialog.reject();
    };
    Answer({okWaits}, [&] { EXPECT_EQ(AskGame(games, "Gone", nullptr), std::nullopt); });
}

TEST(CombinationsDialogTest, EnterCalculatesAndTheNextNumbersMayBeTyped) {
    CombinationsDialog dialog(nullptr);
    ShowDialog(dialog);
    const auto calculated = [&](const char* cards, const char* drawn) {
        for (const auto& [name, text] : {std::pair("cards", cards), std::pair("drawn", drawn)}) {
            auto& box = PartOf<QLineEdit>(dialog, name);
            EXPECT_EQ(dialog.focusWidget(), &box) << name;
            box.clear();
            QTest::keyClicks(&box, text);
            QTest::keyClick(&box, Qt::Key_Tab);
        }
        QTest::keyClick(&PartOf<QLineEdit>(dialog, "drawn"), Qt::Key_Return);
        return PartOf<QLineEdit>(dialog, "result").text();
    };
    EXPECT_EQ(calculated("1,000", " 2"), "499,500");
    QString result;
    EXPECT_EQ(Told([&] { result = calculated("52", ""); }), "Tolvane: Enter a whole number.");
    EXPECT_EQ(result, "") << "no result of other numbers stays";
    EXPECT_EQ(dialog.focusWidget()->objectName(), "drawn");
}

TEST(BestPlayErrorDialogTest, OnlyYesGoesOn) {
    const auto inText = [](QDialog& dialog) {
        QTest::keyClick(&PartOf<QWidget>(dialog, "message"), Qt::Key_Y);
    };
    const std::pair<DialogRobot::Step, bool> answers[] = {
        {Press(Qt::Key_Return), false}, {Press(Qt::Key_N), false}, {inText, true}};
    for (const auto& [answer, goesOn] : answers) {
        BestPlayErrorDialog dialog("Continue?", {}, {}, nullptr);
        DialogRobot robot{answer};
        EXPECT_EQ(dialog.exec() == QDialog::Accepted, goesOn);
    }
}

TEST(ProgressDialogTest, TheMeterStopsTheWorkWhenItIsCancelled) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        ProgressDialog meter("Hands played...0%", nullptr);
        ShowDialog(meter);
        EXPECT_TRUE(meter.Show("Hands played...37%", 37));
        EXPECT_EQ(PartOf<QLineEdit>(meter, "text").text(), "Hands played...37%");
        QTest::keyClick(meter.focusWidget(), key);
        EXPECT_FALSE(meter.Show("Hands played...38%", 38) || meter.isVisible());
    }
}

TEST(ProgressDialogTest, FrequentCallsAreShownThirtyTimesASecondAtMost) {
    ProgressDialog meter("Hands played...0%", nullptr);
    ShowDialog(meter);
    int changes = 0;
    QObject::connect(&PartOf<QProgressBar>(meter, "bar"), &QProgressBar::valueChanged,
                     [&changes] { ++changes; });
    QElapsedTimer time;
    time.start();
    for (int i = 1; i <= 700'000; ++i) meter.Show("Hands played", i % 100);
    EXPECT_LE(changes, time.elapsed() / 33 + 1);
    const auto isSeen = [&meter] {
        for (int i = 0; i < 64; ++i) meter.Show("Hands played", 100);
        return PartOf<QProgressBar>(meter, "bar").value() == 100;
    };
    EXPECT_TRUE(QTest::qWaitFor(isSeen)) << "a slower caller is seen again";
}

TEST(AboutDialogTest, ItTellsTheVersion) {
    EXPECT_EQ(AboutDialog(nullptr).findChild<QLabel*>("text")->text(), "Tolvane Version 1.14");
}

class AssignFixedHandDialogTest : public testing::Test {
  protected:
    void Open(const std::string& game, int id, const Codes& hand) {
        machine = std::make_unique<TestMachine>(game, id);
        machine->engine.statistics.setCards = hand;
        dialog = std::make_unique<AssignFixedHandDialog>(machine->engine, store, nullptr);
        ShowDialog(*dialog);
    }

    PictureButton& Button(const QString& name) { return *dialog->findChild<PictureButton*>(name); }
    void Click(const QString& name) {
        QTest::mouseClick(dialog->findChild<QAbstractButton*>(name), Qt::LeftButton);
    }
    void PressKey(Qt::Key key) { QTest::keyClick(dialog->focusWidget(), key); }
    QString FocusName() { return dialog->focusWidget()->accessibleName(); }
    Codes& Hand() { return machine->engine.statistics.setCards; }

    PictureStore store;
    std::unique_ptr<TestMachine> machine;
    std::unique_ptr<AssignFixedHandDialog> dialog;
};

TEST_F(AssignFixedHandDialogTest, AClickedCardLeavesTheGridForTheCurrentPlace) {
    Open("Jacks or Better", 300, {0, 1, kNoCard, 3, 4});
    EXPECT_FALSE(Button("card1-1").isEnabled());
    EXPECT_EQ(Button("card1-1").Shown(), Picture::kEmptyPicture);
    Click("card2-13");
    EXPECT_EQ(Button("placeRank2").Shown(), RankPicture(13, kHearts));
    EXPECT_EQ(Button("placeSuit2").Shown(), Picture::kHeartsTile);
    Click("placeSuit0");
    EXPECT_TRUE(Button("card1-1").isEnabled());
    EXPECT_EQ(Button("placeRank0").accessibleName(), "place 1, no card, the next card goes here");
    Click("ok");
    EXPECT_EQ(Hand(), (Codes{kNoCard, 1, 25, 3, 4}));
    Open("Jacks or Better", 300, {0, 1, 2, 3, 4});
    Click("clear");
    PressKey(Qt::Key_Escape);
    EXPECT_EQ(Hand(), (Codes{0, 1, 2, 3, 4})) << "as before";
}

TEST_F(AssignFixedHandDialogTest, AHandIsComposedByKeys) {
    Open("Jacks or Better", 300, {kNoCard, kNoCard, kNoCard, kNoCard, kNoCard});
    EXPECT_EQ(FocusName(), "ace of spades");
    PressKey(Qt::Key_Left);  // nothing is there
    PressKey(Qt::Key_Right);
    PressKey(Qt::Key_Space);
    EXPECT_EQ(FocusName(), "3 of spades") << "the card beside the one taken";
    PressKey(Qt::Key_Left);
    EXPECT_EQ(FocusName(), "ace of spades") << "over the card taken";
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Space, Qt::Key_Down, Qt::Key_Down})
        PressKey(key);
    EXPECT_EQ(FocusName(), "2 of diamonds");
    PressKey(Qt::Key_Space);
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "place 1, 2 of spades") << "the cards are one stop";
    PressKey(Qt::Key_Return);
    EXPECT_EQ(Hand(), (Codes{1, 13, 40, kNoCard, kNoCard}));
}

TEST_F(AssignFixedHandDialogTest, PickEmJokersAndTheFifthAceHaveTheirOwnGrid) {
    constexpr Codes kNone{kNoCard, kNoCard, kNoCard, kNoCard, kNoCard};
    Open("Pick Em Poker", 350, {0, 1, 2, 3, 4});
    EXPECT_FALSE(Button("placeRank2").isVisible());
    EXPECT_EQ(Button("placeRank4").Shown(), RankPicture(6, kSpades)) << "the first draw card";
    Open("5 Aces Bonus Poker", 313, kNone);
    Click("card5-1");
    EXPECT_EQ(Button("placeSuit0").Shown(), Picture::kStarsTile);
    Open("2 Joker Poker", 344, kNone);
    Click("joker2");
    EXPECT_FALSE(Button("joker1").isEnabled()) << "taken from the first one";
    EXPECT_EQ(Button("placeRank0").Shown(), Picture::kJokerPicture);
}

class StatisticsDialogTest : public testing::Test {
  protected:
    StatisticsDialogTest() {
        machine.engine.statistics.handsPlayed = {1000, 12345};
        machine.engine.payTable.lines[0].sessionWins = 3;
    }

    void Open() {
        dialog = std::make_unique<StatisticsDialog>(
            machine.engine, machine.engine.statistics.sessionStart, nullptr);
        ShowDialog(*dialog);
    }
    std::string Text(const char* name) {
        return PartOf<QPlainTextEdit>(*dialog, name).toPlainText().toStdString();
    }
    static std::string Shown(const std::string& report) {
        return QString::fromStdString(report).replace("\r\n", "\n").chopped(1).toStdString();
    }
    std::string Saved() {
        auto& box = PartOf<QPlainTextEdit>(*dialog, "credits");
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, box.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&box, &event);
        const DialogRobot robot{TypeFile("Save As", machine.folder.Path("report"))};
        box.findChild<QAction*>("saveAsText")->trigger();
        return machine.folder.Read("report.txt");
    }

    TestMachine machine;
    std::unique_ptr<StatisticsDialog> dialog;
};

TEST_F(StatisticsDialogTest, TheDisplayChangesThePayTableAlone) {
    const GameEngine& engine = machine.engine;
    Open();
    EXPECT_EQ(Text("lines"), Shown(StatisticsLines(engine, StatisticsDisplay::kHands)));
    PartOf<QRadioButton>(*dialog, "displayHands").setFocus();
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Right);
    EXPECT_NE(Text("lines").find("1:333.33"), std::string::npos);
    QTest::mouseClick(&PartOf<QRadioButton>(*dialog, "displayShare"), Qt::LeftButton);
    EXPECT_EQ(Text("lines"), Shown(StatisticsLines(engine, StatisticsDisplay::kShareOfReturn)));
    EXPECT_EQ(Text("hands"), Shown(StatisticsHands(engine, engine.statistics.sessionStart)));
    EXPECT_EQ(Text("credits"), Shown(StatisticsCredits(engine)));
    EXPECT_EQ(Text("errors"), Shown(StatisticsErrors(engine)));
    const std::string saved = Saved();
    EXPECT_TRUE(saved.starts_with("Hands\n\tSession\tGame\n\nHands Won:\t0\t0\n")) << saved;
    EXPECT_TRUE(saved.ends_with("\n\nPay Table\n" + Text("lines") + "\n")) << saved;
    QTest::keyClick(&PartOf<QPlainTextEdit>(*dialog, "errors"), Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible()) << "Enter is OK in a report too";
}

TEST_F(StatisticsDialogTest, ALongNameLeavesTheFiguresAsTheyAre) {
    const std::string name = "<b>" + std::string(77, 'W');
    machine.engine.settings.gameName = name;
    machine.engine.payTable.lines[1].description = std::string(80, 'M');
    Open();
    auto& box = PartOf<QPlainTextEdit>(*dialog, "lines");
    EXPECT_EQ(box.font().pointSizeF(),
              PartOf<QPlainTextEdit>(*dialog, "hands").font().pointSizeF());
    EXPECT_EQ(box.horizontalScrollBar()->maximum(), 0) << "no column is cut off";
    EXPECT_EQ(Text("lines").find("WWWW\tSession"), std::string::npos) << "cut short";
    QHelpEvent rests(QEvent::ToolTip, {5, 5}, box.viewport()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(box.viewport(), &rests);
    EXPECT_TRUE(
        QToolTip::text().contains("&lt;b&gt;" + QString(77, 'W') + "<br>" + QString(80, 'M')));
    EXPECT_NE(Saved().find("\n" + name + "\tSession\tGame\n"), std::string::npos);
}

}  // namespace
