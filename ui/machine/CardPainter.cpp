#include "ui/machine/CardPainter.h"

#include <string>

#include "core/text/Ranks.h"

namespace {

constexpr int kAceRank = 1;
constexpr int kJackRank = 11;
constexpr int kRankInset = 10;
constexpr int kLargeRankInset = 20;
constexpr int kCourtInset = 5;
constexpr int kLargeCourtDrop = 10;
constexpr int kBigPipLift = 10;
constexpr QPoint kFirstUnder{6, -12};
constexpr QPoint kSecondUnder{3, -6};

bool IsRed(const CardInfo& card) { return card.suit == kHearts || card.suit == kDiamonds; }

std::string RankText(int rank) {
    if (rank >= 2 && rank <= 10) return std::to_string(rank);
    return {RankChar(rank)};
}

// The aces that pay in this order, written on them.
std::string_view AceLetter(int suit) {
    switch (suit) {
        case kSpades:
            return "A";
        case kHearts:
            return "C";
        case kClubs:
            return "E";
        case kDiamonds:
            return "$";
        default:
            return "";
    }
}

// Soft, and within the five pixels that part a card from the button below it.
void DrawShadow(QPainter& painter, const QRect& place) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 30));
    const double radius = place.width() / 16.0;
    for (const double spread : {0.0, 1.0, 2.0}) {
        const QRectF shade =
            QRectF(place).translated(0.5, 2).adjusted(-spread + 1, 0, spread, spread);
        painter.drawRoundedRect(shade, radius + spread, radius + spread);
    }
    painter.restore();
}

}  // namespace

CardPainter::CardPainter(MachineCanvas& onCanvas, const MachineLayout& machineLayout,
                         const CardTable& cardTable, GameType gameType)
    : canvas(onCanvas), layout(machineLayout), cards(cardTable), type(gameType) {}

void CardPainter::DrawCard(CardCode card, const QRect& place, bool alternateFace) {
    if (card == kNoCard || !canvas.Sees(Covered(place, 0))) return;
    if (card < 0 || card >= cards.deckSize) {
        DrawPaper(CardBack(layout.sizeClass), place);
        return;
    }
    const CardInfo& info = cards.cards[static_cast<std::size_t>(card)];
    if (info.rank == 0) {
        DrawPaper(JokerFace(layout.sizeClass), place);
        WriteWild(place);
        return;
    }
    DrawFace(info, place, alternateFace);
}

QPixmap CardPainter::Snapshot(CardCode card, bool alternateFace) {
    if (card == kNoCard) return {};
    const QRect place(QPoint(0, 0), layout.cardSize);
    QPixmap picture((QSizeF(place.size()) * canvas.PixelRatio()).toSize());
    picture.setDevicePixelRatio(canvas.PixelRatio());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    MachineCanvas own(painter, place, canvas.Pictures());
    CardPainter(own, layout, cards, type).DrawCard(card, place, alternateFace);
    return picture;
}

void CardPainter::DrawPile(int depth, const QRect& place) {
    if (depth >= 1) DrawPaper(CardBack(layout.sizeClass), place.translated(kFirstUnder));
    if (depth >= 2) DrawPaper(CardStack(layout.sizeClass), place.translated(kSecondUnder));
}

QRect CardPainter::Covered(const QRect& place, int pileDepth) {
    const auto withShadow = [](const QRect& paper) { return paper.adjusted(-1, 0, 3, 5); };
    if (pileDepth == 0) return withShadow(place);
    return withShadow(place) | withShadow(place.translated(kFirstUnder));
}

void CardPainter::DrawPaper(Picture picture, const QRect& place) {
    DrawShadow(canvas.Painter(), place);
    canvas.DrawPicture(picture, place);
}

void CardPainter::DrawFace(const CardInfo& card, const QRect& place, bool alternateFace) {
    DrawPaper(alternateFace ? AlternateFace(layout.sizeClass) : FaceOfCard(layout.sizeClass),
              place);
    if (card.rank == kAceRank || card.rank >= kJackRank) {
        const int drop = layout.sizeClass == SizeClass::kLarge ? kLargeCourtDrop : kCourtInset;
        const QPoint corner(place.x() + place.width() - kCourtInset - layout.court,
                            place.y() + drop);
        canvas.DrawPicture(CourtPicture(card.rank, card.suit),
                           {corner, QSize(layout.court, layout.court)});
    }
    DrawRank(card, place);
    DrawBigPip(card, place);
    if (card.wild) WriteWild(place);
}

void CardPainter::DrawRank(const CardInfo& card, const QRect& place) {
    const int inset = layout.sizeClass == SizeClass::kLarge ? kLargeRankInset : kRankInset;
    const std::string text = RankText(card.rank);
    const int width = canvas.TextWidth(layout.cardFontHeight, text);
    const QRect rank(place.x() + inset, place.y(), width, layout.cardFontHeight);
    canvas.Write({rank, layout.cardFontHeight}, text, IsRed(card) ? kMachineRed : kMachineBlack);
    const QRect pip(rank.x() + (width - layout.smallPip) / 2, rank.y() + rank.height(),
                    layout.smallPip, layout.smallPip);
    canvas.DrawPicture(PipPicture(card.suit), pip);
}

void CardPainter::DrawBigPip(const CardInfo& card, const QRect& place) {
    const int side = layout.bigPip;
    const QRect pip(place.x() + (place.width() - side) / 2,
                    place.y() + place.height() - kBigPipLift - side, side, side);
    if (type == GameType::kAcesBonus && card.rank == kAceRank) {
        canvas.Write({pip, layout.cardFontHeight}, AceLetter(card.suit), kMachineOlive);
    } else {
        canvas.DrawPicture(PipPicture(card.suit), pip);
    }
}

// In the middle of the card wherever it lies: the first draw card has no mark of its own.
void CardPainter::WriteWild(const QRect& place) {
    QRect mark(QPoint(0, 0), layout.wildMark);
    mark.moveTopLeft(place.topLeft() + QPoint((place.width() - mark.width()) / 2,
                                              (place.height() - mark.height()) / 2));
    canvas.WriteEdged({mark, layout.labelFontHeight}, "WILD", kMachineBlue, kCardPaper);
}
