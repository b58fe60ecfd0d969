#include "core/cards/CardText.h"

#include <gtest/gtest.h>

namespace {

CardTable Deck(int jokers, bool fifthAce = false) {
    DeckDescription deck;
    deck.jokers = jokers;
    deck.fifthAce = fifthAce;
    deck.deckSize = 52 + jokers + (fifthAce ? 1 : 0);
    return BuildCardTable(deck);
}

TEST(CardTextTest, CardsAreReadInEitherLetterCase) {
    const CardTable table = Deck(2, true);
    const auto parsed = ParseCards("  as 10d w A$ W ", table, 5);
    ASSERT_EQ(parsed.problem, "");
    std::string text;
    for (const CardCode card : parsed.cards) {
        text +=
            table.cards[static_cast<std::size_t>(card)].name + ";" + CardText(table, card) + " ";
    }
    EXPECT_EQ(text, "Ace of Spades;AS 10 of Diamonds;TD Joker 1;W Ace of Stars;A$ Joker 2;W ");
    EXPECT_EQ(CardText(Deck(5), kCardBack), "__") << "the first code behind the largest deck";
    EXPECT_EQ(CardText(table, kNoCard), "__");
}

TEST(CardTextTest, AProblemNamesTheCardAndTheMend) {
    const std::string noCard =
        " is not a card: write a rank A 2..9 T J Q K and a suit S H C D, such as TS or 9d";
    const struct {
        const char* text;
        int jokers;
        std::string problem;
    } bad[] = {{"", 0, "0 cards given where 5 are needed"},
               {"AS KS QS JS", 0, "4 cards given where 5 are needed"},
               {"AS KS QS JS TS 9S", 0, "6 cards given where 5 are needed"},
               {"AS KS as JS TS", 0, "\"as\" is given twice: a deck holds each card once"},
               {"AS 10S QS JS TS", 0, "\"TS\" is given twice: a deck holds each card once"},
               {"11S KS QS JS TS", 0, "\"11S\"" + noCard},
               {"1S KS QS JS TS", 0, "\"1S\"" + noCard},
               {"WS KS QS JS TS", 1, "\"WS\": a joker is written W, without a suit"},
               {"W KS QS JS TS", 0, "\"W\": this game's deck holds no joker"},
               {"W W W JS TS", 2, "\"W\": this game's deck holds only 2 jokers"},
               {"A$ KS QS JS TS", 0, "\"A$\": this game's deck does not hold that card"},
               {"xxxxxxxxxxxxxxxxxxxxxxxxx", 0, "\"xxxxxxxxxxxxxxxxxxxx...\"" + noCard}};
    for (const auto& [text, jokers, problem] : bad) {
        const auto parsed = ParseCards(text, Deck(jokers), 5);
        EXPECT_TRUE(parsed.cards.empty()) << text;
        EXPECT_EQ(parsed.problem, problem);
    }
}

}  // namespace
