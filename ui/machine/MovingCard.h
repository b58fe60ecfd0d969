// A card on its way, painted from pictures of the cards that it was and will be.
#pragma once
#include <QPixmap>
#include <QRect>

#include "ui/machine/Moment.h"

class MachineCanvas;

// All that the card covers on its way, when it slides so far.
QRect CoveredByMove(const QRect& place, int slide);

// from and to have the place's size; that of a place without a card is null. What lies under a card
// that leaves has been painted before.
void DrawMovingCard(MachineCanvas& canvas, const QRect& place, int slide, const PlaceMoment& moment,
                    const QPixmap& from, const QPixmap& to);
