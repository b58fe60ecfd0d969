#include "core/store/StrategyCharts.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/strategy/RowText.h"
#include "core/text/Numbers.h"
#include "tests/core/TestGames.h"
#include "tests/core/profile/TemporaryFolder.h"

namespace {

constexpr const char* kSection = "Jacks or Better(0)";

SearchResult::Found Of(const std::string& rows, double loss) {
    return {ParseChart(rows).rows, loss};
}

const SearchResult::Found kTwo = Of("pat flush\ndiscard everything", 12.5);
const SearchResult::Found kThree =
    Of("pat flush\nhigh pair, no flush penalty\ndiscard everything", 3);

struct StrategyChartsTest : testing::Test {
    TableCharts Some() {
        return {1'795'464'909, 99.543904, {{kTwo, kThree}, SearchReach::kStandard}, {}};
    }
    bool Keep() { return KeepCharts(charts, kSection, JacksOrBetter(), Some()); }
    std::optional<TableCharts> Read() { return ReadCharts(charts, kSection, JacksOrBetter()); }

    TemporaryFolder folder;
    ProfileFile file;
    ProfileOnDisk charts{file, folder.Path("new/Strategy Charts.ini")};
};

// "rows:loss" of each.
std::string Listed(const ChartLists& lists) {
    std::string text;
    for (const auto& [rows, loss] : lists) {
        text += std::to_string(rows.size()) + ":" + FormatDouble("%.1f ", loss);
    }
    return text;
}

SearchResult::Found Long(std::size_t rows, double loss) { return {Chart(rows), loss}; }

}  // namespace

TEST(ChartListsTest, OnlyWhatLosesLessThanAllThatIsShorterIsKept) {
    ChartLists lists;
    EXPECT_EQ(BestOfRows(lists, 5), nullptr);
    EXPECT_EQ(StandardOf(lists), nullptr);
    for (const auto& [rows, loss] : {std::pair(10, 3.0), {20, 2.0}, {30, 1.0}, {10, 2.5}}) {
        EXPECT_TRUE(AddChart(lists, Long(static_cast<std::size_t>(rows), loss)));
    }
    EXPECT_EQ(Listed(lists), "10:2.5 20:2.0 30:1.0 ");
    EXPECT_FALSE(AddChart(lists, Long(25, 2.0))) << "no better than 20 rows";
    EXPECT_FALSE(AddChart(lists, Long(20, 2.0)));
    EXPECT_FALSE(AddChart(lists, Long(0, 0)));
    EXPECT_FALSE(AddChart(lists, Long(76, 0)));
    EXPECT_FALSE(AddChart(lists, Long(9, std::nan(""))));
    EXPECT_TRUE(AddChart(lists, Long(15, 1.0)));
    EXPECT_EQ(Listed(lists), "10:2.5 15:1.0 ") << "which beats both that are longer";
    EXPECT_EQ(BestOfRows(lists, 14)->rows.size(), 10U);
    EXPECT_EQ(BestOfRows(lists, 15)->rows.size(), 15U);
    EXPECT_EQ(BestOfRows(lists, 3)->rows.size(), 10U);
}

TEST(ChartListsTest, TheStandardChartIsTheShortestOfLittleLossOrTheBestOfFifty) {
    ChartLists lists;
    AddChart(lists, Long(51, 0.005));
    EXPECT_EQ(StandardOf(lists), nullptr);
    AddChart(lists, Long(40, 0.5));
    AddChart(lists, Long(50, 0.02));
    EXPECT_EQ(StandardOf(lists)->rows.size(), 50U) << "51 are too many";
    AddChart(lists, Long(22, 0.01));
    AddChart(lists, Long(23, 0.001));
    EXPECT_EQ(StandardOf(lists)->rows.size(), 22U);
}

TEST_F(StrategyChartsTest, WhatIsKeptIsReadBackByTheNextStartAndOfThesePaysAlone) {
    EXPECT_FALSE(Read()) << "no file yet";
    EXPECT_TRUE(Keep());
    ProfileFile nextStart;
    EXPECT_EQ(ReadCharts({nextStart, charts.path}, kSection, JacksOrBetter()), Some());
    PayTable other = JacksOrBetter();
    --other.lines[3].maxPayout;
    EXPECT_FALSE(ReadCharts(charts, kSection, other));
    EXPECT_FALSE(ReadCharts(charts, "Jacks or Better(1)", JacksOrBetter()));
}

TEST_F(StrategyChartsTest, AChartWithARowThatNobodyReadsIsLeftOutAlone) {
    Keep();
    file.WriteString(kSection, "Row3", "high pair, by moonlight", charts.path);
    file.WriteString(kSection, "Plain5", "1: 1 1 2 2", charts.path);  // four rows
    file.WriteString(kSection, "Plain1", "200: 9", charts.path);
    ASSERT_TRUE(Read());
    EXPECT_EQ(Read()->plain.lists, ChartLists{kTwo});
    EXPECT_EQ(Read()->plain.reach, SearchReach::kNone) << "it is searched for again";
    file.WriteString(kSection, "Row1", "", charts.path);
    EXPECT_FALSE(Read()) << "none is left";
}

TEST_F(StrategyChartsTest, WhereNothingCanBeWrittenThatIsTold) {
    folder.Write("new", "a file in the folder's place");
    EXPECT_FALSE(Keep());
    EXPECT_FALSE(Read());
}
