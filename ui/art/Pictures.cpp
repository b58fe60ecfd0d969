#include "ui/art/Pictures.h"

namespace {

constexpr Picture Offset(Picture first, int by) {
    return static_cast<Picture>(static_cast<int>(first) + by);
}

constexpr Picture OfSize(Picture first, SizeClass size) {
    return Offset(first, static_cast<int>(size));
}

constexpr bool IsSuit(int suit) { return suit >= 1 && suit <= 5; }
constexpr bool IsRed(int suit) { return suit == 2 || suit == 4; }

}  // namespace

Picture FaceOfCard(SizeClass size) { return OfSize(Picture::kCardFace, size); }
Picture AlternateFace(SizeClass size) { return OfSize(Picture::kAlternateFace, size); }
Picture JokerFace(SizeClass size) { return OfSize(Picture::kJokerFace, size); }
Picture CardBack(SizeClass size) { return OfSize(Picture::kCardBack, size); }
Picture CardStack(SizeClass size) { return OfSize(Picture::kCardStack, size); }

Picture PipPicture(int suit) {
    return IsSuit(suit) ? Offset(Picture::kPips, suit) : Picture::kEmptyPicture;
}

Picture CourtPicture(int rank, int suit) {
    if (!IsSuit(suit) || (rank != 1 && (rank < 11 || rank > 13))) return Picture::kEmptyPicture;
    if (suit == 5 && rank == 1) return Picture::kStarAce;
    return Offset(IsRed(suit) ? Picture::kRedCourts : Picture::kBlackCourts, rank);
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
