// The second machine, for what must not disturb the player's: autoplay, and the reports that
// analyse.
#pragma once
#include "game/seat/Seat.h"

// Puts the player's game and table on the spare engine, with the settings and statistics as last
// saved, and a deck that does not run along with the player's.
void LoadSpare(Seat& seat, GameEngine& spare);

// Asks for a number of hands, plays them on the spare engine, from statistics of 0 and without
// credits, and shows its statistics. Nothing is stored.
void RunAutoplay(Seat& seat, GameEngine& spare);
