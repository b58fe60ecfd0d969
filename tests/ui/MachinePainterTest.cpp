#include "ui/machine/MachinePainter.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QImage>
#include <QPainter>
#include <climits>
#include <functional>
#include <memory>

#include "game/flows/BonusFeatures.h"
#include "game/flows/DoubleUp.h"
#include "game/flows/HandFlow.h"
#include "game/seat/ShowScene.h"
#include "tests/game/FakePorts.h"
#include "ui/art/PictureStore.h"
#include "ui/machine/ActionQueue.h"
#include "ui/machine/CMorvikView.h"
#include "ui/machine/ChangedRegion.h"
#include "ui/machine/Commands.h"
#include "ui/machine/Layout.h"
#include "ui/machine/MachinePainter.h"
#include "ui/machine/Motion.h"
#include "ui/machine/SceneDescription.h"

constexpr QSize kClient{640, 480};
constexpr QRgb kUntouched = 0xffff00ff;

MachineLayout LayoutOf(const TestSeat& t, QSize client = kClient) {
    return *LayOut(client, ShapeOf(t.engine.payTable), QtTextMeasure());
}

// The scene in a picture that is larger than the client by a margin on the right and below.
struct Canvas {
    explicit Canvas(double ratio, QSize client = kClient)
        : image((client + QSize(10, 10)) * ratio, QImage::Format_RGB32) {
        image.setDevicePixelRatio(ratio);
        image.fill(kUntouched);
    }

    void Paint(const TestSeat& t, const Scene& scene, const QRegion& clip, QSize client = kClient,
               const Moment& moment = {}) {
        // It outlives the application, so that it may not be destroyed.
        static PictureStore& pictures = *new PictureStore;
        QPainter painter(&image);
        PaintMachine(painter, clip, scene, LayoutOf(t, client), t.engine.payTable,
                     t.engine.deck.table, pictures, moment);
    }

    QImage image;
};

QImage Painted(const TestSeat& t, const Scene& scene, double ratio = 1, QSize client = kClient,
               const Moment& moment = {}) {
    Canvas canvas(ratio, client);
    canvas.Paint(t, scene, QRect(QPoint(0, 0), client), client, moment);
    return canvas.image;
}

// Everything that differs, in client coordinates; null when nothing does.
QRect Difference(const QImage& one, const QImage& other) {
    QRect differing;
    if (one == other) return differing;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.pixel(x, y) != other.pixel(x, y)) differing |= QRect(x, y, 1, 1);
        }
    }
    return differing;
}

int CountIn(const QImage& image, const QRect& place, const std::function<bool(QColor)>& wanted) {
    int count = 0;
    for (int i = 0; i < place.width() * place.height(); ++i) {
        const QPoint offset(i % place.width(), i / place.width());
        if (wanted(image.pixelColor(place.topLeft() + offset))) ++count;
    }
    return count;
}

bool IsRed(QColor c) { return c.red() > 150 && c.green() < 60 && c.blue() < 60; }
bool IsBlack(QColor c) { return c.red() < 60 && c.green() < 60 && c.blue() < 60; }
bool IsInk(QColor c) { return c.lightness() < 200; }
bool IsOlive(QColor c) { return c == QColor(190, 190, 60); }

Scene WithCards(const TestSeat& t, CardFace first, CardFace second) {
    Scene scene = t.seat.scene;
    scene.places[0].card = FindCard(t.engine.deck.table, first.rank, first.suit);
    scene.places[1].card = FindCard(t.engine.deck.table, second.rank, second.suit);
    return scene;
}

void PlayToAWin(TestSeat& t) {
    t.Deal("JS JD TC 9H 2S JC 4C 5C");
    t.Draw(0b11000);
}

using Look = std::function<void(TestSeat&, const std::string&)>;

