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

using Names = std::vector<std::pair<CardCode, std::string>>;

TEST(CardTableTest, EveryJokerAndTheFifthAceHaveTheirPlacesBetweenTheSuits) {
    DeckDescription fifthAce;
    fifthAce.fifthAce = true;
    fifthAce.deckSize = 53;
    const std::pair<DeckDescription, Names> decks[] = {
        {{}, {{0, "Ace of Spades"}, {22, "10 of Hearts"}, {51, "King of Diamonds"}}},
        {Jokers(1), {{12, "King of Spades"}, {13, "Joker 1"}, {14, "Ace of Hearts"}}},
        {Jokers(2), {{27, "Joker 2"}}},
        {Jokers(3), {{41, "Joker 3"}}},
        {Jokers(4), {{0, "Joker 4"}}},
        {Jokers(5),
         {{0, "Joker 4"}, {14, "Joker 1"}, {28, "Joker 2"}, {42, "Joker 3"}, {56, "Joker 5"}}},
        {fifthAce, {{25, "King of Hearts"}, {26, "Ace of Stars"}, {27, "Ace of Clubs"}}}};
    for (const auto& [deck, names] : decks) {
        const CardTable table = BuildCardTable(deck);
        EXPECT_EQ(table.deckSize, deck.deckSize);
        EXPECT_EQ(NameAt(table, kCardBack), "Card Back");
        for (const auto& [slot, name] : names) EXPECT_EQ(NameAt(table, slot), name);
    }
    const CardTable table = BuildCardTable({});
    EXPECT_EQ(FindCard(table, 1, kClubs), 26);
    EXPECT_EQ(FindCard(table, 1, kStars), kNoCard);
    EXPECT_EQ(FindCard(table, 0, kNoSuit), kNoCard) << "the back is no card of the deck";
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
}

}  // namespace
