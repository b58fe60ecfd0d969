// What the table shows at one moment, as plain data: all but the pay table, which does not change
// while it is played on. Whatever is painted is painted from a scene, so a step of an animation and
// a repaint of the whole window cannot come to look different.
#pragma once
#include <array>
#include <string>

#include "game/GameTable.h"
#include "ui/art/Pictures.h"

enum class ButtonLook { kHidden, kReleased, kPressed };
inline constexpr int kTableButtons = 5;

inline constexpr int kCoinColumns = 5;

// A plain line shows what it pays for each bet, and has neither payout nor column here.
struct LineLook {
    LineMark mark = LineMark::kPlain;
    int payout = 0;  // announced, in credits
    int column = 0;  // 0..4, where it is announced; bets above five coins share the fifth

    bool operator==(const LineLook&) const = default;
};

// One of the five places from the left: a card, or a pile of Pick 'Em.
struct PlaceLook {
    CardCode card = kNoCard;  // kNoCard leaves what lies under it in sight
    bool pileTop = false;     // shows the second face
    int pileDepth = 0;        // of the stack under the card: 0 none, 1 a card back, 2 a stack
    std::string label;        // across the top of a pile; may be empty
    bool held = false;
    ButtonLook holdButton = ButtonLook::kReleased;

    bool operator==(const PlaceLook&) const = default;
};

struct DoubleUpLook {
    bool shown = false;  // then nothing is seen but this and the places
    int stake = 0;       // credits
    int doubleUpTo = 0;

    bool operator==(const DoubleUpLook&) const = default;
};

struct SpinLook {
    SpinButton button = SpinButton::kHidden;
    bool window = false;  // of the value
    std::string value;

    bool operator==(const SpinLook&) const = default;
};

struct TargetLook {
    TargetFace face = TargetFace::kGone;
    int value = 0;  // credits; 0 while it is not seen

    bool operator==(const TargetLook&) const = default;
};

struct RedBlackLook {
    bool shown = false;
    CardColour lit = CardColour::kNone;
    CardColour choice = CardColour::kNone;  // kNone shows "?"

    bool operator==(const RedBlackLook&) const = default;
};

struct TableScene {
    std::string message = "PRESS DEAL";
    std::string credits;
    std::string bet;
    double coin = 1.0;  // dollars

    std::array<LineLook, kMaxPayLines> lines{};
    bool charlie = false;
    std::array<PlaceLook, kHandSize> places{};
    CardCode firstDraw = kNoCard;  // with its label; kNoCard shows neither
    // By TableButton. The HOLD buttons look as their places say, and their entry stays hidden.
    std::array<ButtonLook, kTableButtons> buttons{ButtonLook::kReleased, ButtonLook::kReleased,
                                                  ButtonLook::kReleased, ButtonLook::kHidden,
                                                  ButtonLook::kHidden};

    DoubleUpLook doubleUp;
    std::string featureLabel;  // across the fifth card
    SpinLook spin;
    std::array<TargetLook, kTargets> targets{};
    RedBlackLook redBlack;

    ButtonLook& Button(TableButton button) { return buttons[static_cast<std::size_t>(button)]; }
    ButtonLook Button(TableButton button) const {
        return buttons[static_cast<std::size_t>(button)];
    }

    bool operator==(const TableScene&) const = default;
};

// What the table shows while nothing moves, all of it found in the state of the machine but the
// message. While a double up waits for a card, the lines, buttons and features are left out.
TableScene SceneOf(const GameTable& table, const std::string& message);

// The table as a double up clears it: its amounts and HOLD buttons, and no cards yet.
TableScene DoubleUpScene(const GameTable& table, const std::string& message, int stake,
                         int doubleUpTo);

// The column of the current bet, 0..4.
int BetColumn(const GameEngine& engine);
