#include "ui/machine/MachinePainter.h"

#include <climits>

#include "tests/ui/PaintedMachine.h"
#include "ui/art/Contrast.h"

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
