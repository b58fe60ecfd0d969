#include "game/engine/CreditHistory.h"

#include <gtest/gtest.h>

#include "game/commands/MachineCommands.h"
#include "tests/game/FakePorts.h"

namespace {

using Stretch = CreditHistory::Stretch;

constexpr auto kMost = static_cast<std::int64_t>(CreditHistory::kMostStretches);

TEST(CreditHistoryTest, ALongSessionKeepsItsPeaksInFewerStretches) {
    CreditHistory history;
    for (std::int64_t hand = 1; hand <= kMost; ++hand) history.Record(hand, 1000, 1, 5);
    EXPECT_EQ(history.HandsPerStretch(), 1);
    history.Record(kMost + 1, 5000, 1, 5);
    EXPECT_EQ(history.HandsPerStretch(), 2);
    history.Record(kMost + 2, 7, 1, 5);
    history.Record(kMost + 2, 9, 1, 5);
    EXPECT_EQ(history.Stretches().back(), (Stretch{7, 5000, 9}));
    for (std::int64_t hand = kMost + 3; hand <= 40 * kMost; ++hand) history.Record(hand, 800, 1, 5);
    EXPECT_EQ(history.HandsPerStretch(), 64);
    EXPECT_EQ(history.Stretches().size(), 40U * CreditHistory::kMostStretches / 64);
    EXPECT_EQ(history.Stretches()[kMost / 64], (Stretch{7, 5000, 800}));
    EXPECT_EQ(history.WagersUntil()[99].fullBets, 100 * 64 * 5);
    EXPECT_EQ(history.WagersUntil().back().fullSquares, 40 * kMost * 25);
}

struct GainTest : testing::Test, TestSeat {
    // After each hand.
    std::vector<double> Gains() const {
        std::vector<double> gains;
        for (const Stretch& hand : engine.creditHistory.Stretches()) gains.push_back(hand.last);
        return gains;
    }
    void PlayFlush() {
        machine.Deal("2S 4S 6S 8S TS");
        machine.Draw(kStandPat);
    }
};

TEST_F(GainTest, OnlyWhatIsPlayedAndWonMovesTheCourse) {
    engine.settings.coin = 0.25;
    EnterDollars(engine, 100);
    PlayFlush();  // 30 credits for 5
    EXPECT_EQ(Gains(), (std::vector{6.25}));
    CashOut(seat);
    EnterDollars(engine, 900);
    machine.Deal("2S 4S 6S 8S TH");  // given up with its bet
    ShowGameOver(seat);
    PlayFlush();
    EXPECT_EQ(Gains(), (std::vector{6.25, 11.25}));
    machine.Deal("2S 4S 6S 8S TS");
    ChooseCoin(seat, 1);  // the bet was of quarters, the win is of dollars
    machine.Draw(kStandPat);
    engine.statistics.doubleUpCreditsLost.Add(30);
    NoteCredits(engine);
    EXPECT_EQ(Gains(), (std::vector{6.25, 11.25, 10.0})) << "the win was lost in a double up";
    engine.statistics.bonusCredits.Add(7);
    engine.statistics.doubleUpCredits.Add(3);
    NoteCredits(engine);
    EXPECT_EQ(Gains().back(), 20.0);
    machine.Play("Jacks or Better", 300);  // a new session
    ChooseCoin(seat, 0.5);
    machine.Deal("2S 4S 6S 8S TH");
    ShowGameOver(seat);
    ChooseCoin(seat, 1);
    PlayFlush();
    EXPECT_EQ(Gains(), (std::vector{22.5}));
}

}  // namespace
