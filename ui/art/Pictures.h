// The program's pictures by number. A number is the alias of a drawing in art.qrc; a picture that
// comes in one drawing per size class has three numbers in a row, small, medium, large, and is
// asked for by function.
#pragma once
#include "ui/art/CardStyle.h"
#include "ui/art/SizeClass.h"

enum class Picture : int {
    kFelt = 1019,  // the table's cloth: a seamless tile of kFeltTile pixels

    kDiamondsTile = 1035,  // the dialogs' suits, 24 x 24
    kHeartsTile = 1039,
    kSpadesTile = 1043,
    kClubsTile = 1046,
    kStarsTile = 1105,
    kEmptyPicture =
        1119,  // the dialogs' place without a card, 24 x 28, fit to be shown 24 x 24 too
    kJokerPicture = 1120,  // 24 x 28, as are the ranks
    kBlackRanks = 1122,    // the first of 13, the ace
    kRedRanks = 1135,

    kIcon = 1200,
    kSmallIcon = 1201,  // for 32 pixels or fewer

    kCardFace = 1210,  // the first of three sizes, as the next four
    kCardBack = 1220,  // plus 3 x the back's number
    kJokerFace = 1230,
    kAlternateFace = 1240,
    kCardStack = 1260,  // plus 3 x the back's number

    kPips = 1300,  // plus the suit
    kGreenClub = 1306,
    kBlueDiamond = 1307,
    kCourts = 1310,            // plus 20 x (suit - 1) plus the rank: 1, 11, 12, 13; of stars 1
    kFourColourCourts = 1600,  // the same, without the hearts and the star

    kButtons = 1400,      // plus 10 x size class + 2 x MachineButton + 1 when pressed
    kSpinButtons = 1440,  // plus 2 x size class + 1 when lit
    kSpinWindow = 1450,   // three sizes
    kPanels = 1460,       // plus 4 x size class + 2 for black + 1 when lit
    kChoices = 1480,      // plus 2 x size class + 1 for black

    kNickel = 1500,  // coins, 80 x 40
    kQuarter = 1501,
    kHalfDollar = 1502,
    kDollar = 1503,
    kCharlie = 1511,  // 100 x 100
    kWheel = 1512,    // any square from 30 pixels: an emblem for the spin
    kTargets = 1520,  // the first of five, 50 x 50; each bears its number
};

inline constexpr int kFeltTile =
    96;  // a multiple of four: whole pixels at 1.25, 1.5 and 1.75 times too

enum class MachineButton { kDeal, kBetOne, kMaxBet, kHold, kDoubleUp };

// Card-sized pictures. The alternate face is that of the pile tops in Pick 'Em; the stack, a few
// cards from their back with their edges, lies right under such a top.
Picture FaceOfCard(SizeClass size);
Picture AlternateFace(SizeClass size);
Picture JokerFace(SizeClass size);
Picture CardBack(SizeClass size, const CardStyle& style = {});
Picture CardStack(SizeClass size, const CardStyle& style = {});

// suit: 1 spades, 2 hearts, 3 clubs, 4 diamonds, 5 stars; rank: 1 ace, 11 jack, 12 queen, 13 king,
// of which the stars have the ace alone. Anything else gives kEmptyPicture.
Picture PipPicture(int suit, const CardStyle& style = {});
Picture CourtPicture(int rank, int suit, const CardStyle& style = {});

Picture ButtonPicture(MachineButton button, SizeClass size, bool pressed);

// The spin's button without its caption, of the size of a button, and the window of its value, two
// panels wide; a panel of Red or Black, half a button wide, and the colour chosen, a button's size.
Picture SpinButtonPicture(SizeClass size, bool lit);
Picture SpinWindow(SizeClass size);
Picture PanelPicture(SizeClass size, bool red, bool lit);
Picture ChoicePicture(SizeClass size, bool red);

// target: 0..4 from the left; kEmptyPicture for any other.
Picture TargetPicture(int target);

// The coin of that worth in dollars; the dollar for any other worth than 0.05, 0.25 and 0.5.
Picture CoinPicture(double dollars);

// For the dialogs' small cards, rank above suit. Rank 1..13; kEmptyPicture for any other rank or
// suit.
Picture RankPicture(int rank, int suit);
Picture SuitPicture(int suit);
