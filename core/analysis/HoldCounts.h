// The draws of every hold of a hand, line by line: the counting that the hold analysis judges by.
#pragma once
#include <array>

#include "core/analysis/LineTables.h"

inline constexpr std::size_t kHolds = 32;
using HoldCounts = std::array<LineCounts, kHolds>;  // by HoldMask
using HandFaces = std::array<CardFace, kHandSize>;  // by position

// All functions want distinct cards of the deck.

// Five cards seen: the distinct draws of every hold. Standing pat counts one.
void CountDraws(const LineTables& tables, const HandFaces& hand, HoldCounts& counts);

// Six cards seen, and the first draw card known: whatever is discarded, it comes first. Standing
// pat counts one.
void CountDrawsBehind(const LineTables& tables, const HandFaces& hand, CardFace firstDraw,
                      HoldCounts& counts);

// Four cards seen: three are held, two are drawn, and the fourth is out of the deck.
void CountPileDraws(const LineTables& tables, const std::array<CardFace, 3>& held, CardFace other,
                    LineCounts& counts);

// The first 4 ACE$ BONUS line of a table, -1 for none.
int AceLine(const PayTable& table);

// The held cards hold the aces of spades, hearts, clubs and diamonds at four neighbouring
// positions.
bool AcesLieInOrder(const HandFaces& hand, HoldMask held);

// Turns the distinct draws of CountDraws into ordered ones, and gives those that lay the four aces
// in suit order to aceLine, when no better line takes them.
void OrderDraws(const LineTables& tables, const HandFaces& hand, int aceLine, HoldCounts& counts);

// Gives standing pat to aceLine when the aces of the hand lie in suit order and no better line
// takes it.
void PayAcesInOrder(const HandFaces& hand, int aceLine, LineCounts& standPat);
