// The machine as a list of real things: cards, buttons, pay lines, meters. Each has a name, a place
// and a state, for those who are told of them one by one rather than see them all.
#pragma once
#include <QRect>
#include <QString>
#include <span>

struct MachineLayout;
struct Seat;

enum class PartKind {
    kMessage,
    kPayLine,  // index 0..14 from the top; the table may have fewer
    kStake,    // the credits won that a double up risks
    kDoubleUpTo,
    kCard,  // index 0..4 from the left, as with the next
    kHoldButton,
    kFirstDraw,
    kCharlie,
    kRedOrBlack,  // the question
    kRedPanel,
    kBlackPanel,
    kDrawnColour,
    kSpinButton,
    kSpinValue,
    kTarget,  // index 0..4 from the left
    kDealButton,
    kBetOneButton,
    kMaxBetButton,
    kDoubleUpButton,
    kCoin,
    kBet,
    kCredits,
};

struct MachinePart {
    PartKind kind;
    int index = 0;
};

// All that any game has, in the order in which they are told; always the same ones. Those that a
// game does not have, or that are not on the machine now, are not shown.
std::span<const MachinePart> MachineParts();

struct PartLook {
    QString name;           // with all that is to be read off it: "card 1, four of spades, held"
    QString news;           // what is said when it changes or comes up; empty for nothing
    bool shown = false;     // the rest counts only of what is shown
    bool enabled = false;   // pressed now, it would do something
    bool checked = false;   // of a HOLD button: its card is held
    bool pressed = false;   // is down
    bool selected = false;  // of a pay line: has won

    bool operator==(const PartLook&) const = default;
};

PartLook LookOf(const MachinePart& part, const Seat& seat);

// Whether it is there to be pressed, if perhaps not now.
bool IsButton(PartKind kind);

// The key that does the same at the machine, as it is written on the keyboard; empty for none.
QString KeyOf(const MachinePart& part, const Seat& seat);

// In the layout's units; null where the layout has no such place.
QRect PlaceOf(const MachinePart& part, const MachineLayout& layout);
