#include "game/paytables/LiveAnalysis.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>

#include "tests/core/TestGames.h"

namespace {

using namespace std::chrono_literals;

TEST(LiveAnalysisTest, OnlyTheLastOfManyTablesIsReported) {
    std::promise<LiveResult> reported;  // once, or it ends the test
    LiveAnalysis analysis([&](const LiveResult& result) {
        if (result.breakEven) reported.set_value(result);
    });
    std::uint64_t last = 0;
    for (int i = 0; i < 20; ++i) {
        last = analysis.Start(i < 19 ? DoubleDoubleBonus() : JacksOrBetter(), JacksOrBetter());
        std::this_thread::sleep_for(2ms);
    }
    auto future = reported.get_future();
    ASSERT_EQ(future.wait_for(20s), std::future_status::ready);
    const LiveResult result = future.get();
    EXPECT_EQ(result.run, last);
    EXPECT_TRUE(analysis.IsLatest(result));
    EXPECT_EQ(LiveText(result), "Return 99.5439%  Variance 19.51") << "the published ones";
}

// The slowest games of all, in the middle of building their tables or of playing their hands.
TEST(LiveAnalysisTest, CancellingAndEndingTakeNoTime) {
    for (const PayTable& table : {DeucesDeluxe(), OneEyedJacks(), AcesBonus(), PickEm()}) {
        for (const auto pause : {0ms, 5ms, 30ms}) {
            std::optional<LiveAnalysis> analysis(std::in_place, [](const LiveResult&) {});
            analysis->Start(table);
            std::this_thread::sleep_for(pause);
            analysis->Cancel();
            const auto start = std::chrono::steady_clock::now();
            analysis.reset();
            EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
        }
    }
}

TEST(LiveAnalysisTest, WhatIsMissingIsToldWithItsLine) {
    PayTableTexts texts;
    const auto told = [&texts] { return LiveText(*FindProblem(texts)); };
    ChooseRank(texts.lines[0], kOnePair);
    texts.lines[0].payout = texts.lines[0].maxPayout = "1";
    EXPECT_EQ(told(), "Minimum pair can not be blank if 1 Pair rank is selected");
    texts.minPair = "J";
    ChooseRank(texts.lines[1], kFlush);
    EXPECT_EQ(told(), "Line 2: Payout can not be blank and must be numeric");
}

}  // namespace
