// What shows the table: the window, or a test that notes what changes.
#pragma once

struct Scene;

class SeatDisplay {
  public:
    virtual ~SeatDisplay() = default;

    // The scene has changed since the last time, or has not.
    virtual void Show(const Scene& scene) = 0;

    // Another pay table has become active, and the scene with it.
    virtual void Relayout() = 0;
};
