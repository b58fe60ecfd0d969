// A session is what is played of one game and table from its choice, or a reset, to the next. It
// begins and is saved here, with the time played. "now" is the time of the wall clock in whole
// seconds.
#pragma once
#include <cstdint>
#include <string>

#include "core/profile/ProfileFile.h"
#include "core/store/Settings.h"
#include "core/store/Statistics.h"

// What a game file keeps of a machine, where the machine has it.
struct StoredState {
    MachineSettings& settings;
    Statistics& statistics;
    PayTable& table;
};

// ReadSettings, then the clock starts. The current game must have been read before.
void LoadSettings(const ProfileOnDisk& game, MachineSettings& settings, Statistics& statistics,
                  std::int64_t now);

// Writes the settings and the statistics of the current game and runs UpdateElapsedTime, all in
// memory; the other sections and keys of the file stay as they were.
void WriteSession(const ProfileOnDisk& game, const StoredState& state, bool startSession,
                  std::int64_t now);

// WriteSession, and brings the file to the disk. False when it did not get there: the file on the
// disk is then the old one, and unless it is missing, the next save tries again.
bool SaveSettings(const ProfileOnDisk& game, const StoredState& state, bool startSession,
                  std::int64_t now);

// Either begins a session, whose counters are 0 and which builds on the hours stored so far, or
// writes those hours with the whole minutes of the running session added. A clock that was set back
// takes no time away.
void UpdateElapsedTime(const ProfileOnDisk& game, const StoredState& state, bool startSession,
                       std::int64_t now);

// Zeroes every counter, sum and win, the dollars entered, the time played and the number of logged
// errors; the entries themselves and the fixed hand stay. Of the file only the time changes, in
// memory; what is to be kept is saved afterwards, with a new session.
void ResetStatistics(const ProfileOnDisk& game, const StoredState& state, std::int64_t now);
