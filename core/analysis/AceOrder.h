// The line of four aces in suit order, which asks for positions: spades, hearts, clubs and diamonds
// side by side from the first or the second position on. Drawn cards fill the gaps of a hold from
// left to right in the order drawn, so where this line pays, draws are counted with their order.
#pragma once
#include <array>
#include <optional>

#include "core/analysis/HoldCounts.h"

// The first 4 ACE$ BONUS line of a table, -1 for none.
int AceLine(const PayTable& table);

// So many aces have to lie in order.
inline constexpr int kAcesInOrder = 4;

// How many aces of the hand have a place in the order; a fifth ace has none.
int AcesWithPlaces(const Hand& hand);

// Whether the four aces are held and lie in order.
bool AcesLieInOrder(const Hand& hand, HoldMask held);

// How many ordered draws make each distinct draw, by cards drawn.
inline constexpr std::array<std::uint32_t, kHandSize + 1> kDrawOrders = {1, 1, 2, 6, 24, 120};

// How the aces of a hand can come to lie in order from one of the two first positions on: only when
// they are held and nothing else is in their places. The fifth place may be held or drawn to.
struct AceChance {
    HoldMask aces = 0;       // the positions of the aces in the hand
    int besidePosition = 0;  // the fifth place
};

// The chance from the position first, 0 or 1; nothing when an ace of the hand lies elsewhere.
std::optional<AceChance> AceChanceFrom(const Hand& hand, int first);

// What four aces are paid in any order beside a fifth card; lane by lane beside all cards, and
// beside all unseen ones.
int LineBesideAces(const LineTables& tables, CardFace fifth);
LineCounts CountsBesideAces(const LineTables& tables);
LineCounts UnseenBesideAces(const LineTables& tables, const Hand& hand);

// Moves the draws, all of which end in four aces in order, to the line, except those that a better
// line takes: from the given lanes, as many as draws holds.
void MoveToAceLine(int aceLine, const LineCounts& draws, LineCounts& counts);

// Turns the distinct draws of CountDraws into ordered ones, and gives those that lay four aces in
// order to the line, -1 for none.
void OrderDraws(const LineTables& tables, const Hand& hand, int aceLine, HoldCounts& counts);

// Gives standing pat to the line when the aces of the hand lie in order and no better line takes
// it.
void PayAcesInOrder(const Hand& hand, int aceLine, LineCounts& standPat);
