// The letters that are pressed with Alt in the dialogs.
#include <gtest/gtest.h>

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <map>

#include "game/session/SpareEngine.h"
#include "tests/game/ManagerTable.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/help/AboutDialog.h"
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
};

TEST_F(DialogKeysTest, NoLetterDoesTwoThings) {
    ExpectNoCollisions(AboutDialog(nullptr));
    ExpectNoCollisions(AssignFixedHandDialog(engine, store, nullptr));
    ExpectNoCollisions(AutoplayHandsDialog(nullptr));
    ExpectNoCollisions(BestPlayErrorDialog(
        "Continue?", [](QWidget&) {}, {}, nullptr));
    ExpectNoCollisions(CombinationsDialog(nullptr));
    ExpectNoCollisions(CreateAnalysisFilesDialog({}, nullptr));
    ExpectNoCollisions(EnterDollarsDialog(1, nullptr));
    ExpectNoCollisions(RenameGameDialog("My Game", nullptr));
    DialogRobot robot{[](QDialog& dialog) {
        ExpectNoCollisions(dialog);
        dialog.reject();
    }};
    AskGame({"Jacks or Better"}, "Jacks or Better", nullptr);
    LoadSpare(seat, spare);
    GameReportPages pages(seat, spare, paths);
    pages.ShowCurrent();
    ExpectNoCollisions(GameAnalysisDialog(pages, nullptr));
    ExpectNoCollisions(HandAnalysisDialog(spare, store, nullptr));
    ExpectNoCollisions(ErrorLogDialog(engine, machine.files, store, nullptr));
    ExpectNoCollisions(StatisticsDialog(engine, 0, nullptr));
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
