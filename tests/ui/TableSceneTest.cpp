#include "ui/table/TableScene.h"

#include <gtest/gtest.h>

#include "game/BonusFeatures.h"
#include "game/DoubleUp.h"
#include "game/HandFlow.h"
#include "game/PickEmFlow.h"
#include "tests/ui/SceneTable.h"
#include "ui/art/Pictures.h"

TEST(TableSceneTest, AHandPlayedStepByStepShowsWhatARepaintShows) {
    for (const Speed speed : {Speed::kSlow, Speed::kNormal, Speed::kFast}) {
        SceneTable t;
        t.engine.settings.speed = speed;
        t.Deal("JS JD TC 9H 2S JC 4C 5C");
        EXPECT_EQ(t.scene.lines[8].mark, LineMark::kWon);
        t.ExpectAtRest("dealt");
        ToggleHold(t.table, 0);
        ToggleHold(t.table, 1);
        EXPECT_TRUE(t.scene.places[1].held);
        t.ExpectAtRest("held");
        DealDraw(t.table);
        EXPECT_EQ(t.scene.lines[8].mark, LineMark::kPlain);
        EXPECT_EQ(t.scene.lines[6], (LineLook{LineMark::kWon, 15, 4}));
        EXPECT_EQ(t.scene.Button(TableButton::kDoubleUp), ButtonLook::kReleased);
        t.ExpectAtRest("won");
        t.Deal("2S 7D TC 9H 4S 3C 5C 6H QD KS");
        EXPECT_EQ(t.scene.Button(TableButton::kDoubleUp), ButtonLook::kHidden);
        t.ExpectAtRest("dealt again");
        DealDraw(t.table);
        EXPECT_EQ(t.scene.message, "GAME OVER");
        t.ExpectAtRest("lost");
    }
}

TEST(TableSceneTest, ABetAboveFiveIsAnnouncedInTheFifthColumn) {
    SceneTable t;
    t.engine.settings.bet = 8;
    t.display.Repaint();
    t.Deal("JS JD TC 9H 2S");
    EXPECT_EQ(t.scene.lines[8], (LineLook{LineMark::kWon, 8, 4}));
    t.ExpectAtRest("dealt");
}

TEST(TableSceneTest, AutoHoldAndTheFirstDrawCardAreShown) {
    SceneTable t("Sneak Peak Poker", 351);
    t.engine.settings.mode = PlayMode::kAutoHold;
    t.Deal("AC AD 9D 4H 2S TC JH 3C");
    EXPECT_EQ(t.scene.firstDraw, t.engine.drawCards[0]);
    EXPECT_TRUE(t.scene.places[0].held && t.scene.places[1].held);
    t.ExpectAtRest("dealt");
    DealDraw(t.table);
    EXPECT_EQ(t.scene.firstDraw, kNoCard);
    t.ExpectAtRest("drawn");
}

TEST(TableSceneTest, PilesLieOnTheTableUntilOneIsChosen) {
    for (const Pile pile : {Pile::kLeft, Pile::kRight}) {
        SceneTable t("Pick Em Poker", 350);
        t.engine.settings.mode = PlayMode::kAutoHold;
        t.others.answers = {"yes"};
        t.ExpectAtRest("start");
        t.Deal("KC KD 9D AH 2S KS JH 3C");
        EXPECT_EQ(t.scene.places[2].card, kNoCard);
        EXPECT_EQ(t.scene.places[3].label, "");
        EXPECT_EQ(t.scene.places[4].label, "PLAY");
        EXPECT_TRUE(t.scene.places[4].pileTop);
        EXPECT_EQ(t.scene.places[4].pileDepth, 2);
        EXPECT_NE(t.Words().find("2 King of Diamonds; 3 no card; left pile 9 of Diamonds; right "
                                 "pile King of Spades, PLAY."),
                  std::string::npos);
        t.ExpectAtRest("dealt");
        ChoosePile(t.table, pile);
        EXPECT_EQ(t.scene.places[3].pileDepth, 0);
        EXPECT_EQ(t.scene.places[4].label, "");
        t.ExpectAtRest("played");
    }
}

TEST(TableSceneTest, ADoubleUpHidesTheTableAndGivesItBack) {
    SceneTable t;
    t.Deal("JS JD TC TH 2S");
    t.Draw(kStandPat);
    const TableScene offered = t.scene;
    DecideDuel(t.engine.deck, 1);
    StartDoubleUp(t.table);
    EXPECT_TRUE(t.scene.doubleUp.shown);
    EXPECT_EQ(t.scene.doubleUp.stake, 10);
    EXPECT_EQ(t.scene.places[0].card, t.engine.hand[4]);
    EXPECT_EQ(t.scene.places[0].holdButton, ButtonLook::kHidden);
    EXPECT_EQ(t.scene.places[3].card, kCardBack);
    EXPECT_EQ(t.scene.Button(TableButton::kDeal), ButtonLook::kHidden);
    EXPECT_EQ(t.Words(),
              "Credits won 10. Double up to 20. Dealer " +
                  t.engine.deck.table.cards[static_cast<std::size_t>(t.engine.hand[4])].name +
                  ". Cards: 2 face down; 3 face down; 4 face down; 5 face down.");
    t.ExpectAtRest("waits");

    // The pick is decided when the question is asked; what a repaint would show then is compared.
    t.others.answers = {"no"};
    bool revealed = false;
    t.changed = [&] {
        if (t.scene.doubleUp.stake == 20) revealed = t.scene.places[4].card == t.engine.hand[3];
    };
    PickDoubleUpCard(t.table, 1);
    EXPECT_TRUE(revealed);
    EXPECT_FALSE(t.scene.doubleUp.shown);
    EXPECT_EQ(t.scene.message, "$10.00 Bonus Credits");
    EXPECT_TRUE(t.scene.places == offered.places);
    EXPECT_TRUE(t.scene.lines == offered.lines);
    t.ExpectAtRest("collected");
}

