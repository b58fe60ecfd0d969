// What the flows show while they run, step by step. The window draws each step, a test writes it
// down; a flow never asks what is shown.
#pragma once
#include <string>
#include <string_view>

#include "core/cards/CardTable.h"

enum class LineMark {
    kPlain,
    kWon,
    kWonCellDark,  // as kWon, but the cell of the payout is black: the other half of a flash
};

// The piles of Pick 'Em lie in the places of positions 3 and 4.
inline constexpr int kLeftPilePosition = 3;
inline constexpr int kRightPilePosition = 4;

enum class PileStage { kOneBack, kStack };  // before a card lies on top

enum class SpinButton { kHidden, kReady, kLit };

enum class TargetFace { kGone, kHidden, kShot, kMissed };  // the last two show the value

enum class CardColour { kNone = 0, kRed = 1, kBlack = 2 };

// Positions are 0..4 from the left, pay lines count from 0.
class TableDisplay {
  public:
    virtual ~TableDisplay() = default;

    virtual void ShowMessage(const std::string& text) = 0;
    virtual void ShowCredits(const std::string& text) = 0;
    virtual void ShowBet(const std::string& text) = 0;
    virtual void ShowCoin(double coin) = 0;

    // The line with the payout, in credits, in the column of the current bet.
    virtual void ShowLine(int line, LineMark mark, int payout) = 0;
    virtual void ShowCharlie(bool shown) = 0;

    virtual void ShowCard(int position, CardCode card) = 0;  // kNoCard clears the place
    virtual void ShowHeld(int position, bool held) = 0;
    virtual void ShowHoldButton(int position, bool pressed) = 0;
    virtual void ShowFirstDraw(CardCode card) = 0;  // with its label; kNoCard takes both away
    virtual void ShowPile(int position, PileStage stage) = 0;
    // The label is "PLAY", "EITHER" or empty.
    virtual void ShowPileTop(int position, CardCode card, std::string_view label) = 0;

    virtual void ShowDoubleUpButton(bool shown) = 0;
    // Everything but the double up goes off the table.
    virtual void ShowDoubleUp(int stake, int doubleUpTo) = 0;
    virtual void ShowDoubleUpAmounts(int stake, int doubleUpTo) = 0;

    virtual void ShowFeatureLabel(std::string_view text) = 0;  // across card 4; empty = none
    virtual void ShowSpin(SpinButton button) = 0;
    virtual void ShowSpinValue(const std::string& value) = 0;
    virtual void HideSpin() = 0;  // button, value window and label
    virtual void ShowTarget(int target, TargetFace face, int value) = 0;  // 0..4
    virtual void ShowRedBlack(bool shown) = 0;
    virtual void LightPanel(CardColour colour) = 0;
    virtual void ShowChoice(CardColour colour) = 0;  // kNone shows "?" again

    // Everything anew from the state of the engine.
    virtual void Repaint() = 0;
    // As Repaint, after another pay table has become active.
    virtual void Relayout() = 0;
};
