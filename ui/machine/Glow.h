// Light around places of the machine.
#pragma once
#include <QColor>
#include <QRect>

#include "ui/machine/Snapshots.h"

class MachineCanvas;

inline constexpr QColor kGold{255, 205, 70};

// A golden edge inside a place with rounded corners, and a soft light of kGlowReach around it;
// strength is from 0, none, to 1. The light is drawn once for each size and kept in snapshots.
void DrawLight(MachineCanvas& canvas, const QRect& place, double radius, double strength,
               Snapshots& snapshots);
