// The commands that change the machine itself: money in and out, coin, bet, play mode.
#pragma once
#include <string>

#include "game/GameEngine.h"

inline constexpr int kMostDollars = 999999;  // that may be entered at once

// Dollars 1..kMostDollars become credits at the coin in use; other amounts change nothing. Credits
// and counters stop at the largest 32-bit number.
void EnterDollars(GameEngine& engine, int dollars);

// Pays all credits out and says so: "Paid $9.25".
std::string CashOut(GameEngine& engine);

// Counts the credits in another coin (dollars, above 0); what does not convert whole is lost.
void ChangeCoin(GameEngine& engine, double coin);

// One coin more, after the table's most one coin; or the table's most.
void BetOne(GameEngine& engine);
void BetMax(GameEngine& engine);

// Casino, Warning and AutoHold end a fixed hand and the hand in play. Error Log begins with the
// first logged hand, and leaves the table as it is until the next deal.
void ChoosePlayMode(GameEngine& engine, PlayMode mode);

// The hand is over and none is held. The line of a dealt hand that was never drawn to becomes the
// final one, so that the next deal takes its mark away.
void EnterGameOver(GameEngine& engine);
