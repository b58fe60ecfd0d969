// What screen readers and voice control need of the window that shows the machine.
#pragma once
#include <QPoint>
#include <QRect>
#include <QString>

struct MachineLayout;
struct Seat;

class AccessibleMachine {
  public:
    virtual ~AccessibleMachine() = default;

    virtual const Seat& SeatShown() const = 0;
    virtual const MachineLayout& Places() const = 0;

    // Where one of those places stands on the screen.
    virtual QRect OnScreen(const QRect& place) const = 0;

    // A finger comes down on a point of the layout and is lifted at once; only from the event loop,
    // since whoever asks for it waits for the answer, and a hand takes its time.
    virtual void Tap(QPoint point) = 0;

    // The machine as it is now, in words.
    virtual QString Description() const = 0;
};
