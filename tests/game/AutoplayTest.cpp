#include "game/engine/Autoplay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "core/analysis/GameAnalysis.h"
#include "core/analysis/LineTableCache.h"
#include "core/odds/SessionLaw.h"
#include "tests/game/TestMachine.h"

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr std::int64_t kHands = 20'000;
#else
constexpr std::int64_t kHands = 1'000'000;
#endif

struct AutoplayTest : testing::Test, TestMachine {};

// Standard deviations between what was seen and what was to be expected of so many hands.
double Deviations(double seen, double expected, double variance) {
    return std::abs(seen - expected) / std::sqrt(variance);
}

// One game of every kind of deal: the hands that are played come out as the whole game is counted.
TEST_F(AutoplayTest, InTheLongRunHandsReturnWhatTheAnalysisSays) {
    constexpr auto hands = static_cast<double>(kHands);
    const std::pair<int, const char*> games[] = {{300, "Jacks or Better"},
                                                 {313, "5 Aces Bonus Poker"},
                                                 {316, "Aces Bonus Poker"},
                                                 {317, "One-Eyed Jacks"},
                                                 {350, "Pick Em Poker"}};
    for (const auto& [id, name] : games) {
        Play(name, id);
        engine.deck.random.RandomInit(42);
        EXPECT_EQ(PlayHands(engine, files, kHands, {}), kHands);

        const PayTable& table = engine.payTable;
        const GameTotals exact = AnalyzeGame(LineTablesOf(engine), table, 1, {});
        const Statistics& counted = engine.statistics;
        EXPECT_EQ(counted.creditsPlayed.total, 5 * kHands);
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

// Sessions fall below each quantile of the exact law as often as it says. More of them, as
// TOLVANE_AUTOPLAY_SESSIONS=10000 in the environment asks for, take longer.
TEST_F(AutoplayTest, SessionsLieWhereTheirLawHasThem) {
    constexpr std::int64_t kOfSession = 1000;
    Play("Jacks or Better", 300);
    engine.deck.random.RandomInit(2026);
    std::vector<double> gains;
    std::int64_t before = 0;
    const char* const wished = std::getenv("TOLVANE_AUTOPLAY_SESSIONS");
    const std::int64_t hands = wished ? std::atoi(wished) * kOfSession : kHands;
    PlayHands(engine, files, hands, [&](std::int64_t played) {
        if (played % kOfSession != 0) return true;
        const std::int64_t now = NetCredits(engine.statistics, &Counter::session);
        gains.push_back(static_cast<double>(now - before) / kFullBet);
        before = now;
        return true;
    });
    LineTableCache cache;
    const auto hand = AnalyzeBet(engine.payTable, kFullBet, cache, [] { return true; });
    ASSERT_TRUE(hand);
    const GainLaw gain = GainLawOf(*hand, engine.payTable, kFullBet);
    const auto session = FindSessionLaw(gain, {kOfSession});
    ASSERT_TRUE(session.law);
    const auto count = static_cast<double>(gains.size());
    for (const double share : {0.01, 0.05, 0.1, 0.25, 0.5, 0.75, 0.9, 0.95, 0.99}) {
        const double quantile = session.law->Quantile(share);
        const double expected = session.law->ShareUpTo(quantile) * count;
        const auto seen = static_cast<double>(
            std::ranges::count_if(gains, [&](double bets) { return bets <= quantile; }));
        EXPECT_LT(Deviations(seen, expected, expected * (1 - expected / count)), 4) << share;
    }
}

TEST_F(AutoplayTest, DollarsAreEnteredExactlyWhenTheCreditsDoNotCoverTheBet) {
    engine.settings.coin = 0.25;
    for (const auto& [credits, entered] : {std::pair{5, 0}, {4, 400}}) {
        engine.settings.credits = credits;
        engine.statistics.creditsWon = {};
        PlayHands(engine, files, 1, {});
        EXPECT_EQ(engine.settings.credits,
                  credits + entered - 5 + engine.statistics.creditsWon.total);
        EXPECT_EQ(engine.settings.creditsEntered, entered / 4) << "dollars";
    }
}

TEST_F(AutoplayTest, ARunEndsWhenItIsTold) {
    EXPECT_EQ(PlayHands(engine, files, 1000, [](std::int64_t played) { return played < 17; }), 17);
    EXPECT_GT(engine.analysis.holds[0].totalHands, 0) << "the last hand is known whole";
    EXPECT_EQ(engine.statistics.handsPlayed.total, 17);
    EXPECT_EQ(PlayHands(engine, files, 0, {}), 0);
    EXPECT_EQ(PlayHands(engine, files, -5, {}), 0);
    engine.payTable.lines.clear();
    EXPECT_EQ(PlayHands(engine, files, 5, {}), 0) << "a game without lines";
}

}  // namespace
