// The duel for a win: a dealer's card is seen beside four that are not, and the player picks one
// that should be higher. Aces are high, wild cards higher still.
#pragma once
#include "game/seat/Seat.h"

// Takes the offer that stands after a won hand; nothing when there is none.
void StartDoubleUp(Seat& seat);

// Picks the card at position 1..4 while a double up waits for it; nothing otherwise.
void PickDoubleUpCard(Seat& seat, int position);

// Ends a double up that waits for its pick: what earlier picks have won is collected.
void LeaveDoubleUp(Seat& seat);
