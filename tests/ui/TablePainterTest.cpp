#include "ui/table/TablePainter.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QImage>
#include <QPainter>
#include <climits>
#include <functional>

#include "game/BonusFeatures.h"
#include "game/DoubleUp.h"
#include "game/HandFlow.h"
#include "tests/ui/SceneTable.h"
#include "ui/art/PictureStore.h"
#include "ui/table/ActionQueue.h"
#include "ui/table/CMorvikView.h"
#include "ui/table/Layout.h"

constexpr QSize kClient{640, 480};
constexpr QRgb kUntouched = 0xffff00ff;

TableLayout LayoutOf(const SceneTable& t, QSize client = kClient) {
    return *LayOut(client, ShapeOf(t.engine.payTable), QtTextMeasure());
}

// The scene in a picture that is larger than the client by a margin on the right and below.
struct Canvas {
    explicit Canvas(double ratio, QSize client = kClient)
        : image((client + QSize(10, 10)) * ratio, QImage::Format_RGB32) {
        image.setDevicePixelRatio(ratio);
        image.fill(kUntouched);
    }

    void Paint(const SceneTable& t, const TableScene& scene, const QRect& clip,
               QSize client = kClient) {
        QPainter painter(&image);
        PaintTable(painter, clip, scene, LayoutOf(t, client), t.engine.payTable,
                   t.engine.deck.table, pictures);
    }

    PictureStore pictures;
    QImage image;
};

QImage Painted(const SceneTable& t, const TableScene& scene, double ratio = 1,
               QSize client = kClient) {
    Canvas canvas(ratio, client);
    canvas.Paint(t, scene, QRect(QPoint(0, 0), client), client);
    return canvas.image;
}

