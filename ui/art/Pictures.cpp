#include "ui/art/Pictures.h"

namespace {

constexpr Picture Offset(Picture first, int by) {
    return static_cast<Picture>(static_cast<int>(first) + by);
}

constexpr Picture OfSize(Picture first, SizeClass size) {
    return Offset(first, static_cast<int>(size));
}

constexpr int kHearts = 2;
constexpr int kClubs = 3;
constexpr int kDiamonds = 4;
constexpr int kStars = 5;
constexpr int kTargetCount = 5;

constexpr bool IsSuit(int suit) { return suit >= 1 && suit <= kStars; }
constexpr bool IsRed(int suit) { return suit == kHearts || suit == kDiamonds; }

Picture OfBack(Picture first, SizeClass size, const CardStyle& style) {
    const bool known = style.back >= 0 && style.back < kCardBackDesigns;
    return Offset(OfSize(first, size), known ? 3 * style.back : 0);
}

}  // namespace

Picture FaceOfCard(SizeClass size) { return OfSize(Picture::kCardFace, size); }
Picture AlternateFace(SizeClass size) { return OfSize(Picture::kAlternateFace, size); }
Picture JokerFace(SizeClass size) { return OfSize(Picture::kJokerFace, size); }

Picture CardBack(SizeClass size, const CardStyle& style) {
    return OfBack(Picture::kCardBack, size, style);
}

Picture CardStack(SizeClass size, const CardStyle& style) {
    return OfBack(Picture::kCardStack, size, style);
}

Picture PipPicture(int suit, const CardStyle& style) {
    if (style.fourColours && suit == kClubs) return Picture::kGreenClub;
    if (style.fourColours && suit == kDiamonds) return Picture::kBlueDiamond;
    return IsSuit(suit) ? Offset(Picture::kPips, suit) : Picture::kEmptyPicture;
}

Picture CourtPicture(int rank, int suit, const CardStyle& style) {
    const bool court = rank >= 11 && rank <= 13 && suit != kStars;
    if (!IsSuit(suit) || (rank != 1 && !court)) return Picture::kEmptyPicture;
    const bool ownColour = style.fourColours && suit != kHearts && suit != kStars;
    return Offset(ownColour ? Picture::kFourColourCourts : Picture::kCourts,
                  20 * (suit - 1) + rank);
}

Picture ButtonPicture(MachineButton button, SizeClass size, bool pressed) {
    return Offset(Picture::kButtons,
                  10 * static_cast<int>(size) + 2 * static_cast<int>(button) + (pressed ? 1 : 0));
}

Picture SpinButtonPicture(SizeClass size, bool lit) {
    return Offset(Picture::kSpinButtons, 2 * static_cast<int>(size) + (lit ? 1 : 0));
}

Picture SpinWindow(SizeClass size) { return OfSize(Picture::kSpinWindow, size); }

Picture PanelPicture(SizeClass size, bool red, bool lit) {
    return Offset(Picture::kPanels, 4 * static_cast<int>(size) + (red ? 0 : 2) + (lit ? 1 : 0));
}

Picture ChoicePicture(SizeClass size, bool red) {
    return Offset(Picture::kChoices, 2 * static_cast<int>(size) + (red ? 0 : 1));
}

Picture TargetPicture(int target) {
    const bool known = target >= 0 && target < kTargetCount;
    return known ? Offset(Picture::kTargets, target) : Picture::kEmptyPicture;
}

Picture CoinPicture(double dollars) {
    const auto is = [dollars](double worth) {  // a coin read from text may be a rounding away
        return dollars > worth - 0.001 && dollars < worth + 0.001;
    };
    if (is(0.05)) return Picture::kNickel;
    if (is(0.25)) return Picture::kQuarter;
    if (is(0.5)) return Picture::kHalfDollar;
    return Picture::kDollar;
}

Picture RankPicture(int rank, int suit) {
    if (!IsSuit(suit) || rank < 1 || rank > 13) return Picture::kEmptyPicture;
    return Offset(IsRed(suit) ? Picture::kRedRanks : Picture::kBlackRanks, rank - 1);
}

Picture SuitPicture(int suit) {
    switch (suit) {
        case 1:
            return Picture::kSpadesTile;
        case 2:
            return Picture::kHeartsTile;
        case 3:
            return Picture::kClubsTile;
        case 4:
            return Picture::kDiamondsTile;
        case 5:
            return Picture::kStarsTile;
        default:
            return Picture::kEmptyPicture;
    }
}
