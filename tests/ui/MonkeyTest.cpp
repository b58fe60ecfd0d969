// Thousands of presses and keys without sense. Whatever they do, the table shows the state of the
// machine, nothing is owed, and the files can be read afterwards.
#include <QAbstractButton>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <cstdlib>
#include <set>

#include "core/cards/Random.h"
#include "core/store/Settings.h"
#include "game/MachineCommands.h"
#include "game/WinDisplay.h"
#include "tests/ui/TestProgram.h"

namespace {

constexpr int kEvents = 5000;
constexpr int kEventsOfARound = 50;
constexpr std::uint32_t kSeed = 20'230'501;

int WantedEvents() {
    const char* wanted = std::getenv("TOLVANE_MONKEY_EVENTS");
    return wanted ? std::atoi(wanted) : kEvents;
}

// Looks every millisecond, as DialogRobot does, but without a plan.
class Looker : public QObject {
  public:
    explicit Looker(std::function<void()> look) : look(std::move(look)) { timer = startTimer(1); }

  protected:
    void timerEvent(QTimerEvent* /*event*/) override {
        killTimer(timer);
        timer = startTimer(1);
        look();
    }

  private:
    std::function<void()> look;
    int timer = 0;
};

class MonkeyTest : public ProgramTest {
  protected:
    MonkeyTest() { chance.RandomInit(kSeed); }

    int Any(int from, int to) { return chance.IRandom(from, to); }

    template <class List>
    auto AnyOf(const List& list) {
        return *std::next(std::begin(list), Any(0, static_cast<int>(std::size(list)) - 1));
    }

    QPoint AnyPoint() {
        const TableLayout& places = program->Places();
        const QRect spots[] = {places.deal,          places.deal,
                               places.doubleUp,      places.betOne,
                               places.maxBet,        places.creditValue.rect,
                               places.cards[1],      places.cards[3],
                               places.cards[4],      places.targets[2],
                               places.spinButton,    places.redPanel,
                               places.blackPanel,    places.namePanel,
                               places.betValue.rect, places.holdButtons[Any(0, 1) == 0 ? 0U : 4U]};
        if (Any(0, 2) != 0) return AnyOf(spots).center();
        return {Any(0, program->view->width() - 1), Any(0, program->view->height() - 1)};
    }

    void Mouse() {
        const QPoint point = AnyPoint();
        QWidget* view = program->view;
        switch (Any(0, 5)) {
            case 0:
                return QTest::mousePress(view, Qt::LeftButton, {}, point);
            case 1:
                return QTest::mouseRelease(view, Qt::LeftButton, {}, point);
            case 2:
                return QTest::mousePress(view, Qt::RightButton, {}, point);
            case 3:
                return QTest::mouseDClick(view, Qt::LeftButton, {}, point);
            default:
                return QTest::mouseClick(view, Qt::LeftButton, {}, point);
        }
    }

    void Keyboard() {
        constexpr Qt::Key kOthers[] = {Qt::Key_Space, Qt::Key_D,  Qt::Key_D,      Qt::Key_D,
                                       Qt::Key_D,     Qt::Key_U,  Qt::Key_U,      Qt::Key_U,
                                       Qt::Key_U,     Qt::Key_Up, Qt::Key_Left,   Qt::Key_Right,
                                       Qt::Key_Tab,   Qt::Key_F1, Qt::Key_Return, Qt::Key_Escape};
        Qt::Key key = AnyOf(kOthers);
        Qt::KeyboardModifiers modifiers;
        const int kind = Any(0, 9);
        if (kind < 3) key = static_cast<Qt::Key>(Any(Qt::Key_0, Qt::Key_9));
        if (kind < 1) modifiers = Qt::KeypadModifier;
        if (kind > 7) key = static_cast<Qt::Key>(Any(Qt::Key_A, Qt::Key_Z));
        if (kind == 9 && Any(0, 9) == 0) modifiers = Qt::ControlModifier;
        switch (Any(0, 5)) {
            case 0:
                return QTest::keyPress(program->view, key, modifiers);
            case 1:
                return QTest::keyRelease(program->view, key, modifiers);
            default:
                return QTest::keyClick(program->view, key, modifiers);
        }
    }

    void Menu() {
        std::vector<QAction*> entries;
        for (auto* menu : program->frame->findChildren<QMenu*>()) {
            emit menu->aboutToShow();
            for (QAction* action : menu->actions()) {
                if (action->data().isValid() && action->data().toInt() != kExit) {
                    entries.push_back(action);
                }
            }
        }
        AnyOf(entries)->trigger();
    }

    void Event() {
        const int kind = Any(0, 19);
        if (kind == 0) {
            Menu();
        } else if (kind < 10) {
            Mouse();
        } else {
            Keyboard();
        }
    }

