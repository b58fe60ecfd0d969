// Light around places of the machine.
#pragma once
#include <QColor>
#include <QRect>

class MachineCanvas;

inline constexpr QColor kGold{255, 205, 70};

// A soft edge of kGlowReach around a place with rounded corners; brightness from 0, none, to 2.
void DrawGlow(MachineCanvas& canvas, const QRect& place, double radius, double brightness);

// A narrow golden edge inside it; brightness from 0 to 1.
void DrawGoldenEdge(MachineCanvas& canvas, const QRect& place, double radius, double brightness);
