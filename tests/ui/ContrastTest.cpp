// That all texts can be read: what the machine writes on, palettes of any desktop, high contrast.
#include "ui/art/Contrast.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <QScopeGuard>

#include "app/PaletteKeeper.h"
#include "tests/ui/Palettes.h"
#include "ui/art/PictureStore.h"
#include "ui/machine/ClothPainter.h"
#include "ui/machine/MachineCanvas.h"

namespace {

// The least contrast of a text with what is painted behind it.
double LeastContrast(QSize size, const QRect& behind, const QColor& text,
                     const std::function<void(MachineCanvas&)>& paint) {
    static PictureStore pictures;
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        MachineCanvas canvas(painter, QRect(QPoint(0, 0), size), MachineFit::Into(size), pictures);
        paint(canvas);
    }
    double least = 21;
    for (int y = behind.top(); y <= behind.bottom(); ++y) {
        for (int x = behind.left(); x <= behind.right(); ++x) {
            least = std::min(least, Contrast(text, image.pixelColor(x, y)));
        }
    }
    return least;
}

double ContrastOnCloth(const QColor& text) {
    MachineLayout layout;
    layout.client = {1024, 700};
    return LeastContrast(layout.client, {{0, 0}, layout.client}, text,
                         [&](MachineCanvas& canvas) { PaintCloth(canvas, layout); });
}

double ContrastOn(Picture picture, const QColor& text, const QRect& behind) {
    const QSize size(80, 50);
    return LeastContrast(size, behind, text, [&](MachineCanvas& canvas) {
        canvas.DrawPicture(picture, {{0, 0}, size});
    });
}

TEST(ContrastTest, TheRatiosAreThoseOfTheGuidelines) {
    EXPECT_DOUBLE_EQ(Contrast(Qt::white, Qt::black), 21);
    EXPECT_DOUBLE_EQ(Contrast(Qt::red, Qt::red), 1);
    EXPECT_NEAR(Contrast(Qt::white, QColor(118, 118, 118)), 4.54, 0.005);  // the known last grey
    EXPECT_NEAR(Contrast(QColor(119, 119, 119), Qt::white), 4.48, 0.005);
}

TEST(ContrastTest, WhatTheMachineWritesCanBeReadOnAllItIsWrittenOn) {
    EXPECT_GE(ContrastOnCloth(kMachineWhite), kReadable);
    EXPECT_GE(Contrast(kMachineYellow, kMachineRed), kReadable) << "a won line";
    const QRect middle(20, 15, 40, 20);
    const QRect foot(8, 35, 64, 12);
    for (const bool lit : {false, true}) {
        for (const bool red : {false, true}) {
            const Picture panel = PanelPicture(SizeClass::kLarge, red, lit);
            EXPECT_GE(ContrastOn(panel, kMachineWhite, foot), kReadable);
        }
        EXPECT_GE(ContrastOn(SpinButtonPicture(SizeClass::kLarge, lit), kMachineBlack, middle),
                  kReadable);
        EXPECT_GE(ContrastOn(ChoicePicture(SizeClass::kLarge, lit), kMachineWhite, middle),
                  kReadable);
    }
    EXPECT_GE(ContrastOn(SpinWindow(SizeClass::kLarge), kMachineWhite, middle), kReadable);
}

TEST(ContrastTest, EveryTextOfAnyPaletteBecomesReadableAndNoOtherColourChanges) {
    for (const auto& [name, palette] : UsualPalettes()) {
        const QPalette readable = Readable(palette);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            for (const auto& [text, ground] : {std::pair(QPalette::WindowText, QPalette::Window),
                                               {QPalette::Text, QPalette::Base},
                                               {QPalette::ButtonText, QPalette::Button},
                                               {QPalette::Link, QPalette::Base},
                                               {QPalette::HighlightedText, QPalette::Highlight}}) {
                EXPECT_GE(Contrast(readable.color(group, text), readable.color(group, ground)),
                          kReadable)
                    << name << ", group " << group << ", role " << text;
            }
        }
        EXPECT_EQ(readable.color(QPalette::WindowText), palette.color(QPalette::WindowText))
            << name;
        EXPECT_EQ(readable.color(QPalette::Base), palette.color(QPalette::Base)) << name;
        EXPECT_NE(readable.color(QPalette::Disabled, QPalette::Text),
                  readable.color(QPalette::Text))
            << name << ": what is greyed is still told apart";
    }
}

TEST(ContrastTest, HighContrastIsForThosePalettesAloneThatAreMadeForIt) {
    for (const auto& [name, palette] : UsualPalettes()) {
        EXPECT_FALSE(IsHighContrast(Readable(palette))) << name;
        const QPalette high = InHighContrast(palette);
        EXPECT_TRUE(IsHighContrast(high)) << name;
        EXPECT_TRUE(Readable(high) == high) << name << ": all can be read";
        EXPECT_EQ(high.color(QPalette::Window).lightness() < 128,
                  palette.color(QPalette::Window).lightness() < 128)
            << name << ": light or dark as it was";
    }
}

TEST(ContrastTest, TheProgramKeepsItsPaletteReadableAndTheMachinesClothPlainWhereThatIsWished) {
    const QPalette before = QApplication::palette();
    const auto restore = qScopeGuard([&] { QApplication::setPalette(before); });
    const auto greyed = [] {
        const QPalette palette = QApplication::palette();
        return Contrast(palette.color(QPalette::Disabled, QPalette::Text),
                        palette.color(QPalette::Disabled, QPalette::Base));
    };
    PaletteKeeper keeper;
    EXPECT_GE(greyed(), kReadable);
    for (const auto& [name, palette] : UsualPalettes()) {
        QApplication::setPalette(palette);
        QApplication::processEvents();
        EXPECT_GE(greyed(), kReadable) << "after a change to " << name;
    }
    EXPECT_LT(ContrastOnCloth(kMachineWhite), kHighContrast) << "the usual cloth has a grain";
    keeper.UseHighContrast();
    EXPECT_TRUE(IsHighContrast(QApplication::palette()));
    EXPECT_GE(ContrastOnCloth(kMachineWhite), kHighContrast);
    const auto box = [](MachineCanvas& canvas) {
        canvas.DrawBox({0, 0, 9, 9}, kMachineYellow, kMachineBlack);
    };
    EXPECT_GT(LeastContrast({9, 9}, {0, 1, 9, 1}, kMachineBlack, box), kHighContrast)
        << "edges are two pixels wide";
}

}  // namespace
