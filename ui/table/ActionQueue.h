// Lets one thing happen at a time. A flow pauses in the middle, and what the player does meanwhile
// must not begin inside it: it waits its turn, as before a machine that is busy.
#pragma once
#include <deque>
#include <functional>

class ActionQueue {
  public:
    // Runs the action at once, or after all that run and wait already.
    void Run(std::function<void()> action);

    bool Busy() const { return busy; }

    // What waits is not begun any more; what runs goes on.
    void DropWaiting() { waiting.clear(); }

    // Called whenever all has been done, if set.
    std::function<void()> settled;

  private:
    std::deque<std::function<void()>> waiting;
    bool busy = false;
};
