// What the charts have in common.
#pragma once
#include <QColor>

class QPalette;

// What a chart is drawn in: the palette's own colours for text and lines, and two that are told
// apart on a light and on a dark ground.
struct ChartColours {
    QColor ground;
    QColor text;
    QColor line;   // axes and grid
    QColor first;  // of the two things shown
    QColor second;
};

ChartColours ColoursOf(const QPalette& palette);

// What the marks of an axis are apart: 1, 2 or 5 times a power of ten, not below the least and not
// below the smallest, one of which is above 0.
double RoundStep(double least, double smallest = 0);
