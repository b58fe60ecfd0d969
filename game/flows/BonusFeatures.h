// The features that a table may add to a hand: Red or Black after five cards of one colour, Spin
// and Target by chance. Each waits for the player, and pays credits beside the hand's own win.
#pragma once
#include "game/seat/Seat.h"

// What a draw of 1..200 multiplies the bet with.
int SpinMultiplier(int draw);
int TargetMultiplier(int draw);

// After a final hand, where the table has the feature: one hand in 150 starts Spin, one in 150
// Target; five cards of one colour start Red or Black.
void MaybeStartSpinOrTarget(Seat& seat);
void MaybeStartRedBlack(Seat& seat);

// The player's actions; nothing while the feature does not wait for them.
void Spin(Seat& seat);
void Shoot(Seat& seat, int target);  // 0..4
void GuessColour(Seat& seat, CardColour colour);

// Ends whatever waits before its game is changed or left, without a pause, and pays it as if it had
// been played: a double up what it has won so far, Red or Black the guesses that were right, one if
// none was made, Target the lowest targets that are left, Spin one draw. Both count as tried.
void SettleFeatures(Seat& seat);
