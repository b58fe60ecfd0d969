// New and Open of the File menu; SaveGame.h has the others. What goes wrong is told, and the game
// file in use stays the one that it was, with all that is in it and on the table.
#pragma once
#include <string>

#include "core/store/DataFiles.h"
#include "game/seat/Seat.h"

// An empty game file, in place of any that is there, for the current game and options: Warning
// mode, no credits, a bet of 5, statistics from 0.
void NewGameFile(Seat& seat);

// Goes on with the settings, the game and the statistics of another game file.
void OpenGameFile(Seat& seat);

// The same with a file that was named elsewhere; nothing when it is the one in use.
void OpenNamedGameFile(Seat& seat, const std::string& path);

// Of the window.
std::string Title(const Seat& seat, const DataFilePaths& paths);
