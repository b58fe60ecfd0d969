#include "game/flows/DoubleUp.h"

#include <gtest/gtest.h>

#include "game/flows/BonusFeatures.h"
#include "tests/game/FakePorts.h"

namespace {

// The card at position 1, three others, and the dealer's.
constexpr std::string_view kHigher = "KS 2D 3D 4D QH";
constexpr std::string_view kEqual = "QS 2D 3D 4D QH";
constexpr std::string_view kLower = "JS 2D 3D 4D QH";

// Won ten credits with two pair, and is offered the double up.
struct DoubleUpTest : testing::Test, CreditTable {
    DoubleUpTest() { Win("JS JD TC TH 2S"); }

    void Win(std::string_view cards) {
        Deal(cards);
        Draw(kStandPat);
        TakeLog();
        owned = engine.settings.credits;
    }

    // Lays these in the place of those that were shuffled and picks the card at position 1, with an
    // answer to what is asked when it wins or ties.
    void Pick(std::string_view cards, const std::string& answer) {
        std::ranges::copy(Cards(engine.payTable, cards, kHandSize), engine.hand.begin());
        answers = {answer};
        PickDoubleUpCard(seat, 1);
    }

    int owned = 0;  // after the win
};

TEST_F(DoubleUpTest, AWonPickThatIsEnoughIsPaidAndTheHandComesBack) {
    StartDoubleUp(seat);
    EXPECT_TRUE(engine.handInProgress);
    Pick(kHigher, "no");
    EXPECT_EQ(TakeSteps(),
              "double up 10 to 20, double up button gone, line 7 plain, held 0 off, card 0 5D, "
              "hold button 0 gone, held 1 off, card 1 back, held 2 off, card 2 back, held 3 off, "
              "card 3 back, held 4 off, card 4 back, held 1 on, card 1 KS, pause 1000, "
              "card 2 2D, pause 1, card 3 3D, pause 1, card 4 4D, pause 1, double up 20 to 40, "
              "duel won, play cash, pause 4000, "
              "ask Double Up Winner: You doubled up to 20. Double up again to 40?, "
              "message 10 Bonus Credits, play applause, double up gone, line 7 won 10, "
              "held 0 on, card 0 JS, hold button 0 shown, card 1 JD, held 2 on, card 2 TC, "
              "held 3 on, card 3 TH, held 4 on, card 4 2S, credits 115");
    EXPECT_EQ(
        machine.Counted(),
        "CreditsPlayed 5, CreditsWon 10, HandsPlayed 1, HandsWon 1, DblUpCredits 10, DblUpTrys 1");
    EXPECT_FALSE(engine.handInProgress);
    EXPECT_FALSE(engine.doubleUpOffered);
}

TEST_F(DoubleUpTest, ALostPickTakesTheHandsWinHoweverHighTheStakeWas) {
    StartDoubleUp(seat);
    Pick(kHigher, "yes");
    Pick(kHigher, "yes");
    Pick(kLower, "");
    EXPECT_EQ(seat.scene.message, "0 Bonus Credits");
    EXPECT_EQ(engine.settings.credits, owned - 10);
    EXPECT_EQ(machine.Counted(),
              "CreditsPlayed 5, CreditsWon 10, HandsPlayed 1, HandsWon 1, DblUpCreditsLost 10, "
              "DblUpTrys 3, DblUpsLost 1");
}

TEST_F(DoubleUpTest, ATieMayBeTriedAgainOrLeftWithTheHandsWin) {
    StartDoubleUp(seat);
    Pick(kEqual, "yes");
    EXPECT_EQ(engine.doubleUpTo, 20) << "the same amounts";
    Pick(kEqual, "no");
    EXPECT_EQ(engine.settings.credits, owned);
    EXPECT_EQ(
        machine.Counted(),
        "CreditsPlayed 5, CreditsWon 10, HandsPlayed 1, HandsWon 1, DblUpTrys 2, DblUpsTied 2");
    EXPECT_FALSE(seat.bonusShown) << "the meter goes on showing the win";
}

TEST_F(DoubleUpTest, ATieLeftAfterWonPicksCollectsTheirGain) {
    StartDoubleUp(seat);
    Pick(kHigher, "yes");
    Pick(kEqual, "no");
    EXPECT_EQ(engine.settings.credits, owned + 10);
}

TEST_F(DoubleUpTest, AWildCardBeatsTheAceAndTheAceTheKing) {
    StartDoubleUp(seat);
    Pick("AS 2D 3D 4D KH", "no");
    EXPECT_EQ(engine.settings.credits, owned + 10);

    machine.Play("Deuces Wild", 330);
    Win("3S 4D 5C 6H 7S");
    StartDoubleUp(seat);
    Pick("2S 3D 3H 4D AH", "no");
    EXPECT_GT(engine.settings.credits, owned);
}

TEST_F(DoubleUpTest, OnlyAStandingOfferCanBeTakenAndOnlyAnOpenPickMade) {
    PickDoubleUpCard(seat, 1);
    EXPECT_EQ(engine.statistics.doubleUpTries.total, 0) << "not started";
    StartDoubleUp(seat);
    PickDoubleUpCard(seat, 0);
    PickDoubleUpCard(seat, 5);
    EXPECT_EQ(engine.statistics.doubleUpTries.total, 0) << "the dealer's card, and none";
    Pick(kLower, "");
    StartDoubleUp(seat);
    EXPECT_FALSE(engine.doubleUpPick) << "it is over";
}

TEST_F(DoubleUpTest, AWinPaidOutMeanwhileLeavesNoDebt) {
    StartDoubleUp(seat);
    engine.settings.credits = 3;
    Pick(kLower, "");
    EXPECT_EQ(engine.settings.credits, 0);
}

TEST_F(DoubleUpTest, AStakePastTheLargestNumberStaysThere) {
    engine.win = 2'000'000'000;
    StartDoubleUp(seat);
    EXPECT_EQ(engine.doubleUpTo, 2'147'483'647);
    Pick(kHigher, "no");
    EXPECT_EQ(engine.settings.credits, owned + 147'483'647);
}

}  // namespace
