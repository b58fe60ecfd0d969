#include "core/store/Statistics.h"

#include <gtest/gtest.h>

#include <climits>

#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

Statistics Loaded(const TemporaryFolder& folder, const std::string& lines, int deckSize = 52) {
    const std::string path = folder.Write("game.qdx", "[G(1)]\n" + lines);
    ProfileFile file;
    Statistics statistics;
    statistics.setCards = {9, 9, 9, 9, 9};
    statistics.handsPlayed.Add(5);
    statistics.sessionHours = 0.5;
    LoadStatistics({file, path}, "G(1)", deckSize, statistics);
    return statistics;
}

TEST(StatisticsTest, NumbersStopAtTheEndsOf32Bits) {
    EXPECT_EQ(AddCapped(INT_MAX, LLONG_MAX), INT_MAX);
    EXPECT_EQ(AddCapped(INT_MIN, LLONG_MIN), INT_MIN);
    EXPECT_EQ(AddCapped(INT_MIN, 4294967295), INT_MAX);
    EXPECT_EQ(AddCapped(INT_MAX, -4294967295), INT_MIN);
    Counter hands{3, INT_MAX - 1};
    hands.Add(4);
    EXPECT_EQ(hands, (Counter{7, INT_MAX})) << "each for itself";
    const TemporaryFolder folder;
    Statistics fresh;
    fresh.sessionHours = 0.5;  // the clock is not the section's
    EXPECT_EQ(Loaded(folder, ""), fresh);
}

TEST(StatisticsTest, EveryKeyIsWrittenInOrderAndReadBack) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("game.qdx", "");
    Statistics statistics;
    int value = 0;
    for (const auto& [key, counter] : CounterKeys()) (statistics.*counter).total = ++value;
    statistics.bestReturns.total = 1234.5;
    statistics.setCards = {kNoCard, 51, 2, 3, 4};
    statistics.nextError = 100;
    PayTable table;
    table.lines.resize(2);
    table.lines[1].totalWins = 17;
    ProfileFile file;
    WriteStatistics({file, path}, "G(1)", statistics, table);
    ASSERT_TRUE(file.Flush());
    const std::string lines =
        "CreditsPlayed=1\nCreditsWon=2\nHandsPlayed=3\nHandsWon=4\nDblUpCredits=5\n"
        "BonusCredits=6\nDblUpCreditsLost=7\nDblUpTrys=8\nDblUpsLost=9\nDblUpsTied=10\n"
        "BonusTrys=11\nPlayErrors=12\nBestER=1234.5000   \nErrCost=0.0000      \n"
        "PayLine0Won=0\nPayLine1Won=17\n"
        "SetCard0=-1\nSetCard1=51\nSetCard2=2\nSetCard3=3\nSetCard4=4\n"
        "SetDraw0=5\nSetDraw1=6\nSetDraw2=7\nSetDraw3=8\nSetDraw4=9\nNextError=100\n";
    EXPECT_EQ(folder.Read("game.qdx"), "[G(1)]\n" + lines + "\n");

    statistics.sessionHours = 0.5;
    EXPECT_EQ(Loaded(folder, lines), statistics);
}

TEST(StatisticsTest, CardsOutsideTheDeckAreDealtAtRandom) {
    const TemporaryFolder folder;
    const std::string lines =
        "SetCard0=52\nSetCard1=-9\nSetCard2=99999999999\nSetCard3=x\nSetDraw4=53\n"
        "NextError=-4\nHandsPlayed=99999999999\nErrCost=1e999\n";
    const Statistics statistics = Loaded(folder, lines);
    EXPECT_EQ(statistics.setCards, (std::array<CardCode, 5>{kNoCard, kNoCard, kNoCard, 0, 4}));
    EXPECT_EQ(statistics.setDraws[4], kNoCard);
    EXPECT_EQ(statistics.nextError, 0);
    EXPECT_EQ(statistics.handsPlayed, (Counter{0, INT_MAX}));
    EXPECT_EQ(statistics.errorCosts.total, 0);
    EXPECT_EQ(Loaded(folder, lines, 53).setCards[0], 52);
    EXPECT_EQ(Loaded(folder, "NextError=101\n").nextError, 100);
}

}  // namespace
