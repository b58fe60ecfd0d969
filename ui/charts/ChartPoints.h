// The points of a chart, which are read one by one, from 0 on.
#pragma once
#include <QPoint>
#include <QRect>
#include <QString>
#include <optional>

class ChartPoints {
  public:
    virtual ~ChartPoints() = default;

    // A chart that is being destroyed may still be asked where its points are, and then has none.
    virtual int Points() const { return 0; }

    // What is said of one; for a tool tip in several lines, and with more in them.
    virtual QString TextOf(int point) const = 0;
    virtual QString NoteOf(int point) const { return TextOf(point); }

    // Where a point is in the window, and the one at a place there, -1 for none.
    virtual QRect PlaceOf(int /*point*/) const { return {}; }
    virtual int PointAt(QPoint /*place*/) const { return -1; }

    // The point that is being read.
    std::optional<int> Read() const { return read; }

  protected:
    std::optional<int> read;
};
