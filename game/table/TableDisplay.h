// What shows the table: the window, or a test that notes what changes.
#pragma once

struct TableScene;

class TableDisplay {
  public:
    virtual ~TableDisplay() = default;

    // The scene has changed since the last time, or has not.
    virtual void Show(const TableScene& scene) = 0;

    // Another pay table has become active, and the scene with it.
    virtual void Relayout() = 0;
};
