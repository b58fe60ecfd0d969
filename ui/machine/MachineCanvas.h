// What the machine is painted with: pictures, boxes and texts in the machine's own colours, which
// no desktop theme changes.
#pragma once
#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRect>
#include <QRegion>
#include <QString>
#include <map>
#include <string_view>

#include "ui/art/PictureStore.h"
#include "ui/machine/Layout.h"
#include "ui/machine/MachineFit.h"

inline constexpr QColor kMachineYellow{255, 255, 0};
inline constexpr QColor kMachineRed{200, 0, 0};
inline constexpr QColor kMachineBlack{0, 0, 0};
inline constexpr QColor kMachineWhite{255, 255, 255};
inline constexpr QColor kMachineBlue{0, 0, 255};
inline constexpr QColor kMachineOlive{190, 190, 60};

// Places count in units of the table. Pictures and boxes begin and end with whole pixels of the
// screen, whatever the zoom and the screen's scale: at most one more than their places reach.
class MachineCanvas {
  public:
    // All outlive the canvas. Nothing is painted outside clip, in client coordinates.
    MachineCanvas(QPainter& painter, const QRegion& clip, const MachineFit& fit,
                  PictureStore& pictures);
    ~MachineCanvas();
    MachineCanvas(const MachineCanvas&) = delete;
    MachineCanvas& operator=(const MachineCanvas&) = delete;

    // Paints in units of the table.
    QPainter& Painter() { return painter; }

    // Pixels of the screen in one unit.
    qreal PixelRatio() const { return pixelRatio; }
    PictureStore& Pictures() { return pictures; }

    const MachineFit& Fit() const { return fit; }

    // The whole client area, in units, rounded outward.
    QRect Window() const { return fit.ToTable(QRect(QPoint(0, 0), fit.client)); }

    // The same in pixels of the screen.
    const QRect& WindowPixels() const { return windowPixels; }
    // Whether the desktop wishes it: nothing but plain colours is behind a text, and edges are
    // wide.
    bool HighContrast() const { return highContrast; }

    // Whether anything of the place is to be painted.
    bool Sees(const QRect& place) const { return clip.intersects(place); }
    bool SeesPixels(const QRect& area) const;

    void DrawPicture(Picture picture, const QRect& place);

    // For pictures that are to be changed before they are drawn.
    QPixmap PictureOf(Picture picture, QSize size) {
        return pictures.Get(picture, size, pixelRatio);
    }
    void DrawPixmap(const QPixmap& pixmap, QPoint corner);

    // Covers an area of the screen, in pixels of it, with copies of a pixmap, the first one in its
    // top left corner.
    void TilePixels(const QPixmap& tile, const QRect& area);

    // An outline one unit wide, two in high contrast, filled.
    void DrawBox(const QRect& place, const QColor& outline, const QColor& fill);

    // One line of text in the machine's font; smaller where it would be wider than its place, then
    // shortened at its end, and never outside it. alignment is horizontal.
    void Write(const TextPlace& place, std::string_view text, const QColor& colour,
               Qt::Alignment alignment = Qt::AlignHCenter);

    // The same on bare cloth, with a shadow that parts it from the cloth.
    void WriteOnCloth(const TextPlace& place, std::string_view text, const QColor& colour,
                      Qt::Alignment alignment = Qt::AlignHCenter);

    // The same across what is drawn already: an edge of so many pixels parts the letters from it.
    void WriteEdged(const TextPlace& place, std::string_view text, const QColor& colour,
                    const QColor& edge, int width = 1);

    const QFont& Font(int height);
    int TextWidth(int fontHeight, std::string_view text);

  private:
    struct Line {
        QFont font;
        QString text;
    };
    Line Fitting(const TextPlace& place, std::string_view text);

    // Calls draw while the painter counts in pixels of the screen.
    template <class Draw>
    void InPixels(Draw draw);

    QPainter& painter;
    MachineFit fit;
    QRegion clip;  // in units, with a pixel around it
    PictureStore& pictures;
    QRect windowPixels;
    qreal pixelRatio = 1;
    bool highContrast;
    std::map<int, QFont> fonts;  // by height; finding the pixel size of one takes a while
};
