#include "game/CreditHistory.h"

#include <algorithm>

void CreditHistory::Begin(std::int32_t credits, std::int64_t before) {
    stretches.clear();
    handsPerStretch = 1;
    handsBefore = before;
    hands = 0;
    start = credits;
}

void CreditHistory::Record(std::int64_t hand, std::int32_t credits) {
    const Stretch now{credits, credits, credits};
    if (hand - handsBefore <= hands) {
        if (stretches.empty()) {
            start = credits;
            return;
        }
        if (handsPerStretch == 1) stretches.pop_back();
    } else {
        const bool full = hands % handsPerStretch == 0;
        if (full && stretches.size() == kMostStretches) HalveResolution();
        ++hands;
    }
    const auto needed = static_cast<std::size_t>((hands + handsPerStretch - 1) / handsPerStretch);
    if (stretches.size() < needed) return stretches.push_back(now);
    Stretch& last = stretches.back();
    last.lowest = std::min(last.lowest, credits);
    last.highest = std::max(last.highest, credits);
    last.last = credits;
}

void CreditHistory::HalveResolution() {
    for (std::size_t i = 0; i < stretches.size() / 2; ++i) {
        const Stretch& first = stretches[2 * i];
        const Stretch& second = stretches[2 * i + 1];
        stretches[i] = {std::min(first.lowest, second.lowest),
                        std::max(first.highest, second.highest), second.last};
    }
    stretches.resize(stretches.size() / 2);
    handsPerStretch *= 2;
}
