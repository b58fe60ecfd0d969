#include "game/paytables/LiveAnalysis.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <vector>

#include "tests/core/TestGames.h"

namespace {

using namespace std::chrono_literals;

// Waits for what a live analysis reports.
class Reports {
  public:
    void Add(const LiveResult& result) {
        const std::lock_guard lock(mutex);
        results.push_back(result);
        came.notify_all();
    }
    // Empty when nothing came in time.
    std::vector<LiveResult> Wait(std::chrono::milliseconds time = 20s) {
        std::unique_lock lock(mutex);
        came.wait_for(lock, time, [this] { return !results.empty(); });
        return results;
    }

  private:
    std::mutex mutex;
    std::condition_variable came;
    std::vector<LiveResult> results;
};

struct LiveAnalysisTest : testing::Test {
    Reports reports;
    LiveAnalysis analysis{[this](const LiveResult& result) { reports.Add(result); }};
};

TEST_F(LiveAnalysisTest, OnlyTheLastOfManyTablesIsReported) {
    std::uint64_t last = 0;
    for (int i = 0; i < 20; ++i) {
        last = analysis.Start(i < 19 ? DoubleDoubleBonus() : JacksOrBetter());
        std::this_thread::sleep_for(2ms);
    }
    const auto results = reports.Wait();
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0].run, last);
    EXPECT_TRUE(analysis.IsLatest(results[0]));
    EXPECT_EQ(LiveText(results[0]), "Return 99.5439%  Variance 19.51") << "the published ones";
}

// The slowest games of all, in the middle of building their tables or of playing their hands.
TEST_F(LiveAnalysisTest, CancellingAndEndingTakeNoTime) {
    for (const PayTable& table : {DeucesDeluxe(), OneEyedJacks(), AcesBonus(), PickEm()}) {
        for (const auto pause : {0ms, 5ms, 30ms}) {
            Reports reports;
            std::optional<LiveAnalysis> analysis(
                std::in_place, [&](const LiveResult& result) { reports.Add(result); });
            analysis->Start(table);
            std::this_thread::sleep_for(pause);
            analysis->Cancel();
            const auto start = std::chrono::steady_clock::now();
            analysis.reset();
            EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
        }
    }
}

TEST_F(LiveAnalysisTest, WhatIsMissingIsToldWithItsLine) {
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
