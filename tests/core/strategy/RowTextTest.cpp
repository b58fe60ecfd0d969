#include "core/strategy/RowText.h"

#include <gtest/gtest.h>

#include <random>

#include "core/strategy/Candidates.h"
#include "tests/core/TestGames.h"

namespace {

// Rows with words of every kind, whether or not they make sense.
Row RandomRow(std::mt19937& random) {
    const auto below = [&random](int end) {
        return static_cast<int>(random() % static_cast<unsigned>(end));
    };
    const auto amount = [&] {
        const auto least = static_cast<std::int8_t>(below(4));
        if (below(3) == 0) return Amount{least, static_cast<std::int8_t>(least + below(3))};
        return below(2) == 0 || least == 0 ? Amount{} : Amount{least, Amount::kNoEnd};
    };
    const auto span = [&] {
        const auto low = static_cast<std::int8_t>(below(kRanks));
        const auto high = static_cast<std::int8_t>(low + below(kRanks - low));
        return below(2) == 0 ? RankSpan{} : RankSpan{low, high};
    };
    const auto ranks = [&] { return static_cast<RankSet>(below(3) == 0 ? below(1 << kRanks) : 0); };
    const auto condition = [&] { return static_cast<Condition>(below(3)); };
    Row row;
    row.base = static_cast<Base>(below(12));
    switch (row.base) {
        case Base::kPat:
            row.pat = static_cast<PatHand>(below(kPatHands));
            row.orBetter = below(2) == 0;
            break;
        case Base::kOfAKind:
            row.count = static_cast<std::int8_t>(2 + below(3));
            if (row.count == 2) row.height = static_cast<Height>(below(3));
            break;
        case Base::kOfAKindAndOne:
            row.count = static_cast<std::int8_t>(2 + below(2));
            break;
        case Base::kRanks:
            row.count = static_cast<std::int8_t>(1 + below(4));
            for (int i = 0; i < row.count; ++i) {
                row.ranks[static_cast<std::size_t>(i)] = static_cast<std::int8_t>(
                    i < row.count - 1 || below(2) == 0 ? kAceRank - 2 * i : kWildRank);
            }
            break;
        case Base::kNothing:
            break;
        default:
            row.count = row.base == Base::kTwoPair ? std::int8_t{4}
                                                   : static_cast<std::int8_t>(2 + below(3));
    }
    row.suiting = static_cast<Suiting>(below(5));
    row.suitedWild = condition();
    for (Amount Row::*member :
         {&Row::straights, &Row::gaps, &Row::highCards, &Row::straightsAndHighCards,
          &Row::wildCards, &Row::jokers, &Row::openStraights, &Row::flushPenalties,
          &Row::suitsDiscarded, &Row::highDiscards}) {
        row.*member = amount();
    }
    for (RankSpan Row::*member : {&Row::of, &Row::kicker, &Row::all}) row.*member = span();
    for (RankSet Row::*member :
         {&Row::with, &Row::without, &Row::discarding, &Row::notDiscarding}) {
        row.*member = ranks();
    }
    row.flushPenalty = condition();
    row.straightPenalty = condition();
    return row;
}

TEST(RowTextTest, WhatIsPrintedIsReadAsTheSameRow) {
    std::mt19937 random(1);
    for (int i = 0; i < 20'000; ++i) {
        const Row row = RandomRow(random);
        const std::string text = RowText(row);
        const ReadRow read = ParseRow(text);
        ASSERT_TRUE(read.valid) << text << ": " << read.problem.expected;
        EXPECT_EQ(read.row, row) << text << " was read as " << RowText(read.row);
    }
}

TEST(RowTextTest, ChartsAreReadAsPeopleWriteThem) {
    const ReadChart chart = ParseChart(
        "# a card\n\n 1. Pat Full House OR better\n2)  4 to a royal  flush # always\r\n"
        "j t suited\nhigh pair,1 high card ,of J-a\nDISCARD everything");
    ASSERT_TRUE(chart.valid) << chart.problem.line << " " << chart.problem.found;
    EXPECT_EQ(ChartText(chart.rows),
              "1. pat full house or better\n2. 4 to a royal flush\n3. J T suited\n"
              "4. high pair, 1 high card, of J-A\n5. discard everything\n");
}

TEST(RowTextTest, AnUnreadableChartIsAnsweredByLineAndWord) {
    struct Case {
        const char* text;
        int line;
        int word;
        const char* found;
        const char* expected;
    };
    for (const auto& [text, line, word, found, expected] :
         {Case{"two pair\n4 to a gutshot", 2, 4, "gutshot", "straight"},
          Case{"4 to a straight, 2 straigths", 1, 6, "straigths", "straights"},
          Case{"pat full", 1, 3, "", "house"}, Case{"pair, of 5-2", 1, 3, "5-2", "span"},
          Case{"pair, of", 1, 3, "", "span"}, Case{"5 to a flush", 1, 1, "5", "number"},
          Case{"K Q J T 9", 1, 1, "k", "rank"}, Case{"pair suited", 1, 2, "suited", "comma"},
          Case{"pair, 2 straights, 1 straight", 1, 4, "1", "once"},
          Case{"\n# nothing\n", 1, 1, "", "row"}, Case{"pair, with W", 1, 3, "w", "rank"},
          Case{"99999999999 to a flush", 1, 1, "99999999999", "number"}}) {
        const ReadChart chart = ParseChart(text);
        EXPECT_FALSE(chart.valid) << text;
        EXPECT_EQ(chart.problem.line, line) << text;
        EXPECT_EQ(chart.problem.word, word) << text << ": " << chart.problem.expected;
        EXPECT_EQ(chart.problem.found, found) << text;
        EXPECT_NE(chart.problem.expected.find(expected), std::string::npos)
            << text << ": " << chart.problem.expected;
    }
}

}  // namespace
