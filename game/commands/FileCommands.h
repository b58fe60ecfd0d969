// New and Open of the File menu; SaveGame.h has the others. What goes wrong is told, and the game
// file in use stays the one that it was, with all that is in it and on the table.
#pragma once
#include <string>

#include "core/store/DataFiles.h"
#include "game/table/GameTable.h"

// An empty game file, in place of any that is there, for the current game and options: Warning
// mode, no credits, a bet of 5, statistics from 0.
void NewGameFile(GameTable& table);

// Goes on with the settings, the game and the statistics of another game file.
void OpenGameFile(GameTable& table);

// The same with a file that was named elsewhere; nothing when it is the one in use.
void OpenNamedGameFile(GameTable& table, const std::string& path);

// Of the window.
std::string Title(const GameTable& table, const DataFilePaths& paths);
