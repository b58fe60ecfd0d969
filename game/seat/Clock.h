// Time as the flows know it. The window's pauses go on painting, those of a test return at once.
#pragma once
#include <cstdint>

class Clock {
  public:
    virtual ~Clock() = default;

    virtual std::int64_t Now() = 0;  // whole seconds since 1970

    // What the player does meanwhile is seen, and may stop a count-up; else it waits until the flow
    // has ended.
    virtual void Pause(int milliseconds) = 0;
};
