#include "core/cards/CardTable.h"

#include <gtest/gtest.h>

#include <set>

namespace {

DeckDescription Jokers(int count) {
    DeckDescription deck;
    deck.jokers = count;
    deck.deckSize = 52 + count;
    deck.usesWilds = true;
    return deck;
}

std::string NameAt(const CardTable& table, CardCode slot) {
    return table.cards[static_cast<std::size_t>(slot)].name;
}

std::set<std::string> WildCards(const CardTable& table) {
    std::set<std::string> names;
    for (int slot = 0; slot < kCardSlots; ++slot) {
        if (table.cards[static_cast<std::size_t>(slot)].wild) names.insert(NameAt(table, slot));
    }
    return names;
}

TEST(CardTableTest, AnOrdinaryDeckIsFourSuitsFromAceToKing) {
    const CardTable table = BuildCardTable({});
    EXPECT_EQ(table.deckSize, 52);
    EXPECT_EQ(NameAt(table, 0), "Ace of Spades");
    EXPECT_EQ(NameAt(table, 22), "10 of Hearts");
    EXPECT_EQ(NameAt(table, 51), "King of Diamonds");
    EXPECT_EQ(NameAt(table, kCardBack), "Card Back");
    EXPECT_EQ(FindCard(table, 1, kClubs), 26);
    EXPECT_EQ(FindCard(table, 1, kStars), kNoCard);
    EXPECT_EQ(FindCard(table, 0, kNoSuit), kNoCard) << "the back is no card of the deck";
}

TEST(CardTableTest, EveryJokerHasItsPlaceBetweenTheSuits) {
    const CardTable one = BuildCardTable(Jokers(1));
    EXPECT_EQ(NameAt(one, 13), "Joker 1");
    EXPECT_EQ(one.heartsStart, 14);
    EXPECT_EQ(WildCards(one), (std::set<std::string>{"Joker 1"}));

    const CardTable five = BuildCardTable(Jokers(5));
    EXPECT_EQ(NameAt(five, 0), "Joker 4");
    EXPECT_EQ(five.spadesStart, 1);
    EXPECT_EQ(NameAt(five, 14), "Joker 1");
    EXPECT_EQ(NameAt(five, 28), "Joker 2");
    EXPECT_EQ(NameAt(five, 42), "Joker 3");
    EXPECT_EQ(NameAt(five, 56), "Joker 5");
    EXPECT_EQ(NameAt(five, 57), "Card Back");
    EXPECT_EQ(FindCard(five, 0, kNoSuit), 0);
}

TEST(CardTableTest, TheFifthAceFollowsTheHearts) {
    DeckDescription deck;
    deck.fifthAce = true;
    deck.deckSize = 53;
    const CardTable table = BuildCardTable(deck);
    EXPECT_EQ(NameAt(table, 25), "King of Hearts");
    EXPECT_EQ(table.starsSlot, 26);
    EXPECT_EQ(FindCard(table, 1, kStars), 26);
    EXPECT_EQ(table.clubsStart, 27);
}

TEST(CardTableTest, WildCardsAreThoseTheTableNames) {
    DeckDescription deck;
    deck.oneEyedJacksWild = true;
    EXPECT_TRUE(WildCards(BuildCardTable(deck)).empty()) << "wild cards are out of play";
    deck.usesWilds = true;
    EXPECT_EQ(WildCards(BuildCardTable(deck)),
              (std::set<std::string>{"Jack of Spades", "Jack of Hearts"}));
    deck.wildRanks = {2, 7, -1, 9, -1};
    const auto wild = WildCards(BuildCardTable(deck));
    EXPECT_EQ(wild.size(), 10U);
    EXPECT_TRUE(wild.contains("7 of Clubs"));
    EXPECT_FALSE(wild.contains("9 of Clubs")) << "the list ends at its first -1";

    DeckDescription natural = Jokers(2);
    natural.usesWilds = false;
    EXPECT_TRUE(WildCards(BuildCardTable(natural)).empty());
}

TEST(CardTableTest, ImpossibleDecksStayInsideTheTable) {
    DeckDescription deck = Jokers(9);
    deck.fifthAce = true;
    deck.deckSize = 1000;
    const CardTable table = BuildCardTable(deck);
    EXPECT_EQ(table.deckSize, 57);
    EXPECT_EQ(NameAt(table, kCardBack), "Card Back");
}

}  // namespace
