// What answers the pointer: the button under it, and words for what can be done there.
#pragma once
#include <QPoint>
#include <QRect>
#include <QString>

struct MachineLayout;
struct Seat;

// The place of the button that would do something if it were pressed there; null for none.
QRect ButtonUnder(QPoint point, const Seat& seat, const MachineLayout& layout);

// With the key that does the same; empty where there is nothing to press.
QString TipAt(QPoint point, const Seat& seat, const MachineLayout& layout);
