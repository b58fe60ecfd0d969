// What the window paints of the machine, and when.
#include "ui/machine/CMorvikView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QScreen>
#include <QTest>

#include "game/flows/HandFlow.h"
#include "tests/game/FakePorts.h"
#include "ui/art/PictureStore.h"
#include "ui/machine/ActionQueue.h"
#include "ui/machine/Commands.h"
#include "ui/machine/MachinePainter.h"

constexpr int kFrame = 16;  // milliseconds

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
struct CMorvikViewTest : testing::Test {
    CMorvikViewTest() {
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

TEST_F(CMorvikViewTest, WhateverComesInTheMiddleEndsItInThePictureAtRest) {
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

// Counts what a window paints, and keeps what it was last asked to.
class PaintWatch : public QObject {
  public:
    explicit PaintWatch(QWidget& watched) : QObject(&watched) { watched.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        timers += event->type() == QEvent::Timer ? 1 : 0;
        if (event->type() == QEvent::Paint) {
            ++paints;
            last = static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }

    int paints = 0;
    int timers = 0;
    QRegion last;
};

TEST_F(CMorvikViewTest, AtRestNothingIsPaintedAndNoTimerRuns) {
    BeginToMove();
    PaintWatch watch(view);
    QTest::qWait(3 * kFrame);
    EXPECT_GE(watch.timers, 1);
    time += 1000;
    QTest::qWait(3 * kFrame);
    watch.paints = watch.timers = 0;
    QTest::qWait(10 * kFrame);
    EXPECT_EQ(watch.paints, 0);
    EXPECT_EQ(watch.timers, 0);
}

TEST_F(CMorvikViewTest, AnotherStyleOfCardsIsSeenAtOnce) {
    const QImage before = Seen();
    const PaintWatch watch(view);
    view.SetCardStyle({.back = 2});
    EXPECT_NE(Seen(), before);
    EXPECT_EQ(watch.last, view.rect());
}
