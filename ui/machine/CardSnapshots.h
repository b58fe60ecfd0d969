// Whole cards as pixmaps while they move, so that a frame composes none anew.
#pragma once
#include <QPixmap>
#include <map>
#include <utility>

#include "core/cards/CardTable.h"

// Of one deck, one size and one look: whatever changes these has to clear them.
struct CardSnapshots {
    std::map<std::pair<CardCode, bool>, QPixmap> pictures;  // by card, and whether it tops a pile
};
