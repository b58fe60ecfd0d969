// Which game is played on which pay table. A change of either is a new session; what has been
// played is saved before. Credits, coin, bet and options stay.
#pragma once
#include <optional>

#include "game/seat/Seat.h"

enum class GameChoice {
    kChosen,
    kUnknown,     // no game has that id; nothing changes
    kNoPayTable,  // a game of the player's own without a pay table; nothing changes but that he is
                  // told
};

// A built-in game, or one of the player's own by the id that stands in its slot; on the table of
// that index, or else the one that it was last played on.
GameChoice ChooseGame(Seat& seat, int id, std::optional<int> tableIndex = std::nullopt);

// Takes the current pay table anew from the main profile file, where it may have been changed. The
// session and its counters go on.
void ReloadPayTable(Seat& seat);
