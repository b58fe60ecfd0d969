// That parts of the picture, painted anew, fit what is left of it.
#include "ui/machine/ChangedRegion.h"

#include <memory>

#include "game/commands/MachineCommands.h"
#include "game/flows/BonusFeatures.h"
#include "game/flows/DoubleUp.h"
#include "game/flows/HandFlow.h"
#include "game/seat/ShowScene.h"
#include "tests/Sanitized.h"
#include "tests/ui/PaintedMachine.h"
#include "ui/machine/Motion.h"

using Look = std::function<void(TestSeat&, const std::string&)>;

// Hands with all that a table can show, and every state between them that looks different.
void ForEachState(const Look& look) {
    TestSeat t;
    t.seat.showsHints = true;
    look(t, "start");
    BetOne(t.seat);
    ChooseMode(t.seat, PlayMode::kWarning);
    BetMax(t.seat);
    PlayToAWin(t);
    look(t, "won");
    StartDoubleUp(t.seat);
    look(t, "double up");
    t.answers = {"no"};
    PickDoubleUpCard(t.seat, 2);

    TestSeat royal;
    royal.engine.settings.speed = Speed::kFast;  // 4,000 credits are not counted up
    look(royal, "start of a royal flush");
    royal.Deal("TS JS QS KS 2S AS");
    royal.Draw(0b11110);
    look(royal, "royal flush");

    TestSeat piles("Pick Em Poker", 350);
    look(piles, "start of piles");
    piles.engine.settings.mode = PlayMode::kAutoHold;
    piles.Deal("KC KD 9D AH 2S TC JH 3C");
    look(piles, "piles");
    ChoosePile(piles.seat, Pile::kLeft);

    TestSeat bonus("Super Bonus Poker", 356);
    look(bonus, "start of features");
    PayTable& bonuses = bonus.engine.payTable;
    bonuses.charlieBonus = bonuses.redBlackBonus = true;
    bonuses.spinBonus = bonuses.targetBonus = true;
    bonus.Deal("2H 2D 3H 3D AH");
    bonus.engine.redBlackPending = bonus.engine.spinPending = true;
    ShowAtRest(bonus.seat);
    look(bonus, "charlie, Red or Black and Spin");
    GuessColour(bonus.seat, CardColour::kRed);
    Spin(bonus.seat);
    bonus.engine.targetPending = true;
    bonus.seat.target.values = {5, 100, 25, 10, 500};
    bonus.seat.target.shot[4] = true;
    ShowAtRest(bonus.seat);
    look(bonus, "Target");
    for (const int target : {0, 1}) Shoot(bonus.seat, target);

    TestSeat sneak("Sneak Peak Poker", 351);
    look(sneak, "start of first draw");
    sneak.Deal("AC KD 9D AH 2S TC JH 3C");
    look(sneak, "first draw card");
    DealDraw(sneak.seat);
}

TEST(ChangedRegionTest, TheClientAloneIsPaintedAndAllOfIt) {
    const TestSeat t;
    const auto isPainted = [](QColor c) { return c.rgb() != kUntouched; };
    for (const auto& [client, ratio] : {std::pair(kClient, 2.0), std::pair(QSize(200, 150), 1.0),
                                        std::pair(QSize(1366, 768), 1.0)}) {
        const QImage image = Painted(t, t.seat.scene, ratio, client);
        const QRect painted(QPoint(0, 0), client * ratio);
        for (const QRect& place : {image.rect(), painted}) {
            EXPECT_EQ(CountIn(image, place, isPainted), painted.width() * painted.height());
        }
    }
}

struct Screen {
    QSize client;
    double ratio;
};

// A window that paints only what a step or a frame has changed.
struct MovingWindow {
    MovingWindow(TestSeat& shownSeat, const Screen& screen)
        : t(shownSeat),
          client(screen.client),
          canvas(screen.ratio, client),
          whole(screen.ratio, client) {
        canvas.Paint(t, t.seat.scene, QRect(QPoint(0, 0), client), client);
        scene = t.seat.scene;
    }

    // Looked at a second time, the picture is the same.
    void Frame(const QRegion& changed = {}) {
        const Moment next = motion.At(time);
        const QRegion region = changed + ChangedRegion(moment, next, scene, LayoutOf(t, client));
        moment = next;
        frames += moment == Moment{} ? 0 : 1;
        canvas.Paint(t, scene, MachineFit::Into(client).ToClient(region), client, {}, moment);
        whole.Paint(t, scene, QRect(QPoint(0, 0), client), client, {}, moment);
        EXPECT_EQ(Difference(canvas.image, whole.image), QRect())
            << t.ports.log.back() << " after " << time;
    }
    QRegion Show(const Scene& before, const Scene& now) {
        const QRegion changed = ChangedRegion(before, now, t.engine.payTable, LayoutOf(t, client));
        motion.Change(before, now, t.engine.payTable, DelaysOf(t.engine.settings.speed).card, time);
        scene = now;
        if (before != now) Frame(changed);
        return changed;
    }
    // A count-up and a wheel have many steps that look alike.
    void Pass(int milliseconds) {
        if (moment != Moment{} && ++pauses % 4 < 2) {
            time += milliseconds / 3;
            Frame();
            time -= milliseconds / 3;
        }
        time += milliseconds;
    }
    void ComeToRest() {
        motion.End();
        Frame();
        EXPECT_EQ(moment, Moment{});
    }

    TestSeat& t;
    QSize client;
    Canvas canvas;
    Canvas whole;
    Scene scene;
    Motion motion;
    Moment moment;
    std::int64_t time = 0;
    int frames = 0;
    int pauses = 0;
};

// In the games of ForEachState.
class ChangedRegionTest : public testing::TestWithParam<Screen> {};
INSTANTIATE_TEST_SUITE_P(Screens, ChangedRegionTest,
                         testing::Values(Screen{kClient, 1}, Screen{kClient, 1.25},
                                         Screen{kClient, 1.5}, Screen{kClient, 2},
                                         Screen{{1366, 768}, 1}, Screen{{1366, 768}, 1.25},
                                         Screen{{1920, 1080}, 1}, Screen{{1237, 1811}, 1.5},
                                         Screen{{3840, 2160}, 1}));

TEST_P(ChangedRegionTest, EveryFrameLooksAsIfAllHadBeenPaintedAndACardCostsNoMoreThanItself) {
    if (kSanitized && GetParam().client.height() > 1080)
        GTEST_SKIP() << "more pixels, the same code";
    std::vector<std::unique_ptr<MovingWindow>> windows;
    int cards = 0;
    int frames = 0;
    ForEachState([&](TestSeat& t, const std::string& state) {
        if (!state.starts_with("start")) {
            windows.back()->ComeToRest();
            frames += windows.back()->frames;
            return;
        }
        MovingWindow& window = *windows.emplace_back(std::make_unique<MovingWindow>(t, GetParam()));
        t.ports.passes = [&](int milliseconds) { window.Pass(milliseconds); };
        t.ports.looks = [&](const Scene& before, const Scene& now) {
            const QRegion changed = window.Show(before, now);
            Scene turned = before;
            turned.places[2].card = now.places[2].card;
            if (before == now || turned != now) return;
            ++cards;
            const QRect card = LayoutOf(t, window.client).cards[2];
            EXPECT_TRUE(card.adjusted(-2, -1, 4, 6).contains(changed.boundingRect()));
        };
    });
    EXPECT_GE(cards, 5);
    EXPECT_GE(frames, 100);
}
