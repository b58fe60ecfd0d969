#include "core/analysis/GameTally.h"

#include <cmath>
#include <numeric>

namespace {

// Orders of a hand's cards share its weight: every weight is so many parts of a hand, in whole
// numbers.
constexpr std::int64_t kParts = 120;

double WholeHands(std::int64_t parts) {
    return static_cast<double>(parts) / static_cast<double>(kParts);
}

}  // namespace

bool SameDraws(const BestHold& a, const BestHold& b) {
    return a.counts == b.counts && a.expectedReturn == b.expectedReturn;
}

void GameTally::AddDraws(const PlayedHand& hand) {
    const auto drawn = static_cast<std::size_t>(hand.best.cardsDrawn);
    const std::int64_t parts = std::llround(hand.weight * static_cast<double>(kParts));
    handParts[drawn] += parts;
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        drawParts[drawn][lane] += parts * hand.best.counts[lane];
    }
}

void GameTally::Report(const std::vector<PlayedHand>& hands) {
    CountRepresentatives(static_cast<std::int64_t>(hands.size()));
    if (!watcher.hand) return;
    for (const PlayedHand& hand : hands) watcher.hand(hand);
}

void GameTally::Progress(double weight) {
    done += weight;
    if (watcher.progress && !watcher.progress(done, all)) totals.cancelled = true;
}

GameTotals GameTally::Total() const {
    GameTotals total = totals;
    const DrawSums::Sums sums = draws.Total();
    std::array<std::int64_t, kLanes> byLane{};
    std::int64_t hands = 0;
    for (std::size_t drawn = 0; drawn < kDraws; ++drawn) {
        std::int64_t ofDraw = 0;
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            const std::int64_t parts = sums[drawn][lane] * kParts + drawParts[drawn][lane];
            byLane[lane] += parts;
            ofDraw += parts;
            double& to = lane == kNothingLane ? total.nothing[drawn] : total.final[drawn][lane];
            to = WholeHands(parts);
        }
        total.finalHands[drawn] = WholeHands(ofDraw);
        const std::int64_t starting = draws.Hands(drawn) * kParts + handParts[drawn];
        total.initHands[drawn] = WholeHands(starting);
        hands += starting;
    }
    total.initHandsTotal = WholeHands(hands);
    total.nothingTotal = WholeHands(byLane[kNothingLane]);
    for (std::size_t line = 0; line < kMaxPayLines; ++line) {
        total.total[line] = WholeHands(byLane[line]);
    }
    total.finalHandsTotal =
        WholeHands(std::accumulate(byLane.begin(), byLane.end(), std::int64_t{0}));
    return total;
}
