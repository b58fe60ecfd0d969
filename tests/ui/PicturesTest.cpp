#include "ui/art/Pictures.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QSvgRenderer>
#include <map>
#include <set>

#include "ui/art/PictureStore.h"

namespace {

constexpr CardStyle kFourColours{.fourColours = true};

QStringList warnings;

void KeepWarning(QtMsgType, const QMessageLogContext&, const QString& text) { warnings << text; }

// What the table and the dialogs can ask for, through the functions and by name.
std::set<Picture> AllPictures() {
    using enum Picture;
    std::set<Picture> all{kFelt, kEmptyPicture, kJokerPicture, kIcon, kSmallIcon, kCharlie, kWheel};
    for (const auto size : {SizeClass::kSmall, SizeClass::kMedium, SizeClass::kLarge}) {
        all.insert({FaceOfCard(size), AlternateFace(size), JokerFace(size), SpinWindow(size)});
        for (int back = 0; back < kCardBackDesigns; ++back) {
            all.insert({CardBack(size, {.back = back}), CardStack(size, {.back = back})});
        }
        for (const auto button :
             {MachineButton::kDeal, MachineButton::kBetOne, MachineButton::kMaxBet,
              MachineButton::kHold, MachineButton::kDoubleUp}) {
            all.insert({ButtonPicture(button, size, false), ButtonPicture(button, size, true)});
        }
        for (const bool red : {false, true}) {
            all.insert({PanelPicture(size, red, false), PanelPicture(size, red, true),
                        ChoicePicture(size, red), SpinButtonPicture(size, red)});
        }
    }
    for (int suit = 1; suit <= 5; ++suit) {
        all.insert({PipPicture(suit), PipPicture(suit, kFourColours), SuitPicture(suit)});
        all.insert(TargetPicture(suit - 1));
        for (int rank = 1; rank <= 13; ++rank) {
            all.insert({CourtPicture(rank, suit), CourtPicture(rank, suit, kFourColours),
                        RankPicture(rank, suit)});
        }
    }
    for (const double worth : {0.05, 0.25, 0.5, 1.0}) all.insert(CoinPicture(worth));
    return all;
}

int OpaquePixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += qAlpha(image.pixel(x, y)) > 128 ? 1 : 0;
    }
    return count;
}

}  // namespace

TEST(PicturesTest, EveryPictureIsADrawingOfItsOwnThatCoversAGoodPartOfItsPlace) {
    LoadArt();
    qInstallMessageHandler(KeepWarning);
    PictureStore store;
    std::map<QByteArray, Picture> drawn;
    for (const Picture picture : AllPictures()) {
        SCOPED_TRACE(static_cast<int>(picture));
        QSvgRenderer drawing(PicturePath(picture));
        ASSERT_TRUE(drawing.isValid());
        const QSize size = drawing.defaultSize();
        const QImage image = store.Get(picture, size, 1).toImage();
        ASSERT_EQ(image.size(), size);
        EXPECT_GT(OpaquePixels(image), size.width() * size.height() / 5);
        const QImage thumb = store.Get(picture, QSize(60, 60), 1).toImage();
        const QByteArray pixels(reinterpret_cast<const char*>(thumb.constBits()),
                                thumb.sizeInBytes());
        const auto [same, isNew] = drawn.emplace(pixels, picture);
        EXPECT_TRUE(isNew) << "looks like " << static_cast<int>(same->second);
    }
    EXPECT_TRUE(warnings.isEmpty()) << warnings.join('\n').toStdString();
    EXPECT_EQ(QDir(":/art").entryList(QDir::Files).size(), static_cast<int>(AllPictures().size()))
        << "a drawing that nobody can ask for";
}

TEST(PicturesTest, CardsShowTheTableThroughTheirRoundCornersAndTheFeltHasNoHoles) {
    PictureStore store;
    for (const Picture card : {FaceOfCard(SizeClass::kLarge), CardBack(SizeClass::kSmall)}) {
        const QImage image = store.Get(card, QSize(90, 120), 2).toImage();
        EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
        EXPECT_EQ(qAlpha(image.pixel(179, 239)), 0);
        EXPECT_EQ(qAlpha(image.pixel(90, 120)), 255);
    }
    const QImage felt = store.Get(Picture::kFelt, QSize(kFeltTile, kFeltTile), 1.25).toImage();
    EXPECT_EQ(OpaquePixels(felt), 120 * 120);
}

TEST(PicturesTest, NumbersFollowRankSuitAndWorth) {
    EXPECT_EQ(static_cast<int>(RankPicture(13, 3)), 1134);  // black king, the last of its row
    EXPECT_EQ(static_cast<int>(RankPicture(1, 4)), 1135);
    EXPECT_EQ(static_cast<int>(SuitPicture(2)), 1039);
    EXPECT_EQ(CourtPicture(12, 2), CourtPicture(12, 2, kFourColours)) << "hearts are always red";
    for (const int back : {-1, kCardBackDesigns}) {
        EXPECT_EQ(CardBack(SizeClass::kSmall, {.back = back}), CardBack(SizeClass::kSmall));
    }
    EXPECT_EQ(CoinPicture(0.1 + 0.15), Picture::kQuarter);
    EXPECT_EQ(CoinPicture(std::nan("")), Picture::kDollar);
    for (const Picture none :
         {RankPicture(14, 1), RankPicture(1, 6), PipPicture(0), SuitPicture(-1),
          CourtPicture(10, 2), CourtPicture(13, 5), TargetPicture(5)}) {
        EXPECT_EQ(none, Picture::kEmptyPicture);
    }
}

TEST(PictureStoreTest, TheProgramsIconIsDrawnOnceForAllWindows) {
    const QIcon icon = ProgramIcon();
    EXPECT_EQ(ProgramIcon().cacheKey(), icon.cacheKey());
    for (const int side : {16, 48, 256}) {
        EXPECT_EQ(icon.actualSize(QSize(side, side)), QSize(side, side));
        EXPECT_GT(OpaquePixels(icon.pixmap(side).toImage()), side * side / 2);
    }
}

TEST(PictureStoreTest, OddWishesGetAnEmptyOrAMarkedPixmapAndMemoryStaysBounded) {
    PictureStore store;
    for (const int width : {0, -5, 5000}) {
        EXPECT_TRUE(store.Get(Picture::kFelt, QSize(width, 20), 1).isNull());
    }
    EXPECT_EQ(store.Get(Picture::kFelt, QSize(20, 20), std::nan("")).devicePixelRatio(), 1);
    const auto missing = static_cast<Picture>(7);
    EXPECT_EQ(OpaquePixels(store.Get(missing, QSize(20, 20), 1).toImage()), 400);
    const QSize size(96, 96);
    const auto first = store.Get(Picture::kFelt, size, 1).cacheKey();
    EXPECT_EQ(store.Get(Picture::kFelt, size, 1.5).size(), QSize(144, 144)) << "of another screen";
    EXPECT_EQ(store.Get(Picture::kFelt, size, 1).cacheKey(), first);
    for (int side = 3200; side < 3205; ++side) store.Get(missing, QSize(side, side), 1);
    EXPECT_NE(store.Get(Picture::kFelt, size, 1).cacheKey(), first) << "forgotten on the way";
}
