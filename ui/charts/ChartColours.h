// What the charts are drawn in: the palette's own colours for text and lines, and two that are told
// apart on a light and on a dark ground.
#pragma once
#include <QColor>

class QPalette;

struct ChartColours {
    QColor ground;
    QColor text;
    QColor line;   // axes and grid
    QColor first;  // of the two things shown
    QColor second;
};

ChartColours ColoursOf(const QPalette& palette);
