// Paints the pay table: what each line is called and pays for each bet, and which of them is won.
#pragma once
#include "core/paytable/PayTable.h"
#include "game/seat/Scene.h"
#include "ui/machine/Layout.h"
#include "ui/machine/MachineCanvas.h"

void PaintPayTable(MachineCanvas& canvas, const Scene& scene, const MachineLayout& layout,
                   const PayTable& payTable);
