#include "ui/parts/PlaceButtons.h"

#include <QVBoxLayout>

#include "ui/parts/PictureButton.h"
#include "ui/parts/SmallCard.h"

PlaceButtons::PlaceButtons(PictureStore& store, int place, QWidget* parent,
                           const std::function<void()>& clicked)
    : QWidget(parent),
      rank(new PictureButton(store, kRankTile, this)),
      suit(new PictureButton(store, kSuitTile, this)) {
    rank->setObjectName(QString("placeRank%1").arg(place));
    rank->setFocusPolicy(Qt::StrongFocus);
    suit->setObjectName(QString("placeSuit%1").arg(place));
    suit->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (auto* button : {rank, suit}) {
        layout->addWidget(button);
        connect(button, &QToolButton::clicked, this, clicked);
    }
}

void PlaceButtons::SetCard(const CardFace& card, const QString& accessibleName) {
    rank->SetPicture(RankPictureOf(card));
    suit->SetPicture(SuitPictureOf(card));
    for (auto* button : {rank, suit}) button->setAccessibleName(accessibleName);
}
