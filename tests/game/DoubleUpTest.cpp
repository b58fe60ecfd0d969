#include "game/DoubleUp.h"

#include <gtest/gtest.h>

#include "game/BonusFeatures.h"
#include "game/HandFlow.h"
#include "tests/game/FakePorts.h"

namespace {

// Won ten credits with two pair, and is offered the double up. Duels are decided beforehand: the
// deck gets a seed that shuffles as wanted.
struct DoubleUpTable : TestTable {
    explicit DoubleUpTable(const std::string& game = "Jacks or Better", int gameId = 300)
        : TestTable(game, gameId) {
        ports.logsOwned = true;
        engine.settings.showDollar = false;
        engine.settings.speed = Speed::kFast;
        machine.Stack(gameId == 330 ? "3S 4D 5C 6H 7S" : "JS JD TC TH 2S", 5);
        DealDraw(table);
        engine.held.fill(true);
        DealDraw(table);
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

    void StartDeciding(int wanted) {
        DecideNext(wanted);
        StartDoubleUp(table);
    }

    int owned = 0;  // after the win
};

TEST(DoubleUpTest, AWonPickThatIsEnoughIsPaidAndTheHandComesBack) {
    DoubleUpTable t;
    const std::string hand = t.machine.HandText();
    const auto held = t.engine.held;
    t.StartDeciding(1);
    EXPECT_TRUE(t.engine.handInProgress);
    t.answers = {"no"};
    PickDoubleUpCard(t, 1);
    EXPECT_EQ(t.TakeSteps(),
              R"(double up 10 to 20, card 0 6C, card 1 back, card 2 back, card 3 back, card 4 back,
hold button 1 released, held 1 on, card 1 QS, pause 1000
card 2 TS, pause 1
card 3 TD, pause 1
card 4 6S, pause 1
double up amounts 20 to 40, play cash, pause 4000
ask Double Up Winner: You doubled up to 20. Double up again to 40?, owns 115,
message 10 Bonus Credits, play applause, repaint
)");
    EXPECT_EQ(t.engine.settings.credits, t.owned + 10);
    EXPECT_EQ(t.engine.statistics.doubleUpCredits, (Counter{10, 10}));
    EXPECT_EQ(t.engine.statistics.doubleUpTries.total, 1);
    EXPECT_EQ(t.machine.HandText(), hand);
    EXPECT_EQ(t.engine.held, held);
    EXPECT_FALSE(t.engine.handInProgress);
    EXPECT_FALSE(t.engine.doubleUpOffered);
    EXPECT_TRUE(t.table.bonusShown);
}

TEST(DoubleUpTest, ALostPickTakesTheHandsWinHoweverHighTheStakeWas) {
    DoubleUpTable t;
    t.StartDeciding(1);
    for (const int next : {1, -1}) {
        t.DecideNext(next);
        t.answers = {"yes"};
        // The deck is shuffled after the answer, so the seed of the next duel is set before it.
        PickDoubleUpCard(t, 1);
    }
    t.TakeLog();
    PickDoubleUpCard(t, 1);
    EXPECT_EQ(t.TakeSteps(), R"(hold button 1 released, held 1 on, card 1 7C, pause 1000
card 2 TC, pause 1
card 3 6S, pause 1
card 4 3S, pause 1
pause 4000
owns 95, message 0 Bonus Credits, repaint
)");
    EXPECT_EQ(t.engine.settings.credits, t.owned - 10);
    EXPECT_EQ(t.engine.statistics.doubleUpCreditsLost.total, 10);
    EXPECT_EQ(t.engine.statistics.doubleUpsLost.total, 1);
    EXPECT_EQ(t.engine.statistics.doubleUpTries.total, 3);
    EXPECT_EQ(t.engine.statistics.doubleUpCredits.total, 0);
}

TEST(DoubleUpTest, ATieMayBeTriedAgainOrLeftWithTheHandsWin) {
    DoubleUpTable t;
    t.StartDeciding(0);
    t.DecideNext(0);
    t.answers = {"yes", "no"};
    PickDoubleUpCard(t, 1);
    EXPECT_EQ(t.engine.doubleUpTo, 20) << "the same amounts";
    t.TakeLog();
    PickDoubleUpCard(t, 1);
    EXPECT_EQ(t.TakeSteps(), R"(hold button 1 released, held 1 on, card 1 JC, pause 1000
card 2 QS, pause 1
card 3 9C, pause 1
card 4 4D, pause 1
pause 4000
ask Double Up Tie: You have tied the dealer. Do you want to try again?, repaint
)");
    EXPECT_EQ(t.engine.settings.credits, t.owned);
    EXPECT_EQ(t.engine.statistics.doubleUpsTied.total, 2);
    EXPECT_EQ(t.engine.statistics.doubleUpTries.total, 2);
    EXPECT_FALSE(t.table.bonusShown) << "the meter goes on showing the win";
}

TEST(DoubleUpTest, ATieLeftAfterWonPicksCollectsTheirGain) {
    DoubleUpTable t;
    t.StartDeciding(1);
    t.DecideNext(0);
    t.answers = {"yes", "no"};
    PickDoubleUpCard(t, 1);
    PickDoubleUpCard(t, 1);
    EXPECT_EQ(t.engine.settings.credits, t.owned + 10);
    EXPECT_EQ(t.engine.statistics.doubleUpCredits.total, 10);
}

TEST(DoubleUpTest, AWildCardBeatsTheAceAndTheAceTheKing) {
    DoubleUpTable wild("Deuces Wild", 330);
    wild.DecideNext(1, 15, 14);
    StartDoubleUp(wild);
    wild.answers = {"no"};
    PickDoubleUpCard(wild, 1);
    EXPECT_GT(wild.engine.settings.credits, wild.owned);

    DoubleUpTable ace;
    ace.DecideNext(1, 14, 13);
    StartDoubleUp(ace);
    ace.answers = {"no"};
    PickDoubleUpCard(ace, 1);
    EXPECT_EQ(ace.engine.settings.credits, ace.owned + 10);
}

TEST(DoubleUpTest, OnlyAStandingOfferCanBeTakenAndOnlyAnOpenPickMade) {
    DoubleUpTable t;
    PickDoubleUpCard(t, 1);
    EXPECT_EQ(t.engine.statistics.doubleUpTries.total, 0) << "not started";
    t.StartDeciding(-1);
    PickDoubleUpCard(t, 0);
    PickDoubleUpCard(t, 5);
    EXPECT_EQ(t.engine.statistics.doubleUpTries.total, 0) << "the dealer's card, and none";
    StartDoubleUp(t);
    PickDoubleUpCard(t, 1);
    t.TakeLog();
    StartDoubleUp(t);
    EXPECT_EQ(t.TakeLog(), "") << "it is over";
}

TEST(DoubleUpTest, AWinPaidOutMeanwhileLeavesNoDebt) {
    DoubleUpTable t;
    t.StartDeciding(-1);
    t.engine.settings.credits = 3;
    PickDoubleUpCard(t, 1);
    EXPECT_EQ(t.engine.settings.credits, 0);
}

TEST(DoubleUpTest, LeavingTheGameCollectsWhatPicksHaveWon) {
    DoubleUpTable t;
    t.StartDeciding(1);
    t.answers = {"yes"};
    PickDoubleUpCard(t, 1);
    SettleFeatures(t);
    EXPECT_EQ(t.engine.settings.credits, t.owned + 10);
    EXPECT_FALSE(FeaturePending(t.engine));
}

TEST(DoubleUpTest, AStakePastTheLargestNumberStaysThere) {
    DoubleUpTable t;
    t.engine.win = 2'000'000'000;
    t.StartDeciding(1);
    EXPECT_EQ(t.engine.doubleUpTo, 2'147'483'647);
    t.answers = {"no"};
    PickDoubleUpCard(t, 1);
    EXPECT_EQ(t.engine.settings.credits, t.owned + 147'483'647);
}

}  // namespace
