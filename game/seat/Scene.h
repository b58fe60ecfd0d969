// What the table shows at one moment, as plain data: all but the pay table, which does not change
// while it is played on. Whatever is painted is painted from a scene, so a step of an animation and
// the machine at rest cannot come to look different. Positions are 0..4 from the left, pay lines
// count from 0.
#pragma once
#include <array>
#include <string>

#include "core/cards/CardTable.h"
#include "core/eval/HandEvaluator.h"
#include "core/paytable/PayTable.h"

enum class ButtonLook { kHidden, kReleased, kPressed };

// The HOLD buttons belong to their places. A dimmed button would do nothing now.
struct MachineButtons {
    ButtonLook deal = ButtonLook::kReleased;
    ButtonLook betOne = ButtonLook::kReleased;
    ButtonLook maxBet = ButtonLook::kReleased;
    ButtonLook doubleUp = ButtonLook::kHidden;
    bool dealDimmed = false;
    bool betsDimmed = false;  // BET ONE and MAX BET

    bool operator==(const MachineButtons&) const = default;
};

inline constexpr int kCoinColumns = 5;

enum class LineMark {
    kPlain,
    kWon,
    kWonCellDark,  // as kWon, but the cell of the payout is black: the other half of a flash
};

// A plain line shows what it pays for each bet, and has neither payout nor column here.
struct LineLook {
    LineMark mark = LineMark::kPlain;
    int payout = 0;  // announced, in credits
    int column = 0;  // 0..4, where it is announced; bets above five coins share the fifth

    bool operator==(const LineLook&) const = default;
};

// The piles of Pick 'Em lie in the places of positions 3 and 4.
inline constexpr int kLeftPilePosition = 3;
inline constexpr int kRightPilePosition = 4;

// One of the five places: a card, or a pile of Pick 'Em.
struct PlaceLook {
    CardCode card = kNoCard;  // kNoCard leaves what lies under it in sight
    bool pileTop = false;     // shows the second face
    int pileDepth = 0;        // of the stack under the card: 0 none, 1 a card back, 2 a stack
    std::string label;        // across the top of a pile: "PLAY", "EITHER" or empty
    bool held = false;
    bool lit = false;  // one of the cards that made the line that is won
    ButtonLook holdButton = ButtonLook::kReleased;
    bool holdDimmed = false;

    bool operator==(const PlaceLook&) const = default;
};

enum class DuelResult { kOpen, kWon, kTied, kLost };  // by the player

struct DoubleUpLook {
    bool shown = false;  // then nothing is seen but this and the places
    int stake = 0;       // credits
    int doubleUpTo = 0;
    DuelResult result = DuelResult::kOpen;

    bool operator==(const DoubleUpLook&) const = default;
};

enum class SpinButton { kHidden, kReady, kLit };

struct SpinLook {
    SpinButton button = SpinButton::kHidden;
    bool window = false;  // of the value
    std::string value;

    bool operator==(const SpinLook&) const = default;
};

inline constexpr int kTargets = 5;

enum class TargetFace { kGone, kHidden, kShot, kMissed };  // the last two show the value

struct TargetLook {
    TargetFace face = TargetFace::kGone;
    int value = 0;  // credits; 0 while it is not seen

    bool operator==(const TargetLook&) const = default;
};

enum class CardColour { kNone, kRed, kBlack };

struct RedBlackLook {
    bool shown = false;
    CardColour lit = CardColour::kNone;
    CardColour choice = CardColour::kNone;  // kNone shows "?"

    bool operator==(const RedBlackLook&) const = default;
};

// What is played, for who looks up.
struct PlateLook {
    std::string game;
    std::string details;  // "Table 0, Warning"

    bool operator==(const PlateLook&) const = default;
};

struct Scene {
    std::string message = "PRESS DEAL";
    std::string credits;
    std::string bet;
    double coin = 1.0;  // dollars

    std::array<LineLook, kMaxPayLines> lines{};
    int betColumn = 0;  // 0..4, of the bet that is on
    bool charlie = false;
    std::array<PlaceLook, kHandSize> places{};
    CardCode firstDraw = kNoCard;  // with its label; kNoCard shows neither
    MachineButtons buttons;

    DoubleUpLook doubleUp;
    PlateLook plate;
    std::string hint;          // the next key, for a newcomer; else empty
    std::string featureLabel;  // across the fifth card
    SpinLook spin;
    std::array<TargetLook, kTargets> targets{};
    RedBlackLook redBlack;

    bool operator==(const Scene&) const = default;
};
