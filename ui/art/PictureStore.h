// The program's pictures as pixmaps, drawn from their vectors once per size and screen.
#pragma once
#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <cstdint>
#include <map>
#include <tuple>

#include "ui/art/Pictures.h"

class PictureStore {
  public:
    // Needs the QGuiApplication.
    PictureStore();

    // The picture stretched to logicalSize, sharp at devicePixelRatio (1 or more; less counts as
    // 1), which the pixmap carries; parts of a pixel are rounded up. A null pixmap for an empty
    // size or one beyond 4096 pixels; a crossed grey card for a number without a drawing. The
    // reference is good until the next Get: the store forgets everything when it would keep more
    // than 160 MiB.
    const QPixmap& Get(Picture picture, QSize logicalSize, qreal devicePixelRatio);

  private:
    using Key = std::tuple<int, int, int, qreal>;  // number, width and height in pixels, ratio
    std::map<Key, QPixmap> pixmaps;
    int64_t bytesKept = 0;
};

// Makes the drawings readable under PicturePath. The store does it; only those who read a path call
// it.
void LoadArt();

// ":/art/1019" and so on; a file that LoadArt brings.
QString PicturePath(Picture picture);

// The program's icon in every size from 16 to 256 pixels, for windows and for the list of programs.
// Drawn at the first call, and kept as long as the QGuiApplication lives.
QIcon ProgramIcon();
