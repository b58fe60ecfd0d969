// Paints the machine.
#pragma once
#include <QRegion>

#include "ui/machine/Moment.h"
#include "ui/machine/Snapshots.h"

class PictureStore;
class QPainter;
struct CardTable;
struct PayTable;
struct MachineLayout;
struct Scene;

// The whole machine, cloth first, as far as it lies in clip (client coordinates). The same
// arguments always give the same pixels. The layout is one for the pay table, the cards those of
// its deck. A moment other than rest is on the way to the scene; the cards that move are kept in
// snapshots, if given, from one frame to the next.
void PaintMachine(QPainter& painter, const QRegion& clip, const Scene& scene,
                  const MachineLayout& layout, const PayTable& payTable, const CardTable& cards,
                  PictureStore& pictures, const Moment& moment = {},
                  Snapshots* snapshots = nullptr);
