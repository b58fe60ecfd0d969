// Saving what is played, and what the player hears of it when that fails.
#pragma once
#include "game/GameTable.h"

// Writes the settings and the statistics of the current game to the game file; every save of the
// table goes through here. False when they did not get there: the player is told, but not again
// until a later save has succeeded. A game file that is missing is not created, as nobody knows
// where it went.
bool SaveGame(GameTable& table, bool startSession);

// What every save ends with; SaveGame sees to it. Returns saved.
bool ReportSave(GameTable& table, bool saved);

// The warning that there is no game file to save to; nothing when there is one.
void WarnOfMissingGameFile(GameTable& table);
