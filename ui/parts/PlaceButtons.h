// The picture of a place's card as two buttons that do the same: its rank above its suit. The lower
// one is no stop of the tab key.
#pragma once
#include <QWidget>
#include <functional>

class PictureButton;
class PictureStore;
struct CardFace;

class PlaceButtons : public QWidget {
    Q_OBJECT

  public:
    // The buttons of place 0..4 are named "placeRank0" and "placeSuit0". The store outlives them.
    PlaceButtons(PictureStore& store, int place, QWidget* parent,
                 const std::function<void()>& clicked);

    void SetCard(const CardFace& card, const QString& accessibleName);

  private:
    PictureButton* rank;
    PictureButton* suit;
};
