// The draw card that the player knows beforehand, in a group of its own; hidden in games without.
#pragma once
#include <QGroupBox>

class PictureStore;
class SmallCard;
struct GameEngine;
struct CardFace;

class FirstDrawCard : public QGroupBox {
    Q_OBJECT

  public:
    // The store outlives the group.
    FirstDrawCard(const GameEngine& engine, PictureStore& store, QWidget* parent);

    void SetCard(const CardFace& shown);

  private:
    SmallCard* card;
};
