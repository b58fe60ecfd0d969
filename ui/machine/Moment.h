// How far the machine has come on its way from one scene to the next. A moment says only what is
// not yet as the scene has it: a Moment of its initial values paints the scene at rest.
#pragma once
#include <array>
#include <string>

#include "core/cards/Hand.h"

enum class CardMove {
    kNone,
    kTurn,   // around its vertical axis, through the edge
    kLeave,  // from the top of what the scene has in the place
    kCome,   // to the empty place
};

// What is a share goes from 0 to 1, which is there.
struct PlaceMoment {
    CardMove move = CardMove::kNone;
    CardCode from = kNoCard;  // what turns or leaves; none for a card that comes
    bool fromPileTop = false;
    double moved = 1;
    double lit = 1;   // the share of what the light around the card has to change
    double held = 1;  // the same of the light of the HOLD button

    bool operator==(const PlaceMoment&) const = default;
};

// Of a meter whose digits roll.
struct RollMoment {
    std::string from;
    double rolled = 1;

    bool operator==(const RollMoment&) const = default;
};

struct Moment {
    std::array<PlaceMoment, kHandSize> places{};
    RollMoment message;
    RollMoment credits;
    double verdict = 1;      // who won a double up
    double celebration = 1;  // of a big win
    double waiting = 1;      // how bright what waits for the player glows, 0..2; 1 is steady

    bool operator==(const Moment&) const = default;
};