// Hands with all that a table can show, and every state between them that looks different.
void ForEachState(const Look& look) {
    TestSeat t;
    look(t, "start");
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

QImage PaintedInPieces(const TestSeat& t, double ratio, QSize client) {
    Canvas pieces(ratio, client);
    constexpr int kPiece = 97;  // cuts through cards, texts and boxes
    for (int y = 0; y < client.height(); y += kPiece) {
        for (int x = 0; x < client.width(); x += kPiece) {
            pieces.Paint(t, t.seat.scene, QRect(x, y, kPiece, kPiece), client);
        }
    }
    return pieces.image;
}

TEST(MachinePainterTest, PaintedInPiecesItLooksAsPaintedAtOnceAndTheClientAloneIsPainted) {
    const auto isPainted = [](QColor c) { return c.rgb() != kUntouched; };
    for (const auto& [client, ratio] :
         {std::pair(kClient, 1.0), std::pair(kClient, 2.0), std::pair(QSize(200, 150), 1.0)}) {
        ForEachState(
            [&, size = client, scale = ratio](const TestSeat& t, const std::string& state) {
                if (state.starts_with("start of")) return;
                const QImage image = Painted(t, t.seat.scene, scale, size);
                EXPECT_EQ(Difference(image, PaintedInPieces(t, scale, size)), QRect()) << state;
                const QSize painted = size * scale;
                for (const QRect& place : {image.rect(), QRect(QPoint(0, 0), painted)}) {
                    EXPECT_EQ(CountIn(image, place, isPainted), painted.width() * painted.height())
                        << state << " " << size.width();
                }
            });
    }
}

// A window that paints only what a step or a frame has changed.
struct MovingWindow {
    MovingWindow(TestSeat& shownSeat, double pixelRatio)
        : t(shownSeat), ratio(pixelRatio), canvas(pixelRatio) {
        canvas.Paint(t, t.seat.scene, QRect(QPoint(0, 0), kClient));
        scene = t.seat.scene;
    }

    // Looked at a second time, the picture is the same.
    void Frame(const QRegion& changed = {}) {
        const Moment next = motion.At(time);
        const QRegion region = changed + ChangedRegion(moment, next, scene, LayoutOf(t));
        moment = next;
        frames += moment == Moment{} ? 0 : 1;
        canvas.Paint(t, scene, region, kClient, moment);
        EXPECT_EQ(Difference(canvas.image, Painted(t, scene, ratio, kClient, moment)), QRect())
            << t.ports.log.back() << " after " << time;
    }
    QRegion Show(const Scene& before, const Scene& now) {
        const QRegion changed = ChangedRegion(before, now, t.engine.payTable, LayoutOf(t));
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
    double ratio;
    Canvas canvas;
    Scene scene;
    Motion motion;
    Moment moment;
    std::int64_t time = 0;
    int frames = 0;
    int pauses = 0;
};

// In the games of ForEachState.
class ChangedRegionTest : public testing::TestWithParam<double> {};
INSTANTIATE_TEST_SUITE_P(PixelRatios, ChangedRegionTest, testing::Values(1, 1.25, 1.5, 2));

TEST_P(ChangedRegionTest, EveryFrameLooksAsIfAllHadBeenPaintedAndACardCostsNoMoreThanItself) {
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
            const QRect card = LayoutOf(t).cards[2];
            EXPECT_TRUE(card.adjusted(-2, -1, 4, 6).contains(changed.boundingRect()));
        };
    });
    EXPECT_GE(cards, 5);
    EXPECT_GE(frames, 100);
}

TEST(MachinePainterTest, TextsOfAnyLengthStayInTheirPlaces) {
    TestSeat t;
    PlayToAWin(t);
    const MachineLayout layout = LayoutOf(t);
    const QImage usual = Painted(t, t.seat.scene);
    const std::string endless(300, 'W');
    const auto expectChangeOnlyIn = [&](const QRect& place, const Scene& scene) {
        const QRect changed = Difference(usual, Painted(t, scene));
        EXPECT_FALSE(changed.isNull());
        EXPECT_TRUE(place.adjusted(1, 1, -1, -1).contains(changed));
    };
    Scene scene = t.seat.scene;
    scene.message = endless;
    expectChangeOnlyIn(layout.message.rect, scene);
    scene = t.seat.scene;
    scene.lines[6].payout = INT_MAX;
    expectChangeOnlyIn(layout.PayoutCell(6, 5), scene);
    t.engine.payTable.lines[6].description = endless;
    expectChangeOnlyIn(layout.rows[6], t.seat.scene);
}

TEST(MachinePainterTest, AWonLineIsRedWithItsPayoutInTheColumnOfTheBet) {
    TestSeat t;
    t.engine.settings.bet = 3;
    PlayToAWin(t);
    const MachineLayout layout = LayoutOf(t);
    const QImage image = Painted(t, t.seat.scene);
    const auto redShare = [&](const QRect& place) {
        return CountIn(image, place, IsRed) * 100 / (place.width() * place.height());
    };
    EXPECT_TRUE(redShare(layout.rows[6]) > 40 && redShare(layout.PayoutCell(6, 3)) > 40);
    EXPECT_TRUE(redShare(layout.rows[5]) == 0 && redShare(layout.PayoutCell(6, 5)) == 0);
    Scene flash = t.seat.scene;
    flash.lines[6].mark = LineMark::kWonCellDark;
    EXPECT_TRUE(layout.PayoutCell(6, 3).contains(Difference(image, Painted(t, flash))));
}

TEST(MachinePainterTest, ACardIsComposedOfRankPipsAndCourt) {
    const TestSeat t;
    const MachineLayout layout = LayoutOf(t);
    const QImage image = Painted(t, WithCards(t, {13, kClubs}, {9, kDiamonds}));
    // Small cards: the rank 10 pixels in, 36 high; the court 35 wide, 5 in from the corner.
    const auto in = [&](std::size_t i, const QRect& place, bool (*ink)(QColor)) {
        return CountIn(image, place.translated(layout.cards[i].topLeft()), ink);
    };
    constexpr QRect rank(10, 0, 25, 36);
    constexpr QRect court(50, 5, 35, 35);
    constexpr QRect bigPip(25, 70, 40, 40);
    EXPECT_TRUE(in(0, rank, IsBlack) > 50 && in(1, rank, IsRed) > 50);
    EXPECT_TRUE(in(0, court, IsInk) > 400 && in(1, court, IsInk) == 0);
    EXPECT_TRUE(in(0, bigPip, IsBlack) > 300 && in(1, bigPip, IsRed) > 300);
}

