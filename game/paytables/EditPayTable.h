// The commands that open the pay table manager, and what the machine makes of it afterwards. They
// may be given while no hand is in play.
#pragma once
#include "game/paytables/PayTableEditor.h"

// For a game that the player selects.
void EditPayTable(Seat& seat, const DataFilePaths& paths);

// For the game and table that are played.
void EditCurrentPayTable(Seat& seat, const DataFilePaths& paths);

// For any table.
void EditPayTableAt(Seat& seat, const DataFilePaths& paths, const TableOfGame& table);

// A game of the player's own, by its id kFirstUserGameId..; one that has no pay table yet is made
// first. Cancelled, the current game goes on.
void ChooseUserGame(Seat& seat, int id, const DataFilePaths& paths);
