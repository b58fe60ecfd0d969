#include "core/whatif/Meter.h"

#include <algorithm>
#include <cmath>

#include "core/whatif/MeterSearch.h"
#include "tests/core/whatif/WhatIfTables.h"

namespace {

constexpr std::size_t kRoyal = 0;
constexpr double kNear = 1e-9;

PayTable AtMeter(PayTable table, std::size_t line, int coins) {
    table.lines[line].maxPayout = coins;
    return table;
}

double PercentOf(const PayTable& table) {
    return AnalyzeGame(LineTables(table), table, 1, {}).payoutPercent;
}

TEST(MeterTest, NineSixJacksIsEvenAtThePublishedRoyal) {
    const PayTable jacks = Shipped("Jacks or Better");
    const MeterCurve curve(jacks, kRoyal, 4000, 8000);
    ASSERT_TRUE(curve.BreakEven());
    EXPECT_EQ(std::lround(*curve.BreakEven() / kFullBet), 976);
    EXPECT_NEAR(curve.Return(*curve.BreakEven()), 100, kNear);
    const MeterResult searched = SearchMeter(jacks, kRoyal, 4000);
    EXPECT_NEAR(*searched.breakEven, *curve.BreakEven(), 1e-4);
    EXPECT_LE(searched.analyses, 9);
    EXPECT_NEAR(curve.Probability(4000), 1 / 40'390.547, 1e-12);  // published
}

TEST(MeterTest, TheCurveIsTheAnalysisAtEveryMeter) {
    for (const auto& [game, line] : {std::pair("Jacks or Better", 0), {"Deuces Wild", 1}}) {
        const PayTable table = Shipped(game);
        const auto number = static_cast<std::size_t>(line);
        const MeterCurve curve(table, number, 0, 1);
        for (const int coins : {0, 4001, 50'000}) {
            EXPECT_NEAR(curve.Return(coins), PercentOf(AtMeter(table, number, coins)), kNear)
                << game << " at " << coins;
        }
    }
}

// Single hands, analysed a coin below and above, are played otherwise; at a whole meter both holds
// are worth the same.
TEST(MeterTest, TurningPointsAreWhereSingleHandsTurn) {
    const PayTable table = EightFive();
    const MeterCurve curve(table, kRoyal, 4000, 8000);
    const auto& points = curve.TurningPoints();
    ASSERT_GT(points.size(), 100U);
    for (std::size_t i = 0; i < points.size(); i += 12) {
        const TurningPoint& point = points[i];
        const auto below = static_cast<int>(std::ceil(point.coins)) - 1;
        const auto above = static_cast<int>(std::floor(point.coins)) + 1;
        const HoldAnalysis before = Analyzed(AtMeter(table, kRoyal, below), point.example);
        const HoldAnalysis after = Analyzed(AtMeter(table, kRoyal, above), point.example);
        EXPECT_LT(ReturnOf(before, after.best), before.bestReturn) << point.from;
        EXPECT_LT(ReturnOf(after, before.best), after.bestReturn) << point.to;
        if (point.coins != std::floor(point.coins)) continue;
        const HoldAnalysis here =
            Analyzed(AtMeter(table, kRoyal, static_cast<int>(point.coins)), point.example);
        EXPECT_NEAR(ReturnOf(here, before.best), ReturnOf(here, after.best), kNear);
    }
    // Published of 8/5 Jacks.
    EXPECT_TRUE(std::ranges::any_of(points, [](const TurningPoint& point) {
        return point.coins == 4950 && point.to == "Q T suited" && point.hands == 1080;
    }));
}

// Playing on as at 4,000 coins costs what all turning points cost together.
TEST(MeterTest, IgnoringAllTurningPointsCostsTheCurveAboveItsTangent) {
    const MeterCurve curve(Shipped("Jacks or Better"), kRoyal, 4000, 8000);
    double cost = 0;
    for (const TurningPoint& point : curve.TurningPoints()) cost += CostOfIgnoring(point, 8000);
    const double tangent = curve.Return(4000) + curve.Probability(4000) * 4000 / kFullBet * 100;
    EXPECT_NEAR(curve.Return(8000), tangent + cost, kNear);
}

TEST(MeterTest, LinesThatMakeNoGameEvenAndGamesThatNeedNone) {
    PayTable never = Shipped("Jacks or Better");
    never.lines.emplace_back().rank = HandRank::kFiveOfAKind;  // of a deck without wild cards
    const MeterCurve flat(never, never.lines.size() - 1, 0, 10'000);
    EXPECT_FALSE(flat.BreakEven());
    EXPECT_TRUE(flat.TurningPoints().empty());
    EXPECT_EQ(flat.Probability(5000), 0);
    EXPECT_EQ(flat.Return(0), flat.Return(1e9));
    EXPECT_FALSE(SearchMeter(never, never.lines.size() - 1, 0).breakEven);

    const PayTable rich = WithPay(Shipped("Jacks or Better"), 3, 20);
    EXPECT_EQ(MeterCurve(rich, kRoyal, 4000, 8000).BreakEven(), 0);
    EXPECT_EQ(SearchMeter(rich, kRoyal, 4000).breakEven, 0);

    // Games that have no curve are analysed as a whole.
    const PayTable pickEm = Shipped("Pick Em Poker");
    EXPECT_NE(MeterCurve::WhyNot(pickEm), "");
    const MeterResult found = SearchMeter(pickEm, kRoyal, pickEm.lines[kRoyal].maxPayout);
    ASSERT_TRUE(found.breakEven);
    const auto even = static_cast<int>(*found.breakEven);
    EXPECT_LE(PercentOf(AtMeter(pickEm, kRoyal, even)), 100);
    EXPECT_GT(PercentOf(AtMeter(pickEm, kRoyal, even + 1)), 100);
}

}  // namespace
