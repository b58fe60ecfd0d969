#include "ui/machine/Highlights.h"

#include <algorithm>

#include "core/paytable/PayTable.h"
#include "game/seat/Seat.h"
#include "ui/machine/Layout.h"

namespace {

constexpr int kBigPay = 160;  // coins for each coin bet
constexpr int kMargin = 8;
constexpr int kBadgeInset = 3;
constexpr QSize kLeastCelebration{150, 70};

bool ShowsFeature(const Scene& scene) {
    const auto seen = [](const TargetLook& target) { return target.face != TargetFace::kGone; };
    return scene.doubleUp.shown || scene.redBlack.shown || scene.spin.window || scene.charlie ||
           scene.firstDraw != kNoCard || std::ranges::any_of(scene.targets, seen);
}

long CountFaces(const Scene& scene, TargetFace face) {
    return std::ranges::count(scene.targets, face, &TargetLook::face);
}

}  // namespace

Waiting WaitingFor(const Scene& scene) {
    return {.colour = scene.redBlack.shown && scene.redBlack.choice == CardColour::kNone,
            .spin = scene.spin.button == SpinButton::kReady,
            .shot = CountFaces(scene, TargetFace::kHidden) > 0 &&
                    CountFaces(scene, TargetFace::kShot) < kShots,
            .pick = scene.doubleUp.shown && PickedPosition(scene) == 0};
}

std::vector<QRect> WaitingPlaces(const Scene& scene, const MachineLayout& layout) {
    const Waiting waiting = WaitingFor(scene);
    std::vector<QRect> places;
    if (waiting.colour) places.push_back(layout.redPanel | layout.blackPanel);
    if (waiting.spin) places.push_back(layout.spinButton);
    for (std::size_t i = 0; i < layout.targets.size() && waiting.shot; ++i) {
        if (scene.targets[i].face == TargetFace::kHidden) places.push_back(layout.targets[i]);
    }
    if (waiting.pick) {
        places.insert(places.end(), layout.holdButtons.begin() + 1, layout.holdButtons.end());
    }
    return places;
}

int BigWinLine(const Scene& scene, const PayTable& table) {
    if (ShowsFeature(scene)) return -1;
    const std::size_t lines = std::min(scene.lines.size(), table.lines.size());
    for (std::size_t i = 0; i < lines; ++i) {
        const bool won = scene.lines[i].mark != LineMark::kPlain;
        if (won && LineCoinPay(table.lines[i]) >= kBigPay) return static_cast<int>(i);
    }
    return -1;
}

QRect CelebrationPlace(const MachineLayout& layout) {
    const QRect panel = layout.PayTablePanel();
    const int top = (layout.coin | layout.plate).bottom() + 1 + kMargin;
    const QPoint start(panel.x() + panel.width() + kMargin, top);
    const QPoint end(layout.deal.right(), layout.heldMarks[0].rect.y() - kMargin);
    const QRect place(start, end);
    const QSize least = kLeastCelebration;
    return place.width() < least.width() || place.height() < least.height() ? QRect() : place;
}

QRect DuelPlate(const MachineLayout& layout, bool dealers) {
    constexpr int kRoomForTwoLines = 5;  // halves of the font's height
    const int height = layout.payFontHeight * kRoomForTwoLines / 2;
    const int room = layout.creditsWonLabel.rect.y() - 2 * kMargin;
    if (height > room) return {};
    const int left = layout.cards.front().x();
    const int width = layout.cards.back().right() + 1 - left;
    const int half = (width - layout.gap) / 2;
    return {dealers ? left : left + width - half, kMargin + (room - height) * 3 / 4, half, height};
}

QRect BadgePlace(const MachineLayout& layout, std::size_t position) {
    const QRect& card = layout.cards[position];
    const int height = card.height() / 5;
    return {card.x() + kBadgeInset, card.y() + card.height() - height - card.height() / 8,
            card.width() - 2 * kBadgeInset, height};
}

// The place of the HELD mark, which no card that leaves has.
int SlideOf(const MachineLayout& layout, std::size_t position) {
    return layout.heldMarks[position].rect.height();
}

std::size_t PickedPosition(const Scene& scene) {
    for (std::size_t i = 1; i < scene.places.size(); ++i) {
        if (scene.places[i].held) return i;
    }
    return 0;
}
