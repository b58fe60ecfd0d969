// What moves as pixmaps, so that a frame composes and writes nothing anew.
#pragma once
#include <QPixmap>
#include <map>
#include <string>
#include <utility>

#include "core/cards/CardTable.h"

// Of one deck, one layout and one look: whatever changes these has to empty them.
struct Snapshots {
    double pixelRatio = 0;                               // of the screen that they are sharp on
    std::map<std::pair<CardCode, bool>, QPixmap> cards;  // by card, and whether it tops a pile
    std::map<std::pair<int, int>, QPixmap> lights;       // by width and height of the place
    QPixmap coin;                                        // of a celebration, as are the next
    QPixmap lyingCoin;
    QPixmap words;
    std::string spelled;  // by them
};
