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

inline constexpr QColor kMachineYellow{255, 255, 0};
inline constexpr QColor kMachineRed{200, 0, 0};
inline constexpr QColor kMachineBlack{0, 0, 0};
inline constexpr QColor kMachineWhite{255, 255, 255};
inline constexpr QColor kMachineBlue{0, 0, 255};
inline constexpr QColor kMachineOlive{190, 190, 60};
inline constexpr QColor kCardPaper{255, 254, 248};

class MachineCanvas {
  public:
    // Both outlive the canvas. Nothing is painted outside clip.
    MachineCanvas(QPainter& painter, const QRegion& clip, PictureStore& pictures);
    ~MachineCanvas();
    MachineCanvas(const MachineCanvas&) = delete;
    MachineCanvas& operator=(const MachineCanvas&) = delete;

    QPainter& Painter() { return painter; }
    qreal PixelRatio() const { return pixelRatio; }
    PictureStore& Pictures() { return pictures; }

    // Whether anything of the place is to be painted.
    bool Sees(const QRect& place) const { return clip.intersects(place); }

    void DrawPicture(Picture picture, const QRect& place);

    // For pictures that are to be changed before they are drawn.
    QPixmap PictureOf(Picture picture, QSize size) {
        return pictures.Get(picture, size, pixelRatio);
    }

    // Covers the area with copies of a square picture, the first one in its top left corner.
    void Tile(Picture picture, int side, const QRect& area);

    // An outline one pixel wide, filled.
    void DrawBox(const QRect& place, const QColor& outline, const QColor& fill);

    // One line of text in the machine's font; smaller where it would be wider than its place, then
    // shortened at its end, and never outside it. alignment is horizontal.
    void Write(const TextPlace& place, std::string_view text, const QColor& colour,
               Qt::Alignment alignment = Qt::AlignHCenter);

    // The same on bare cloth, with a shadow that parts it from the cloth.
    void WriteOnCloth(const TextPlace& place, std::string_view text, const QColor& colour,
                      Qt::Alignment alignment = Qt::AlignHCenter);

    // The same across what is drawn already: a narrow edge parts the letters from it.
    void WriteEdged(const TextPlace& place, std::string_view text, const QColor& colour,
                    const QColor& edge);

    const QFont& Font(int height);
    int TextWidth(int fontHeight, std::string_view text);

  private:
    struct Line {
        QFont font;
        QString text;
    };
    Line Fitting(const TextPlace& place, std::string_view text);

    QPainter& painter;
    QRegion clip;
    PictureStore& pictures;
    qreal pixelRatio;
    std::map<int, QFont> fonts;  // by height; finding the pixel size of one takes a while
};
