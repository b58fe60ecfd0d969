// The commands of the menus and keys that change the machine at the machine. All may be given at
// any time, unless said otherwise; the menus grey some of them while a hand is in play.
// EnterCredits is in DealSteps.h, the commands for games and files are in GameSelection.h and
// FileCommands.h.
#pragma once
#include "game/seat/Seat.h"

// Pays all credits out and says so: "Paid $9.25". A win that is paid out, or counted in another
// coin, cannot be risked any more: the two commands end a double up and take its offer away.
void CashOut(Seat& seat);

// Counts the credits in another coin (dollars, above 0); what does not convert whole is lost.
void ChooseCoin(Seat& seat, double coin);

void ChooseSpeed(Seat& seat, Speed speed);
void ToggleSounds(Seat& seat);
void ToggleDoubleUp(Seat& seat);
void ToggleShowDollar(Seat& seat);

// Error Log begins with the first logged hand and leaves the table as it is until the next deal,
// the other modes end a fixed hand and the hand in play. A feature or a double up that waits for
// the player goes on waiting in any mode.
void ChooseMode(Seat& seat, PlayMode mode);

// Ends fixed-hand mode, or begins it with the choice of the hand.
void ToggleFixedHand(Seat& seat);

// One coin more, after the table's most one coin; or the table's most. Nothing while a hand is in
// play or a feature waits.
void BetOne(Seat& seat);
void BetMax(Seat& seat);

// Both say in the message meter what was done. The first clears the error log as well.
inline constexpr auto kResetMessage = "STATISTICS RESET";
void ResetAllStatistics(Seat& seat);
void ResetStatisticsOnly(Seat& seat);
void ForgetErrors(Seat& seat);

// Takes one entry, 0 the oldest, out of the error log; those behind it move down. The counts of the
// errors and what they cost stay.
void ForgetError(Seat& seat, int index);

// True when no play error of the current game and table is counted, and the player is told so.
bool TellIfErrorLogIsEmpty(Seat& seat);
