// A card as it is composed of its face, rank, pips and court picture.
#pragma once
#include "core/cards/CardTable.h"
#include "core/paytable/PayTable.h"
#include "ui/art/CardStyle.h"
#include "ui/machine/Layout.h"
#include "ui/machine/MachineCanvas.h"

// What a code looks like depends on the game: its deck and which cards it counts as wild.
class CardPainter {
  public:
    // All outlive the painter.
    CardPainter(MachineCanvas& canvas, const MachineLayout& layout, const CardTable& cards,
                GameType type, const CardStyle& style);

    // At a place of the card's size. kNoCard leaves the place as it is; a code that the deck does
    // not hold shows the back.
    void DrawCard(CardCode card, const QRect& place, bool alternateFace = false);

    // The same as a picture of its own, sharp on this canvas. Null for kNoCard.
    QPixmap Snapshot(CardCode card, bool alternateFace);

    // What lies under the top of a pile: 1 a card back, 2 a stack, anything else nothing.
    void DrawPile(int depth, const QRect& place);

    // A word across a card, on a small plate of its own: "WILD", "PLAY", "SPIN". It is written
    // where Write would put it, in the table's blue; the plate reaches a little further to both
    // sides, but not over the edge of the card.
    void WriteOnPlate(const TextPlace& place, const QRect& card, std::string_view word);

    // All that such a plate covers with its shadow, for any word that fits the place.
    static QRect CoveredByPlate(const TextPlace& place, const QRect& card);

    // All that a card in the place and the pile under it cover, with their shadows.
    static QRect Covered(const QRect& place, int pileDepth);

  private:
    void DrawFace(const CardInfo& card, const QRect& place, bool alternateFace);
    void DrawRank(const CardInfo& card, const QRect& place);
    void DrawBigPip(const CardInfo& card, const QRect& place);
    void DrawPaper(Picture picture, const QRect& place);
    void WriteWild(const QRect& place);

    MachineCanvas& canvas;
    const MachineLayout& layout;
    const CardTable& cards;
    GameType type;
    CardStyle style;
};
