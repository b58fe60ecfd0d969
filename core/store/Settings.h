// The settings of the machine and the "main" section of a game file that keeps them, with the table
// that each game was last played on.
#pragma once
#include <cstdint>
#include <string>

#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"

enum class PlayMode : int { kCasino = 1, kWarning = 2, kAutoHold = 3, kErrorLog = 4 };
enum class Speed : int { kSlow = 1, kNormal = 2, kFast = 3 };  // any other number is slow too

struct MachineSettings {
    PlayMode mode = PlayMode::kCasino;
    double coin = 1.0;         // dollars for a credit: 0.05, 0.25, 0.5 or 1
    std::int32_t credits = 0;  // never negative
    std::int32_t bet = 5;      // coins, at least 1; may be more than the table's maxBet
    int gameId = 300;
    std::string gameName = "Jacks or Better";  // at most 80 bytes
    int activeTable = 0;
    std::int32_t creditsEntered = 0;  // dollars since the statistics were reset
    std::int32_t dollarIn = 100;      // dollars last entered
    bool doubleUp = true;
    bool showDollar = true;  // the meters show dollars, not credits
    bool sounds = true;
    Speed speed = Speed::kNormal;

    bool operator==(const MachineSettings&) const = default;
};

TableOfGame CurrentTable(const MachineSettings& settings);
void SetCurrentTable(MachineSettings& settings, const TableOfGame& table);

// The pauses of the animation, in milliseconds.
struct Delays {
    int deal = 0;  // after the backs are shown, before cards are turned
    int card = 0;  // after each card that is turned
};

Delays DelaysOf(Speed speed);

// The index of the table on which the game was last played; 0 for a game never played, and when the
// main profile file has no table of the stored index.
int ActiveTable(const ProfileOnDisk& game, const std::string& mainPath,
                const std::string& gameName);

void WriteActiveTable(const ProfileOnDisk& game, const std::string& gameName, int table);

// Reads the current game: its id, its name and its active table. The name decides: an id that is
// not its own is replaced by its own, and a name that is no game's gives Jacks or Better.
void LoadCurrentGame(const ProfileOnDisk& game, const std::string& mainPath,
                     MachineSettings& settings);

// Reads all but the current game; missing keys give the defaults above. Mended are negative credits
// (0), a bet below 1 (1), a coin that is not in use (1.00), an unknown mode (Casino) and an unknown
// speed (slow). The rest is taken as stored.
void ReadSettings(const ProfileOnDisk& game, MachineSettings& settings);

// Writes all keys, the current game and its active table with them.
void WriteSettings(const ProfileOnDisk& game, const MachineSettings& settings);
