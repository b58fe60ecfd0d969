#include "core/analysis/BestHold.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <optional>
#include <utility>

#include "core/analysis/AceOrder.h"
#include "core/analysis/Combinations.h"
#include "core/analysis/HoldCounts.h"
#include "core/analysis/WideVectors.h"

namespace {

constexpr std::size_t kAllHeld = 31;

constexpr auto kSizeOf = [] {
    std::array<int, kHolds> sizes{};
    for (std::size_t subset = 0; subset < kHolds; ++subset) sizes[subset] = std::popcount(subset);
    return sizes;
}();

void ReadClass(const LineTables& tables, std::size_t subset, std::uint32_t number,
               LineCounts& counts) {
    switch (kSizeOf[subset]) {
        case 0:
            return tables.Read<0>(0, counts);
        case 1:
            return tables.ReadClass<1>(number, counts);
        case 2:
            return tables.ReadClass<2>(number, counts);
        case 3:
            return tables.ReadClass<3>(number, counts);
        default:
            return tables.ReadClass<4>(number, counts);
    }
}

std::size_t LaneOf(int line) { return line < 0 ? kNothingLane : static_cast<std::size_t>(line); }

}  // namespace

bool BestHoldFinder::Serves(const PayTable& table) {
    return table.type != GameType::kPickEm && table.type != GameType::kDoubleDraw &&
           table.type != GameType::kAcesBonus && table.gameId != kSneakPeakGameId &&
           AceLine(table) < 0;
}

BestHoldFinder::BestHoldFinder(const LineTables& tables, const PayTable& table, int bet,
                               double coin)
    : tables(tables), coin(coin) {
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        pays[i] = LineUnitPay(table, static_cast<int>(i), bet);
    }
    const auto worthOf = [this](const LineCounts& counts) {
        return std::inner_product(counts.begin(), counts.end(), pays.begin(), std::int64_t{0});
    };
    LineCounts counts;
    for (std::size_t subset = 0; subset < kAllHeld; subset = subset * 2 + 1) {  // one of each size
        const int size = kSizeOf[subset];
        const std::uint32_t classes = size == 0 ? 1 : tables.Classes(size).Count();
        auto& worths = worth[static_cast<std::size_t>(size)];
        worths.reserve(classes);
        for (std::uint32_t number = 0; number < classes; ++number) {
            ReadClass(tables, subset, number, counts);
            worths.push_back(worthOf(counts));
        }
    }
    for (int drawn = 0; drawn <= kHandSize; ++drawn) {
        totalByDrawn[static_cast<std::size_t>(drawn)] =
            drawn == 0 ? 1 : Combinations(tables.DeckSize() - kHandSize, drawn);
    }
    for (std::size_t held = 0; held < kSubsets; ++held) {
        totals[held] = static_cast<double>(TotalFor(held));
    }
}

std::int64_t BestHoldFinder::TotalFor(std::size_t held) const {
    return totalByDrawn[static_cast<std::size_t>(kHandSize - kSizeOf[held])];
}

void BestHoldFinder::SetKinds(const std::array<std::uint8_t, kHandSize>& kinds) {
    std::iota(positionOfPlace.begin(), positionOfPlace.end(), std::size_t{0});
    std::ranges::stable_sort(positionOfPlace, {}, [&](std::size_t at) { return kinds[at]; });
    for (std::size_t i = 0; i < kHandSize; ++i) sortedKinds[i] = kinds[positionOfPlace[i]];
    for (std::size_t subset = 1; subset < kAllHeld; ++subset) {
        std::uint32_t key = 0;
        int place = 0;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            if ((subset >> i & 1) != 0) key += SetKey::Add(place++, {sortedKinds[i], 0});
        }
        ofKinds[subset] = tables.Classes(place).Of(SetKey::Kinds(key));
    }
}

