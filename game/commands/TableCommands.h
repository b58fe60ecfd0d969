// The commands of the menus and keys that change the machine at the table. All may be given at any
// time, unless said otherwise; the menus grey some of them while a hand is in play. EnterCredits is
// in DealSteps.h, the commands for games and files are in GameSelection.h and FileCommands.h.
#pragma once
#include "game/table/GameTable.h"

// Pays all credits out and says so: "Paid $9.25". A win that is paid out, or counted in another
// coin, cannot be risked any more: the two commands end a double up and take its offer away.
void CashOut(GameTable& table);

// Counts the credits in another coin (dollars, above 0); what does not convert whole is lost.
void ChooseCoin(GameTable& table, double coin);

void ChooseSpeed(GameTable& table, Speed speed);
void ToggleSounds(GameTable& table);
void ToggleDoubleUp(GameTable& table);
void ToggleShowDollar(GameTable& table);

// Error Log begins with the first logged hand and leaves the table as it is until the next deal,
// the other modes end a fixed hand and the hand in play. A feature or a double up that waits for
// the player goes on waiting in any mode.
void ChooseMode(GameTable& table, PlayMode mode);

// Ends fixed-hand mode, or begins it with the choice of the hand.
void ToggleFixedHand(GameTable& table);

// One coin more, after the table's most one coin; or the table's most. Nothing while a hand is in
// play or a feature waits.
void BetOne(GameTable& table);
void BetMax(GameTable& table);

// Both say in the message meter what was done. The first clears the error log as well.
inline constexpr auto kResetMessage = "STATISTICS RESET";
void ResetAllStatistics(GameTable& table);
void ResetStatisticsOnly(GameTable& table);
void ForgetErrors(GameTable& table);

// True when no play error of the current game and table is counted, and the player is told so.
bool TellIfErrorLogIsEmpty(GameTable& table);
