#include "ui/machine/Motion.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QScreen>
#include <QTest>
#include <cmath>

#include "game/flows/DoubleUp.h"
#include "game/flows/HandFlow.h"
#include "game/seat/ShowScene.h"
#include "tests/game/FakePorts.h"
#include "ui/art/PictureStore.h"
#include "ui/machine/ActionQueue.h"
#include "ui/machine/CMorvikView.h"
#include "ui/machine/Commands.h"
#include "ui/machine/MachinePainter.h"

constexpr int kFrame = 16;  // milliseconds

// What moves in a moment, "turn 2 lit 0": 0..4 are the places.
std::string WhatMoves(const Moment& moment) {
    std::string text;
    const auto add = [&](const std::string& part) { text += (text.empty() ? "" : " ") + part; };
    for (std::size_t i = 0; i < kHandSize; ++i) {
        const PlaceMoment& place = moment.places[i];
        const std::string at = " " + std::to_string(i);
        constexpr const char* kMoves[] = {"", "turn", "leave", "come"};
        if (place.move != CardMove::kNone) add(kMoves[static_cast<int>(place.move)] + at);
        if (place.lit < 1) add("lit" + at);
        if (place.held < 1) add("held" + at);
    }
    if (!moment.message.from.empty()) add("paid");
    if (!moment.credits.from.empty()) add("credits");
    if (moment.verdict < 1) add("verdict");
    if (moment.celebration < 1) add("celebration");
    if (moment.waiting != 1) add("waiting");
    return text;
}

// The frames of a machine that is played on, as they come on a clock of its own.
struct Frames {
    explicit Frames(TestSeat& t) {
        t.ports.looks = [&](const Scene& before, const Scene& now) {
            const int pause = DelaysOf(t.engine.settings.speed).card;
            motion.Change(before, now, t.engine.payTable, pause, time);
        };
        t.ports.passes = [this](int milliseconds) { Pass(milliseconds); };
    }

    void Pass(int milliseconds) {
        for (int passed = 0; passed < milliseconds; passed += kFrame) Look(time + passed);
        time += milliseconds;
    }

    void Look(std::int64_t at) {
        const Moment moment = motion.At(at);
        const std::string moves = WhatMoves(moment);
        EXPECT_TRUE(moves.empty() || motion.Moves(at)) << moves;
        ExpectNoJump(moment, moves);
        last = moment;
        if (moves == now) {
            ++count;
            return;
        }
        Note();
        now = moves;
        count = 1;
    }

    // Nothing gets there in fewer than five frames, or goes back.
    void ExpectNoJump(const Moment& moment, const std::string& moves) const {
        for (std::size_t i = 0; i < kHandSize; ++i) {
            const PlaceMoment& place = moment.places[i];
            const double from = last.places[i].move == place.move ? last.places[i].moved : 0;
            if (place.move == CardMove::kNone) continue;
            EXPECT_GE(place.moved, from) << moves;
            EXPECT_LE(place.moved, from + 0.2) << moves;
        }
    }

    void Note() {
        if (!now.empty()) text += (text.empty() ? "" : ", ") + now + " x" + std::to_string(count);
    }

    // How often each was seen, in order, since the last time; and then rest.
    std::string Take() {
        Pass(10'000);
        EXPECT_FALSE(motion.Moves(time));
        EXPECT_EQ(motion.At(time), Moment{});
        Note();
        now.clear();
        return std::exchange(text, "");
    }

    Motion motion;
    std::int64_t time = 1000;
    Moment last;
    std::string now;
    int count = 0;
    std::string text;
};

struct SpeedCase {
    Speed speed;
    const char* deal;
    const char* hold;
    const char* draw;
};

class FramesAtSpeed : public testing::TestWithParam<SpeedCase> {};
INSTANTIATE_TEST_SUITE_P(
    Speeds, FramesAtSpeed,
    testing::Values(
        SpeedCase{Speed::kNormal,
                  "turn 0 x7, turn 1 x7, turn 2 x7, turn 3 x7, turn 4 x7, lit 0 lit 1 x13",
                  "held 0 x7",
                  "leave 2 leave 3 leave 4 x10, turn 2 x7, turn 3 x7, turn 4 x7, "
                  "lit 2 credits x5, lit 2 paid credits x8, paid credits x2"},
        SpeedCase{Speed::kSlow,
                  "turn 0 x16, turn 1 x16, turn 2 x16, turn 3 x16, turn 4 x16, lit 0 lit 1 x32",
                  "held 0 x16",
                  "leave 2 leave 3 leave 4 x24, turn 2 x16, turn 3 x16, turn 4 x16, "
                  "lit 2 credits x5, lit 2 paid credits x10, lit 2 x17"},
        SpeedCase{Speed::kFast, "", "", ""}));

TEST_P(FramesAtSpeed, AHandMovesStepByStepInsideItsPauses) {
    CreditTable t;
    t.engine.settings.speed = GetParam().speed;
    t.engine.settings.bet = 1;
    Frames frames(t);
    t.Deal("JS JD TC 9H 2S JC 4C 5C");
    EXPECT_EQ(frames.Take(), GetParam().deal);
    ToggleHold(t.seat, 0);
    EXPECT_EQ(frames.Take(), GetParam().hold);
    ToggleHold(t.seat, 1);
    frames.Take();
    DealDraw(t.seat);
    EXPECT_EQ(frames.Take(), GetParam().draw);
}

TEST(MotionTest, ABigWinGoesOnBesideTheFlowAndAWaitingPickAndItsEndAreMarked) {
    CreditTable t;  // at full speed
    Frames frames(t);
    t.Deal("TS JS QS KS 2S AS");
    frames.Take();
    t.Draw(0b11110);
    EXPECT_TRUE(frames.Take().starts_with("celebration x56"));
    t.engine.settings.speed = Speed::kNormal;
    StartDoubleUp(t.seat);
    EXPECT_TRUE(frames.Take().starts_with("waiting x"));
    t.answers = {"no"};
    PickDoubleUpCard(t.seat, 1);
    const std::string duel = frames.Take();
    EXPECT_TRUE(duel.starts_with("turn 1 held 1 x7, turn 2 x7, turn 3 x7, turn 4 x7, verdict x13"));
}

TEST(MotionTest, AnotherPictureEndsWhatMovedInTheOneBefore) {
    Scene before;
    Scene held = before;
    held.places[0].held = true;
    Scene duel = held;
    duel.doubleUp.shown = true;
    Motion motion;
    motion.Change(before, held, JacksOrBetter(), 100, 0);
    EXPECT_EQ(WhatMoves(motion.At(20)), "held 0");
    motion.Change(held, duel, JacksOrBetter(), 100, 20);
    EXPECT_EQ(WhatMoves(motion.At(40)), "waiting");
}

// Puts an end to all movement, as a desktop that wants none has it.
class StillStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        if (hint == SH_Widget_Animation_Duration) return 0;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

// The window on a machine, with a clock that the test sets.
struct MotionViewTest : testing::Test {
    MotionViewTest() {
        view.motionTime = [this] { return time; };
        view.resize(1400, 960);  // shown larger than it is laid out
        view.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
        t.engine.settings.speed = Speed::kNormal;
        t.ports.looks = [this](const Scene&, const Scene&) { view.ShowScene(); };
        t.Settle();
        view.ShowScene();
        QApplication::processEvents();
    }

