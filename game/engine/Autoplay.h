// Plays hands by themselves with the best holds, through the same operations as a hand at the
// table. No feature, no double up, no second draw.
#pragma once
#include <cstdint>
#include <functional>

#include "game/engine/GameEngine.h"

// Called after every hand with the number played; false ends the run.
using AutoplayProgress = std::function<bool(std::int64_t handsPlayed)>;

// Plays so many hands in AutoHold mode, entering 100 dollars whenever the credits do not cover the
// bet. Before each hand the ten cards that it can use are drawn anew from the whole deck, so that
// all deals are equally likely whatever came before. Returns the number of hands played.
std::int64_t PlayHands(GameEngine& engine, const GameFiles& files, std::int64_t hands,
                       const AutoplayProgress& progress);
