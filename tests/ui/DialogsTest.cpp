// Each dialog by itself, with the keys and clicks of a person, and the letters that are pressed
// with Alt in all of them.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QKeySequence>
#include <QLabel>
#include <QProgressBar>
#include <QTabWidget>
#include <QTest>
#include <functional>
#include <map>

#include "game/session/SpareEngine.h"
#include "tests/game/ManagerTable.h"
#include "tests/game/TestMachine.h"
#include "tests/ui/DialogRobot.h"
#include "tests/ui/Palettes.h"
#include "ui/art/Contrast.h"
#include "ui/art/PictureStore.h"
#include "ui/help/AboutDialog.h"
#include "ui/parts/FocusStyle.h"
#include "ui/parts/PictureButton.h"
#include "ui/paytables/PayTableManagerDialog.h"
#include "ui/paytables/RenameGameDialog.h"
#include "ui/paytables/SelectGameDialog.h"
#include "ui/questions/AssignFixedHandDialog.h"
#include "ui/questions/AutoplayHandsDialog.h"
#include "ui/questions/BestPlayErrorDialog.h"
#include "ui/questions/CombinationsDialog.h"
#include "ui/questions/CreateAnalysisFilesDialog.h"
#include "ui/questions/EnterDollarsDialog.h"
#include "ui/questions/ProgressDialog.h"
#include "ui/reports/AsideWindows.h"
#include "ui/reports/ErrorLogDialog.h"
#include "ui/reports/GameAnalysisDialog.h"
#include "ui/reports/HandAnalysisDialog.h"
#include "ui/reports/StatisticsDialog.h"

namespace {

using Codes = std::array<CardCode, 5>;

DialogRobot::Step Paste(const QString& text) {
    return [=](QDialog& dialog) {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_V, Qt::ControlModifier);
    };
}

// Pastes a text and presses Enter in the dialog; what is refused is told, and then another one
// typed.
std::string RefusalOf(QDialog& dialog, const char* refused, const DialogRobot::Step& then) {
    std::string told;
    DialogRobot robot{Paste(refused), Press(Qt::Key_Return), Note(told), then,
                      Press(Qt::Key_Return)};
    EXPECT_EQ(dialog.exec(), QDialog::Accepted) << refused;
    return told;
}