    void Answer(QDialog& dialog) {
        if (auto* file = qobject_cast<QFileDialog*>(&dialog)) return AnswerFile(*file);
        const int kind = Any(0, 3);
        if (kind == 0) return dialog.reject();
        if (auto* edit = dialog.findChild<QLineEdit*>(); edit && !edit->isReadOnly()) {
            edit->setText(QString::number(Any(0, 300)));
        }
        if (kind <= 2) return QTest::keyClick(&dialog, Qt::Key_Return);
        std::vector<QAbstractButton*> buttons;
        for (auto* button : dialog.findChildren<QAbstractButton*>()) {
            if (button->isVisible() && button->isEnabled()) buttons.push_back(button);
        }
        if (buttons.empty()) return dialog.reject();
        AnyOf(buttons)->click();
    }

    void AnswerFile(QFileDialog& dialog) {
        if (Any(0, 1) == 0) return dialog.reject();
        auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
        const std::string name = "monkey" + std::to_string(Any(1, 4)) + ".qdx";
        edit->setText(QString::fromStdString(folder.Path(name)));
        QTest::keyClick(edit, Qt::Key_Return);
    }

    // The finger is taken off the buttons, where nothing is (a null point would be the middle), and
    // nothing is left to press one during a flow.
    void LetGo() const {
        program->clock.inPause = program->clock.inPauseWithInput = nullptr;
        QTest::mouseRelease(program->view, Qt::LeftButton, {}, QPoint(1, 1));
    }

    // Without it, an empty purse or an option switched off would soon be all there is.
    void BeginRound() {
        CMorvikDoc& document = *program->document;
        constexpr int kModes[] = {kModeCasino, kModeWarning, kModeAutoHold, kModeAutoHold};
        constexpr int kGames[] = {300, 300, 330, 350};
        if (!program->engine.handOver) program->Key(Qt::Key_D);
        document.Run(AnyOf(kModes));
        document.Run(AnyOf(kGames));
        if (!program->engine.settings.doubleUp) document.Run(kToggleDoubleUp);
        if (Any(0, 2) == 0) document.Run(kFixedHand);
        if (Any(0, 2) == 0) DecideOnAFeature();
        if (program->engine.settings.gameId == 300) program->Stack("JS JD TC TH 2S", 5);
        EnterDollars(program->engine, 100);
        ShowCredits(document.table);
    }

    // After the next hand.
    void DecideOnAFeature() {
        program->DecideFeatures([](CombinedRandom random) {
            const int draw = random.IRandom(1, 150);
            return draw == 2 || draw == 149;
        });
    }

    // What the events have led to.
    void NoteState() {
        const GameEngine& engine = program->engine;
        seen.insert(engine.settings.gameName);
        if (!engine.handOver) seen.insert("a hand");
        if (engine.fixedHand) seen.insert("a fixed hand");
        if (engine.doubleUpPick) seen.insert("a double up");
        if (FeaturePending(engine) && !engine.doubleUpPick) seen.insert("a feature");
        if (engine.finalLine >= 0 && engine.handWins) seen.insert("a win");
    }

    CombinedRandom chance;
    std::set<std::string> seen;
};

TEST_F(MonkeyTest, WhateverIsPressedTheTableTellsTheTruthAndNothingIsOwed) {
    for (const char* flag : {"SpinBonus", "TgtBonus", "RBBonus", "CharlieBonus"}) {
        SetInTable("Jacks or Better", flag, "1");
    }
    TestProgram& p = Start();
    p.clock.paints = false;
    const Looker looker([this] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog && dialog->isVisible()) Answer(*dialog);
    });
    const int events = WantedEvents();
    for (int event = 0; event < events && !HasFailure(); ++event) {
        // Meanwhile, in the middle of a flow, one more.
        if (Any(0, 9) == 0) p.clock.inPause = [this] { Event(); };
        if (Any(0, 9) == 0) p.clock.inPauseWithInput = [this] { Event(); };
        Event();
        EXPECT_GE(p.engine.settings.credits, 0);
        EXPECT_GE(p.engine.settings.bet, 1);
        NoteState();
        if (event % kEventsOfARound != 0) continue;
        QApplication::processEvents();
        LetGo();
        p.ExpectAtRest("after event " + std::to_string(event));
        BeginRound();
    }
    LetGo();
    p.ExpectAtRest("at the end");
    const std::string game = p.document->table.files.gamePath;
    const MachineSettings played = p.engine.settings;
    for (const char* state : {"a hand", "a fixed hand", "a double up", "a feature", "a win",
                              "Pick Em Poker", "Jacks or Better"}) {
        EXPECT_TRUE(seen.contains(state)) << state;
    }
    EXPECT_TRUE(p.document->OnCloseDocument());
    MachineSettings stored;
    ProfileFile file;
    ReadSettings(file, game, stored);
    EXPECT_EQ(stored.credits, p.engine.settings.credits);
    EXPECT_EQ(stored.bet, played.bet);
    Start();
}

}  // namespace
