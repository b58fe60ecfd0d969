// Which cards of a paid hand made its line: those that a machine lights.
#pragma once
#include "core/cards/Hand.h"

struct PayTable;

// The positions of five cards without which the hand would not be paid on the line that it is paid
// on: of pairs, trips and quads the matching cards with the wild cards that stand in for some, and
// with the kicker where the line asks for one; of every other line all five. Where several cards
// would do beside the wild ones it is the highest. Nothing when there is no such line.
HoldMask WinningCards(const Hand& hand, const PayTable& table, int line);

// The same of a Pick 'Em deal, whose line is made of the player's two cards and the tops of both
// piles: positions 0, 1, 3 and 4, with nothing at 2.
HoldMask WinningPickEmDeal(const Hand& hand, const PayTable& table, int line);
