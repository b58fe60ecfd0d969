#include "core/odds/SessionLaw.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "core/analysis/LineTableCache.h"
#include "core/odds/Walk.h"
#include "tests/core/TestGames.h"

namespace {

const std::function<bool()> kGoOn = [] { return true; };

GainLaw GainsOf(const PayTable& table, int bet) {
    LineTableCache tables;
    return GainLawOf(AnalyzeBet(table, bet, tables, kGoOn).value_or(HandLaw()), table, bet);
}

// 9/6, at the full bet.
const GainLaw& Jacks() {
    static const GainLaw law = GainsOf(JacksOrBetter(), kFullBet);
    return law;
}

SessionLaw Session(const GainLaw& law, const SessionWish& wish) {
    const SessionAnswer answer = FindSessionLaw(law, wish);
    EXPECT_TRUE(answer.law) << answer.whyNot;
    return answer.law.value_or(SessionLaw());
}

double SumOf(const SessionLaw& session) {
    double sum = 0;
    for (const auto& result : session.results) sum += result.probability;
    return sum;
}

// Every course of a session is followed by its amounts of money: slow, obvious, and exact.
std::map<std::int64_t, double> Followed(const GainLaw& law, std::int64_t level, std::int64_t goal,
                                        int hands) {
    std::map<std::int64_t, double> money{{level, 1.0}};
    for (int hand = 0; hand < hands; ++hand) {
        std::map<std::int64_t, double> next;
        for (const auto& [units, share] : money) {
            if (units < law.stake || units >= goal) {
                next[units] += share;
                continue;
            }
            for (const auto& [gain, probability] : law.outcomes) {
                next[units + gain] += share * probability;
            }
        }
        money = std::move(next);
    }
    return money;
}

// The figures that players' books have, and those that independent programs found.
TEST(SessionLawTest, JacksOrBetterBringsWhatIsKnownOfIt) {
    const SessionLaw evening = Session(Jacks(), {1000});
    EXPECT_NEAR(evening.ahead, 0.3457, 5e-5);
    const SessionLaw month = Session(Jacks(), {10'000});
    EXPECT_NEAR(month.ahead, 0.3001, 5e-5);
    const std::map<double, std::pair<double, double>> known = {{0.01, {-155, -664}},
                                                               {0.05, {-120, -533}},
                                                               {0.5, {-25, -176}},
                                                               {0.95, {100, 779}},
                                                               {0.99, {788, 1437}}};
    for (const auto& [share, results] : known) {
        EXPECT_DOUBLE_EQ(evening.Quantile(share), results.first) << share;
        EXPECT_DOUBLE_EQ(month.Quantile(share), results.second) << share;
    }
}

TEST(SessionLawTest, SumsMeansAndVariancesAreThoseOfTheHands) {
    for (const double hands : {1.0, 7.0, 1e3, 1e5, 1e7}) {
        const SessionLaw law = Session(Jacks(), {static_cast<std::int64_t>(hands)});
        EXPECT_NEAR(SumOf(law), 1, 1e-12) << hands;
        const double mean = hands * Jacks().Mean();
        EXPECT_NEAR(law.expected, mean, std::abs(mean) * 1e-10) << hands;
        const double variance = hands * Jacks().Variance();
        EXPECT_NEAR(law.deviation * law.deviation, variance, variance * 1e-10) << hands;
        EXPECT_NEAR(law.ShareBelow(0) + law.even + law.ahead, 1, 1e-12);
        EXPECT_NEAR(law.ShareUpTo(0), 1 - law.ahead, 1e-12);
    }
}

TEST(SessionLawTest, TheTwoWaysToRuinAgree) {
    constexpr std::int64_t kLevel = 60;
    constexpr std::int64_t kHands = 3000;
    const auto hit = HittingTimes(Jacks(), kLevel, kHands);
    const auto walk = AbsorbingWalk(Jacks(), kLevel, std::nullopt, kHands, kGoOn);
    ASSERT_TRUE(hit && walk);
    ASSERT_EQ(hit->brokeAt.size(), walk->brokeAt.size());
    for (std::size_t n = 0; n < hit->brokeAt.size(); ++n) {
        ASSERT_NEAR(hit->brokeAt[n], walk->brokeAt[n], 1e-14) << n;
    }
    EXPECT_NEAR(hit->brokeWith[0], walk->brokeWith[0], 1e-12);
    for (std::size_t i = 0; i < walk->alive.probabilities.size(); ++i) {
        const auto money = i + static_cast<std::size_t>(walk->alive.first);
        const double other =
            money < hit->alive.probabilities.size() ? hit->alive.probabilities[money] : 0;
        ASSERT_NEAR(walk->alive.probabilities[i], other, 1e-14) << money;
    }
    EXPECT_GT(hit->brokeWith[0], 0.3) << "most are broke by then";
    EXPECT_NEAR(SumOf(Session(Jacks(), {100'000, 200})), 1, 1e-12);
}

// Bets of 3 coins, and a pay that is no whole number of bets: the money is on a lattice of coins.
TEST(SessionLawTest, BankrollsAndGoalsEndASessionAsFollowingItHandByHandDoes) {
    PayTable table = JacksOrBetter();
    table.lines[0].maxPayout = 47;
    table.lines[1].maxPayout = 33;
    const GainLaw odd = GainsOf(table, kFullBet);
    ASSERT_EQ(odd.stake, 5);
    constexpr int kHands = 9;
    for (const auto& [law, money, goal] : {std::tuple{odd, 4.0, 7.0},
                                           {odd, 3.5, 99.0},
                                           {Jacks(), 4.0, 6.0},
                                           {Jacks(), 3.5, 5.5},
                                           {GainsOf(JacksOrBetter(), 3), 2.0, 4.0}}) {
        SessionWish wish{kHands, money, goal};
        const SessionLaw session = Session(law, wish);
        const auto level = static_cast<std::int64_t>(money / law.unit + 1e-9);
        const double pocket = money - static_cast<double>(level) * law.unit;
        const auto top = static_cast<std::int64_t>(std::ceil((goal - pocket) / law.unit - 1e-9));
        double broke = 0;
        double reached = 0;
        double ahead = 0;
        const auto ends = Followed(law, level, top, kHands);
        for (const auto& [units, share] : ends) {
            if (units < law.stake) broke += share;
            if (units >= top) reached += share;
            if (units > level) ahead += share;
            const double bets = static_cast<double>(units - level) * law.unit;
            EXPECT_NEAR(session.ShareUpTo(bets) - session.ShareBelow(bets), share, 1e-13) << bets;
        }
        EXPECT_NEAR(session.broke, broke, 1e-13);
        EXPECT_NEAR(session.goal, reached, 1e-13);
        EXPECT_NEAR(session.ahead, ahead, 1e-13);
        EXPECT_NEAR(SumOf(session), 1, 1e-12);
    }
}

// Wald: what comes back is in proportion to the hands that were played.
TEST(SessionLawTest, CashBackIsPaidForTheHandsThatWerePlayed) {
    const SessionLaw without = Session(Jacks(), {500, 20, 60});
    const SessionLaw with = Session(Jacks(), {500, 20, 60, 0.01});
    const double played = without.expected / Jacks().Mean();
    EXPECT_NEAR(with.expected - without.expected, played * 0.01, 1e-9);
    EXPECT_NEAR(with.broke, without.broke, 1e-15);
    const SessionLaw unbroken = Session(Jacks(), {1000, std::nullopt, std::nullopt, 0.01});
    EXPECT_NEAR(unbroken.Quantile(0.5), -25 + 10, 1e-9);
    // 20 bets of cash back are there after 2,000 hands: whoever is broke later is still ahead.
    const SessionLaw late = Session(Jacks(), {5000, 20, std::nullopt, 0.01});
    const auto times = HittingTimes(Jacks(), 20, 5000);
    double behind = 0;
    for (std::size_t n = 0; n < 2000; ++n) behind += times->brokeAt[n];
    EXPECT_NEAR(late.ShareBelow(0), behind, 2e-3) << "some who still play have lost too";
    EXPECT_GE(late.ShareBelow(0), behind);
}

TEST(SessionLawTest, SmallAndImpossibleSessionsHaveTheirPlainAnswers) {
    const SessionLaw none = Session(Jacks(), {0, 100, 200, 0.01});
    EXPECT_EQ(none.even, 1);
    EXPECT_EQ(none.Quantile(0.99), 0);
    EXPECT_EQ(Session(Jacks(), {0}).even, 1);

    const SessionLaw one = Session(Jacks(), {1});
    EXPECT_EQ(one.Quantile(0.01), -1);
    EXPECT_EQ(one.Quantile(0.99), 8) << "a full house";
    EXPECT_NEAR(one.even, Jacks().outcomes[1].probability, 1e-15);
    // A share that is met exactly is met.
    EXPECT_EQ(one.Quantile(Jacks().outcomes[0].probability), -1);
    EXPECT_EQ(one.Quantile(Jacks().outcomes[0].probability + 1e-9), 0);

    const SessionLaw poor = Session(Jacks(), {50, 0.9});
    EXPECT_EQ(poor.broke, 1);
    EXPECT_EQ(poor.expected, 0);
    const SessionLaw rich = Session(Jacks(), {50, 10, 10});
    EXPECT_EQ(rich.goal, 1);
    EXPECT_EQ(rich.expected, 0);

    const GainLaw nothing{{{-1, 1}}, 1, 1};
    EXPECT_EQ(Session(nothing, {30}).Quantile(0.5), -30) << "a table that pays nothing";
    EXPECT_NEAR(Session(nothing, {30, 10}).broke, 1, 1e-14);
    EXPECT_NEAR(Session(nothing, {9, 10}).broke, 0, 1e-14);
    EXPECT_EQ(Session({{{2, 1}}, 1, 1}, {30}).Quantile(0.01), 60);
    EXPECT_EQ(Session({{{0, 1}}, 1, 1}, {30, 5, 6}).even, 1);
}

TEST(SessionLawTest, WhatIsTooMuchIsRefusedWithTheLimit) {
    PayTable table = JacksOrBetter();
    table.lines[0].maxPayout = 2'147'483'647;
    const GainLaw wide = GainsOf(table, kFullBet);
    EXPECT_NE(FindSessionLaw(wide, {100}).whyNot.find("4,194,304"), std::string::npos);
    EXPECT_NE(FindSessionLaw(wide, {100, 50, 60}).whyNot, "");
    EXPECT_NE(FindSessionLaw(Jacks(), {10'000'001}).whyNot.find("10,000,000"), std::string::npos);
    int asked = 0;
    EXPECT_FALSE(FindSessionLaw(Jacks(), {1000, 100, 200}, [&asked] { return ++asked < 3; }).law);
    EXPECT_EQ(asked, 3);
    EXPECT_FALSE(FindSessionLaw({}, {1}).law);
}

}  // namespace
