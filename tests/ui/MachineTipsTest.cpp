// What answers the player beside the pictures: words and light under the pointer, small sounds.
#include <gtest/gtest.h>

#include <QToolTip>

#include "game/seat/ShowScene.h"
#include "tests/ui/TestProgram.h"
#include "ui/machine/SceneSounds.h"

namespace {

using MachineTipsTest = ProgramTest;

std::string TipOver(const TestProgram& p, const QRect& place) {
    const QPoint point = p.MiddleOf(place);
    QHelpEvent help(QEvent::ToolTip, point, p.view->mapToGlobal(point));
    QApplication::sendEvent(p.view, &help);
    return QToolTip::text().toStdString();
}

TEST_F(MachineTipsTest, ATipNamesTheButtonAndTheKeyWhileThatWouldDoSomething) {
    TestProgram& p = Start();
    const MachineLayout& places = p.Places();
    EXPECT_EQ(TipOver(p, places.deal), "DEAL/DRAW (D)");
    EXPECT_EQ(TipOver(p, places.maxBet), "MAX BET (M)");
    EXPECT_EQ(TipOver(p, places.holdButtons[2]), "HOLD 3") << "no hand is dealt";
    EXPECT_NE(TipOver(p, places.creditValue.rect).find("cash out (O)"), std::string::npos);
    EXPECT_NE(TipOver(p, places.rows[3]).find("pay table (T)"), std::string::npos);
    p.Key(Qt::Key_D);
    EXPECT_EQ(TipOver(p, places.holdButtons[2]), "HOLD 3 (3)");
    EXPECT_EQ(TipOver(p, places.maxBet), "MAX BET");
}

TEST_F(MachineTipsTest, AButtonIsLitUnderThePointerWhileItCanBePressed) {
    TestProgram& p = Start();
    const QImage before = p.view->grab().toImage();
    const auto looksAsBefore = [&] { return p.view->grab().toImage() == before; };
    p.MoveTo(p.Places().betOne);
    EXPECT_FALSE(looksAsBefore());
    p.MoveTo(p.Places().holdButtons[0]);
    EXPECT_TRUE(looksAsBefore()) << "it would do nothing";
    p.MoveTo(p.Places().betOne);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(p.view, &leave);
    EXPECT_TRUE(looksAsBefore());
}

TEST_F(MachineTipsTest, WhatWouldDoNothingIsDimmed) {
    TestProgram& p = Start();
    const Scene& scene = p.ShownScene();
    EXPECT_TRUE(scene.places[4].holdDimmed && !scene.buttons.dealDimmed);
    p.Choose(350);
    p.Key(Qt::Key_D);
    EXPECT_TRUE(scene.buttons.dealDimmed) << "a pile is chosen instead";
    EXPECT_FALSE(scene.places[3].holdDimmed || scene.places[4].holdDimmed);
    p.Key(Qt::Key_Left);
    EXPECT_FALSE(scene.buttons.dealDimmed || scene.buttons.betsDimmed);
    p.engine.redBlackPending = true;
    ShowAtRest(p.document->PlayersSeat());
    EXPECT_TRUE(scene.buttons.dealDimmed && scene.buttons.betsDimmed);
    p.engine.redBlackPending = false;
    ShowAtRest(p.document->PlayersSeat());
}

TEST(SceneSoundsTest, ACardAHoldAndAButtonAreHeardOnceEach) {
    const Scene rest;
    Scene now = rest;
    now.buttons.betOne = ButtonLook::kPressed;
    EXPECT_EQ(SoundOfChange(rest, now), Wave::kButton);
    EXPECT_EQ(SoundOfChange(now, rest), std::nullopt) << "it goes up";
    now = rest;
    now.places[1].holdButton = ButtonLook::kPressed;
    Scene held = now;
    held.places[1].held = true;
    EXPECT_EQ(SoundOfChange(now, held), Wave::kHold);
    EXPECT_EQ(SoundOfChange(held, now), Wave::kHold) << "and is taken back";
    Scene turned = held;
    turned.places[3].card = 12;
    EXPECT_EQ(SoundOfChange(held, turned), Wave::kCard);
    Scene covered = rest;
    covered.places[1].card = covered.places[3].card = kCardBack;
    EXPECT_EQ(SoundOfChange(turned, covered), std::nullopt) << "cards are taken away silently";
}

}  // namespace
