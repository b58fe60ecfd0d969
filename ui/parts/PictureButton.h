// A button that is a picture and nothing else; what it means is its accessible name. The picture is
// drawn at the size of the font around it.
#pragma once
#include <QToolButton>

#include "ui/art/Pictures.h"

class PictureStore;

// The logical size of a dialog's picture that is drawn in 24 x 24 or 24 x 28, in the widget's font.
QSize TileSize(const QWidget& widget, int height);

inline constexpr int kSuitTile = 24;
inline constexpr int kRankTile = 28;
inline constexpr int kTileMargin = 3;  // logical pixels around a tile, for the mark of the focus

class PictureButton : public QToolButton {
    Q_OBJECT

  public:
    // The store outlives the button; height is kSuitTile or kRankTile.
    PictureButton(PictureStore& store, int height, QWidget* parent);

    void SetPicture(Picture shown);
    Picture Shown() const { return picture; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    PictureStore& store;
    int height;
    Picture picture = Picture::kEmptyPicture;
};
