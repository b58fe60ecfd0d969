#include "game/DoubleUp.h"

#include <gtest/gtest.h>

#include "game/BonusFeatures.h"
#include "tests/game/FakePorts.h"

namespace {

// Won ten credits with two pair, and is offered the double up. Duels are decided beforehand: the
// deck gets a seed that shuffles as wanted.
struct DoubleUpTest : testing::Test, CreditTable {
    DoubleUpTest() { Win("JS JD TC TH 2S"); }

    void Win(std::string_view cards) {
        Deal(cards);
        Draw(kStandPat);
        TakeLog();
        owned = engine.settings.credits;
    }

    int Value(CardCode card) const {
        const CardInfo& info = engine.deck.table.cards[static_cast<std::size_t>(card)];
        if (info.wild) return 15;
        return info.rank == 1 ? 14 : info.rank;
    }

    // The card at position 1 is to the dealer's as wanted: -1 lower, 0 equal, 1 higher. With kinds
    // given, their values are those.
    void DecideNext(int wanted, int ownValue = 0, int dealersValue = 0) {
        for (std::uint32_t seed = 1;; ++seed) {
            engine.deck.random.RandomInit(seed);
            Deck deck = engine.deck;
            deck.Shuffle(5);
            const int own = Value(deck.order[0]);
            const int dealers = Value(deck.order[4]);
            const bool kinds = (ownValue == 0 || own == ownValue) &&
                               (dealersValue == 0 || dealers == dealersValue);
            if (kinds && (own > dealers) - (own < dealers) == wanted) return;
        }
    }

    void StartDeciding(int wanted, int ownValue = 0, int dealersValue = 0) {
        DecideNext(wanted, ownValue, dealersValue);
        StartDoubleUp(table);
    }

    // Picks the card at position 1, with an answer to what is asked when it wins or ties.
    void Pick(const std::string& answer) {
        answers = {answer};
        PickDoubleUpCard(table, 1);
    }

    int owned = 0;  // after the win
};

TEST_F(DoubleUpTest, AWonPickThatIsEnoughIsPaidAndTheHandComesBack) {
    StartDeciding(1);
    EXPECT_TRUE(engine.handInProgress);
    Pick("no");
    EXPECT_EQ(TakeSteps(),
              "double up 10 to 20, double up button gone, line 7 plain, held 0 off, card 0 6C, "
              "hold button 0 gone, held 1 off, card 1 back, held 2 off, card 2 back, held 3 off, "
              "card 3 back, held 4 off, card 4 back, held 1 on, card 1 QS, pause 1000, "
              "card 2 TS, pause 1, card 3 TD, pause 1, card 4 6S, pause 1, double up 20 to 40, "
              "play cash, pause 4000, "
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
    StartDeciding(1);
    for (const int next : {1, -1}) {
        DecideNext(next);
        // The deck is shuffled after the answer, so the seed of the next duel is set before it.
        Pick("yes");
    }
    PickDoubleUpCard(table, 1);
    EXPECT_EQ(table.scene.message, "0 Bonus Credits");
    EXPECT_EQ(engine.settings.credits, owned - 10);
    EXPECT_EQ(machine.Counted(),
              "CreditsPlayed 5, CreditsWon 10, HandsPlayed 1, HandsWon 1, DblUpCreditsLost 10, "
              "DblUpTrys 3, DblUpsLost 1");
}

TEST_F(DoubleUpTest, ATieMayBeTriedAgainOrLeftWithTheHandsWin) {
    StartDeciding(0);
    DecideNext(0);
    answers = {"yes", "no"};
    PickDoubleUpCard(table, 1);
    EXPECT_EQ(engine.doubleUpTo, 20) << "the same amounts";
    PickDoubleUpCard(table, 1);
    EXPECT_EQ(engine.settings.credits, owned);
    EXPECT_EQ(
        machine.Counted(),
        "CreditsPlayed 5, CreditsWon 10, HandsPlayed 1, HandsWon 1, DblUpTrys 2, DblUpsTied 2");
    EXPECT_FALSE(table.bonusShown) << "the meter goes on showing the win";
}

TEST_F(DoubleUpTest, ATieLeftAfterWonPicksCollectsTheirGain) {
    StartDeciding(1);
    DecideNext(0);
    answers = {"yes", "no"};
    PickDoubleUpCard(table, 1);
    PickDoubleUpCard(table, 1);
    EXPECT_EQ(engine.settings.credits, owned + 10);
}

TEST_F(DoubleUpTest, AWildCardBeatsTheAceAndTheAceTheKing) {
    StartDeciding(1, 14, 13);
    Pick("no");
    EXPECT_EQ(engine.settings.credits, owned + 10);

    machine.Play("Deuces Wild", 330);
    Win("3S 4D 5C 6H 7S");
    StartDeciding(1, 15, 14);
    Pick("no");
    EXPECT_GT(engine.settings.credits, owned);
}

TEST_F(DoubleUpTest, OnlyAStandingOfferCanBeTakenAndOnlyAnOpenPickMade) {
    PickDoubleUpCard(table, 1);
    EXPECT_EQ(engine.statistics.doubleUpTries.total, 0) << "not started";
    StartDeciding(-1);
    PickDoubleUpCard(table, 0);
    PickDoubleUpCard(table, 5);
    EXPECT_EQ(engine.statistics.doubleUpTries.total, 0) << "the dealer's card, and none";
    PickDoubleUpCard(table, 1);
    StartDoubleUp(table);
    EXPECT_FALSE(engine.doubleUpPick) << "it is over";
}

TEST_F(DoubleUpTest, AWinPaidOutMeanwhileLeavesNoDebt) {
    StartDeciding(-1);
    engine.settings.credits = 3;
    PickDoubleUpCard(table, 1);
    EXPECT_EQ(engine.settings.credits, 0);
}

TEST_F(DoubleUpTest, AStakePastTheLargestNumberStaysThere) {
    engine.win = 2'000'000'000;
    StartDeciding(1);
    EXPECT_EQ(engine.doubleUpTo, 2'147'483'647);
    Pick("no");
    EXPECT_EQ(engine.settings.credits, owned + 147'483'647);
}

}  // namespace
