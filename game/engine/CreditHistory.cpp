#include "game/engine/CreditHistory.h"

#include <algorithm>

#include "core/paytable/PayTable.h"

void CreditHistory::Begin() { *this = CreditHistory(); }

void CreditHistory::Record(std::int64_t hand, std::int64_t credits, double coin, int bet) {
    const double gain = Dollars(credits, coin);
    const Stretch now{gain, gain, gain};
    if (hand <= hands) {
        if (stretches.empty()) return;
        if (handsPerStretch == 1) stretches.pop_back();
    } else {
        const bool full = hands % handsPerStretch == 0;
        if (full && stretches.size() == kMostStretches) HalveResolution();
        if (full) wagers.push_back(wagers.empty() ? Wagers() : wagers.back());
        ++hands;
        AddWager(bet * coin, bet == kFullBet);
    }
    const auto needed = static_cast<std::size_t>((hands + handsPerStretch - 1) / handsPerStretch);
    if (stretches.size() < needed) return stretches.push_back(now);
    Stretch& last = stretches.back();
    last.lowest = std::min(last.lowest, gain);
    last.highest = std::max(last.highest, gain);
    last.last = gain;
}

void CreditHistory::LeaveCoin(std::int64_t credits, double coin) {
    dollarsBefore = Dollars(credits, coin);
    creditsBefore = credits;
}

double CreditHistory::Dollars(std::int64_t credits, double coin) const {
    return dollarsBefore + static_cast<double>(credits - creditsBefore) * coin;
}

// To the hand that was begun last.
void CreditHistory::AddWager(double dollars, bool isFull) {
    Wagers& sums = wagers.back();
    (isFull ? sums.fullBets : sums.otherBets) += dollars;
    (isFull ? sums.fullSquares : sums.otherSquares) += dollars * dollars;
}

void CreditHistory::HalveResolution() {
    for (std::size_t i = 0; i < stretches.size() / 2; ++i) {
        const Stretch& first = stretches[2 * i];
        const Stretch& second = stretches[2 * i + 1];
        stretches[i] = {std::min(first.lowest, second.lowest),
                        std::max(first.highest, second.highest), second.last};
        wagers[i] = wagers[2 * i + 1];
    }
    stretches.resize(stretches.size() / 2);
    wagers.resize(stretches.size());
    handsPerStretch *= 2;
}
