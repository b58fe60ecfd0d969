// A hand of Pick 'Em: two cards, and the choice of two piles of three, of which the top cards are
// seen. The left pile lies in positions 2..4 of the hand, the right one is what a draw would give.
#pragma once
#include "game/GameTable.h"

enum class Pile { kLeft, kRight };

// What DEAL does while no hand is in play.
void DealPickEm(GameTable& table);

// Plays the pile; nothing while no hand is in play. In fixed-hand mode the hand is dealt again
// instead.
void ChoosePile(GameTable& table, Pile pile);

// Shared with fixed hands: judges the choice in the modes that check it, with the pile's button
// pressed; then the cards that the choice holds are held.
bool PassesPileCheck(GameTable& table, Pile pile);

// What the top of a pile is labelled with in AutoHold mode: "PLAY", "EITHER" or nothing.
std::string_view PileLabel(const GameEngine& engine, Pile pile);

// The places are emptied for a new hand.
void ClearPickEmPlaces(GameTable& table);

// The dealt hand is laid out.
void ShowPickEmDeal(GameTable& table);
