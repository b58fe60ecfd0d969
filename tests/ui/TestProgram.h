// The whole program without a screen, played by input events: each test has a fresh one in a folder
// of its own, with the shipped pay tables and a game file.
#pragma once
#include <gtest/gtest.h>

#include <QAction>
#include <QTest>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "app/CMainFrame.h"
#include "app/CMorvikDoc.h"
#include "core/profile/ProfileFile.h"
#include "game/engine/Dealing.h"
#include "tests/core/TestGames.h"
#include "tests/core/profile/TemporaryFolder.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/art/Pictures.h"
#include "ui/machine/CMorvikView.h"
#include "ui/machine/Commands.h"
#include "ui/machine/WindowClock.h"

inline constexpr std::string_view kNothing = "2S 4D 6C 8H TS";
inline constexpr std::string_view kJacksAndTens = "JS JD TC TH 2S";  // 10 credits

// Pauses end at once, but what waits is painted in them, and the player may do something.
class TestClock : public Clock {
  public:
    explicit TestClock(const bool& countingUp) : countingUp(countingUp) {}

    const bool& countingUp;
    std::int64_t now = 1'790'000'000;

    std::int64_t Now() override { return now; }
    void Pause(int milliseconds) override;

    std::function<void()> inEveryPause;
    // Called once: in the next pause of a count-up, or of anything else.
    std::function<void()> inPause;
    std::function<void()> inPauseWithInput;
    int pausesWithInput = 0;
    bool paints = true;
};

class NoSounds : public Sounds {
  public:
    void Play(Wave /*wave*/) override {}
    void PlayToEnd(Wave /*wave*/) override {}
    void Sound(Beep /*beep*/) override {}
};

class TestProgram {
  public:
    // Starts with the files of the folder. With real pauses, those of the game's speed are made.
    explicit TestProgram(const TemporaryFolder& folder, bool realPauses = false);
    ~TestProgram();
    TestProgram(const TestProgram&) = delete;
    TestProgram& operator=(const TestProgram&) = delete;

    void Stack(std::string_view cards, std::size_t count) {
        StackDeck(engine.deck, engine.payTable, cards, count);
    }

    void DecideNextDuel(int wanted) { DecideDuel(engine.deck, wanted); }

    void Deal(std::string_view cards, std::size_t count = kHandSize) {
        Stack(cards, count);
        Key(Qt::Key_D);
        ASSERT_FALSE(engine.handOver);
    }
    void HoldAll() const { Keys({Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5}); }

    // Wanted looks at a generator that draws the same as the features' will.
    void DecideFeatures(const std::function<bool(CombinedRandom)>& wanted);

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(view, key, modifiers);
    }
    void Keys(std::initializer_list<Qt::Key> keys) const {
        for (const Qt::Key key : keys) Key(key);
    }
    // Places are those of the layout, whatever the window shows them as.
    QPoint MiddleOf(const QRect& place) const { return view->fit.ToClient(place).center(); }
    void Press(const QRect& place, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mousePress(view, button, {}, MiddleOf(place));
    }
    void Release(const QRect& place, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mouseRelease(view, button, {}, MiddleOf(place));
    }
    void MoveTo(const QRect& place) const {
        const QPointF point = MiddleOf(place);
        QMouseEvent move(QEvent::MouseMove, point, view->mapToGlobal(point), {}, {}, {});
        QApplication::sendEvent(view, &move);
    }
    void Click(const QRect& place, Qt::MouseButton button = Qt::LeftButton) const {
        Press(place, button);
        Release(place, button);
    }
    void RightPress(const QRect& place) const { Click(place, Qt::RightButton); }
    void DoubleClick(const QRect& place) const {
        Click(place);
        QTest::mouseDClick(view, Qt::LeftButton, {}, MiddleOf(place));  // the second press only
        Release(place);
    }

    // Chooses from a menu, which is opened before as a player would have to.
    void Choose(int command) const;
    QAction* Action(int command) const;

    std::string HandText() const;
    HoldMask Held() const { return HeldMask(engine); }
    std::string Message() const { return document->PlayersSeat().scene.message; }
    // "WON 10, bet 5, credits 105"
    std::string Meters() const {
        return Message() + ", bet " + ShownScene().bet + ", credits " + ShownScene().credits;
    }
    std::string Title() const { return frame->windowTitle().toStdString(); }

    // Nothing moves, no button is down, and what is seen is what the state of the machine tells.
    void ExpectAtRest(const std::string& when) const;

    GameEngine engine;
    GameEngine spare;
    ProfileFile file;
    DataFilePaths paths;
    PictureStore pictures;
    TestClock clock{engine.countingUp};
    WindowClock windowClock;
    NoSounds sounds;
    std::unique_ptr<CMainFrame> frame;
    std::unique_ptr<CMorvikDoc> document;
    CMorvikView* view = nullptr;
    const MachineLayout& Places() const { return view->places; }
    const Scene& ShownScene() const { return document->PlayersSeat().scene; }
};

// A game file with 100 credits shown as such, at full speed, in Casino mode.
class ProgramTest : public testing::Test {
  protected:
    ProgramTest();

    // Before the start: in the section "main" of the game file, or in that of a game's first table.
    void Set(std::string_view key, std::string_view value);
    void SetInTable(const std::string& game, std::string_view key, std::string_view value);

    TestProgram& Start(bool realPauses = false);
    TestProgram& Start(const std::string& game, int gameId);

    // What the disk holds in the game file.
    std::string Stored(std::string_view key, std::string_view section = "main",
                       const std::string& name = "Default.qdx");

    void TearDown() override;

    TemporaryFolder folder;
    std::unique_ptr<TestProgram> program;
};
