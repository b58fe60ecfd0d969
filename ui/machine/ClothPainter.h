// Paints the cloth that everything lies on.
#pragma once
class MachineCanvas;
struct MachineLayout;

// The whole client area: the cloth, lit in the middle and darker towards the edges, with an emblem
// printed on it where a wide window leaves room beside the machine.
void PaintCloth(MachineCanvas& canvas, const MachineLayout& layout);
