#include "ui/table/TableScene.h"

#include <gtest/gtest.h>

#include "game/DoubleUp.h"
#include "game/HandFlow.h"
#include "game/PickEmFlow.h"
#include "tests/ui/SceneTable.h"

TEST(TableSceneTest, AHandPlayedStepByStepShowsWhatARepaintShows) {
    for (const Speed speed : {Speed::kSlow, Speed::kNormal, Speed::kFast}) {
        SceneTable t;
        t.engine.settings.speed = speed;
        t.engine.settings.bet = 8;  // announced in the fifth column
        t.display.Repaint();
        t.Deal("JS JD TC 9H 2S JC 4C 5C");
        EXPECT_EQ(t.scene.lines[8], (LineLook{LineMark::kWon, 8, 4}));
        t.ExpectAtRest("dealt");
        ToggleHold(t.table, 0);
        ToggleHold(t.table, 1);
        EXPECT_TRUE(t.scene.places[1].held);
        t.ExpectAtRest("held");
        DealDraw(t.table);
        EXPECT_EQ(t.scene.lines[6], (LineLook{LineMark::kWon, 24, 4}));
        t.ExpectAtRest("won");
        t.Deal("2S 7D TC 9H 4S 3C 5C 6H QD KS");
        t.ExpectAtRest("dealt again");
        DealDraw(t.table);
        EXPECT_EQ(t.scene.message, "GAME OVER");
        t.ExpectAtRest("lost");
    }
}

TEST(TableSceneTest, ADecidedPickIsRepaintedFaceUpWithItsMark) {
    SceneTable t;
    t.engine.hand = {1, 2, 3, 4, 5};
    t.engine.held = {false, false, true, false, false};
    t.engine.doubleUpPick = t.engine.doubleUpClosed = true;
    t.display.Repaint();
    EXPECT_EQ(t.scene.places[2].card, 2);
    EXPECT_TRUE(t.scene.places[2].held);
    t.engine.doubleUpClosed = false;
    t.display.Repaint();
    EXPECT_EQ(t.scene.places[2].card, kCardBack);
    EXPECT_FALSE(t.scene.places[2].held);
}

// The window's tests compare every other state of the table with its repaint.
TEST(TableSceneTest, ACharlieAndAFirstDrawCardAreShown) {
    SceneTable t("Super Bonus Poker", 356);
    t.engine.payTable.charlieBonus = true;
    t.Deal("2S 2H 3C 3D AS");
    EXPECT_TRUE(t.scene.charlie);
    const auto line = static_cast<std::size_t>(t.engine.dealtLine);
    EXPECT_EQ(t.scene.lines[line].payout,
              5 * LineUnitPay(t.engine.payTable, t.engine.dealtLine, 5));
    t.ExpectAtRest("dealt");

    SceneTable sneak("Sneak Peak Poker", 351);
    sneak.Deal("AC AD 9D 4H 2S TC JH 3C");
    EXPECT_EQ(sneak.scene.firstDraw, sneak.engine.drawCards[0]);
    sneak.ExpectAtRest("dealt");
    DealDraw(sneak.table);
    sneak.ExpectAtRest("drawn");
}

TEST(TableSceneTest, StepsOutsideTheTableChangeNothing) {
    SceneTable t;
    const TableScene before = t.scene;
    t.display.ShowLine(-1, LineMark::kWon, 5);
    t.display.ShowLine(kMaxPayLines, LineMark::kWon, 5);
    t.display.ShowTarget(kTargets, TargetFace::kHidden, 0);
    t.display.PressButton(TableButton::kDoubleUp, true);
    t.display.PressButton(TableButton::kHold, true);
    EXPECT_TRUE(t.scene == before);
    t.display.PressButton(TableButton::kDeal, true);
    EXPECT_EQ(t.scene.Button(TableButton::kDeal), ButtonLook::kPressed);
    bool relaidOut = false;
    t.display.relaidOut = [&] { relaidOut = true; };
    t.display.Relayout();
    EXPECT_TRUE(relaidOut);
    EXPECT_TRUE(t.scene == before) << "a pressed button is released by a repaint";
    t.engine.finalLine = 99;
    t.engine.handWins = true;
    t.display.Repaint();
    EXPECT_TRUE(t.scene.lines == before.lines);
}

TEST(SceneDescriptionTest, AHandIsToldWithItsMarksItsWinAndItsMeters) {
    SceneTable t;
    t.engine.settings.speed = Speed::kFast;
    EXPECT_EQ(t.Words(),
              "PRESS DEAL. Cards: 1 face down; 2 face down; 3 face down; 4 face down; 5 face down. "
              "Bet $5.00. Credits $100.00.");
    t.Deal("JS JD TC 9H 2S 3C 4D 6H");
    ToggleHold(t.table, 0);
    ToggleHold(t.table, 1);
    EXPECT_EQ(t.Words(),
              "HOLD/DRAW. JACKS OR BETTER pays 5. Cards: 1 Jack of Spades, held; 2 Jack of "
              "Diamonds, held; 3 10 of Clubs; 4 9 of Hearts; 5 2 of Spades. Bet $5.00. "
              "Credits $95.00.");
    DealDraw(t.table);
    EXPECT_NE(t.Words().find("Double up offered."), std::string::npos);
    SceneTable wild("Deuces Wild", 330);
    wild.scene.places[0].card = FindCard(wild.engine.deck.table, 2, kHearts);
    EXPECT_NE(wild.Words().find("1 2 of Hearts, wild; 2 face down"), std::string::npos);

    SceneTable piles("Pick Em Poker", 350);
    piles.engine.settings.mode = PlayMode::kAutoHold;
    piles.Deal("KC KD 9D AH 2S KS JH 3C");
    EXPECT_NE(piles.Words().find("2 King of Diamonds; 3 no card; left pile 9 of Diamonds; right "
                                 "pile King of Spades, PLAY."),
              std::string::npos);
    piles.ExpectAtRest("dealt");
    ChoosePile(piles.table, Pile::kRight);
    piles.ExpectAtRest("played");
    DecideDuel(t.engine.deck, 1);
    StartDoubleUp(t.table);
    EXPECT_EQ(t.scene.Button(TableButton::kDeal), ButtonLook::kHidden);
    EXPECT_EQ(t.scene.places[0].holdButton, ButtonLook::kHidden);
    EXPECT_EQ(t.Words(),
              "Credits won 5. Double up to 10. Dealer " +
                  t.engine.deck.table.cards[static_cast<std::size_t>(t.engine.hand[4])].name +
                  ". Cards: 2 face down; 3 face down; 4 face down; 5 face down.");
    TableScene& features = piles.scene;
    features.redBlack = {.shown = true, .lit = CardColour::kRed};
    features.featureLabel = "SHOOT";
    features.targets.fill({TargetFace::kHidden, 0});
    features.targets[3] = {TargetFace::kShot, 25};
    EXPECT_NE(piles.Words().find("Red or Black? Last it was red. SHOOT. Targets: 1 not shot; 2 not "
                                 "shot; 3 not shot; 4 25; 5 not shot."),
              std::string::npos)
        << piles.Words();
}
