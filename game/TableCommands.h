// The commands of the menus and keys that change the machine at the table. All may be given at any
// time, unless said otherwise; the menus grey some of them while a hand is in play. EnterCredits is
// in HandFlow.h, the commands for games and files are in GameSelection.h and FileCommands.h.
#pragma once
#include "game/GameTable.h"

// Pays all credits out. A win that is paid out, or counted in another coin, cannot be risked any
// more: the two commands end a double up and take its offer away.
void CashOutCommand(GameTable& table);
void ChooseCoin(GameTable& table, double coin);  // dollars, above 0

void ChooseSpeed(GameTable& table, Speed speed);
void ToggleSounds(GameTable& table);
void ToggleDoubleUp(GameTable& table);
void ToggleShowDollar(GameTable& table);

// Error Log leaves the table as it is until the next deal, the other modes end the hand in play. A
// feature or a double up that waits for the player goes on waiting in any mode.
void ChooseMode(GameTable& table, PlayMode mode);

// Ends fixed-hand mode, or begins it with the choice of the hand.
void ToggleFixedHand(GameTable& table);

// Nothing while a hand is in play or a feature waits.
void BetOneCommand(GameTable& table);
void BetMaxCommand(GameTable& table);

// Both say in the message meter what was done. The first clears the error log as well.
inline constexpr auto kResetMessage = "STATISTICS RESET";
void ResetStatisticsCommand(GameTable& table);
void ResetStatisticsOnly(GameTable& table);
void ClearErrorLogCommand(GameTable& table);

// True when no play error of the current game and table is counted, and the player is told so.
bool TellIfErrorLogIsEmpty(GameTable& table);

// The game-over state with its message, unless a double up of the hand that is over still waits;
// the caller repaints.
void ShowGameOver(GameTable& table);
