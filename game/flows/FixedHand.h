// Practice: the fixed hand, or in Error Log mode one logged hand after the other, is dealt again
// and again and its holds are judged. No draw is made, and no credits or counters change.
#pragma once
#include "game/seat/ShowScene.h"

// Lets the player choose the fixed hand and deals it.
void AssignFixedHand(Seat& seat);

// Deals an entry of the error log, 0 the oldest, as the fixed hand; in Error Log mode the replay
// goes on behind it. What lies there of a fixed hand is given up without being judged; while a paid
// hand is open nothing happens, or its bet would be lost.
void DealLoggedHand(Seat& seat, int index);

// DEAL/DRAW in fixed-hand mode.
void FixedDealDraw(Seat& seat);

// The choice of a pile in fixed-hand mode.
void FixedPileChoice(Seat& seat, Pile pile);

// Whether Error Log mode has a hand to deal; after the last one it begins again with the first. The
// player is told when the log is empty.
bool NextLoggedHandAvailable(Seat& seat);
