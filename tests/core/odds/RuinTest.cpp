#include "core/odds/Ruin.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/analysis/LineTableCache.h"
#include "core/odds/DealLaw.h"
#include "core/odds/SessionLaw.h"
#include "tests/core/TestGames.h"

namespace {

const std::function<bool()> kGoOn = [] { return true; };

GainLaw Gains(const PayTable& table) {
    LineTableCache tables;
    return GainLawOf(AnalyzeBet(table, kFullBet, tables, kGoOn).value_or(HandLaw()), table,
                     kFullBet);
}

TEST(RuinTest, JacksOrBetterWithCashBackTakesThePublishedBankroll) {
    const GainLaw law = Gains(JacksOrBetter());
    const LongRun run = FindLongRun(law, 0.01);
    EXPECT_EQ(std::round(run.BankrollFor(0.5)), 1092);
    EXPECT_NEAR(run.RiskOf(run.BankrollFor(0.02)), 0.02, 1e-12);
    EXPECT_NEAR(run.edge, 0.0099544 - 0.0045610 + 0.0000456, 1e-6);
    // Nearly the edge over the variance, as for small edges.
    EXPECT_NEAR(run.kelly, run.edge / law.Variance(), run.kelly * 0.25);
    EXPECT_NEAR(run.KellyBankroll() * run.kelly, 1, 1e-12);

    const LongRun certain = FindLongRun(law, 0.0045);
    EXPECT_TRUE(certain.RuinIsCertain());
    EXPECT_EQ(certain.RiskOf(1e9), 1);
    EXPECT_TRUE(std::isinf(certain.BankrollFor(0.5)));
    EXPECT_TRUE(std::isinf(certain.KellyBankroll()));
    EXPECT_FALSE(FindLongRun(law, 0.0046).RuinIsCertain());
}

// A coin that wins one bet with the chance p and loses one with q: the books have (q / p)^bets for
// the ruin, and p - q for Kelly.
TEST(RuinTest, ACoinIsAsTheBooksHaveIt) {
    const GainLaw coin{{{-1, 0.45}, {1, 0.55}}, 1, 1};
    const LongRun run = FindLongRun(coin, 0);
    EXPECT_NEAR(run.base, 0.45 / 0.55, 1e-12);
    EXPECT_NEAR(run.kelly, 0.1, 1e-12);
    EXPECT_NEAR(run.KellyBankroll(), 10, 1e-9);
    // In time, ruin within so many hands becomes ruin for ever.
    const auto session = FindSessionLaw(coin, {20'000, 7});
    ASSERT_TRUE(session.law);
    EXPECT_NEAR(session.law->broke, run.RiskOf(7), 1e-12);
    EXPECT_EQ(FindLongRun({{{-1, 0.5}, {1, 0.5}}, 1, 1}, 0).base, 1) << "a fair one";
    EXPECT_EQ(FindLongRun({{{-1, 0.9}, {1, 0.1}}, 1, 1}, 1).base, 0) << "nothing can be lost";
    EXPECT_EQ(FindLongRun({{{0, 1}}, 1, 1}, 0).kelly, 0) << "nor won";
    EXPECT_EQ(FindLongRun({}, 0).base, 1);
}

TEST(RuinTest, ManyLinesShareTheHoldOfTheirDeal) {
    LineTableCache tables;
    const PayTable table = JacksOrBetter();
    const GainLaw one = Gains(table);
    const double shared = AnalyzeGame(*tables.For(table), table, 0.25, {}).holdVariance;
    EXPECT_NEAR(shared, 1.966389, 5e-7);
    for (const auto& [lines, known] : {std::pair{3, 23.45}, {10, 37.21}}) {
        const auto deal = FindDealLaw(table, kFullBet, lines, tables, kGoOn);
        ASSERT_TRUE(deal);
        EXPECT_EQ(deal->gains.stake, lines);
        EXPECT_NEAR(deal->gains.Mean(), lines * one.Mean(), 1e-10);
        EXPECT_NEAR(deal->gains.Variance() / lines, known, 5e-3);
        EXPECT_NEAR(deal->gains.Variance() / lines, one.Variance() + (lines - 1) * shared, 1e-8);
    }
    EXPECT_FALSE(FindDealLaw(table, kFullBet, 3, tables, [] { return false; })) << "stopped";
    // Three lines share a dealt royal, and so see one less often than three hands do.
    const auto alone = FindDealLaw(table, kFullBet, 1, tables, kGoOn);
    const auto three = FindDealLaw(table, kFullBet, 3, tables, kGoOn);
    EXPECT_LT(three->AtLeastOnce(0, 1), 3 * alone->seen[0]);
    EXPECT_GT(three->AtLeastOnce(0, 1), 2.8 * alone->seen[0]);
    EXPECT_NEAR(alone->AtLeastOnce(0, 40'391), 1 - std::exp(-1), 1e-4);
    const LongRun run = FindLongRun(three->gains, 0.01);
    EXPECT_GT(run.BankrollFor(0.5), 1200) << "three lines swing more than one";
    EXPECT_NEAR(run.KellyBankroll(), 3 / run.kelly, 1e-6);
}

// The three draws of every starting hand are put together one by one, for bets that leave the
// lattice of bets too.
TEST(RuinTest, ThreeLinesAreThoseOfEveryDeal) {
    PayTable table = JacksOrBetter();
    table.lines[3].maxPayout = 47;  // full houses
    LineTableCache tables;
    const LineTables lineTables(table);
    std::vector<double> paid(3 * 4000 + 1);
    GameAnalysisWatcher watcher;
    watcher.hand = [&](const PlayedHand& hand) {
        std::vector<std::pair<std::size_t, double>> ends;  // coins, share
        const auto draws = static_cast<double>(hand.best.totalHands);
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            if (hand.best.counts[lane] == 0) continue;
            const int coins = LineUnitPay(table, static_cast<int>(lane), kFullBet);
            ends.emplace_back(coins, hand.best.counts[lane] / draws);
        }
        for (const auto& [a, first] : ends) {
            for (const auto& [b, second] : ends) {
                const double both = hand.weight * first * second;
                for (const auto& [c, third] : ends) paid[a + b + c] += both * third;
            }
        }
    };
    const double hands = AnalyzeGame(lineTables, table, 1, watcher).initHandsTotal;
    const auto deal = FindDealLaw(table, kFullBet, 3, tables, kGoOn);
    ASSERT_TRUE(deal);
    ASSERT_EQ(deal->gains.unit, 0.2);
    for (const auto& [gain, probability] : deal->gains.outcomes) {
        double& known = paid[static_cast<std::size_t>(gain + 15)];
        ASSERT_NEAR(probability, known / hands, 1e-12) << gain;
        known = 0;
    }
    for (std::size_t coins = 0; coins < paid.size(); ++coins) {
        ASSERT_LT(paid[coins] / hands, 1e-13) << coins;
    }
}

}  // namespace