TEST(MachinePainterTest, TheWordOnAWildCardLeavesThePipUnderTheRankInSight) {
    const TestSeat tame;
    const TestSeat wild("Deuces Wild", 330);
    for (const QSize client : {kClient, QSize(800, 600), QSize(1024, 700)}) {
        const auto inkOfSmallPip = [&](const TestSeat& t) {
            const MachineLayout layout = LayoutOf(t, client);
            const QRect underRank(layout.cards[0].topLeft() + QPoint(0, layout.cardFontHeight),
                                  QSize(layout.cardSize.width() / 2, layout.smallPip));
            const Scene scene = WithCards(t, {2, kSpades}, {3, kSpades});
            return CountIn(Painted(t, scene, 1, client), underRank, IsBlack);
        };
        EXPECT_GT(inkOfSmallPip(wild), inkOfSmallPip(tame) * 3 / 4) << client.width();
    }
}

TEST(MachinePainterTest, AcesOfTheOrderedGameAndCardsThatNoDeckHoldsHaveTheirPictures) {
    const TestSeat aces("Aces Bonus Poker", 316);
    const QImage image = Painted(aces, WithCards(aces, {1, kSpades}, {2, kSpades}));
    EXPECT_GT(CountIn(image, LayoutOf(aces).cards[0], IsOlive), 30);
    EXPECT_EQ(CountIn(image, LayoutOf(aces).cards[1], IsOlive), 0);
    TestSeat t;
    Scene scene = t.seat.scene;
    for (const CardCode card : {-7, 52, 56, 1000}) {
        scene.places[2].card = card;
        EXPECT_EQ(Difference(Painted(t, t.seat.scene), Painted(t, scene)), QRect()) << card;
    }
}

TEST(SceneDescriptionTest, AHandIsToldWithItsMarksItsWinAndItsMeters) {
    TestSeat t;
    const auto words = [](const TestSeat& shown) {
        return Describe(shown.seat.scene, shown.engine.payTable, shown.engine.deck.table);
    };
    const auto expectToldIn = [&](const TestSeat& shown, std::string_view part) {
        EXPECT_NE(words(shown).find(part), std::string::npos) << words(shown);
    };
    t.engine.settings.speed = Speed::kFast;
    t.Deal("JS JD TC 9H 2S 3C 4D 6H");
    ToggleHold(t.seat, 0);
    EXPECT_EQ(words(t),
              "HOLD/DRAW. JACKS OR BETTER pays 5. Cards: 1 Jack of Spades, held; 2 Jack of "
              "Diamonds; 3 10 of Clubs; 4 9 of Hearts; 5 2 of Spades. Bet $5.00. "
              "Credits $95.00.");
    ToggleHold(t.seat, 1);
    DealDraw(t.seat);
    expectToldIn(t, "Double up offered.");
    DecideDuel(t.engine.deck, 1);
    StartDoubleUp(t.seat);
    EXPECT_EQ(words(t),
              "Credits won 5. Double up to 10. Dealer " +
                  t.engine.deck.table.cards[static_cast<std::size_t>(t.engine.hand[4])].name +
                  ". Cards: 2 face down; 3 face down; 4 face down; 5 face down.");
    TestSeat wild("Deuces Wild", 330);
    wild.seat.scene.places[0].card = FindCard(wild.engine.deck.table, 2, kHearts);
    expectToldIn(wild, "1 2 of Hearts, wild; 2 face down");

    TestSeat piles("Pick Em Poker", 350);
    piles.engine.settings.mode = PlayMode::kAutoHold;
    piles.Deal("KC KD 9D AH 2S KS JH 3C");
    expectToldIn(piles,
                 "2 King of Diamonds; 3 no card; left pile 9 of Diamonds; right pile King of "
                 "Spades, PLAY.");
    Scene& features = piles.seat.scene;
    features.redBlack = {.shown = true, .lit = CardColour::kRed};
    features.featureLabel = "SHOOT";
    features.targets.fill({TargetFace::kHidden, 0});
    features.targets[3] = {TargetFace::kShot, 25};
    expectToldIn(piles,
                 "Red or Black? Last it was red. SHOOT. Targets: 1 not shot; 2 not shot; 3 not "
                 "shot; 4 25; 5 not shot.");
}

TEST(CMorvikViewTest, AScreenReaderIsToldWhatTheTableShowsWheneverItAsks) {
    TestSeat t;
    PictureStore pictures;
    ActionQueue actions(t.seat);
    CMorvikView view(t.seat, pictures, actions, {[](int) { return kNoCommand; }, [](int) {}});
    const QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->text(QAccessible::Name), "Video poker table");
    ShowMessage(t.seat, "HOLD/DRAW");
    EXPECT_TRUE(reader->text(QAccessible::Description).startsWith("HOLD/DRAW. "));
}
