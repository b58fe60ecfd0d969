// Where a player sits: a machine, the ports through which its flows meet the world, and
// what the flows remember from one action of the player to the next. The objects referred to
// outlive it.
#pragma once
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/cards/Random.h"
#include "core/store/LockFile.h"
#include "game/engine/GameEngine.h"
#include "game/seat/Clock.h"
#include "game/seat/Player.h"
#include "game/seat/Scene.h"
#include "game/seat/SeatDisplay.h"
#include "game/seat/Sounds.h"

inline constexpr int kShots = 3;  // at the targets

// Values and stakes are in credits. A game has a stake of its own beside that of the engine, since
// another feature or a double up may be played before it has ended.
struct TargetGame {
    std::array<int, kTargets> values{};
    std::array<bool, kTargets> shot{};
    int shots = 0;
    int stake = 0;
};

struct RedBlackGame {
    int guesses = 0;
    int stake = 0;
    CardColour drawn = CardColour::kNone;
};

struct HandOnTable {
    HandCards hand = kNoCards;
    HandCards drawCards = kNoCards;
    std::array<bool, kHandSize> held{};
};

// What the game file keeps of a table, but for the time played.
struct KeptState {
    MachineSettings settings;
    Statistics statistics;
    std::vector<std::int32_t> wins;  // of the pay lines

    bool operator==(const KeptState&) const = default;
};

struct Seat {
    GameEngine& engine;
    GameFiles& files;
    LineTableCache& tables;
    SeatDisplay& display;
    Player& player;
    Sounds& sounds;
    Clock& clock;

    Scene scene{};            // what is shown
    CombinedRandom random{};  // of the features, apart from the deck's
    bool showsHints = false;  // the player is new to the machine
    bool logsErrors = true;   // a play error of this hand is counted and logged
    bool drawAgainAllowed = true;
    bool bonusShown = false;  // the message meter shows a bonus, not the win
    // From the bet, or the backs of a fixed hand, until the holds are waited for.
    bool dealing = false;
    // Whether the player has pressed something that waits and that a win which is counted up now
    // uses up, since it was pressed before the win was seen; if set.
    std::function<bool()> usesUpPresses{};
    std::string saveTold{};              // why saving fails, as last told since a save succeeded
    bool saveDue = false;                // as soon as no hand is open
    KeptState kept{};                    // as the game file was last read or saved
    std::int64_t keptAt = 0;             // the clock's time then
    std::optional<LockFile> gameLock{};  // keeps other copies out of the game file
    HandOnTable beforeDoubleUp{};
    TargetGame target{};
    RedBlackGame redBlack{};
};
