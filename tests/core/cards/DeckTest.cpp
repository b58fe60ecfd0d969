#include "core/cards/Deck.h"

#include <gtest/gtest.h>

#include <set>

namespace {

std::int64_t Noon() { return 1'790'000'000; }
std::int64_t Later() { return 1'790'000'777; }

Deck Built(int jokers = 0) {
    DeckDescription description;
    description.jokers = jokers;
    description.deckSize = 52 + jokers;
    Deck deck;
    deck.clock = Noon;
    deck.Build(description);
    return deck;
}

TEST(DeckTest, AFreshDeckIsSeededFromTheClockAndShuffledTenPasses) {
    Deck deck = Built(5);
    EXPECT_EQ(deck.shufflePasses, 10);
    EXPECT_EQ(deck.order[57], 57) << "the back is not shuffled in";

    CombinedRandom random;
    random.RandomInit(static_cast<std::uint32_t>(Noon()));
    std::array<CardCode, 57> order{};
    for (int i = 0; i < 57; ++i) order[static_cast<std::size_t>(i)] = i;
    for (int pass = 0; pass < 10; ++pass) {
        for (std::size_t i = 0; i < 56; ++i) {
            std::swap(order[i], order[static_cast<std::size_t>(random.IRandom(0, 56))]);
        }
    }
    EXPECT_TRUE(std::equal(order.begin(), order.end(), deck.order.begin()));
}

TEST(DeckTest, TheGeneratorIsSeededAnewAfterTwoHundredMillionPasses) {
    Deck deck = Built();
    deck.clock = Later;
    deck.shufflePasses = 199'999'999;
    deck.Shuffle(1);
    EXPECT_EQ(deck.shufflePasses, 200'000'000);
    deck.Shuffle(1);
    EXPECT_EQ(deck.shufflePasses, 1);
    CombinedRandom random;
    random.RandomInit(static_cast<std::uint32_t>(Later()));
    for (int i = 0; i < 51; ++i) random.IRandom(0, 51);
    EXPECT_EQ(deck.random.Random(), random.Random());
}

TEST(DeckTest, ADrawnCardIsNoneOfTheExcludedOnes) {
    Deck deck = Built();
    const std::array<CardCode, 10> excluded = {0, 1, 2, 3, 4, 5, 6, 7, 8, kNoCard};
    std::set<CardCode> drawn;
    for (int i = 0; i < 2000; ++i) drawn.insert(deck.DrawRandomCard(excluded));
    EXPECT_EQ(drawn.size(), 43U);
    EXPECT_EQ(*drawn.begin(), 9);
    EXPECT_EQ(*drawn.rbegin(), 51);
}

}  // namespace
