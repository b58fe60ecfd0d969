// A hand of Pick 'Em: two cards, and the choice of two piles of three, of which the top cards are
// seen. The left pile lies in positions 2..4 of the hand, the right one is what a draw would give.
#pragma once
#include "game/seat/ShowScene.h"

int PositionOf(Pile pile);

// What DEAL does outside fixed-hand mode; nothing while a hand is in play.
void DealPickEm(Seat& seat);

// Plays the pile, unless the player backs out of a play error.
void PlayPile(Seat& seat, Pile pile);

// Shared with fixed hands: judges the choice in the modes that check it; then the cards that the
// choice holds are held.
bool PassesPileCheck(Seat& seat, Pile pile);

// The places are emptied for a new hand.
void ClearPickEmPlaces(Seat& seat);

// The dealt hand is laid out.
void ShowPickEmDeal(Seat& seat);
