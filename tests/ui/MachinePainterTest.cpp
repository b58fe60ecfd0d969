#include "ui/machine/MachinePainter.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <QTest>
#include <climits>
#include <cmath>
#include <functional>
#include <memory>

#include "game/commands/MachineCommands.h"
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
#include "ui/machine/MachineFit.h"
#include "ui/machine/MachinePainter.h"
#include "ui/machine/Motion.h"
#include "ui/machine/SceneDescription.h"

constexpr QSize kClient{640, 480};
constexpr QRgb kUntouched = 0xffff00ff;

MachineLayout LayoutOf(const TestSeat& t, QSize client = kClient) {
    return *LayOut(MachineFit::Into(client).table, ShapeOf(t.engine.payTable), QtTextMeasure());
}

// The scene in a picture that is larger than the client by a margin on the right and below.
struct Canvas {
    explicit Canvas(double ratio, QSize client = kClient)
        : image((client + QSize(10, 10)) * ratio, QImage::Format_RGB32) {
        image.setDevicePixelRatio(ratio);
        image.fill(kUntouched);
    }

    void Paint(const TestSeat& t, const Scene& scene, const QRegion& clip, QSize client = kClient,
               const CardStyle& style = {}, const Moment& moment = {}) {
        // It outlives the application, so that it may not be destroyed.
        static PictureStore& pictures = *new PictureStore;
        QPainter painter(&image);
        PaintMachine(painter, clip, scene, MachineFit::Into(client), LayoutOf(t, client),
                     t.engine.payTable, t.engine.deck.table, pictures, style, moment);
    }

    QImage image;
};

QImage Painted(const TestSeat& t, const Scene& scene, double ratio = 1, QSize client = kClient,
               const CardStyle& style = {}) {
    Canvas canvas(ratio, client);
    canvas.Paint(t, scene, QRect(QPoint(0, 0), client), client, style);
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
bool IsBlue(QColor c) { return c == QColor(0, 0, 255); }
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
         {std::pair(kClient, 1.0), std::pair(kClient, 2.0), std::pair(QSize(200, 150), 1.0),
          std::pair(QSize(1366, 768), 1.0)}) {
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

// The name panel stands 17 units from the left and 5 from the top.
TEST(MachinePainterTest, ABoxOfALargerMachineBeginsWithAWholePixel) {
    const TestSeat t;
    const QColor yellow(255, 255, 0);
    for (const auto& [client, corner] : {std::pair(QSize(2048, 1400), QPoint(34, 10)),
                                         std::pair(QSize(1536, 1050), QPoint(26, 8))}) {
        const QImage image = Painted(t, t.seat.scene, 1, client);
        EXPECT_EQ(image.pixelColor(corner), yellow) << client.width();
        EXPECT_EQ(image.pixelColor(corner + QPoint(1, 1)), yellow) << "two pixels wide";
        EXPECT_TRUE(IsBlack(image.pixelColor(corner + QPoint(2, 2))));
        EXPECT_NE(image.pixelColor(corner - QPoint(1, 0)), yellow);
        EXPECT_NE(image.pixelColor(corner - QPoint(0, 1)), yellow);
    }
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

// As the guidelines for readable texts on the web define it, but for the darkest tones.
double Contrast(QColor ink, QColor paper) {
    const auto light = [](QColor c) {
        return 0.05 + 0.2126 * std::pow(c.redF(), 2.2) + 0.7152 * std::pow(c.greenF(), 2.2) +
               0.0722 * std::pow(c.blueF(), 2.2);
    };
    return light(paper) / light(ink);
}

TEST(MachinePainterTest, InFourColoursRankPipAndCourtShowThatOfTheSuitAndReadEvenOnTintedPaper) {
    const TestSeat t;
    Scene scene = t.seat.scene;
    for (const int suit : {kSpades, kHearts, kClubs, kDiamonds}) {
        PlaceLook& place = scene.places[static_cast<std::size_t>(suit)];
        place.card = FindCard(t.engine.deck.table, 13, suit);
        place.pileTop = true;
        const QImage image = Painted(t, scene, 1, kClient, {.fourColours = true});
        const QPoint corner = LayoutOf(t).cards[static_cast<std::size_t>(suit)].topLeft();
        for (const QPoint inked : {QPoint(14, 18), QPoint(45, 93), QPoint(54, 15)}) {
            const QColor ink = image.pixelColor(corner + inked);  // of K, pip and court
            EXPECT_GE(Contrast(ink, image.pixelColor(corner + QPoint(8, 80))), 4.5) << suit;
            const int strongest = std::max({ink.red(), ink.green(), ink.blue()});
            EXPECT_EQ(suit == kSpades, strongest < 90);
            EXPECT_EQ(suit == kHearts, strongest >= 90 && strongest == ink.red());
            EXPECT_EQ(suit == kClubs, strongest >= 90 && strongest == ink.green());
        }
    }
}

TEST(MachinePainterTest, TheBackChosenIsSeenOnThePlacesAndUnderThePiles) {
    const TestSeat t;
    Scene scene = t.seat.scene;
    const QRect middle = LayoutOf(t).cards[3].adjusted(20, 20, -20, -20);
    for (int depth = 0; depth <= 2; ++depth) {
        scene.places[3].card = depth == 0 ? kCardBack : kNoCard;
        scene.places[3].pileDepth = depth;
        EXPECT_NE(Painted(t, scene, 1, kClient, {.back = 1}).copy(middle),
                  Painted(t, scene, 1, kClient, {.back = 2}).copy(middle));
    }
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
            const QImage image = Painted(t, scene, 1, client);
            EXPECT_EQ(CountIn(image, layout.cards[1], IsBlue), 0);
            EXPECT_EQ(CountIn(image, layout.cards[0], IsBlue) > 50, &t == &wild);
            return CountIn(image, underRank, IsBlack);
        };
        EXPECT_GT(inkOfSmallPip(wild), inkOfSmallPip(tame) * 3 / 4) << client.width();
    }
}

