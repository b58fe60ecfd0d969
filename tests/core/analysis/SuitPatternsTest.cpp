#include "core/analysis/SuitPatterns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/core/TestGames.h"

namespace {

using Rows = std::span<const SuitPattern>;

Rows Select(const SuitPatternTables& tables, std::array<int, kHandSize> ranks, GameType type) {
    if (type != GameType::kPickEm) ArrangeForPatterns(ranks);
    return tables.Select(ShapeOf(ranks, type));
}

int Sum(Rows rows) {
    int sum = 0;
    for (const SuitPattern& row : rows) sum += row.multiplicity;
    return sum;
}

std::string RowsOf(Rows rows) {
    return std::to_string(rows.size()) + "/" + std::to_string(Sum(rows));
}

PayTable OfType(GameType type, int jokers = 0) {
    PayTable table = JokerPoker(jokers);
    table.type = type;
    if (type == GameType::kFiveAces) table.deckSize = 53;
    return table;
}

struct Expected {
    std::array<int, kHandSize> ranks;
    const char* rows;  // rows/sum of their multiplicities
};

void ExpectRows(const PayTable& table, std::initializer_list<Expected> hands) {
    const SuitPatternTables tables(table);
    for (const auto& [ranks, rows] : hands) {
        EXPECT_EQ(RowsOf(Select(tables, ranks, table.type)), rows) << testing::PrintToString(ranks);
    }
}

TEST(SuitPatternsTest, EveryShapeHasItsRows) {
    const std::initializer_list<Expected> standard = {
        {{0, 2, 3, 4, 5}, "15/256"}, {{0, 0, 3, 4, 5}, "5/64"}, {{0, 0, 0, 4, 5}, "2/16"},
        {{0, 0, 0, 0, 5}, "1/4"},    {{0, 0, 0, 0, 0}, "1/1"},  {{1, 2, 3, 4, 5}, "52/1024"},
        {{0, 3, 3, 4, 5}, "11/96"},  {{0, 0, 3, 3, 5}, "2/24"}, {{0, 0, 0, 3, 3}, "1/6"},
        {{2, 3, 3, 4, 5}, "20/384"}, {{0, 3, 3, 5, 5}, "4/36"}, {{2, 3, 3, 5, 5}, "8/144"},
        {{0, 3, 3, 3, 5}, "1/16"},   {{0, 0, 3, 3, 3}, "1/4"},  {{2, 3, 3, 3, 5}, "5/64"},
        {{2, 2, 3, 3, 3}, "2/24"},   {{0, 3, 3, 3, 3}, "1/1"},  {{2, 3, 3, 3, 3}, "1/4"},
        {{3, 3, 3, 3, 3}, "0/0"},    {{1, 1, 1, 1, 1}, "0/0"}};
    ExpectRows(OfType(GameType::kStandard, 5), standard);
    const std::initializer_list<Expected> fiveAces = {
        {{1, 2, 3, 4, 5}, "66/1280"}, {{2, 3, 4, 5, 6}, "52/1024"}, {{1, 1, 3, 4, 5}, "35/640"},
        {{1, 3, 3, 4, 5}, "26/480"},  {{1, 1, 3, 3, 5}, "14/240"},  {{1, 3, 3, 5, 5}, "9/180"},
        {{1, 1, 1, 3, 5}, "11/160"},  {{1, 3, 3, 3, 5}, "7/80"},    {{1, 1, 1, 3, 3}, "5/60"},
        {{1, 1, 3, 3, 3}, "4/40"},    {{1, 1, 1, 1, 3}, "2/20"},    {{1, 3, 3, 3, 3}, "1/5"},
        {{1, 1, 1, 1, 1}, "1/1"},     {{3, 3, 3, 3, 3}, "0/0"}};
    ExpectRows(OfType(GameType::kFiveAces), fiveAces);
    const std::initializer_list<Expected> acesBonus = {
        {{1, 2, 3, 4, 5}, "102/1024"}, {{1, 1, 3, 4, 5}, "40/384"}, {{1, 3, 3, 4, 5}, "20/384"},
        {{1, 1, 3, 3, 5}, "16/144"},   {{1, 1, 1, 3, 5}, "10/64"},  {{1, 1, 1, 3, 3}, "4/24"},
        {{1, 1, 3, 3, 3}, "2/24"},     {{1, 1, 1, 1, 3}, "2/4"}};
    ExpectRows(OfType(GameType::kAcesBonus), acesBonus);
    const std::initializer_list<Expected> pickEm = {
        {{1, 2, 0, 4, 5}, "15/256"}, {{2, 2, 0, 4, 5}, "11/96"}, {{2, 4, 0, 2, 5}, "11/96"},
        {{2, 4, 0, 5, 2}, "11/96"},  {{4, 2, 0, 2, 5}, "11/96"}, {{4, 2, 0, 5, 2}, "11/96"},
        {{4, 5, 0, 2, 2}, "11/96"},  {{2, 2, 0, 5, 5}, "4/36"},  {{2, 5, 0, 2, 5}, "4/36"},
        {{2, 2, 0, 2, 5}, "1/16"},   {{2, 2, 0, 5, 2}, "1/16"},  {{5, 2, 0, 2, 2}, "1/16"},
        {{2, 2, 0, 2, 2}, "1/1"}};
    ExpectRows(OfType(GameType::kPickEm), pickEm);
}

TEST(SuitPatternsTest, VariantsShareARowsWeightAndNoCardIsThereTwice) {
    PayTable table = OfType(GameType::kOneEyedJacks);
    table = WithLine(table, Natural(kAllRedOrBlack, 3));
    const SuitPatternTables tables(table);
    for (const auto& ranks : {std::array{1, 2, 3, 4, 5}, std::array{3, 3, 4, 5, 6},
                              std::array{3, 3, 4, 4, 6}, std::array{3, 3, 3, 5, 6}}) {
        for (const SuitPattern& row : Select(tables, ranks, GameType::kStandard)) {
            int sum = 0;
            for (const SuitVariant& variant : row.variants) {
                sum += variant.count;
                std::set<std::pair<int, int>> cards;
                std::array<int, kHandSize> arranged = ranks;
                ArrangeForPatterns(arranged);
                for (std::size_t i = 0; i < kHandSize; ++i)
                    cards.emplace(arranged[i], variant.suits[i]);
                EXPECT_EQ(cards.size(), 5U);
            }
            EXPECT_EQ(sum, row.multiplicity);
        }
    }
}

}  // namespace
