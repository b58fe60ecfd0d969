// What the error log viewer shows of the current game and table: one logged play error after the
// other, and a summary of all of them. Values follow their labels after a tab, lines end in "\r\n".
// A quotient by zero reads as 0.
#pragma once
#include <string>

#include "core/store/ErrorLog.h"

struct GameEngine;
struct GameFiles;

// Whether the log has an entry of that index, 0 the oldest, 0..kErrorLogSize-1. Reads the game
// file, as does LoggedError.
bool HasLoggedError(const GameEngine& engine, const GameFiles& files, int index);

// What ParseEntry makes of the entry, or of an empty text where there is none.
ErrorLogEntry LoggedError(const GameEngine& engine, const GameFiles& files, int index);

// "Error 1" for index 0.
std::string ErrorTitle(int index);

// The best play and the play made, their returns, and the cost, without thousands separators. No
// line end follows the last line.
std::string ErrorText(const GameEngine& engine, const ErrorLogEntry& entry);

// Errors, returns and cost of all hands ever played on the table.
std::string ErrorSummary(const GameEngine& engine);
