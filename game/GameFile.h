// The game file that a table is played in: whether a file can be one, and taking it up.
#pragma once
#include <optional>
#include <string>

#include "game/GameTable.h"

// Why nobody can go on in a file, as a sentence goes on behind its path: "is missing". Nothing when
// it can be read and is a game file, or blank.
std::optional<std::string> GameFileProblem(const std::string& path);

// That another copy of the program has it open, and whose. Nothing when none has, and when nobody
// can tell.
std::optional<std::string> LockProblem(const std::string& path);
std::optional<std::string> LockProblem(const LockFile& lock);

// Plays on in this file from now on, with its lock, which nobody else holds. What is at the table
// stays until it is loaded. A file that cannot be read is never written.
void UseGameFile(GameTable& table, const std::string& path, LockFile lock);

// As UseGameFile, with a lock taken now. False, with the file untouched as if it could not be read,
// when it cannot be gone on in (GameFileProblem, LockProblem).
bool TakeUpGameFile(GameTable& table, const std::string& path);

// The table with the game, statistics and settings of the game file, nothing in play: what was at
// the table is gone.
void ShowGameFile(GameTable& table);

// ShowGameFile of the file as it is on the disk now.
void ReloadGameFile(GameTable& table);
