// Five cards in their positions, as codes and as faces, and the ways to hold them.
#pragma once
#include <array>
#include <concepts>
#include <span>

#include "core/cards/CardTable.h"

inline constexpr int kHandSize = 5;

// Positions are 0..4 from the left.
using Hand = std::array<CardFace, kHandSize>;       // an empty position is no card
using HandCards = std::array<CardCode, kHandSize>;  // an empty position is kNoCard

inline constexpr HandCards kNoCards = {kNoCard, kNoCard, kNoCard, kNoCard, kNoCard};
inline constexpr HandCards kCardBacks = {kCardBack, kCardBack, kCardBack, kCardBack, kCardBack};

// The faces of the codes, at most five of them, from the left.
Hand FacesOf(const CardTable& table, std::span<const CardCode> codes);

// Held positions as bits, 16 the leftmost card, 1 the rightmost: 0 discards all, 31 stands pat.
using HoldMask = int;
inline constexpr HoldMask kStandPat = 31;
// How the two piles of Pick 'Em are written as holds: the player's two cards and the top of the
// left pile, or of the right one.
inline constexpr HoldMask kLeftPile = 28;
inline constexpr HoldMask kRightPile = 25;
// The player's two cards, which are all that stays when the right pile is drawn.
inline constexpr HoldMask kPlayersTwo = 24;

// The mask that holds the position 0..4 and no other.
constexpr HoldMask PositionBit(std::integral auto position) { return 16 >> position; }

constexpr bool Holds(HoldMask mask, std::integral auto position) {
    return (mask & PositionBit(position)) != 0;
}
