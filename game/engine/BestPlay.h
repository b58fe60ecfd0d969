// The player's plays compared with the best ones.
#pragma once
#include <functional>
#include <string>

#include "game/engine/GameEngine.h"

// Shows what a play error costs; true when the player goes on with it all the same.
using GoesOnAfterError = std::function<bool(const std::string& message)>;

// Whether a hold of the dealt hand returns as much as the best one, so that playing it is no error.
bool IsBestPlay(const GameEngine& engine, HoldMask hold);

// Judges the held cards when the draw is asked for. True when play goes on: the hold returns as
// much as the best one, or the player goes on with it.
//
// With log, and outside Error Log mode, the best return is added to the sums, and an error is
// counted and logged; the game file is then written at once. In Pick 'Em the piles are held as 28
// and 25.
bool CheckBestPlay(GameEngine& engine, const GameFiles& files, const GoesOnAfterError& goesOn,
                   bool log);

// Judges the answer to "Draw again?" after the first draw of a double-draw hand. True when the
// second draw is to be made.
bool CheckDrawAgain(const GameEngine& engine, const GoesOnAfterError& goesOn, bool drawsAgain);
