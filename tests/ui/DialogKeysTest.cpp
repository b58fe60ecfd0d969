// What is alike in all dialogs: the letters that are pressed with Alt, the mark of the focus, texts
// that can be read.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <functional>
#include <map>

#include "game/session/SpareEngine.h"
#include "tests/game/ManagerTable.h"
#include "tests/ui/Palettes.h"
#include "ui/art/Contrast.h"
#include "ui/art/PictureStore.h"
#include "ui/help/AboutDialog.h"
#include "ui/parts/FocusStyle.h"
#include "ui/paytables/PayTableManagerDialog.h"
#include "ui/paytables/RenameGameDialog.h"
#include "ui/paytables/SelectGameDialog.h"
#include "ui/questions/AssignFixedHandDialog.h"
#include "ui/questions/AutoplayHandsDialog.h"
#include "ui/questions/BestPlayErrorDialog.h"
#include "ui/questions/CombinationsDialog.h"
#include "ui/questions/CreateAnalysisFilesDialog.h"
#include "ui/questions/EnterDollarsDialog.h"
#include "ui/reports/ErrorLogDialog.h"
#include "ui/reports/GameAnalysisDialog.h"
#include "ui/reports/HandAnalysisDialog.h"
#include "ui/reports/StatisticsDialog.h"

namespace {

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
    for (const auto* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->isVisibleTo(&dialog)) captions.append(CaptionOf(*button));
    }
    for (const auto* label : dialog.findChildren<QLabel*>()) {
        if (label->isVisibleTo(&dialog) && label->buddy()) captions.append(label->text());
    }
    for (const auto* group : dialog.findChildren<QGroupBox*>()) {
        if (group->isVisibleTo(&dialog)) captions.append(group->title());
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
        look(RenameGameDialog("My Game", nullptr));
        look(SelectGameDialog({"Jacks or Better"}, "Jacks or Better", nullptr));
        LoadSpare(seat, spare);
        GameReportPages pages(seat, spare, paths);
        pages.ShowCurrent();
        look(GameAnalysisDialog(pages, nullptr));
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
