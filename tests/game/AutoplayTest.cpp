#include "game/Autoplay.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/analysis/GameAnalysis.h"
#include "core/paytable/GameCatalogue.h"
#include "tests/game/TestMachine.h"

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr std::int64_t kHands = 20'000;
#else
constexpr std::int64_t kHands = 1'000'000;
#endif

// Standard deviations between what was seen and what was to be expected of so many hands.
double Deviations(double seen, double expected, double variance) {
    return std::abs(seen - expected) / std::sqrt(variance);
}

// One game of every kind of deal: the hands that are played come out as the whole game is counted.
TEST(AutoplayTest, InTheLongRunHandsReturnWhatTheAnalysisSays) {
    constexpr auto hands = static_cast<double>(kHands);
    for (const int id : {300, 313, 316, 317, 350}) {
        std::string name;
        for (const BuiltInGame& game : BuiltInGames()) {
            if (game.id == id) name = game.name;
        }
        TestMachine machine(name, id);
        machine.engine.deck.random.RandomInit(42);
        EXPECT_EQ(PlayHands(machine.engine, machine.files, kHands, {}), kHands);

        const PayTable& table = machine.engine.payTable;
        const GameTotals exact = AnalyzeGame(LineTablesOf(machine.engine), table, 1, {});
        const Statistics& counted = machine.engine.statistics;
        EXPECT_EQ(counted.creditsPlayed.total, 5 * kHands);
        EXPECT_EQ(counted.handsPlayed.total, kHands);
        EXPECT_LT(Deviations(counted.creditsWon.total / 5.0, hands * exact.payoutPercent / 100,
                             hands * exact.variance),
                  4)
            << name;
        for (std::size_t line = 0; line < table.lines.size(); ++line) {
            const double share = exact.summary[line] / exact.denominator;
            if (hands * share < 100) continue;
            EXPECT_LT(Deviations(table.lines[line].sessionWins, hands * share,
                                 hands * share * (1 - share)),
                      4)
                << name << ": " << table.lines[line].description;
        }
        // The best returns of single hands scatter by some ten coins.
        EXPECT_NEAR(counted.bestReturns.total / hands, exact.er / exact.cost * 5,
                    50 / std::sqrt(hands))
            << name;
    }
}

TEST(AutoplayTest, DollarsAreEnteredWhenTheCreditsDoNotCoverTheBet) {
    TestMachine machine;
    machine.engine.settings.credits = 4;
    machine.engine.settings.coin = 0.25;
    PlayHands(machine.engine, machine.files, 1, {});
    EXPECT_EQ(machine.engine.settings.creditsEntered, 100);
    EXPECT_EQ(machine.engine.settings.credits,
              4 + 400 - 5 + machine.engine.statistics.creditsWon.total);
}

TEST(AutoplayTest, ARunEndsWhenItIsTold) {
    TestMachine machine;
    EXPECT_EQ(PlayHands(machine.engine, machine.files, 1000,
                        [](std::int64_t played) { return played < 17; }),
              17);
    EXPECT_EQ(machine.engine.statistics.handsPlayed.total, 17);
    EXPECT_EQ(PlayHands(machine.engine, machine.files, 0, {}), 0);
    EXPECT_EQ(PlayHands(machine.engine, machine.files, -5, {}), 0);
    machine.engine.payTable.lines.clear();
    EXPECT_EQ(PlayHands(machine.engine, machine.files, 5, {}), 0) << "a game without lines";
}

TEST(AutoplayTest, EveryCardIsDealtToEveryPlaceAlike) {
    TestMachine machine;
    Deck& deck = machine.engine.deck;
    std::array<std::array<int, 52>, 10> counts{};
    for (int deal = 0; deal < 52'000; ++deal) {
        deck.DrawTop(10);
        for (std::size_t place = 0; place < 10; ++place) {
            ++counts[place][static_cast<std::size_t>(deck.order[place])];
        }
    }
    double chiSquare = 0;
    for (const auto& place : counts) {
        for (const int count : place) chiSquare += (count - 1000.0) * (count - 1000.0) / 1000;
    }
    EXPECT_NEAR(chiSquare, 510, 5 * std::sqrt(2 * 510.0));
}

}  // namespace
