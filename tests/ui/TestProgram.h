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
#include <vector>

#include "app/CMainFrame.h"
#include "app/CMorvikDoc.h"
#include "core/profile/ProfileFile.h"
#include "tests/core/TestGames.h"
#include "tests/core/profile/TemporaryFolder.h"
#include "tests/ui/DialogRobot.h"
#include "ui/art/PictureStore.h"
#include "ui/art/Pictures.h"
#include "ui/table/CMorvikView.h"
#include "ui/table/Commands.h"
#include "ui/table/WindowClock.h"

// Pauses end at once, but what waits is painted in them, and the player may do something.
class TestClock : public Clock {
  public:
    std::int64_t Now() override { return 1'790'000'000; }
    void Pause(int milliseconds) override;
    void PauseWithInput(int milliseconds) override;

    // Called once: in the next pause, or in the next that lets input through.
    std::function<void()> inPause;
    std::function<void()> inPauseWithInput;
    int pausesWithInput = 0;
    bool paints = true;
};

class NotedSounds : public Sounds {
  public:
    void Play(Wave wave) override { played.push_back(wave); }
    void PlayToEnd(Wave wave) override { played.push_back(wave); }
    void Sound(Beep /*beep*/) override { ++beeps; }

    std::vector<Wave> played;
    int beeps = 0;
};

class TestProgram {
  public:
    // Starts with the files of the folder. With real pauses, those of the game's speed are made.
    explicit TestProgram(const TemporaryFolder& folder, bool realPauses = false);
    ~TestProgram();
    TestProgram(const TestProgram&) = delete;
    TestProgram& operator=(const TestProgram&) = delete;

    // The next deal takes these cards, and after them those drawn.
    void Stack(std::string_view cards, std::size_t count);

    // The double up's first card is higher (1), lower (-1) than the dealer's, or of its value (0).
    void DecideNextDuel(int wanted);

    // Wanted looks at a generator that draws the same as the features' will.
    void DecideFeatures(const std::function<bool(CombinedRandom)>& wanted);

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;
    void Keys(std::initializer_list<Qt::Key> keys) const;
    void Press(const QRect& place) const;
    void Release(const QRect& place) const;
    void Click(const QRect& place) const;
    void RightPress(const QRect& place) const;
    void DoubleClick(const QRect& place) const;

    // Chooses from a menu, which is opened before as a player would have to.
    void Choose(int command) const;
    QAction* Action(int command) const;

    std::string HandText() const;
    HoldMask Held() const;
    std::string Message() const { return document->scene.message; }
    std::string Title() const { return frame->windowTitle().toStdString(); }

    // Nothing moves, no button is down, and what is seen is what the state of the machine tells.
    void ExpectAtRest(const std::string& when) const;

    GameEngine engine;
    GameEngine spare;
    ProfileFile file;
    DataFilePaths paths;
    PictureStore pictures;
    TestClock clock;
    WindowClock windowClock;
    NotedSounds sounds;
    std::unique_ptr<CMainFrame> frame;
    std::unique_ptr<CMorvikDoc> document;
    CMorvikView* view = nullptr;
    const TableLayout& Places() const { return view->places; }
    const TableScene& Scene() const { return document->scene; }
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
