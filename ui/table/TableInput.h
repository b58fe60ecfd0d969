// Turns presses and keys into what the player does at the table. Nothing is remembered from one
// event to the next: each is decided by the state of the machine when it is handled.
#pragma once
#include <QPoint>
#include <functional>

#include "game/GameTable.h"
#include "ui/table/ActionQueue.h"
#include "ui/table/Layout.h"

class TableInput {
  public:
    // command runs a command of the menus (ui/table/Commands.h), greyed or not. All outlive the
    // input.
    TableInput(GameTable& table, const TableLayout& places, std::function<void(int)> command);

    void Press(QPoint point);
    void Release(QPoint point);
    void RightPress(QPoint point);
    void DoublePress(QPoint point);

    // What a press there, or of that key, asks for while a hand is being dealt.
    PressKind KindAt(QPoint point) const;
    static PressKind KindOf(int key);
    // Keys that do nothing at any time are no press, Shift among them.
    static bool IsTableKey(int key);

    // Wherever the finger is lifted, and when another window comes between, no button stays down.
    void ReleaseButtons();

    // A key that is let go, by its Qt::Key; digits of the keypad count as digits. In Pick 'Em Left
    // and Right choose the piles, so that every hand can be played without a mouse.
    void Key(int key);

  private:
    bool HandIsDealt() const;
    int PositionAt(QPoint point) const;  // by card place or HOLD button, -1 none

    void PressDealt(QPoint point);
    void PressGameOver(QPoint point);
    bool ReleaseDealt(QPoint point);
    bool ReleaseGameOver(QPoint point);
    bool ReleaseFeature(QPoint point);
    bool RightPressGameOver(QPoint point);
    void FeatureKey(int key);
    void TableKey(int key);
    void CommandKey(int key);
    void PileKey(int key);
    void PressButton(ButtonLook& button);

    GameTable& table;
    GameEngine& engine;
    const TableLayout& places;
    std::function<void(int)> command;
};
