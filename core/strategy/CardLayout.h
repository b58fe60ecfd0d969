// Where everything stands on a card: what its drawings have in common. Lengths are millimetres from
// the top left.
#pragma once
#include <string>
#include <vector>

#include "core/strategy/ChartCard.h"

struct CardPage {
    struct Text {
        double left = 0;
        double base = 0;  // of the letters
        double size = 0;
        bool bold = false;
        std::string text;
    };
    struct SuitMark {  // in a square
        double left = 0;
        double top = 0;
        double size = 0;
        int suit = 0;  // of Suit
    };
    struct Rule {
        double left = 0;
        double top = 0;
        double right = 0;
        double bottom = 0;
    };

    std::vector<Text> texts;
    std::vector<SuitMark> suits;
    std::vector<Rule> rules;
};

CardPage LayOutCard(const ChartCard& card);
