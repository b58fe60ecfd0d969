// Paints the pay table: what each line is called and pays for each bet, and which of them is won.
#pragma once
#include "core/paytable/PayTable.h"
#include "game/table/TableScene.h"
#include "ui/table/Layout.h"
#include "ui/table/TableCanvas.h"

void PaintPayTable(TableCanvas& canvas, const TableScene& scene, const TableLayout& layout,
                   const PayTable& payTable);
