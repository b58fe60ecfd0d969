// A card as the dialogs draw it: the picture of its rank above that of its suit, as far apart
// as on two picture buttons.
#pragma once
#include <QWidget>

#include "game/engine/FixedHandEditor.h"
#include "ui/art/Pictures.h"

class PictureStore;
class QBoxLayout;
struct GameEngine;

// A joker is a joker above an empty picture; no card is two empty ones.
Picture RankPictureOf(const CardFace& card);
Picture SuitPictureOf(const CardFace& card);

// "king of hearts", "joker", "no card".
QString NameOf(const CardFace& card);

class SmallCard : public QWidget {
    Q_OBJECT

  public:
    // The store outlives the widget.
    SmallCard(PictureStore& store, QWidget* parent);

    void SetCard(const CardFace& shown);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    PictureStore& store;
    CardFace card;
};

// The draw card that the player knows beforehand, in a group of its own behind what the layout of
// the dialog holds; the group is hidden in games without one.
SmallCard* AddFirstDrawCard(QBoxLayout& layout, const GameEngine& engine, PictureStore& store,
                            QWidget* dialog);
