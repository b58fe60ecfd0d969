// Saving what is played: when it is done, and what the player hears of it when it fails. The state
// at the machine is only ever written over the file that it was read from: when somebody else has
// put another one there, the player is asked which of the two is to stay.
#pragma once
#include <optional>
#include <string>

#include "game/seat/Seat.h"

// Writes the settings and the statistics of the current game to the game file; every save of the
// table goes through here. False when they did not get there: the player is told, but not again
// until a later save has succeeded. A game file that is missing is not created, as nobody knows
// where it went. The bet of an open hand is saved as if it had not been made, so that the player
// has it back after a crash.
bool SaveGame(Seat& seat);

// The same, and what is played from here on is another session.
bool SaveNewSession(Seat& seat);

// As SaveGame, for the end of the program: an open hand is given up with its bet.
bool SaveGameToStop(Seat& seat);

// As SaveGame, as far as it goes without a word to the player.
void SaveGameQuietly(Seat& seat);

// Whether the game file may be written: it is the one that was read, or written last, here. If not,
// what is to be done about it is done first: a table that nothing has happened at goes on in the
// file as it is now; else the player chooses between it and a new file for what is at the machine.
bool OwnsGameFile(Seat& seat);

// No hand is open and nothing waits for the player, so that a save has all that was played.
bool IsBetweenHands(const GameEngine& engine);

// Whether what was played is to be saved now: when the machine has rested, after some seconds of
// steady play, or because of a change that must not wait; always between hands.
bool SaveIsDue(const Seat& seat, bool rested);

// Tries to bring to the disk what waits in memory, and saves when that is due.
void KeepPlay(Seat& seat, bool rested);

// Why the game file is not saved in, as a sentence goes on behind its path; nothing when it is.
std::optional<std::string> WhyNotSaved(Seat& seat);

// Tells it, unless it has been told since the last save that succeeded.
void TellWhyNotSaved(Seat& seat);

// What the player has to choose about the game file is asked once more, before it is too late.
void AskAgain(Seat& seat);

// What every save ends with; SaveGame sees to it. Returns saved.
bool ReportSave(Seat& seat, bool saved);

// Goes on in a copy of the game file; when the file in use is missing, in a new one. The chosen
// file being the one in use, this is a save.
void SaveGameFileAs(Seat& seat);

// A failure is told even when an earlier one was.
void SaveGameFile(Seat& seat);
