#include "ui/machine/SceneDescription.h"

#include <gtest/gtest.h>

#include "game/flows/DoubleUp.h"
#include "game/flows/HandFlow.h"
#include "game/seat/ShowScene.h"
#include "tests/game/FakePorts.h"

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
    t.engine.settings.mode = PlayMode::kErrorLog;
    ShowAtRest(t.seat);
    expectToldIn(t, "Table 0, Error Log: credits do not count.");
    t.engine.fixedHand = false;
    ShowAtRest(t.seat);
    expectToldIn(t, "Table 0, Error Log. ");
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
