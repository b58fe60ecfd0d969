// What moves as pixmaps, so that a frame composes and writes nothing anew.
#pragma once
#include <QPixmap>
#include <map>
#include <utility>

#include "core/cards/CardTable.h"

// Of one deck, one size and one look: whatever changes these has to empty them.
struct Snapshots {
    std::map<std::pair<CardCode, bool>, QPixmap> cards;  // by card, and whether it tops a pile
    std::map<std::pair<int, int>, QPixmap> lights;       // by width and height of the place
    QPixmap coin;                                        // of a celebration, as are the next
    QPixmap lyingCoin;
    QPixmap words;
};
