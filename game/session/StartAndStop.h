// The machine's part in the start and the end of the program.
#pragma once
#include "core/store/DataFiles.h"
#include "game/seat/Seat.h"

// The table as it was left: the game file last played with, its game, statistics and settings. The
// data files must be in place.
void StartGame(Seat& seat, const DataFilePaths& paths);

// What waits until the window is shown: Error Log mode, the game file that the start names (full
// path; empty = none), and what there is to say when the one to go on in cannot be used. When
// another copy of the program has it open, another one is asked for.
void FinishStart(Seat& seat, const std::string& gameFile = "");

// Gives an open hand up, with its bet, saves everything and remembers the game file. False when it
// could not be saved; the profile file still holds it then, and tries again as long as it lives.
bool StopGame(Seat& seat, const DataFilePaths& paths);
