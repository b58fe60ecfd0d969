// How the machine is fitted into its window. Its places count in units of the table, which are
// pixels in a window of up to 1024 x 700 and larger in a larger one: there the same picture is
// shown larger, in the middle, with cloth around it.
#pragma once
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRegion>
#include <QSize>

// The machine is never laid out larger.
inline constexpr QSize kLargestMachineSize{1024, 700};

struct MachineFit {
    QSize client;     // of the window, cloth and all, in logical pixels
    QSize table;      // what the machine is laid out for, in units of the table
    double zoom = 1;  // logical pixels of one unit, 1 or more
    QPoint origin;    // where the table's upper left corner stands in the client area

    // The machine in a client area whose right end is left to something else, so many logical
    // pixels wide.
    static MachineFit Into(QSize client, int leftFree = 0);

    // The unit under a pixel of the client area; one outside the table when nothing of it is there.
    QPoint ToTable(QPointF pixel) const;

    // Rounded outward: all that is in the place is in the result, which may hold a little more.
    QRect ToTable(const QRect& area) const;
    QRect ToClient(const QRect& place) const;
    QRegion ToTable(const QRegion& area) const;
    QRegion ToClient(const QRegion& places) const;
};
