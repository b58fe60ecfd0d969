#include "ui/parts/SmallCard.h"

#include <QHBoxLayout>
#include <QPainter>
#include <array>

#include "game/engine/GameEngine.h"
#include "ui/art/PictureStore.h"
#include "ui/parts/DialogParts.h"
#include "ui/parts/PictureButton.h"

Picture RankPictureOf(const CardFace& card) {
    return card.IsJoker() ? Picture::kJokerPicture : RankPicture(card.rank, card.suit);
}

Picture SuitPictureOf(const CardFace& card) {
    return card.IsEmpty() || card.IsJoker() ? Picture::kEmptyPicture : SuitPicture(card.suit);
}

QString NameOf(const CardFace& card) {
    static const std::array<QString, kCardRanks + 1> kRankNames = {
        "joker", "ace", "2", "3", "4", "5", "6", "7", "8", "9", "10", "jack", "queen", "king"};
    static const std::array<QString, kStars + 1> kSuitNames = {"",      "spades",   "hearts",
                                                               "clubs", "diamonds", "stars"};
    if (card.IsEmpty()) return SmallCard::tr("no card");
    if (card.IsJoker()) return SmallCard::tr("joker");
    return SmallCard::tr("%1 of %2")
        .arg(kRankNames.at(static_cast<std::size_t>(card.rank)),
             kSuitNames.at(static_cast<std::size_t>(card.suit)));
}

SmallCard::SmallCard(PictureStore& store, QWidget* parent) : QWidget(parent), store(store) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SmallCard::SetCard(const CardFace& shown) {
    card = shown;
    setAccessibleName(NameOf(card));
    update();
}

QSize SmallCard::sizeHint() const {
    const QSize rank = TileSize(*this, kRankTile);
    const QSize suit = TileSize(*this, kSuitTile);
    return QSize(rank.width(), rank.height() + suit.height()) + QSize(2, 4) * kTileMargin;
}

void SmallCard::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QSize rank = TileSize(*this, kRankTile);
    const QSize suit = TileSize(*this, kSuitTile);
    const qreal ratio = devicePixelRatioF();
    painter.drawPixmap(kTileMargin, kTileMargin, store.Get(RankPictureOf(card), rank, ratio));
    painter.drawPixmap(kTileMargin, rank.height() + 3 * kTileMargin,
                       store.Get(SuitPictureOf(card), suit, ratio));
}

SmallCard* AddFirstDrawCard(QBoxLayout& layout, const GameEngine& engine, PictureStore& store,
                            QWidget* dialog) {
    auto* row = RowInGroup(SmallCard::tr("First Draw Card"), "firstDrawCard", dialog);
    auto* card = new SmallCard(store, row->parentWidget());
    card->setObjectName("knownCard");
    row->addWidget(card);
    layout.addWidget(row->parentWidget());
    row->parentWidget()->setVisible(IsSneakPeak(engine));
    return card;
}
