#include "core/strategy/Why.h"

#include <cmath>
#include <regex>

#include "core/strategy/ChartStudy.h"
#include "core/strategy/RowText.h"
#include "tests/core/TestGames.h"

namespace {

constexpr const char* kRows =
    "pat straight or better\n"
    "high pair\n"
    "4 to a flush\n"
    "pair\n"
    "1 high card\n"
    "discard everything\n";

struct WhyTest : testing::Test {
    // Of the hand, sorted from the ace up: the best hold against the one of these cards.
    std::string Why(std::string_view cards, std::optional<std::size_t> other,
                    const char* rows = kRows) {
        StartingHand hand;
        const CardTable deck = BuildCardTable(DeckOf(table));
        Hand faces;
        for (std::size_t i = 0; const CardCode code : ParseCards(cards, deck, kHandSize).cards) {
            faces[i] = FaceOf(deck, code);
            hand.cards[i] = tables.ToSetCard(faces[i]);
            ++i;
        }
        hand.line = tables.LineOfFive(hand.cards);
        HoldAnalysis analysis;
        AnalyzeHand(tables, table, {faces, {}}, kFullBet, 1, analysis);
        for (std::size_t held = 0; held < kSubsets; ++held) {
            std::size_t mask = 0;
            for (std::size_t i = 0; i < kHandSize; ++i) mask |= (held >> i & 1) << (4 - i);
            hand.values[held] = std::llround(analysis.holds[mask].expectedReturn * 1e6);
        }
        return WhyText(terms, ParseChart(rows).rows, hand, other, 5'000'000);
    }

    PayTable table = JacksOrBetter();
    LineTables tables{table};
    Terms terms{tables, table};
};

}  // namespace

// Cards and their bits: the first one, the lowest rank from the ace up, is 1.
TEST_F(WhyTest, TheBestHoldStandsAboveTheOther) {
    EXPECT_EQ(Why("2S 5S 8S TS TD", 0b11000), "4 to a flush (line 3) stands above pair (line 4)");
    EXPECT_EQ(Why("2S 5S 8S TS TD", 0),
              "4 to a flush (line 3) stands above discard everything "
              "(line 6)");
    EXPECT_EQ(Why("2S 5S 8S TS TD", 0b11100),
              "4 to a flush (line 3) stands in the chart, T T 8 does not");
}

TEST_F(WhyTest, WithoutAnotherHoldTheNextOneOfTheChartIsTold) {
    EXPECT_EQ(Why("2S 5S 8S TS TD", std::nullopt),
              "4 to a flush (line 3) stands above pair (line 4)");
    EXPECT_EQ(Why("2S 5S 8S TS KS", std::nullopt),
              "pat straight or better (line 1) stands above 4 to a flush (line 3)");
    EXPECT_EQ(Why("2S 5S 8S TS TD", std::nullopt, "4 to a flush\ndiscard everything\n"),
              "4 to a flush (line 1) stands above discard everything (line 2)");
    EXPECT_EQ(Why("2S 5D 8H TS 4C", std::nullopt), "") << "the last line has none behind it";
}

TEST_F(WhyTest, NothingIsSaidOfHoldsThatAreWorthTheSame) {
    EXPECT_EQ(Why("2S 5S 8S TS TD", 0b01111), "");
}

// Nine of 47 cards fill the flush, which pays 6: 1.1489 bets. A low pair returns about 0.82.
TEST_F(WhyTest, AnExceptionIsToldWithItsWorth) {
    const std::string why = Why("2S 5S 8S TS TD", 0b11000, "pair\n4 to a flush\n");
    const std::regex expected(
        "4 to a flush \\(line 2\\) is better here than pair \\(line 1\\): an exception of the "
        "chart, worth 0\\.32\\d\\d bets");
    EXPECT_TRUE(std::regex_match(why, expected)) << why;
    const std::string none = Why("2S 5S 8S TS TD", 0, "high pair\n");
    EXPECT_TRUE(none.starts_with("T 8 5 2 is better here than discarding everything: an exc"))
        << none;
}

// Two high cards of the three fit the row, and jack and queen are not worth what ace and king are.
TEST_F(WhyTest, OfSeveralHoldsThatFitTheChartCountsTheWorst) {
    const std::string why = Why("AS 4D 5H JS QD", 0, "2 high cards\ndiscard everything\n");
    const std::regex expected(
        "A J is the better of the holds that fit 2 high cards \\(line 1\\): an exception of the "
        "chart, worth 0\\.\\d{4} bets");
    EXPECT_TRUE(std::regex_match(why, expected)) << why;
}
