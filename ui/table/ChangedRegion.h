// What a window has to paint anew when the table comes to show something else.
#pragma once
#include <QRegion>

struct TableLayout;
struct TableScene;

// Holds every point, in client coordinates, at which the two scenes look different, and not much
// more: of one card that is turned, that card. Both are of the pay table that is laid out.
QRegion ChangedRegion(const TableScene& before, const TableScene& now, const TableLayout& layout);
