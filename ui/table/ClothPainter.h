// Paints the cloth that everything lies on.
#pragma once
class TableCanvas;
struct TableLayout;

// The whole client area: the cloth, lit in the middle and darker towards the edges, with an emblem
// printed on it where a wide window leaves room beside the machine.
void PaintCloth(TableCanvas& canvas, const TableLayout& layout);
