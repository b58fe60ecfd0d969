// What of a scene the player's eye is to be drawn to, and where that is.
#pragma once
#include <QRect>
#include <QRegion>
#include <vector>

struct MachineLayout;
struct PayTable;
struct Scene;

// A glow reaches this far around its place.
inline constexpr int kGlowReach = 5;

inline QRect WithGlow(const QRect& place) {
    return place.adjusted(-kGlowReach, -kGlowReach, kGlowReach, kGlowReach);
}

// All that the light of a card changes: not the middle, which is most of the card.
inline QRegion FrameOfGlow(const QRect& card) {
    const int inside = card.width() / 16 + 5;  // past its round corners
    return QRegion(WithGlow(card)) - card.adjusted(inside, inside, -inside, -inside);
}

// Features and picks that wait to be pressed.
struct Waiting {
    bool colour = false;  // Red or Black
    bool spin = false;
    bool shot = false;
    bool pick = false;  // of a double up

    bool operator==(const Waiting&) const = default;
};
Waiting WaitingFor(const Scene& scene);
std::vector<QRect> WaitingPlaces(const Scene& scene, const MachineLayout& layout);

// The line of a win that is an event: one that pays 160 coins or more for each coin of a full bet,
// such as a royal flush, four deuces, or the best four aces. -1 when none is won, or when a feature
// or a double up has taken its place.
int BigWinLine(const Scene& scene, const PayTable& table);

// Right of the pay table, above the cards. Null where there is no room for it.
QRect CelebrationPlace(const MachineLayout& layout);

// The dealer's and the player's plate of a double up, side by side above the amounts. Null where
// there is no room for them.
QRect DuelPlate(const MachineLayout& layout, bool dealers);

// Across the lower part of a card.
QRect BadgePlace(const MachineLayout& layout, std::size_t position);

// How far a card of the position slides when it leaves or comes.
int SlideOf(const MachineLayout& layout, std::size_t position);

// The position 1..4 that was picked in a double up; 0 before that.
std::size_t PickedPosition(const Scene& scene);
