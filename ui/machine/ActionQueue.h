// Lets one thing happen at a time. A flow pauses in the middle, and what the player does meanwhile
// must not begin inside it: one press waits its turn, and what is pressed beyond that is refused,
// or a machine that was hurried would go on betting long after the last press.
#pragma once
#include <deque>
#include <functional>
#include <memory>

struct Seat;

// What a press asks for while a hand is being dealt: every hold waits, then one draw, and one press
// of any other kind; nothing waits behind the draw. At all other times one press waits, whatever
// it asks for.
enum class PressKind { kHold, kDraw, kOther };

// A press of the player on its way, from the finger that comes down to the one that is lifted.
struct Press {
    enum class State {
        kWaits,    // for the flow that runs
        kBegun,    // was done, or its key is still down
        kRefused,  // does nothing, nor does its release
        kUsedUp,   // has only ended a count-up, and so does nothing more either
    };
    State state;
    PressKind kind;
};
using PressInHand = std::shared_ptr<Press>;

class ActionQueue {
  public:
    // The machine outlives the queue.
    explicit ActionQueue(Seat& seat) : seat(seat) {}

    // Runs the action at once, or after all that run and wait already. It is never refused: for
    // what is no press of the player.
    void Run(std::function<void()> action);

    // A press, which is known before its action runs: that happens at once or later, or never when
    // the press is refused. An empty action keeps the place of a key that acts when it is let go.
    // During a count-up a press only ends that.
    void Begin(PressInHand& press, PressKind kind, std::function<void()> action);

    // What the press does when it is let go. False when that is not done: of a press that was
    // refused, or that finds no place in a flow which has begun since.
    bool Finish(const PressInHand& press, PressKind kind, std::function<void()> action);

    // A count-up that runs stops; false when there is none.
    bool EndCountUp();

    bool Busy() const { return busy; }
    int WaitingPresses() const;

    // Presses that wait are not begun any more; what runs goes on. True when there were any.
    bool DropPresses(Press::State as = Press::State::kRefused);
    // The same with all that waits.
    void DropWaiting();

    // Called whenever all has been done, if set.
    std::function<void()> settled;

  private:
    struct Item {
        PressInHand press;  // none of what is no press
        std::function<void()> action;
    };

    bool Admit(PressKind kind, const Press* own);

    Seat& seat;
    std::deque<Item> waiting;
    bool busy = false;
    bool refusing = false;  // a press has been refused since the flow that runs began
};
