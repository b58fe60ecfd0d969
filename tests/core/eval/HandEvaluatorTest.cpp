#include "core/eval/HandEvaluator.h"

#include <gtest/gtest.h>

#include "tests/core/TestGames.h"

namespace {

// The description of the line that five cards are paid on: its rank and its pay a coin.
std::string PaidOn(const PayTable& table, std::string_view cards) {
    const int line = EvaluateHand(DealtHand(table, cards), table, 5).line;
    if (line < 0) return "nothing";
    const PayLine& paid = table.lines[static_cast<std::size_t>(line)];
    return std::string(RankInfo(paid.rank).shortName) + " " + std::to_string(paid.payout);
}

struct Paid {
    const char* cards;
    const char* line;
};

void ExpectPaid(const PayTable& table, std::initializer_list<Paid> hands) {
    for (const Paid& hand : hands) EXPECT_EQ(PaidOn(table, hand.cards), hand.line) << hand.cards;
}

TEST(HandEvaluatorTest, KickersAndPlainLinesArePaidInTableOrder) {
    const std::initializer_list<Paid> hands = {
        {"AS KS QS JS TS", "ROY FL 250"},   {"9H KH QH JH TH", "STR FL 50"},
        {"AH AS AC AD 3S", "BONUS 4K 400"}, {"KH AS AC AD AH", "BONUS 4K 160"},
        {"2H 2S 2C 2D AH", "BONUS 4K 160"}, {"2H 2S 2C 2D 5H", "BONUS 4K 80"},
        {"9H 9S 9C KD KH", "FH 9"},         {"AH 2S 3H 4H 5H", "STR 4"},
        {"AH KS QH JH TH", "STR 4"},        {"QH KS AH 2H 3H", "nothing"},
        {"9H 9S 2C KD KH", "2PR 1"},        {"JH JS 4C 7D 9H", "PR 1"},
        {"AH AS 4C 7D 9H", "PR 1"},         {"TH TS 4C 7D 9H", "nothing"}};
    ExpectPaid(DoubleDoubleBonus(), hands);
}

TEST(HandEvaluatorTest, WildCardsMakeTheBestLineOfTheTable) {
    const std::initializer_list<Paid> hands = {
        {"2H 2S AS JS TS", "WLD ROY 25"}, {"2H 2S 2C 2D KS", "4 WILDS 200"},
        {"2H 2S 2C KD KS", "5K 15"},      {"2H 2S 2C AD 5D", "STR FL 9"},
        {"2H 2S 2C AD 6D", "4K 5"},       {"2H 2S 5C 6D 8H", "STR 2"},
        {"2H KC KD QD QS", "FH 3"},       {"2H 3H 5H 7H 9H", "FL 2"},
        {"2H AS 3H 4H 5H", "STR 2"},      {"2H AS KH QH 9H", "nothing"}};
    ExpectPaid(DeucesWild(), hands);
}

// Natural lines see a deuce as a deuce. Where a wild card completes quads, it sorts first and is
// taken for the kicker, which no list of kickers names.
TEST(HandEvaluatorTest, NaturalLinesAreTestedOnTheNaturalHand) {
    const std::initializer_list<Paid> hands = {
        {"2H 2S 2C 2D 3S", "4 WILDS 200"}, {"2H 2S 2C 2D AS", "4 WILDS 200"},
        {"2H 2S 2C 2D KS", "4 WILDS 100"}, {"2H 3H 4H 5H 6H", "STR FL 50"},
        {"2S 3H 4H 5H 6H", "STR FL 9"},    {"2S 3H 4C 5D 6S", "STR 4"},
        {"KS KH KC KD 2H", "5K 1W 18"},    {"KS KH KC 2D 2H", "5K 15"},
        {"3S 3H 3C 2D 2H", "5K 17"},       {"KS KH KC KD 5H", "4K 20"},
        {"KS KH 2C 2D 5H", "BONUS 4K 4"},  {"KS KH KC 2D 6H", "nothing"}};
    ExpectPaid(DeucesDeluxe(), hands);
}

TEST(HandEvaluatorTest, JokersCompleteAnyHand) {
    const std::initializer_list<Paid> hands = {
        {"W W W W W", "5 WILDS 500"}, {"W W W W 3S", "5K 15"},      {"W W W AS TS", "WLD ROY 25"},
        {"W AS 4D 7H 9C", "PR 1"},    {"W QS 4D 7H 9C", "nothing"}, {"W QS QD 7H 7C", "FH 3"}};
    ExpectPaid(JokerPoker(5), hands);
}

TEST(HandEvaluatorTest, WildCountsAskForTheirOwnRank) {
    ExpectPaid(DeucesAndJoker(), {{"2S 2H 2C 2D W", "5 WILDS 9"},
                                  {"2S 2H 2C 2D KS", "4 WILDS 25"},
                                  {"2S 2H 2C W 9S", "5K 9"}});
}

TEST(HandEvaluatorTest, FourAcesInSuitOrderNeedTheirPositions) {
    const std::initializer_list<Paid> hands = {{"AS AH AC AD 9S", "4 ACE$ 800"},
                                               {"9S AS AH AC AD", "4 ACE$ 800"},
                                               {"AS AH AC AD 2S", "BONUS 4K 900"},
                                               {"AS AC AH AD 9S", "4K 25"}};
    ExpectPaid(AcesBonus(), hands);
}

TEST(HandEvaluatorTest, AJokerOutOfPlayIsANaturalCardBelowTheAce) {
    PayTable table = JacksOrBetter();
    table.jokers = 5;
    table.deckSize = 57;
    EXPECT_EQ(PaidOn(table, "W AS 2H 3S 4S"), "STR 4") << "joker to four are neighbours";
    EXPECT_EQ(PaidOn(table, "W W KS KH 4S"), "PR 1") << "jokers are no pair";
    EXPECT_EQ(PaidOn(table, "W W W W W"), "FL 6") << "none has another suit than the next";
}

TEST(HandEvaluatorTest, ColoursCountWildCardsButNoJokers) {
    const PayTable table = WithLine(JokerPoker(1), Wild(kAllRedOrBlack, 3));
    EXPECT_EQ(PaidOn(table, "2H 4D 6H 8D TD"), "All R/B 3");
    EXPECT_EQ(PaidOn(table, "2S 4C 6S 8C TC"), "All R/B 3");
    EXPECT_EQ(PaidOn(table, "W 4D 6H 8D TD"), "nothing");
}

TEST(HandEvaluatorTest, ATwentyOneIsACharlie) {
    const auto isCharlie = [](std::array<int, 5> ranks) {
        Hand hand;
        for (std::size_t i = 0; i < kHandSize; ++i) hand[i].rank = ranks[i];
        return IsCharlie(hand);
    };
    EXPECT_TRUE(isCharlie({2, 3, 4, 5, 7}));
    EXPECT_TRUE(isCharlie({1, 1, 2, 3, 4}));
    EXPECT_TRUE(isCharlie({0, 0, 1, 13, 0}));
    EXPECT_FALSE(isCharlie({1, 2, 3, 4, 13}));
    EXPECT_FALSE(isCharlie({2, 2, 2, 2, 3})) << "11 without an ace";

    PayTable table = JacksOrBetter();
    const auto paid = [&table](std::string_view cards, int bet) {
        return EvaluateHand(DealtHand(table, cards), table, bet);
    };
    EXPECT_EQ(paid("2S 2H 3S 3H AS", 4).Pay(), 8);
    table.charlieBonus = true;
    EXPECT_TRUE(paid("2S 2H 3S 3H AS", 4).charlie);
    EXPECT_EQ(paid("2S 2H 3S 3H AS", 4).Pay(), 40);
    EXPECT_FALSE(paid("2S 3H 4S 5H 7S", 4).charlie) << "not without a win";
    EXPECT_EQ(PaidOn(WithLine(JacksOrBetter(), Natural(kFiveCardCharlie, 2)), "2S 3H 4S 5H 7S"),
              "CHARLIE 2");
}

TEST(HandEvaluatorTest, HeldCardsAloneLeaveTheirWildCardsOut) {
    const PayTable table = DeucesWild();
    EvaluatedHand evaluated = WithWildFlags(DealtHand(table, "2S AH AC KD 9S"), table);
    ComputePartialFeatures(evaluated, table, 0b11100, true);
    EXPECT_EQ(evaluated.features.wilds, 1);
    EXPECT_EQ(evaluated.features.pairs, 1);
    EXPECT_EQ(evaluated.sortedRanks, (SortedRanks{-1, -1, -1, 1, 1}));
}

TEST(HandEvaluatorTest, APickEmDealSeesTheOtherPileAsOnePair) {
    const PayTable table = PickEm();
    EvaluatedHand evaluated;
    const auto pairs = [&](std::array<int, 3> ranks, int otherPile) {
        for (std::size_t i = 0; i < 3; ++i) evaluated.hand[i].rank = ranks[i];
        ComputePickEmDealFeatures(evaluated, table, otherPile);
        return evaluated.features.pairs;
    };
    EXPECT_EQ(pairs({5, 5, 9}, 13), 1);
    EXPECT_EQ(evaluated.features.highPairs, 0);
    EXPECT_EQ(pairs({9, 5, 9}, 5), 1) << "two pairs in different piles";
    EXPECT_EQ(evaluated.features.highPairs, 1);
    EXPECT_EQ(pairs({9, 9, 9}, 5), 3);
}

}  // namespace
