// The words about a play error: how a hold is written, and what the player is told and asked.
#pragma once
#include <string>
#include <string_view>

#include "core/cards/Hand.h"

struct ErrorLogEntry;
struct GameEngine;

inline constexpr std::string_view kDrawAgainCaption = "Draw Again?";
inline constexpr std::string_view kDrawAgainQuestion = "Do you wish to draw again?";
inline constexpr std::string_view kBetterToHold =
    "The best play is to hold. Do you still wish to draw again?";
inline constexpr std::string_view kBetterToDrawAgain =
    "The best play is to draw again. Do you still wish to hold?";

// A hold of a hand of the engine's deck as five characters, "_" for a discard: "_A__K". Pick 'Em
// shows the two cards of the hand, and the top card of the chosen pile: the left one in the fourth
// place for the mask 28, otherwise the right one, which is the first draw card, in the fifth. A
// place that should show a card but has none is "?".
std::string HoldText(const GameEngine& engine, const HandCards& hand, CardCode firstDraw,
                     HoldMask mask);

// What the Best Play Error dialog says; wants an engine whose coin is not 0.
std::string BestPlayErrorText(const GameEngine& engine, const ErrorLogEntry& entry);
