// A strategy chart as a card for the pocket, of 90 x 130 mm: what stands on it, and the text of it
// that is read back as the same chart. CardDrawing.h draws it.
#pragma once
#include <string>
#include <vector>

#include "core/cards/CardTable.h"

inline constexpr double kCardWidth = 90;  // millimetres
inline constexpr double kCardHeight = 130;

// Texts are UTF-8, on one line each.
struct ChartCard {
    struct Line {
        std::string text;
        std::vector<CardFace> example;  // the cards held of a hand
    };

    std::string title;    // "Jacks or Better, table 0"
    std::string pays;     // "ROYAL 800, ST FLUSH 50"
    std::string figures;  // "22 lines: 99.536052%, 0.007852% below the best play"
    std::string date;     // "2026-11-23"
    std::vector<Line> lines;
};

// With the game, its pays and the figures as remarks.
std::string CardAsText(const ChartCard& card);
