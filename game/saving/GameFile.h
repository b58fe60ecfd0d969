// The game file that is played in: whether a file can be one, and taking it up.
#pragma once
#include <optional>
#include <string>

#include "game/seat/Seat.h"

// Why nobody can go on in a file, as a sentence goes on behind its path: "is missing". Nothing when
// it can be read and is a game file, or blank.
std::optional<std::string> GameFileProblem(const std::string& path);

// That another copy of the program has it open, and whose. Nothing when none has, and when nobody
// can tell.
std::optional<std::string> LockProblem(const std::string& path);
std::optional<std::string> LockProblem(const LockFile& lock);

// Plays on in this file from now on, with its lock, which nobody else holds. What is at the machine
// stays until it is loaded. A file that cannot be read is never written.
void UseGameFile(Seat& seat, const std::string& path, LockFile lock);

// As UseGameFile, with a lock taken now. False, with the file untouched as if it could not be read,
// when it cannot be gone on in (GameFileProblem, LockProblem).
bool TakeUpGameFile(Seat& seat, const std::string& path);

// The machine with the game, statistics and settings of the game file, nothing in play: what was at
// the machine is gone.
void ShowGameFile(Seat& seat);

// ShowGameFile of the file as it is on the disk now.
void ReloadGameFile(Seat& seat);

// What a start and File Open read of the game file at hand: the current game, its table and
// statistics, the settings. A game that does not exist any more gives Jacks or Better. The clock of
// the session starts.
void LoadGameFile(Seat& seat);

// Error Log mode, which a game file may hold, deals fixed hands; the other modes do not when a game
// file is opened.
void EnterStoredMode(Seat& seat);

// The machine is as the game file has it: read just now, or saved.
void NoteKept(Seat& seat);

// Nothing was changed at the machine since.
bool IsAsKept(const Seat& seat);

// Whether a path leads to the game file in use, whatever it is called.
bool IsInUse(const Seat& seat, const std::string& path);

// What is wrong with another file, and that the one in use stays the one that it was.
void TellFileProblem(Seat& seat, const std::string& path, const std::string& problem);
void TellUnwritten(Seat& seat, const std::string& path);

// False for a file of the program's own that is none, and the player is told: who mistakes it for a
// game file would lose every pay table, or all analyses.
bool MayBeGameFile(Seat& seat, const std::string& path);

// The lock of a file to go on in, which may be the one in use; nothing, and the player is told,
// when it is open elsewhere.
std::optional<LockFile> TakeLock(Seat& seat, const std::string& path);

// A file that could not be written leaves all as it was: the lock that was taken for it goes back.
void StayIn(Seat& seat, const std::string& unwritten, std::optional<LockFile> lock);

// UseGameFile, and a word when no other copy would see that it is in use.
void GoOnIn(Seat& seat, const std::string& path, LockFile lock);
void TellIfNotLocked(Seat& seat);

// What is proposed for a new file: the name of the game in the folder of the file in use.
std::string ProposedPath(const Seat& seat);
