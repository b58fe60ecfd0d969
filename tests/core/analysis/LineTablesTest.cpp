#include "core/analysis/LineTables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

#include "core/analysis/Combinations.h"
#include "core/analysis/LineTableCache.h"
#include "tests/core/TestGames.h"

namespace {

LineCounts AllHands(const PayTable& table) {
    LineCounts counts;
    LineTables(table).Read<0>(0, counts);
    return counts;
}

SortedCards SortedFaces(const LineTables& tables, const Hand& hand) {
    SortedCards cards;
    for (std::size_t i = 0; i < kHandSize; ++i) InsertCard(cards, i, tables.ToSetCard(hand[i]));
    return cards;
}

// Every hand of the deck, classified one by one; the tables have to know each of them.
LineCounts DealtOneByOne(const PayTable& table) {
    const LineTables tables(table);
    const CardTable deck = BuildCardTable(DeckOf(table));
    LineCounts counts{};
    int unknown = 0;
    ForEachChoice(deck, kHandSize, [&](const std::vector<CardCode>& hand) {
        const Hand dealt = FacesOf(deck, hand);
        const int line = EvaluateHand(dealt, table, 1).line;
        if (tables.LineOfFive(SortedFaces(tables, dealt)) != line) ++unknown;
        ++counts[line < 0 ? kNothingLane : static_cast<std::size_t>(line)];
    });
    EXPECT_EQ(unknown, 0);
    return counts;
}

// One hand of each multiset of ranks and view of its suits stands for all of them.
TEST(LineTablesTest, HandsThatLookAlikeToTheTablesArePaidAlike) {
    for (const PayTable& table :
         {OneEyedJacks(), DeucesDeluxe(), WithLine(JokerPoker(2), Natural(kAllRedOrBlack, 3), 1),
          WithLine(OneEyedJacks(), Wild(kAllRedOrBlack, 3), 2),
          WithLine(JacksOrBetter(), Natural(kAllRedOrBlack, 3), 4), FiveAces()}) {
        EXPECT_EQ(AllHands(table), DealtOneByOne(table)) << table.gameId;
    }
}

// Sets share their counts when no card that comes tells them apart. Dealt out, each has its own.
TEST(LineTablesTest, SetsOfAClassAreCountedAsDealingTheRestCountsThem) {
    PayTable coloured = OneEyedJacks();
    SetWildCards(coloured, 0, std::array{2, 12});
    coloured = WithLine(WithLine(coloured, Wild(kAllRedOrBlack, 3), 2), Natural(kFlush, 6), 1);
    std::mt19937 random(3);
    for (const PayTable& table : {coloured, OneEyedJacks(), DeucesDeluxe(), FiveAces(),
                                  WithLine(JokerPoker(3), Natural(kAllRedOrBlack, 3), 1)}) {
        const LineTables tables(table);
        const CardTable deck = BuildCardTable(DeckOf(table));
        std::vector<CardCode> order(static_cast<std::size_t>(deck.deckSize));
        std::iota(order.begin(), order.end(), 0);
        for (int i = 0; i < 300; ++i) {
            // Often of few suits, or of wild ranks.
            std::ranges::shuffle(order, random);
            std::stable_partition(order.begin(), order.end(), [&](CardCode code) {
                const CardFace face = FaceOf(deck, code);
                return i % 3 == 0 ? face.suit % 2 == 0 : i % 3 == 1 ? face.suit < 2 : face.rank > 9;
            });
            std::array<SetCard, 4> cards;
            for (std::size_t at = 0; at < 4; ++at) {
                cards[at] = tables.ToSetCard(FaceOf(deck, order[at]));
            }
            std::ranges::sort(cards);
            std::uint32_t key = 0;
            for (int at = 0; at < 4; ++at) {
                key += SetKey::Add(at, cards[static_cast<std::size_t>(at)]);
            }
            LineCounts dealt{};
            for (std::size_t last = 4; last < order.size(); ++last) {
                const std::array<CardCode, 5> five = {order[0], order[1], order[2], order[3],
                                                      order[last]};
                ++dealt[LaneOf(EvaluateHand(FacesOf(deck, five), table, 1).line)];
            }
            LineCounts counted;
            tables.Read<4>(key, counted);
            ASSERT_EQ(counted, dealt) << table.gameId << " set " << i;
        }
    }
}

TEST(LineTablesTest, SuitsAreInterchangeableWhileNothingTellsThemApart) {
    EXPECT_EQ(InterchangeableSuits(DeucesWild()).size(), 24U);
    EXPECT_EQ(InterchangeableSuits(WithLine(OneEyedJacks(), Wild(kAllRedOrBlack, 3))).size(), 2U);
}

TEST(LineTablesTest, TheTablesOfAGameAreSmall) {
    constexpr std::size_t limit = 16 << 20;
    EXPECT_LE(LineTables(JokerPoker(5)).Bytes(), limit);
    EXPECT_LE(LineTables(WithLine(OneEyedJacks(), Wild(kAllRedOrBlack, 3))).Bytes(), limit);
}

TEST(CombinationsTest, DrawsAreCountedByTheBinomialCoefficients) {
    EXPECT_EQ(Combinations(0, 0), 1);
    EXPECT_EQ(Combinations(5, 0), 0) << "a draw of no cards is not asked for";
    EXPECT_EQ(Combinations(4, 5), 0);
    EXPECT_EQ(Combinations(58, 2), 0);
    for (int n = 2; n <= kLargestDeck; ++n) {
        for (int k = 2; k <= 5; ++k) {
            EXPECT_EQ(Combinations(n, k), Combinations(n - 1, k) + Combinations(n - 1, k - 1));
        }
    }
}

TEST(LineTableCacheTest, EveryFieldOfAPayTableMakesOtherTablesUnlessNoHandIsClassifiedByIt) {
    LineTableCache cache;
    PayTable table = JacksOrBetter();
    const auto first = cache.For(table);
    const auto matters = [&](auto& field, const auto& other) {
        const auto before = std::exchange(field, other);
        const bool changed = cache.For(table) != first;
        field = before;
        EXPECT_EQ(cache.For(table), first) << "kept beside the other";
        return changed;
    };
    // All fields are named: a new one does not compile until it is asked about here.
    auto& [gameId, type, deckSize, jokers, wildRanks, minPair, maxBet, usesWilds, charlie, redBlack,
           spin, target, lines] = table;
    EXPECT_TRUE(matters(type, GameType::kDoubleDraw));
    EXPECT_TRUE(matters(deckSize, 53));
    EXPECT_TRUE(matters(jokers, 1));
    EXPECT_TRUE(matters(wildRanks, std::array{2, -1, -1, -1, -1}));
    EXPECT_TRUE(matters(minPair, 13));
    EXPECT_TRUE(matters(usesWilds, true));
    EXPECT_TRUE(matters(lines, WithLine(table, Natural(kRoyalFlush, 1)).lines));
    EXPECT_FALSE(matters(gameId, 9001));
    EXPECT_FALSE(matters(maxBet, 1));
    for (bool* bonus : {&charlie, &redBlack, &spin, &target}) EXPECT_FALSE(matters(*bonus, true));

    auto& [rank, description, shortDescription, payout, maxPayout, bonusQuads, trailers, wildsOK,
           sessionWins, totalWins] = lines[3];
    EXPECT_TRUE(matters(rank, kFlush));
    EXPECT_TRUE(matters(bonusQuads, std::vector{1}));
    EXPECT_TRUE(matters(trailers, std::vector{1}));
    EXPECT_TRUE(matters(wildsOK, true));
    for (std::string* text : {&description, &shortDescription}) EXPECT_FALSE(matters(*text, "X"));
    for (int* number : {&payout, &maxPayout, &sessionWins, &totalWins})
        EXPECT_FALSE(matters(*number, 77));
}

}  // namespace
