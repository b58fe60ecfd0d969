#include "core/odds/SessionLaw.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "core/analysis/LineTableCache.h"
#include "core/odds/LineChances.h"
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

// Where a session ended: money in units, and the hands played.
using CourseEnd = std::pair<std::int64_t, int>;

// Every course of a session is followed by its amounts of money: slow, obvious, and exact.
std::map<CourseEnd, double> Followed(const GainLaw& law, std::int64_t level, std::int64_t goal,
                                     int hands) {
    std::map<CourseEnd, double> ends;
    std::map<std::int64_t, double> money{{level, 1.0}};
    for (int hand = 0; hand <= hands; ++hand) {
        std::map<std::int64_t, double> next;
        for (const auto& [units, share] : money) {
            if (hand == hands || units < law.stake || units >= goal) {
                ends[{units, hand}] += share;
                continue;
            }
            for (const auto& [gain, probability] : law.outcomes) {
                next[units + gain] += share * probability;
            }
        }
        money = std::move(next);
    }
    return ends;
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

void ExpectSameEnds(const WalkAnswer& answer, const WalkAnswer& known) {
    ASSERT_TRUE(answer.end && known.end);
    ASSERT_EQ(answer.end->brokeAt.size(), known.end->brokeAt.size());
    for (std::size_t i = 0; i < known.end->brokeAt.size(); ++i) {
        ASSERT_NEAR(answer.end->brokeAt[i], known.end->brokeAt[i], 1e-14) << i;
    }
    const std::vector<double>& alive = answer.end->alive.probabilities;
    for (std::size_t i = 0; i < known.end->alive.probabilities.size(); ++i) {
        const auto money = i + static_cast<std::size_t>(known.end->alive.first);
        const double other = money < alive.size() ? alive[money] : 0;
        ASSERT_NEAR(other, known.end->alive.probabilities[i], 1e-14) << money;
    }
}

TEST(SessionLawTest, TheThreeWaysToRuinAgree) {
    const Course course{.level = 60, .hands = 3000};
    EndMasses goals(0, course.hands, 1);
    const WalkAnswer walk = AbsorbingWalk(Jacks(), course, goals, kGoOn);
    ExpectSameEnds(HittingTimes(Jacks(), course, kGoOn), walk);
    ExpectSameEnds(RenewalTimes(Jacks(), course, kGoOn), walk);
    LineTableCache tables;
    const auto three = FindDealLaw(JacksOrBetter(), kFullBet, 3, tables, kGoOn);
    const GainLaw bets = GainsOf(JacksOrBetter(), 3);
    for (const auto& [law, level] : {std::pair{three->gains, 20}, {bets, 25}}) {
        const Course few{.level = level, .hands = 300};
        ExpectSameEnds(RenewalTimes(law, few, kGoOn), AbsorbingWalk(law, few, goals, kGoOn));
    }
    EXPECT_NEAR(SumOf(Session(three->gains, {10'000, 200})), 1, 1e-12);
    EXPECT_NEAR(SumOf(Session(Jacks(), {100'000, 200})), 1, 1e-12);
}

// What a session of so many hands must be, from all its courses.
void ExpectFollowed(const GainLaw& law, const SessionWish& wish) {
    const auto level = static_cast<std::int64_t>(*wish.bankroll / law.unit + 1e-9);
    const double pocket = *wish.bankroll - static_cast<double>(level) * law.unit;
    const auto goal =
        static_cast<std::int64_t>(std::ceil((wish.goal.value_or(1e6) - pocket) / law.unit - 1e-9));
    std::map<double, double> results;
    SessionLaw known;
    for (const auto& [end, share] : Followed(law, level, goal, static_cast<int>(wish.hands))) {
        const auto& [units, hands] = end;
        if (units < law.stake && hands < wish.hands) known.broke += share;
        if (units >= goal) known.goal += share;
        const double cash = wish.cashBack * static_cast<double>(hands * law.stake);
        const double bets = (static_cast<double>(units - level) + cash) * law.unit;
        results[std::round(bets * 1e9) / 1e9] += share;
    }
    double squares = 0;
    for (const auto& [bets, share] : results) {
        known.results.push_back({bets, share});
        known.expected += bets * share;
        squares += bets * bets * share;
        if (bets > 0) known.ahead += share;
        if (bets == 0) known.even += share;
    }
    const SessionLaw session = Session(law, wish);
    EXPECT_NEAR(SumOf(session), 1, 1e-12);
    EXPECT_NEAR(session.broke, known.broke, 1e-12);
    EXPECT_NEAR(session.goal, known.goal, 1e-12);
    EXPECT_NEAR(session.ahead, known.ahead, 1e-12);
    EXPECT_NEAR(session.even, known.even, 1e-12);
    EXPECT_NEAR(session.expected, known.expected, 1e-10);
    EXPECT_NEAR(session.deviation, std::sqrt(squares - known.expected * known.expected), 1e-8);
    for (double share = 0.005; share < 1; share += 0.01) {
        ASSERT_NEAR(session.Quantile(share), known.Quantile(share), 1e-8) << share;
    }
}

// Pays that are no whole number of bets, bets of 3 coins, cash back on lattices of its own.
TEST(SessionLawTest, BankrollsAndGoalsEndASessionAsFollowingItHandByHandDoes) {
    PayTable table = JacksOrBetter();
    table.lines[3].maxPayout = 47;  // full houses
    table.lines[4].maxPayout = 33;
    const GainLaw odd = GainsOf(table, kFullBet);
    ASSERT_EQ(odd.stake, 5);
    const GainLaw three = GainsOf(JacksOrBetter(), 3);
    ExpectFollowed(odd, {100, 10, 15, 0.1});
    ExpectFollowed(odd, {12, 4.2, std::nullopt, 0.05});
    ExpectFollowed(odd, {9, 3.5, 99});
    ExpectFollowed(odd, {50, 8, 12.5, 0.0123});
    ExpectFollowed(GainsOf(JacksOrBetter(), 1), {150, 10, 20, 0.02});
    ExpectFollowed(Jacks(), {80, 3.5, 5.5, 0.0033333});
    ExpectFollowed(Jacks(), {20, 7, std::nullopt, 0.01});
    ExpectFollowed(Jacks(), {9, 4, 6});
    ExpectFollowed(three, {60, 5, 9, 0.25});
}

// More fractions than are told apart: 0.456 % of a bet has them all after 12,500 hands. A goal that
// is never reached changes nothing.
TEST(SessionLawTest, CashBackOnAFineLatticeMovesNoResultThatIsShown) {
    const SessionLaw with = Session(Jacks(), {20'000, 100, std::nullopt, 0.00456});
    const auto times = HittingTimes(Jacks(), {.level = 100, .hands = 20'000}, kGoOn).end;
    SessionLaw known;
    for (std::size_t n = 0; n < times->brokeAt.size(); ++n) {
        known.results.push_back({0.00456 * static_cast<double>(n) - 100, times->brokeAt[n]});
    }
    for (const double share : {0.01, 0.05, 0.25, 0.5}) {
        EXPECT_NEAR(with.Quantile(share), known.Quantile(share), 1.3e-4) << share;
    }
    const SessionLaw without = Session(Jacks(), {20'000, 100});
    const double played = without.expected / Jacks().Mean();
    EXPECT_NEAR(with.expected - without.expected, played * 0.00456, 1e-9) << "Wald";
    // Whoever is broke after just 12,501 hands is even.
    const SessionLaw even = Session(Jacks(), {20'000, 100, std::nullopt, 100.0 / 12'501});
    EXPECT_GT(times->brokeAt[12'501], 1e-6);
    EXPECT_NEAR(even.even, times->brokeAt[12'501], 1e-12);
    EXPECT_NEAR(Session(Jacks(), {1000, std::nullopt, std::nullopt, 0.01}).Quantile(0.5), -15,
                1e-9);
}

// By transforms, which 20 lines are followed with. Wald: what is won and what cash back brings are
// in proportion to the deals that are played.
TEST(SessionLawTest, ManyLinesAreFollowedToTheirGoal) {
    LineTableCache tables;
    const GainLaw law =
        FindDealLaw(JacksOrBetter(), kFullBet, 20, tables, kGoOn).value_or(DealLaw()).gains;
    ASSERT_GT(law.outcomes.size(), 3000U);
    const SessionLaw without = Session(law, {50, 200, 1000});
    const SessionLaw with = Session(law, {50, 200, 1000, 0.01});
    EXPECT_NEAR(SumOf(without), 1, 1e-11);
    EXPECT_GT(without.goal, 0.01);
    EXPECT_GT(without.broke, 0.1);
    EXPECT_NEAR((with.expected - without.expected) / 0.2 * law.Mean(), without.expected, 1e-8);
    EXPECT_LT(without.Quantile(1 - without.goal - 1e-9), 800);
    EXPECT_GE(without.Quantile(1 - without.goal + 1e-9), 800);
}

// A line is not seen in the courses that remain when the hands that end in it are taken out.
TEST(SessionLawTest, LinesAreSeenAsLongAsTheMoneyLasts) {
    LineTableCache tables;
    PayTable table = JacksOrBetter();
    const auto deal = [&](int lines) {
        return FindDealLaw(table, kFullBet, lines, tables, kGoOn).value_or(DealLaw());
    };
    const auto chances = [](const DealLaw& of, const SessionWish& wish) {
        return FindLineChances(of, wish, kGoOn).value_or(LineChances());
    };
    const auto expectFollowed = [&](const DealLaw& one, const SessionWish& wish) {
        const auto level = static_cast<std::int64_t>(*wish.bankroll / one.gains.unit + 1e-9);
        const auto goal = static_cast<std::int64_t>(wish.goal.value_or(1e6) / one.gains.unit);
        for (std::size_t line = 0; line < table.lines.size(); ++line) {
            GainLaw without = one.gains;
            for (auto& [gain, probability] : without.outcomes) {
                if (gain == one.gainOf[line]) probability -= one.seen[line];
            }
            double chance = 1;
            for (const auto& [end, share] :
                 Followed(without, level, goal, static_cast<int>(wish.hands))) {
                chance -= share;
            }
            EXPECT_NEAR(chances(one, wish).atLeastOnce[line], chance, 1e-12) << line;
        }
        EXPECT_FALSE(chances(one, wish).areOfAllDeals);
    };
    expectFollowed(deal(1), {12, 3});
    expectFollowed(deal(1), {60, 3, 5});
    table.lines[4].maxPayout = table.lines[5].maxPayout;  // two lines of one pay
    table.lines[3].maxPayout = 47;
    expectFollowed(deal(1), {20, 3, 5});

    const DealLaw jacks = deal(1);
    EXPECT_EQ(chances(jacks, {100'000, 0.5}).atLeastOnce[8], 0) << "no hand is played";
    EXPECT_NEAR(chances(jacks, {1000}).atLeastOnce[0], jacks.AtLeastOnce(0, 1000), 1e-14);
    EXPECT_NEAR(chances(jacks, {300, 299}).atLeastOnce[8], 1, 1e-14) << "soon seen";
    EXPECT_FALSE(FindLineChances(jacks, {1000, 50}, [] { return false; }));
    EXPECT_TRUE(chances(deal(3), {1000, 50}).areOfAllDeals);
    EXPECT_FALSE(chances(deal(3), {1000}).areOfAllDeals);
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

    SessionLaw rounded;
    rounded.results = {{0, 0.7}, {1, 0.1}, {2, 0.2}};  // 0.7 + 0.1 is a little less than 0.8
    EXPECT_EQ(rounded.Quantile(0.8), 1);

    const SessionLaw poor = Session(Jacks(), {50, 0.9});
    EXPECT_EQ(poor.broke, 1);
    EXPECT_EQ(poor.expected, 0);
    const SessionLaw rich = Session(Jacks(), {50, 10, 10});
    EXPECT_EQ(rich.goal, 1);
    EXPECT_EQ(rich.expected, 0);

    const GainLaw nothing{{{-1, 1}}, 1, 1};
    EXPECT_EQ(Session(nothing, {30}).Quantile(0.5), -30) << "a table that pays nothing";
    EXPECT_NEAR(Session(nothing, {30, 10}).broke, 1, 1e-14);
    EXPECT_EQ(Session(nothing, {10, 10}).broke, 0) << "all ten hands were played";
    EXPECT_EQ(Session(nothing, {0, 0.5}).broke, 0) << "and all none of them";
    EXPECT_EQ(Session({{{2, 1}}, 1, 1}, {30}).Quantile(0.01), 60);
    EXPECT_EQ(Session({{{0, 1}}, 1, 1}, {30, 5, 6}).even, 1);
}

TEST(SessionLawTest, WhatIsTooMuchIsRefusedWithTheLimit) {
    PayTable table = JacksOrBetter();
    table.lines[0].maxPayout = 2'147'483'647;
    const GainLaw wide = GainsOf(table, kFullBet);
    EXPECT_NE(FindSessionLaw(wide, {100}).whyNot.find("4,194,304"), std::string::npos);
    EXPECT_NE(FindSessionLaw(wide, {100, 50}).whyNot.find("4,194,304"), std::string::npos);
    EXPECT_TRUE(FindSessionLaw(wide, {100, 50, 60, 0.01}).law) << "who wins it is at the goal";
    EXPECT_NE(FindSessionLaw(Jacks(), {5'000'000, 1e5, 1.1e5}).whyNot.find("15,000,000,000 steps"),
              std::string::npos);
    EXPECT_NE(FindSessionLaw(Jacks(), {10'000'001}).whyNot.find("10,000,000"), std::string::npos);
    int asked = 0;
    EXPECT_FALSE(FindSessionLaw(Jacks(), {1000, 100, 200}, [&asked] { return ++asked < 3; }).law);
    EXPECT_LE(asked, 4);
    for (const SessionWish& wish : {SessionWish{1'000'000, 1000}, SessionWish{10'000'000}}) {
        asked = 0;
        EXPECT_FALSE(FindSessionLaw(Jacks(), wish, [&asked] { return ++asked < 9; }).law);
    }
    EXPECT_FALSE(FindSessionLaw({}, {1}).law);
}

}  // namespace
