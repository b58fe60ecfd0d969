// The game file that a table is played in: whether a file can be one, and taking it up.
#pragma once
#include <optional>
#include <string>

#include "game/table/GameTable.h"

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

// What a start and File Open read of the game file at hand: the current game, its table and
// statistics, the settings. A game that does not exist any more gives Jacks or Better. The clock of
// the session starts.
void LoadGameFile(GameTable& table);

// Error Log mode, which a game file may hold, deals fixed hands; the other modes do not when a game
// file is opened.
void EnterStoredMode(GameTable& table);

// The table is as the game file has it: read just now, or saved.
void NoteKept(GameTable& table);

// Nothing was changed at the table since.
bool IsAsKept(const GameTable& table);

// Whether a path leads to the game file in use, whatever it is called.
bool IsInUse(const GameTable& table, const std::string& path);

// What is wrong with another file, and that the one in use stays the one that it was.
void TellFileProblem(GameTable& table, const std::string& path, const std::string& problem);
void TellUnwritten(GameTable& table, const std::string& path);

// False for a file of the program's own that is none, and the player is told: who mistakes it for a
// game file would lose every pay table, or all analyses.
bool MayBeGameFile(GameTable& table, const std::string& path);

// The lock of a file to go on in, which may be the one in use; nothing, and the player is told,
// when it is open elsewhere.
std::optional<LockFile> TakeLock(GameTable& table, const std::string& path);

// A file that could not be written leaves all as it was: the lock that was taken for it goes back.
void StayIn(GameTable& table, const std::string& unwritten, std::optional<LockFile> lock);

// UseGameFile, and a word when no other copy would see that it is in use.
void GoOnIn(GameTable& table, const std::string& path, LockFile lock);
void TellIfNotLocked(GameTable& table);

// What is proposed for a new file: the name of the game in the folder of the file in use.
std::string ProposedPath(const GameTable& table);
