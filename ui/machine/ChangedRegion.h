// What a window has to paint anew when the machine comes to show something else.
#pragma once
#include <QRegion>

struct MachineLayout;
struct Moment;
struct PayTable;
struct Scene;

// Holds every point, in units of the table, at which the two scenes look different, and not much
// more: of one card that is turned, that card. Both are of the pay table that is laid out.
QRegion ChangedRegion(const Scene& before, const Scene& now, const PayTable& payTable,
                      const MachineLayout& layout);

// The same of two moments on the way to one scene.
QRegion ChangedRegion(const Moment& before, const Moment& now, const Scene& scene,
                      const MachineLayout& layout);
