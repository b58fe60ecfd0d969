#include "ui/machine/CardPainter.h"

#include <QFontMetrics>
#include <QRectF>
#include <algorithm>
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
constexpr QColor kOliveEdge{44, 42, 8};  // olive alone is too pale to be read on paper
constexpr QPoint kFirstUnder{6, -12};
constexpr QPoint kSecondUnder{3, -6};

// As the pips are, in shades that read on paper.
QColor InkOf(int suit, const CardStyle& style) {
    constexpr QColor kBlue{0, 70, 190};
    constexpr QColor kGreen{0, 100, 40};
    if (style.fourColours && suit == kDiamonds) return kBlue;
    if (style.fourColours && suit == kClubs) return kGreen;
    return suit == kHearts || suit == kDiamonds ? kMachineRed : kMachineBlack;
}

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

constexpr QColor kPlateIvory{255, 248, 224};
constexpr QColor kPlateRim{150, 110, 30};
constexpr QColor kPlateGloss{255, 255, 250};
constexpr QColor kPlateShade{0, 0, 0, 34};
constexpr int kPlateShadow = 3;  // pixels below it, and one at its sides

int SideMargin(const TextPlace& place) { return place.fontHeight / 6 + 2; }

// Just around the capitals, which leaves more of the pips above and below in sight than a whole
// line would.
QRect PlateFor(MachineCanvas& canvas, const TextPlace& place, const QRect& card,
               std::string_view word) {
    const QFontMetrics metrics(canvas.Font(place.fontHeight));
    const int width = std::min(canvas.TextWidth(place.fontHeight, word), place.rect.width());
    const int baseline =
        place.rect.y() + (place.rect.height() - metrics.height()) / 2 + metrics.ascent();
    const int margin = std::max(metrics.capHeight() / 7, 2);
    QRect plate(0, baseline - metrics.capHeight() - margin - 1, width + 2 * SideMargin(place),
                metrics.capHeight() + 2 * margin + 2);
    plate.moveLeft(place.rect.x() + (place.rect.width() - plate.width()) / 2);
    return plate & CardPainter::CoveredByPlate(place, card).adjusted(1, 0, -1, -kPlateShadow);
}

}  // namespace

CardPainter::CardPainter(MachineCanvas& onCanvas, const MachineLayout& machineLayout,
                         const CardTable& cardTable, GameType gameType, const CardStyle& cardStyle)
    : canvas(onCanvas), layout(machineLayout), cards(cardTable), type(gameType), style(cardStyle) {}

void CardPainter::DrawCard(CardCode card, const QRect& place, bool alternateFace) {
    if (card == kNoCard || !canvas.Sees(Covered(place, 0))) return;
    if (card < 0 || card >= cards.deckSize) {
        DrawPaper(CardBack(layout.sizeClass, style), place);
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
    MachineCanvas own(painter, place, MachineFit::Into(place.size()), canvas.Pictures());
    CardPainter(own, layout, cards, type, style).DrawCard(card, place, alternateFace);
    return picture;
}

void CardPainter::DrawPile(int depth, const QRect& place) {
    if (depth >= 1) DrawPaper(CardBack(layout.sizeClass, style), place.translated(kFirstUnder));
    if (depth >= 2) DrawPaper(CardStack(layout.sizeClass, style), place.translated(kSecondUnder));
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
        canvas.DrawPicture(CourtPicture(card.rank, card.suit, style),
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
    canvas.Write({rank, layout.cardFontHeight}, text, InkOf(card.suit, style));
    const QRect pip(rank.x() + (width - layout.smallPip) / 2, rank.y() + rank.height(),
                    layout.smallPip, layout.smallPip);
    canvas.DrawPicture(PipPicture(card.suit, style), pip);
}

void CardPainter::DrawBigPip(const CardInfo& card, const QRect& place) {
    const int side = layout.bigPip;
    const QRect pip(place.x() + (place.width() - side) / 2,
                    place.y() + place.height() - kBigPipLift - side, side, side);
    if (type == GameType::kAcesBonus && card.rank == kAceRank) {
        canvas.WriteEdged({pip, layout.cardFontHeight}, AceLetter(card.suit), kMachineOlive,
                          kOliveEdge, std::max(layout.cardFontHeight / 24, 2));
    } else {
        canvas.DrawPicture(PipPicture(card.suit, style), pip);
    }
}

// In the middle of the card wherever it lies: the first draw card has no mark of its own.
void CardPainter::WriteWild(const QRect& place) {
    QRect mark(QPoint(0, 0), layout.wildMark);
    mark.moveTopLeft(place.topLeft() + QPoint((place.width() - mark.width()) / 2,
                                              (place.height() - mark.height()) / 2));
    WriteOnPlate({mark, layout.labelFontHeight}, place, "WILD");
}

void CardPainter::WriteOnPlate(const TextPlace& place, const QRect& card, std::string_view word) {
    if (word.empty() || !canvas.Sees(CoveredByPlate(place, card))) return;
    const QRectF plate(PlateFor(canvas, place, card, word));
    const double radius = plate.height() / 4;
    QPainter& painter = canvas.Painter();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const auto draw = [&painter](const QRectF& part, double corner, const QColor& colour) {
        painter.setBrush(colour);
        painter.drawRoundedRect(part, corner, corner);
    };
    painter.setPen(Qt::NoPen);
    // Plain colours one on another: what a gradient is rounded to would depend on the clip.
    draw(plate.adjusted(-1, 1, 1, 3), radius + 1, kPlateShade);
    draw(plate.adjusted(0, 1, 0, 2), radius, kPlateShade);
    draw(plate, radius, kPlateRim);
    draw(plate.adjusted(1, 1, -1, -1), radius - 1, kPlateGloss);
    draw(plate.adjusted(1, 2, -1, -1), radius - 1, kPlateIvory);
    painter.restore();
    canvas.Write(place, word, kMachineBlue);
}

QRect CardPainter::CoveredByPlate(const TextPlace& place, const QRect& card) {
    const int side = SideMargin(place) + 1;
    return place.rect.adjusted(-side, -2, side, 2 + kPlateShadow) & card;
}
