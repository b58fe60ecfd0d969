// Thousands of presses, keys, menu choices and answers without sense. Whatever they do, the table
// shows the state of the machine, nothing is owed, and the files can be read afterwards.
#include <QAbstractButton>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>
#include <cstdlib>

#include "core/store/Settings.h"
#include "game/engine/Money.h"
#include "game/seat/ShowScene.h"
#include "tests/ui/AnyInput.h"

namespace {

constexpr int kEventsOfARound = 50;

int WantedEvents() {
    const char* wanted = std::getenv("TOLVANE_MONKEY_EVENTS");
    return wanted ? std::atoi(wanted) : 5000;
}

class MonkeyTest : public ProgramTest, protected AnyInput {
  protected:
    MonkeyTest() : AnyInput(20'230'501) {}

    void Event() {
        const auto letter = static_cast<Qt::Key>(Any(Qt::Key_A, Qt::Key_Z));
        if (OneIn(20)) return ChooseAnything();
        if (OneIn(2)) return Mouse(*program);
        if (OneIn(5))
            return Key(*program, letter, OneIn(20) ? Qt::ControlModifier : Qt::NoModifier);
        Key(*program, static_cast<Qt::Key>(AnyOf(std::string_view("DDDDUUU 0123459"))));
    }

    void ChooseAnything() {
        std::vector<QAction*> entries;
        for (auto* menu : program->frame->findChildren<QMenu*>()) {
            emit menu->aboutToShow();
            for (QAction* action : menu->actions()) {
                if (action->data().isValid() && action->data() != kExit) entries.push_back(action);
            }
        }
        AnyOf(entries)->trigger();
    }

    // Looks again first: an answer may open another dialog.
    void KeepAnswering() {
        QTimer::singleShot(1, program->frame.get(), [this] {
            KeepAnswering();
            // The menu of a dialog's button waits for a choice like a question.
            if (auto* menu = QApplication::activePopupWidget()) menu->close();
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog && dialog->isVisible()) Answer(*dialog);
        });
    }

    void Answer(QDialog& dialog) {
        // A printer that this computer may have is left alone.
        if (OneIn(4) || dialog.objectName() == "print") return dialog.reject();
        auto* edit = dialog.findChild<QLineEdit*>();
        if (auto* file = qobject_cast<QFileDialog*>(&dialog)) {
            edit = file->findChild<QLineEdit*>("fileNameEdit");
            edit->setText(QString::fromStdString(folder.Path("any" + std::to_string(Any(1, 4)))));
            return QTest::keyClick(edit, Qt::Key_Return);
        }
        if (edit && !edit->isReadOnly()) edit->setText(QString::number(Any(0, 300)));
        std::vector<QAbstractButton*> buttons;
        for (auto* button : dialog.findChildren<QAbstractButton*>()) {
            if (button->isVisible() && button->isEnabled()) buttons.push_back(button);
        }
        if (buttons.empty() || OneIn(2)) return QTest::keyClick(&dialog, Qt::Key_Return);
        AnyOf(buttons)->click();
    }

    // Without it, an empty purse or an option switched off would soon be all there is.
    void BeginRound() {
        CMorvikDoc& document = *program->document;
        if (!program->engine.handOver) program->Key(Qt::Key_D);
        document.Run(AnyOf(std::array{kModeCasino, kModeWarning, kModeAutoHold}));
        document.Run(AnyOf(std::array{300, 300, 330, 350}));
        if (!program->engine.settings.doubleUp) document.Run(kToggleDoubleUp);
        if (OneIn(3)) document.Run(kFixedHand);
        if (program->engine.settings.gameId == 300) program->Stack("JD JH TD TH 2H", 5);
        EnterDollars(program->engine, 100);
        ShowAtRest(document.PlayersSeat());
    }
};

TEST_F(MonkeyTest, WhateverIsPressedTheTableTellsTheTruthAndNothingIsOwed) {
    for (const char* flag : {"SpinBonus", "TgtBonus", "RBBonus", "CharlieBonus"}) {
        SetInTable("Jacks or Better", flag, "1");
    }
    TestProgram& p = Start();
    p.clock.paints = false;
    p.clock.inEveryPause = [this] {
        if (OneIn(50)) Event();
    };
    KeepAnswering();
    const int events = WantedEvents();
    for (int event = 0; event < events && !HasFailure(); ++event) {
        Event();
        EXPECT_GE(p.engine.settings.credits, 0);
        EXPECT_GE(p.engine.settings.bet, 1);
        if (event % kEventsOfARound != 0) continue;
        QApplication::processEvents();
        p.Release({0, 0, 2, 2});  // nothing is there
        p.ExpectAtRest("after event " + std::to_string(event));
        BeginRound();
    }
    p.clock.inEveryPause = nullptr;
    p.Release({0, 0, 2, 2});
    const std::string game = p.document->PlayersSeat().files.gamePath;
    EXPECT_TRUE(p.document->OnCloseDocument());
    MachineSettings stored;
    ProfileFile file;
    ReadSettings({file, game}, stored);
    EXPECT_EQ(stored.credits, p.engine.settings.credits);
    Start();
}

}  // namespace
