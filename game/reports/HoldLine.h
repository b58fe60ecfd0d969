// A hold of an analysed hand and a pay line that its draws can end in: what the text and the table
// of the hand analysis say of the two.
#pragma once
#include <cstddef>
#include <cstdint>

#include "core/cards/Hand.h"

struct DrawAgainResult;
struct GameEngine;
struct HoldResult;

const HoldResult& ResultOf(const GameEngine& engine, HoldMask hold);

struct HoldLine {
    const GameEngine& engine;
    HoldMask hold;
    std::size_t line;

    std::int64_t Draws() const;

    // A double-draw game counts the second draw with the line, and the line is drawn again.
    bool CountsSecondDraw() const;
    bool IsDrawnAgain() const;

    double Probability() const;
    double Odds() const;     // so many draws for one; 0 for what never happens
    double Dollars() const;  // what the line adds to the return
    double Share() const;    // of the return, in percent; 0 of a return of 0

  private:
    const DrawAgainResult& Again() const;
};
