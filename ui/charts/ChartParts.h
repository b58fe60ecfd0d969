// What the charts have in common.
#pragma once
#include <QColor>
#include <QFont>
#include <QList>
#include <QRectF>
#include <QString>
#include <functional>
#include <optional>

class QPainter;
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

// Dark on white, whatever the desktop's colours are.
ChartColours PaperColours();

// What a chart is drawn on: the window, or paper.
struct ChartSheet {
    QRectF area;  // in logical pixels
    QFont font;
    ChartColours colours;
    std::optional<int> read;  // the point of the chart that is being read; none on paper

    double Line() const;       // the height of a line of text
    double Character() const;  // the width of one, on average
    double WidthOf(const QString& text) const;
};

// What the marks of an axis are apart: 1, 2 or 5 times a power of ten, not below the least and not
// below the smallest, one of which is above 0.
double RoundStep(double least, double smallest = 0);

// The middle of the pixel, where a line of the window's grid is sharp.
double OnPixel(double place);
QRectF OnPixels(const QRectF& place);

struct LegendItem {
    QString text;
    std::function<void(const QRectF& place)> drawSample;
};

// Draws the items beside each other from the top left of the area, and below where there is no more
// room to the right. The height that they take.
double DrawLegend(QPainter& painter, const ChartSheet& sheet, const QRectF& area,
                  const QList<LegendItem>& items);

// That height, of items with these texts.
double LegendHeight(const ChartSheet& sheet, double width, const QStringList& texts);

// A bar or a sample of one. Hatched in lines of the colour, it is told from a plain one without the
// colour too, and on paper.
void DrawBar(QPainter& painter, const QRectF& bar, const QColor& colour, bool hatched);

// Around what is being read, and around a chart that has the focus.
void DrawDottedFrame(QPainter& painter, const QRectF& frame, const QColor& colour);

// "Jacks or Better(0), 5 x $0.25, 2026-11-23": what a picture belongs to. Without a coin of more
// than 0, the bet is so many coins.
QString PictureSubject(const std::string& game, int table, int bet, double coin,
                       const QString& date);
