// What kind of play a hold is, in a few words, so that play errors can be counted by it.
#pragma once
#include <string>

#include "core/cards/Hand.h"

struct PayTable;

// Of a hold of a dealt hand: "Pair", "4 to a flush", "3 to a royal flush, 1 wild", "Pat hand",
// "Nothing held". In Pick 'Em, where one of two piles is chosen, "Left pile" and "Right pile".
std::string HoldKind(const Hand& hand, HoldMask mask, const PayTable& table);
