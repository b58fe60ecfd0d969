#include "ui/parts/FirstDrawCard.h"

#include <QHBoxLayout>

#include "game/engine/GameEngine.h"
#include "ui/parts/SmallCard.h"

FirstDrawCard::FirstDrawCard(const GameEngine& engine, PictureStore& store, QWidget* parent)
    : QGroupBox(tr("First Draw Card"), parent), card(new SmallCard(store, this)) {
    setObjectName("firstDrawCard");
    card->setObjectName("knownCard");
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(card);
    setVisible(IsSneakPeak(engine));
}

void FirstDrawCard::SetCard(const CardFace& shown) { card->SetCard(shown); }
