// Paints the machine.
#pragma once
#include <QRegion>

#include "ui/art/CardStyle.h"
#include "ui/machine/Moment.h"
#include "ui/machine/Snapshots.h"

class PictureStore;
class QPainter;
struct CardTable;
struct MachineFit;
struct MachineLayout;
struct PayTable;
struct Scene;

// The whole machine, cloth first, as far as it lies in clip (client coordinates). The same
// arguments always give the same pixels. The layout is one for the pay table and the fit's table,
// the cards those of its deck. A moment other than rest is on the way to the scene; the cards that
// move are kept in snapshots, if given, from one frame to the next.
void PaintMachine(QPainter& painter, const QRegion& clip, const Scene& scene, const MachineFit& fit,
                  const MachineLayout& layout, const PayTable& payTable, const CardTable& cards,
                  PictureStore& pictures, const CardStyle& cardStyle = {},
                  const Moment& moment = {}, Snapshots* snapshots = nullptr);