TEST(TableSceneTest, ADecidedPickIsRepaintedFaceUpWithItsMark) {
    SceneTable t;
    t.engine.hand = {1, 2, 3, 4, 5};
    t.engine.held = {false, false, true, false, false};
    t.engine.doubleUpPick = t.engine.doubleUpClosed = true;
    t.display.Repaint();
    EXPECT_EQ(t.scene.places[0].card, 5);
    EXPECT_EQ(t.scene.places[2].card, 2);
    EXPECT_TRUE(t.scene.places[2].held);
    t.engine.doubleUpClosed = false;
    t.display.Repaint();
    EXPECT_EQ(t.scene.places[2].card, kCardBack);
    EXPECT_FALSE(t.scene.places[2].held);
}

// All bonuses on, and a hand of five red cards behind it.
struct BonusTable : SceneTable {
    BonusTable() : SceneTable("Super Bonus Poker", 356) {
        engine.payTable.charlieBonus = engine.payTable.redBlackBonus = true;
        engine.payTable.spinBonus = engine.payTable.targetBonus = true;
        engine.settings.speed = Speed::kFast;
    }

    // The draw of 1..150 that decides on Spin or Target is the one wanted.
    void PlayRedHand(int draw) {
        CombinedRandom ahead;
        std::uint32_t seed = 0;
        do {
            ahead.RandomInit(++seed);
        } while (ahead.IRandom(1, 150) != draw);
        table.random.RandomInit(seed);
        Deal("2D 4D 6H 8H TD");
        Draw(kStandPat);
    }
};

TEST(TableSceneTest, SpinAndRedOrBlackWaitTogetherAndLeaveNothingBehind) {
    BonusTable t;
    t.PlayRedHand(2);
    EXPECT_EQ(t.scene.featureLabel, "SPIN");
    EXPECT_EQ(t.scene.spin.button, SpinButton::kReady);
    EXPECT_TRUE(t.scene.redBlack.shown);
    t.ExpectAtRest("started");
    GuessColour(t.table, CardColour::kRed);
    EXPECT_EQ(t.scene.redBlack.lit, CardColour::kRed);
    t.ExpectAtRest("guessed right");
    while (t.engine.redBlackPending) {
        GuessColour(t.table, CardColour::kBlack);
        t.ExpectAtRest("guessed");
    }
    EXPECT_FALSE(t.scene.redBlack.shown);
    Spin(t.table);
    EXPECT_EQ(t.scene.spin, SpinLook{});
    EXPECT_EQ(t.scene.featureLabel, "");
    t.ExpectAtRest("spun");
}

TEST(TableSceneTest, ATargetShowsItsValueOnceItIsShot) {
    BonusTable t;
    t.PlayRedHand(149);
    for (const TargetLook& target : t.scene.targets) EXPECT_EQ(target.face, TargetFace::kHidden);
    Shoot(t.table, 3);
    EXPECT_EQ(t.scene.targets[3], (TargetLook{TargetFace::kShot, t.table.target.values[3]}));
    t.ExpectAtRest("one shot");
    t.scene.redBlack.lit = CardColour::kRed;
    EXPECT_NE(t.Words().find("Red or Black? Last it was red. SHOOT. Targets: 1 not shot; 2 not "
                             "shot; 3 not shot; 4 " +
                             std::to_string(t.scene.targets[3].value) + "; 5 not shot."),
              std::string::npos)
        << t.Words();
    t.display.Repaint();
    Shoot(t.table, 0);
    bool missedSeen = false;
    t.changed = [&] { missedSeen |= t.scene.targets[4].face == TargetFace::kMissed; };
    Shoot(t.table, 1);
    EXPECT_TRUE(missedSeen);
    EXPECT_EQ(t.scene.targets[4], TargetLook{});
    t.ExpectAtRest("three shots");
}

TEST(TableSceneTest, ACharlieShowsItsPictureAndFivefoldPay) {
    BonusTable t;
    t.Deal("2S 2H 3C 3D AS");
    EXPECT_TRUE(t.scene.charlie);
    const auto line = static_cast<std::size_t>(t.engine.dealtLine);
    EXPECT_EQ(t.scene.lines[line].payout,
              5 * LineUnitPay(t.engine.payTable, t.engine.dealtLine, 5));
    t.ExpectAtRest("dealt");
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
    t.engine.finalLine = 99;
    t.engine.handWins = true;
    t.display.Repaint();
    EXPECT_TRUE(t.scene.lines == before.lines);
}

TEST(TableSceneTest, APressedButtonIsReleasedByARepaint) {
    SceneTable t;
    t.display.PressButton(TableButton::kDeal, true);
    EXPECT_EQ(t.scene.Button(TableButton::kDeal), ButtonLook::kPressed);
    bool relaidOut = false;
    t.display.relaidOut = [&] { relaidOut = true; };
    t.display.Relayout();
    EXPECT_TRUE(relaidOut);
    EXPECT_EQ(t.scene.Button(TableButton::kDeal), ButtonLook::kReleased);
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
}

TEST(SceneDescriptionTest, WildCardsAreTold) {
    SceneTable wild("Deuces Wild", 330);
    wild.scene.places[0].card = FindCard(wild.engine.deck.table, 2, kHearts);
    EXPECT_NE(wild.Words().find("1 2 of Hearts, wild; 2 face down"), std::string::npos);
}