TEST(MachinePainterTest, EveryTargetThatIsNotYetShotBearsANumberOfItsOwn) {
    const TestSeat t;
    Scene scene = t.seat.scene;
    for (TargetLook& target : scene.targets) target.face = TargetFace::kHidden;
    const QImage image = Painted(t, scene);
    const auto places = LayoutOf(t).targets;
    constexpr QRect kBull(17, 17, 16, 16);
    for (std::size_t i = 1; i < places.size(); ++i) {
        EXPECT_NE(image.copy(kBull.translated(places[i].topLeft())),
                  image.copy(kBull.translated(places[i - 1].topLeft())));
    }
}

TEST(MachinePainterTest, AcesOfTheOrderedGameAndCardsThatNoDeckHoldsHaveTheirPictures) {
    const TestSeat aces("Aces Bonus Poker", 316);
    const QImage image = Painted(aces, WithCards(aces, {1, kSpades}, {2, kSpades}));
    EXPECT_GT(CountIn(image, LayoutOf(aces).cards[0], IsOlive), 30);
    EXPECT_EQ(CountIn(image, LayoutOf(aces).cards[1], IsOlive), 0);
    const QRect card = LayoutOf(aces).cards[0];
    constexpr QColor kPaper(255, 253, 246);
    for (int i = 0; i < card.width() * card.height(); ++i) {
        const QPoint p = card.topLeft() + QPoint(i % card.width(), i / card.width());
        const QRect left(p - QPoint(3, 0), QSize(3, 1));
        if (!IsOlive(image.pixelColor(p)) || CountIn(image, left, IsOlive) > 0) continue;
        const auto isDark = [=](QColor c) { return Contrast(c, kPaper) >= 4.5; };
        EXPECT_GT(CountIn(image, left, isDark), 0);
    }
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
              "Credits $95.00. Jacks or Better, Table 0, Casino.");
    ToggleHold(t.seat, 1);
    DealDraw(t.seat);
    expectToldIn(t, "Double up offered.");
    DecideDuel(t.engine.deck, 1);
    StartDoubleUp(t.seat);
    EXPECT_EQ(words(t),
              "Credits won 5. Double up to 10. Dealer " +
                  t.engine.deck.table.cards[static_cast<std::size_t>(t.engine.hand[4])].name +
                  ". Cards: 2 face down; 3 face down; 4 face down; 5 face down.");
    t.seat.showsHints = t.engine.fixedHand = true;
    ShowAtRest(t.seat);
    expectToldIn(t, "face down. 2 to 5: pick a card that beats the dealer's.");
    t.engine.doubleUpPick = false;
    ShowAtRest(t.seat);
    expectToldIn(t, "Table 0, Fixed Hand: credits do not count. D: deal");
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

// Keeps what a widget was last asked to paint.
class PaintedRegion : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) last = static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion last;
};

TEST(CMorvikViewTest, ALargeWindowPaintsATurnedCardWhereItShowsIt) {
    TestSeat t;
    PictureStore pictures;
    ActionQueue actions(t.seat);
    CMorvikView view(t.seat, pictures, actions, {[](int) { return kNoCommand; }, [](int) {}});
    view.resize(2048, 1600);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QCoreApplication::processEvents();
    PaintedRegion painted;
    view.installEventFilter(&painted);
    t.seat.scene.places[4].card = 3;
    view.ShowScene();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !painted.last.isEmpty(); }));
    const QRect card(view.places.cards[4].topLeft() * 2 + QPoint(0, 100), view.places.cardSize * 2);
    EXPECT_TRUE(painted.last.contains(card) &&
                (painted.last - card.adjusted(-9, -9, 19, 19)).isEmpty());
}

TEST(CMorvikViewTest, AnotherStyleOfCardsIsSeenAtOnce) {
    TestSeat t;
    PictureStore pictures;
    ActionQueue actions(t.seat);
    CMorvikView view(t.seat, pictures, actions, {[](int) { return kNoCommand; }, [](int) {}});
    view.resize(kClient);
    view.show();
    QCoreApplication::processEvents();
    const QImage before = view.grab().toImage();
    PaintedRegion painted;
    view.installEventFilter(&painted);
    view.SetCardStyle({.back = 2});
    QCoreApplication::processEvents();
    EXPECT_EQ(painted.last, view.rect());
    EXPECT_NE(view.grab().toImage(), before);
}