// Everything that differs, in client coordinates; null when nothing does.
QRect Difference(const QImage& one, const QImage& other) {
    QRect differing;
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

TableScene WithCards(const SceneTable& t, CardFace first, CardFace second) {
    TableScene scene = t.scene;
    scene.places[0].card = FindCard(t.engine.deck.table, first.rank, first.suit);
    scene.places[1].card = FindCard(t.engine.deck.table, second.rank, second.suit);
    return scene;
}

void PlayToAWin(SceneTable& t) {
    t.Deal("JS JD TC 9H 2S JC 4C 5C");
    t.Draw(0b11000);
}

// Every state that looks different by the features it shows, one after the other.
void ForEachState(const std::function<void(const SceneTable&, const std::string&)>& look) {
    SceneTable t;
    look(t, "start");
    PlayToAWin(t);
    look(t, "won");
    StartDoubleUp(t.table);
    look(t, "double up");

    SceneTable piles("Pick Em Poker", 350);
    piles.engine.settings.mode = PlayMode::kAutoHold;
    piles.Deal("KC KD 9D AH 2S TC JH 3C");
    look(piles, "piles");

    SceneTable bonus("Super Bonus Poker", 356);
    PayTable& bonuses = bonus.engine.payTable;
    bonuses.charlieBonus = bonuses.redBlackBonus = true;
    bonuses.spinBonus = bonuses.targetBonus = true;
    bonus.Deal("2H 2D 3H 3D AH");
    bonus.engine.redBlackPending = bonus.engine.spinPending = true;
    bonus.display.Repaint();
    look(bonus, "charlie, Red or Black and Spin");
    bonus.engine.spinPending = false;
    bonus.engine.targetPending = true;
    bonus.table.target.values = {5, 100, 25, 10, 500};
    bonus.table.target.shot[4] = true;
    bonus.display.Repaint();
    look(bonus, "Target");

    SceneTable sneak("Sneak Peak Poker", 351);
    sneak.Deal("AC KD 9D AH 2S TC JH 3C");
    look(sneak, "first draw card");
}

QImage PaintedInPieces(const SceneTable& t, double ratio, QSize client) {
    Canvas pieces(ratio, client);
    constexpr int kPiece = 97;  // cuts through cards, texts and boxes
    for (int y = 0; y < client.height(); y += kPiece) {
        for (int x = 0; x < client.width(); x += kPiece) {
            pieces.Paint(t, t.scene, QRect(x, y, kPiece, kPiece), client);
        }
    }
    return pieces.image;
}

TEST(TablePainterTest, PaintedInPiecesItLooksAsPaintedAtOnceAndTheClientAloneIsPainted) {
    const auto isPainted = [](QColor c) { return c.rgb() != kUntouched; };
    for (const auto& [client, ratio] :
         {std::pair(kClient, 1.0), std::pair(kClient, 2.0), std::pair(QSize(200, 150), 1.0),
          std::pair(QSize(1024, 700), 1.0), std::pair(QSize(1600, 800), 1.0)}) {
        ForEachState([&, size = client, scale = ratio](const SceneTable& t,
                                                       const std::string& state) {
            const QImage image = Painted(t, t.scene, scale, size);
            if (size == kClient || state == "start") {
                EXPECT_EQ(Difference(image, PaintedInPieces(t, scale, size)), QRect()) << state;
            }
            const QSize painted = size * scale;
            EXPECT_EQ(CountIn(image, image.rect(), isPainted), painted.width() * painted.height());
            EXPECT_EQ(CountIn(image, {QPoint(0, 0), painted}, isPainted),
                      painted.width() * painted.height())
                << state << " " << size.width();
        });
    }
}

TEST(TablePainterTest, TextsOfAnyLengthStayInTheirPlaces) {
    SceneTable t;
    PlayToAWin(t);
    const TableLayout layout = LayoutOf(t);
    const QImage usual = Painted(t, t.scene);
    const std::string endless(300, 'W');
    const auto expectChangeOnlyIn = [&](const QRect& place,
                                        const std::function<void(TableScene&)>& change) {
        TableScene scene = t.scene;
        change(scene);
        const QRect changed = Difference(usual, Painted(t, scene));
        EXPECT_FALSE(changed.isNull());
        EXPECT_TRUE(place.adjusted(1, 1, -1, -1).contains(changed));
    };
    expectChangeOnlyIn(layout.message.rect, [&](auto& scene) { scene.message = endless; });
    expectChangeOnlyIn(layout.creditValue.rect, [&](auto& scene) { scene.credits = endless; });
    expectChangeOnlyIn(layout.PayoutCell(6, 5),
                       [](auto& scene) { scene.lines[6].payout = INT_MAX; });
    t.engine.payTable.lines[6].description = endless;
    expectChangeOnlyIn(layout.rows[6], [](auto&) {});
}

TEST(TablePainterTest, AWonLineIsRedWithItsPayoutInTheColumnOfTheBet) {
    SceneTable t;
    t.engine.settings.bet = 3;
    PlayToAWin(t);
    const TableLayout layout = LayoutOf(t);
    const QImage image = Painted(t, t.scene);
    const auto redShare = [&](const QRect& place) {
        return CountIn(image, place, IsRed) * 100 / (place.width() * place.height());
    };
    EXPECT_GT(redShare(layout.rows[6]), 40);
    EXPECT_GT(redShare(layout.PayoutCell(6, 3)), 40);
    EXPECT_EQ(redShare(layout.PayoutCell(6, 5)), 0);
    EXPECT_EQ(redShare(layout.rows[5]), 0);
    TableScene flash = t.scene;
    flash.lines[6].mark = LineMark::kWonCellDark;
    EXPECT_TRUE(layout.PayoutCell(6, 3).contains(Difference(image, Painted(t, flash))));
}

TEST(TablePainterTest, ACardIsComposedOfRankPipsAndCourt) {
    const SceneTable t;
    const TableLayout layout = LayoutOf(t);
    const QImage image = Painted(t, WithCards(t, {13, kClubs}, {9, kDiamonds}));
    // Small cards: the rank 10 pixels in, 36 high; the court 35 wide, 5 in from the corner.
    const auto in = [&](std::size_t i, const QRect& place, bool (*ink)(QColor)) {
        return CountIn(image, place.translated(layout.cards[i].topLeft()), ink);
    };
    constexpr QRect rank(10, 0, 25, 36);
    constexpr QRect court(50, 5, 35, 35);
    constexpr QRect bigPip(25, 70, 40, 40);
    EXPECT_GT(in(0, rank, IsBlack), 50);
    EXPECT_GT(in(0, court, IsInk), 400);
    EXPECT_GT(in(0, bigPip, IsBlack), 300);
    EXPECT_GT(in(1, rank, IsRed), 50);
    EXPECT_EQ(in(1, court, IsInk), 0);
    EXPECT_GT(in(1, bigPip, IsRed), 300);
}

int InkOfSmallPip(const SceneTable& t, QSize client) {
    const TableLayout layout = LayoutOf(t, client);
    const QRect underRank(layout.cards[0].topLeft() + QPoint(0, layout.cardFontHeight),
                          QSize(layout.cardSize.width() / 2, layout.smallPip));
    const TableScene scene = WithCards(t, {2, kSpades}, {3, kSpades});
    return CountIn(Painted(t, scene, 1, client), underRank, IsBlack);
}

TEST(TablePainterTest, TheWordOnAWildCardLeavesThePipUnderTheRankInSight) {
    const SceneTable tame;
    const SceneTable wild("Deuces Wild", 330);
    for (const QSize client : {kClient, QSize(800, 600), QSize(1024, 700)}) {
        const int whole = InkOfSmallPip(tame, client);
        EXPECT_GT(InkOfSmallPip(wild, client), whole * 3 / 4) << client.width();
        EXPECT_LE(InkOfSmallPip(wild, client), whole) << client.width();
    }
}

TEST(TablePainterTest, AcesOfTheOrderedGameAndCardsThatNoDeckHoldsHaveTheirPictures) {
    const SceneTable aces("Aces Bonus Poker", 316);
    const QImage image = Painted(aces, WithCards(aces, {1, kSpades}, {2, kSpades}));
    EXPECT_GT(CountIn(image, LayoutOf(aces).cards[0], IsOlive), 30);
    EXPECT_EQ(CountIn(image, LayoutOf(aces).cards[1], IsOlive), 0);
    SceneTable t;
    TableScene scene = t.scene;
    for (const CardCode card : {-7, 52, 56, 1000}) {
        scene.places[2].card = card;
        EXPECT_EQ(Difference(Painted(t, t.scene), Painted(t, scene)), QRect()) << card;
    }
}

TEST(CMorvikViewTest, AScreenReaderIsToldWhatTheTableShowsWheneverItAsks) {
    SceneTable t;
    PictureStore pictures;
    ActionQueue actions(t.table);
    CMorvikView view(t.table, t.scene, t.display, pictures, actions, {});
    const QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->text(QAccessible::Name), "Video poker table");
    EXPECT_TRUE(
        reader->text(QAccessible::Description).startsWith("PRESS DEAL. Cards: 1 face down"));
    t.display.ShowMessage("HOLD/DRAW");
    EXPECT_TRUE(reader->text(QAccessible::Description).startsWith("HOLD/DRAW. "));
}
