// Turns presses and keys into what the player does at the machine. Nothing is remembered from one
// event to the next: each is decided by the state of the machine when it is handled.
#pragma once
#include <QPoint>
#include <functional>
#include <span>

#include "game/seat/Seat.h"
#include "ui/machine/ActionQueue.h"
#include "ui/machine/Layout.h"

// The commands (ui/machine/Commands.h) that keys and presses at the machine may stand for.
struct KeyCommands {
    std::function<int(int key)> ofKey;  // kNoCommand for a Qt::Key that stands for none
    std::function<void(int command)> run;
};

class MachineInput {
  public:
    // All outlive the input.
    MachineInput(Seat& seat, const MachineLayout& places, KeyCommands commands);

    void Press(QPoint point);
    void Release(QPoint point);
    void RightPress(QPoint point);
    void DoublePress(QPoint point);

    // What a press there, or of that key, asks for while a hand is being dealt.
    PressKind KindAt(QPoint point) const;
    static PressKind KindOf(int key);
    // Keys that do nothing at any time are no press, Shift among them.
    bool IsMachineKey(int key) const;

    // A key that goes down shows its button down as a press there would, and does nothing more.
    void PressKey(int key);

    // The finger that went down at one point is at another: a button is down only under it.
    void Drag(QPoint from, QPoint to);

    // Wherever the finger is lifted, and when another window comes between, no button stays down.
    void ReleaseButtons();

    // A key that is let go, by its Qt::Key; digits of the keypad count as digits. In Pick 'Em Left
    // and Right choose the piles, so that every hand can be played without a mouse.
    void Key(int key);

  private:
    // A key of the machine's own, and what it does at rest or in a hand, and while a feature waits
    // for the player; nullptr for nothing of its own. The digits, which name a place or a target,
    // are apart.
    struct OwnKey {
        int key;
        PressKind kind;
        void (*act)(MachineInput& input);
        void (*inFeature)(MachineInput& input);
    };
    static std::span<const OwnKey> OwnKeys();
    static const OwnKey* FindOwnKey(int key);  // nullptr when it is none

    bool HandIsDealt() const { return !engine.handOver; }
    int PlaceAt(QPoint point) const;   // 0..4 by card place or HOLD button, -1 none
    int TargetAt(QPoint point) const;  // 0..4, -1 none

    // What fingers and keys do alike. All do nothing where the machine asks for something else.
    void PressPlace(int place);
    void ReleasePlace(int place);
    void ReleaseTarget(int target);
    void ReleasePanel(CardColour colour);
    void ReleaseSpin();
    void ReleaseBet();

    ButtonLook* ButtonAt(QPoint point);  // that a press there shows down; nullptr for none
    QRect PlaceOfKey(int key) const;
    bool ReleaseGameOver(QPoint point);
    bool ReleaseFeature(QPoint point);
    bool RightPressGameOver(QPoint point);
    void DigitKey(int number);
    void DealKey();
    void PressButton(ButtonLook& button);

    Seat& seat;
    GameEngine& engine;
    const MachineLayout& places;
    KeyCommands commands;
};
