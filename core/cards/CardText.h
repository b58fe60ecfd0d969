// Cards as people write them: a rank character (A 2..9 T J Q K, or 10) and a suit character (S H C
// D, $ the suit of the fifth ace), a joker as W alone; either letter case, blanks between the
// cards.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "core/cards/CardTable.h"

// 'S', 'H', 'C', 'D' and '$' for the suits 1..5; '?' for anything else.
char SuitChar(int suit);

struct ParsedCards {
    std::vector<CardCode> cards;  // as many as were asked for; empty when the text is wrong
    std::string problem;  // what is wrong and how to mend it, one line; empty when nothing is
};

// Reads exactly count cards of the deck, each at most once. The first W is Joker 1, the second
// Joker 2, and so on.
ParsedCards ParseCards(std::string_view text, const CardTable& table, std::size_t count);

// "TS", "A$", "W"; "__" for anything that is no card of the deck.
std::string CardText(const CardTable& table, CardCode card);