    // Held while the lights are on their way.
    void BeginToMove() {
        t.Deal("JS JD TC 9H 2S JC 4C 5C");
        time += 5000;
        QTest::qWait(2 * kFrame);
        ToggleHold(t.seat, 0);
        time += 40;
    }

    QImage AtRest() {
        QImage image(view.size() * view.devicePixelRatioF(), QImage::Format_RGB32);
        image.setDevicePixelRatio(view.devicePixelRatioF());
        QPainter painter(&image);
        PaintMachine(painter, view.rect(), t.seat.scene, view.fit, view.places, t.engine.payTable,
                     t.engine.deck.table, pictures);
        return image;
    }
    // What has been painted, part by part, not what a picture taken anew would show; but at another
    // scale the platform has no such picture.
    QImage Seen() {
        QApplication::processEvents();
        const bool plain = view.devicePixelRatioF() == 1;
        const QPixmap seen = plain ? view.screen()->grabWindow(view.winId()) : view.grab();
        return seen.toImage().convertToFormat(QImage::Format_RGB32);
    }

    // The timer has stopped, and what is seen is the scene.
    void ExpectAtRest(const char* why) {
        EXPECT_TRUE(view.IsStill()) << why;
        EXPECT_EQ(Seen(), AtRest()) << why;
    }

    TestSeat t;
    PictureStore pictures;
    ActionQueue actions{t.seat};
    CMorvikView view{t.seat, pictures, actions, {[](int) { return kNoCommand; }, [](int) {}}};
    std::int64_t time = 0;
};

TEST_F(MotionViewTest, WhateverComesInTheMiddleEndsItInThePictureAtRest) {
    BeginToMove();
    QTest::qWait(2 * kFrame);
    EXPECT_FALSE(view.IsStill());
    EXPECT_NE(Seen(), AtRest());
    time += 60'000;
    QTest::qWait(2 * kFrame);
    ExpectAtRest("a frame that comes late");
    for (const auto& [why, happens] :
         std::initializer_list<std::pair<const char*, std::function<void()>>>{
             {"a press",
              [this] {
                  QTest::mousePress(&view, Qt::LeftButton, {}, {1399, 959});
              }},
             {"a key", [this] { QTest::keyPress(&view, Qt::Key_Shift); }},
             {"another size", [this] { view.resize(700, 500); }},
             {"another pay table", [this] { view.LayOutMachine(); }},
             {"the player's wish", [this] { view.SetAnimation(false); }}}) {
        ToggleHold(t.seat, 1);
        time += 40;
        EXPECT_FALSE(view.IsStill()) << why;
        happens();
        ExpectAtRest(why);
    }
    ToggleHold(t.seat, 1);
    ExpectAtRest("the player's wish");
    view.SetAnimation(true);
    view.SetReducedMotion(true);
    ToggleHold(t.seat, 1);
    ExpectAtRest("the desktop's wish");
    view.SetReducedMotion(false);
    StillStyle style;
    view.setStyle(&style);
    ToggleHold(t.seat, 1);
    ExpectAtRest("the style");
    view.setStyle(QApplication::style());
}

// Counts what a window paints.
class PaintCounter : public QObject {
  public:
    explicit PaintCounter(QWidget& watched) : QObject(&watched) {
        watched.installEventFilter(this);
    }
    int paints = 0;
    int timers = 0;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        timers += event->type() == QEvent::Timer ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

TEST_F(MotionViewTest, AtRestNothingIsPaintedAndNoTimerRuns) {
    BeginToMove();
    PaintCounter counter(view);
    QTest::qWait(3 * kFrame);
    EXPECT_GE(counter.timers, 1);
    time += 1000;
    QTest::qWait(3 * kFrame);
    counter.paints = counter.timers = 0;
    QTest::qWait(10 * kFrame);
    EXPECT_EQ(counter.paints, 0);
    EXPECT_EQ(counter.timers, 0);
}