TEST(EnterDollarsDialogTest, OnlyAWholeAmountIsAccepted) {
    for (const char* typed : {"0", "1000000", "1,000,000", "-5", "1.5", "ten", "20 dollars", "4,00",
                              "99999999999999999999", " "}) {
        EnterDollarsDialog dialog(100, nullptr);  // which is typed over
        EXPECT_EQ(RefusalOf(dialog, typed, Type("999,999")),
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
        EXPECT_EQ(RefusalOf(dialog, refused, Type(typed)), "Tolvane: Enter a whole number.")
            << refused;
        EXPECT_EQ(dialog.Hands(), hands);
    }
}

TEST(RenameGameDialogTest, ANameHasEightyBytesAtMostAndCanBeKeptInAFile) {
    RenameGameDialog dialog("Deuces", "Deuces", nullptr);
    const auto fill = [](QDialog& open) {
        Paste("Deuces\n" + QString(36, QChar(0xE4)))(open);
        Type("xyz")(open);
    };
    const std::string told = RefusalOf(dialog, "A=B", fill);
    EXPECT_TRUE(told.starts_with("Input Error: Game name can not")) << told;
    EXPECT_EQ(dialog.NewName().size(), 80U) << "36 letters of two bytes among them";
    EXPECT_TRUE(dialog.NewName().starts_with("Deuces \u00e4")) << "a line break is a blank";
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

TEST(ProgressDialogTest, FrequentCallsAreShownThirtyTimesASecondUntilItIsCancelled) {
    ProgressDialog meter("Hands played...0%", nullptr);
    ShowDialog(meter);
    EXPECT_TRUE(meter.Show("Hands played...37%", 37));
    EXPECT_EQ(PartOf<QLineEdit>(meter, "text").text(), "Hands played...37%");
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
    QTest::keyClick(meter.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(meter.Show("Hands played", 38) || meter.isVisible());
}

TEST(AboutDialogTest, ItTellsTheVersion) {
    EXPECT_EQ(AboutDialog(nullptr).findChild<QLabel*>("text")->text(), "Tolvane Version 1.14");
}

class AssignFixedHandDialogTest : public testing::Test {
  protected:
    static constexpr Codes kNone{kNoCard, kNoCard, kNoCard, kNoCard, kNoCard};

    void Open(const std::string& game, int id, const Codes& hand = kNone) {
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
    EXPECT_EQ(Button("card1-1").Shown(), Picture::kEmptyPicture);
    Click("card2-13");
    EXPECT_EQ(Button("placeRank2").Shown(), RankPicture(13, kHearts));
    EXPECT_EQ(Button("placeSuit2").Shown(), Picture::kHeartsTile);
    Click("placeSuit0");
    EXPECT_TRUE(Button("card1-1").isEnabled());
    EXPECT_EQ(Button("placeRank0").accessibleName(), "place 1, no card, the next card goes here");
    Click("ok");
    EXPECT_EQ(Hand(), (Codes{kNoCard, 1, 25, 3, 4}));
}

TEST_F(AssignFixedHandDialogTest, AHandIsComposedByKeys) {
    Open("Jacks or Better", 300);
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
    Open("Pick Em Poker", 350, {0, 1, 2, 3, 4});
    EXPECT_FALSE(Button("placeRank2").isVisible());
    EXPECT_EQ(Button("placeRank4").Shown(), RankPicture(6, kSpades)) << "the first draw card";
    Open("5 Aces Bonus Poker", 313);
    Click("card5-1");
    EXPECT_EQ(Button("placeSuit0").Shown(), Picture::kStarsTile);
    Open("2 Joker Poker", 344);
    Click("joker2");
    EXPECT_FALSE(Button("joker1").isEnabled()) << "taken from the first one";
    EXPECT_EQ(Button("placeRank0").Shown(), Picture::kJokerPicture);
}

// Desktops give the usual buttons a letter, or do not.
QString CaptionOf(const QAbstractButton& button) {
    const auto* box = qobject_cast<QDialogButtonBox*>(button.parentWidget());
    if (!box) return button.text();
    auto& inBox = const_cast<QAbstractButton&>(button);
    const auto standard = box->standardButton(&inBox);
    return standard == QDialogButtonBox::Ok       ? "&OK"
           : standard == QDialogButtonBox::Cancel ? "&Cancel"
                                                  : button.text();
}

QStringList ShownCaptions(const QDialog& dialog) {
    QStringList captions;
    for (const auto* widget : dialog.findChildren<QWidget*>()) {
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const auto* label = qobject_cast<const QLabel*>(widget);
        if (!widget->isVisibleTo(&dialog) || (label && !label->buddy())) continue;
        captions.append(button  ? CaptionOf(*button)
                        : label ? label->text()
                                : widget->property("title").toString());
    }
    if (const auto* tabs = dialog.findChild<QTabWidget*>()) {
        for (int i = 0; i < tabs->count(); ++i) captions.append(tabs->tabText(i));
    }
    return captions;
}

void ExpectOneForEachLetter(const QDialog& dialog) {
    std::map<QString, QStringList> byKey;
    for (const QString& caption : ShownCaptions(dialog)) {
        const QKeySequence key = QKeySequence::mnemonic(caption);
        if (!key.isEmpty()) byKey[key.toString()].append(caption);
    }
    for (const auto& [key, captions] : byKey) {
        EXPECT_EQ(captions.size(), 1)
            << dialog.objectName().toStdString() << ", " << key.toStdString() << ": "
            << captions.join(" and ").toStdString();
    }
}

void ExpectNoCollisions(const QDialog& dialog) {
    auto* tabs = dialog.findChild<QTabWidget*>();
    if (!tabs) return ExpectOneForEachLetter(dialog);
    for (int page = 0; page < tabs->count(); ++page) {
        tabs->setCurrentIndex(page);
        ExpectOneForEachLetter(dialog);
    }
}

TEST(SelectGameDialogTest, TheCurrentGameIsSelectedInAnyLetterCaseOrNone) {
    const std::vector<std::string> games{"Jacks or Better", "Deuces Wild"};
    Answer({Press(Qt::Key_Return)},
           [&] { EXPECT_EQ(AskGame(games, "DEUCES wild", nullptr), "Deuces Wild"); });
    const auto okWaits = [](QDialog& dialog) {
        EXPECT_FALSE(PartOf<QWidget>(dialog, "ok").isEnabled());
        ExpectNoCollisions(dialog);
        dialog.reject();
    };
    Answer({okWaits}, [&] { EXPECT_EQ(AskGame(games, "Gone", nullptr), std::nullopt); });
}

TEST(SelectGameDialogTest, AGameIsFoundByTypingItsNameWithBlanksClosedAndOpen) {
    const std::vector<std::string> games{"Double Bonus", "Double Double Bonus", "Deuces Wild",
                                         "Joker Poker - 2 Pair"};
    const auto chosen = [&](std::initializer_list<DialogRobot::Step> steps) {
        std::optional<std::string> game;
        Answer(steps, [&] { game = AskGame(games, "Deuces Wild", nullptr); });
        return game;
    };
    const auto inOpenList = [](QDialog& dialog) {
        auto& list = PartOf<QComboBox>(dialog, "game");
        list.showPopup();
        QTest::keyClicks(list.view(), "double double");
        QTest::keyClick(list.view(), Qt::Key_Return);
        EXPECT_FALSE(list.view()->isVisible());
    };
    const auto enter = Press(Qt::Key_Return);
    EXPECT_EQ(chosen({Type("double d"), enter}), "Double Double Bonus");
    EXPECT_EQ(chosen({Type("2 pair"), enter}), "Joker Poker - 2 Pair") << "in the middle";
    EXPECT_EQ(chosen({Type("double x"), Press(Qt::Key_Backspace), Type("b"), enter}),
              "Double Bonus");
    EXPECT_EQ(chosen({inOpenList, enter}), "Double Double Bonus");
}

struct DialogKeysTest : testing::Test, ManagerTable {
    PictureStore store;
    GameEngine spare;

    void ForEachDialog(const std::function<void(QDialog&)>& visit) {
        const auto look = [&](QDialog&& dialog) { visit(dialog); };
        look(AboutDialog(nullptr));
        look(AssignFixedHandDialog(engine, store, nullptr));
        look(AutoplayHandsDialog(nullptr));
        look(BestPlayErrorDialog(
            "Continue?", [](QWidget&) {}, {}, nullptr));
        look(CombinationsDialog(nullptr));
        look(CreateAnalysisFilesDialog({}, nullptr));
        look(EnterDollarsDialog(1, nullptr));
        look(RenameGameDialog("My Game", "My Game", nullptr));
        LoadSpare(seat, spare);
        AsideWindows aside;
        GameReportPages pages(seat, spare, paths);
        pages.Show("Jacks or Better", 0);
        look(GameAnalysisDialog(pages, &aside, nullptr));
        look(HandAnalysisDialog(spare, store, nullptr));
        look(ErrorLogDialog(engine, machine.files, store, nullptr));
        look(StatisticsDialog(engine, 0, nullptr));
        auto editor = Manager("My Game", 9001, 0, true);
        look(PayTableManagerDialog(editor, nullptr));
    }
};

TEST_F(DialogKeysTest, NoLetterDoesTwoThings) {
    ForEachDialog([](QDialog& dialog) { ExpectNoCollisions(dialog); });
}

// In the dialog's own order, each with the keyboard's mark of the focus.
void ExpectFocusIsSeen(QDialog& dialog) {
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    dialog.setAttribute(Qt::WA_KeyboardFocusChange);  // as the first Tab does
    for (auto* part : dialog.findChildren<QWidget*>()) {
        const bool isStop = (part->focusPolicy() & Qt::TabFocus) != 0 && !part->focusProxy();
        const bool isSeen = part->visibleRegion().boundingRect() == part->rect();
        if (!isStop || !isSeen || !part->isEnabled()) continue;
        part->setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
        const QRect around =
            QRect(part->mapTo(&dialog, QPoint()), part->size()).adjusted(-3, -3, 3, 3);
        const QImage focused = dialog.grab(around).toImage();
        part->clearFocus();
        QApplication::processEvents();
        EXPECT_FALSE(focused == dialog.grab(around).toImage())
            << dialog.objectName().toStdString() << ": " << part->metaObject()->className() << " "
            << part->objectName().toStdString();
    }
    dialog.hide();
}

TEST_F(DialogKeysTest, TheFocusIsSeenOnEveryControl) {
    QApplication::setStyle(new FocusStyle);
    ForEachDialog(ExpectFocusIsSeen);
}

// With what is greyed as well: all is in one of the two palettes, and all is.
void ExpectTextsAreReadable(const QDialog& dialog) {
    for (const auto* part : dialog.findChildren<QWidget*>()) {
        for (const auto group : {QPalette::Active, QPalette::Disabled}) {
            const QColor text = part->palette().color(group, part->foregroundRole());
            const QColor ground = part->palette().color(group, part->backgroundRole());
            EXPECT_GE(Contrast(text, ground), kReadable)
                << dialog.objectName().toStdString() << ": " << part->metaObject()->className()
                << " " << part->objectName().toStdString() << ", group " << group;
        }
    }
}

TEST_F(DialogKeysTest, TextsCanBeReadOnALightAndADarkDesktopInWhatIsGreyedToo) {
    const QPalette before = QApplication::palette();
    for (const auto& [name, palette] : UsualPalettes()) {
        QApplication::setPalette(Readable(palette));
        ForEachDialog(ExpectTextsAreReadable);
    }
    QApplication::setPalette(before);
}

TEST_F(DialogKeysTest, EveryControlOfThePayTableManagerHasALetterOfItsOwn) {
    auto editor = Manager("My Game", 9001, 0, true);
    const PayTableManagerDialog dialog(editor, nullptr);
    ExpectNoCollisions(dialog);
    for (const QString& caption : ShownCaptions(dialog)) {
        // Cancel has Esc; a box in a line has no caption, a group is no control.
        if (caption.isEmpty() || caption == "Cancel" || caption == "Game Type") continue;
        EXPECT_FALSE(QKeySequence::mnemonic(caption).isEmpty()) << caption.toStdString();
    }
}

}  // namespace
