// The picture of a win that is an event: rays, and coins that fall on a heap, behind the name of
// the line.
#pragma once
#include <string>

#include "ui/machine/MachineCanvas.h"
#include "ui/machine/Snapshots.h"

// done is the share of its time that has passed, from 0 to 1; then the coins lie and the rays stand
// still. The same arguments always give the same pixels; what is drawn once is kept in snapshots.
void PaintCelebration(MachineCanvas& canvas, const QRect& place, const std::string& line,
                      int payout, double done, Snapshots& snapshots);
