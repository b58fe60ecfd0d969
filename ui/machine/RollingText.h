// A number in a meter whose digits roll to the next one.
#pragma once
#include <string>

#include "ui/machine/MachineCanvas.h"
#include "ui/machine/Moment.h"

// As MachineCanvas::Write does it once the roll is done. Until then the digits from the first that
// differs on roll upwards, inside the place.
void WriteRolling(MachineCanvas& canvas, const TextPlace& place, const std::string& text,
                  const RollMoment& roll, const QColor& colour, Qt::Alignment alignment);
