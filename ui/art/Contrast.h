// How far apart colours are, and palettes whose texts can be read.
#pragma once
#include <QColor>
#include <QPalette>

inline constexpr double kReadable = 4.5;       // of any text that is to be read
inline constexpr double kHighContrast = 15.0;  // of text and ground in a palette of high contrast

// From 1, the same, to 21, black and white, as the Web Content Accessibility Guidelines define it.
double Contrast(const QColor& a, const QColor& b);

// The text as it is, or moved towards black or white until it can be read on the ground.
QColor ReadableOn(const QColor& ground, const QColor& text);

// The palette with only those colours set that have to be, so that all its texts can be read, those
// of what is greyed too; of what is selected, the ground gives way.
QPalette Readable(QPalette palette);

// Made for those who need it: text on windows, boxes and buttons is far from its ground, and what
// is selected is too, which it is in no usual palette.
bool IsHighContrast(const QPalette& palette);

// The same in black and white, for a desktop that wishes it and gives no such palette: white on
// black when the palette is dark.
QPalette InHighContrast(QPalette palette);