// Every subset's worth by its class; then inclusion and exclusion leaves what the draws of a hold
// are worth.
void BestHoldFinder::LookUp(const SortedCards& cards) {
    std::array<std::uint32_t, kSubsets> suits{};
    coins[0] = worth[0][0];
    for (std::size_t i = 0; i < kHandSize; ++i) {
        const std::size_t last = std::size_t{1} << i;
        for (std::size_t others = 0; others < last && (others | last) != kAllHeld; ++others) {
            const std::size_t subset = others | last;
            suits[subset] = suits[others] | static_cast<std::uint32_t>(cards[i].suit)
                                                << (2 * kSizeOf[others]);
            classOf[subset] = ofKinds[subset].ClassOf(suits[subset]);
            coins[subset] = worth[static_cast<std::size_t>(kSizeOf[subset])][classOf[subset]];
        }
    }
    line = tables.LineOfFive(cards);
    coins[kAllHeld] = pays[LaneOf(line)];
}

TOLVANE_WIDE_VECTORS
void BestHoldFinder::ComputeReturns(Returns& returns) {
    for (std::size_t bit = 1; bit < kSubsets; bit *= 2) {
        for (std::size_t subset = 0; subset < kSubsets; ++subset) {
            if ((subset & bit) == 0) coins[subset] -= coins[subset | bit];
        }
    }
    for (std::size_t held = 0; held < kSubsets; ++held) {
        returns[held] = static_cast<double>(coins[held]) / totals[held] * coin;
    }
}

HoldMask BestHoldFinder::MaskOf(std::size_t held) const {
    HoldMask mask = 0;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if ((held >> i & 1) != 0) mask |= 16 >> positionOfPlace[i];
    }
    return mask;
}

double BestHoldFinder::WinRate(std::size_t held) const {
    LineCounts counts;
    CountLines(held, counts);
    const std::int64_t total = TotalFor(held);
    return static_cast<double>(total - counts[kNothingLane]) / static_cast<double>(total);
}

// Standing pat wins a tie, otherwise the larger share of winning draws, then the lower mask.
std::size_t BestHoldFinder::Choose(const Returns& returns) const {
    const double greatest = *std::ranges::max_element(returns);
    if (returns[kAllHeld] == greatest) return kAllHeld;
    const auto first =
        static_cast<std::size_t>(std::ranges::find(returns, greatest) - returns.begin());
    if (std::ranges::count(returns, greatest) == 1) return first;
    std::size_t best = first;
    double bestRate = WinRate(first);
    for (std::size_t held = first + 1; held < kSubsets; ++held) {
        if (returns[held] != greatest) continue;
        const double rate = WinRate(held);
        if (rate > bestRate || (rate == bestRate && MaskOf(held) < MaskOf(best))) {
            best = held;
            bestRate = rate;
        }
    }
    return best;
}

// The draws of one hold, by inclusion and exclusion over its discards.
TOLVANE_WIDE_VECTORS
void BestHoldFinder::CountLines(std::size_t held, LineCounts& counts) const {
    counts.fill(0);
    const std::size_t discards = kAllHeld ^ held;
    for (std::size_t out = discards;; out = (out - 1) & discards) {
        LineCounts with{};
        if ((held | out) == kAllHeld) {
            with[LaneOf(line)] = 1;
        } else {
            ReadClass(tables, held | out, classOf[held | out], with);
        }
        const std::uint32_t sign = kSizeOf[out] % 2 == 0 ? 1U : ~0U;
        for (std::size_t lane = 0; lane < kLanes; ++lane) counts[lane] += sign * with[lane];
        if (out == 0) return;
    }
}

void BestHoldFinder::Play(const std::array<std::uint8_t, kHandSize>& suits, BestHold& best) {
    SortedCards cards;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        cards[i] = {sortedKinds[i], suits[positionOfPlace[i]]};
    }
    LookUp(cards);
    Returns returns;
    ComputeReturns(returns);
    const std::size_t held = Choose(returns);
    best.mask = MaskOf(held);
    best.cardsDrawn = kHandSize - kSizeOf[held];
    best.expectedReturn = returns[held];
    best.totalHands = TotalFor(held);
    CountLines(held, best.counts);
}
