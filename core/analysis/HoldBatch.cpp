#include "core/analysis/HoldBatch.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <optional>
#include <span>

#include "core/analysis/WideVectors.h"

namespace {

constexpr auto kSizeOf = [] {
    std::array<std::size_t, kHolds> sizes{};
    for (std::size_t subset = 0; subset < kHolds; ++subset) {
        sizes[subset] = static_cast<std::size_t>(std::popcount(subset));
    }
    return sizes;
}();

std::size_t Drawn(std::size_t held) { return kHandSize - kSizeOf[held]; }

// Inclusion and exclusion: a hold's draws are the hands that hold its cards and an even number of
// the discards besides, less those that hold an odd number of them.
struct Term {
    std::uint8_t subset = 0;
    bool subtracted = false;
};

// The terms of all holds one after the other; the last of each is the subset of all five cards.
struct Terms {
    std::array<Term, 243> terms{};  // a card is held, or discarded and met, or discarded and not
    std::array<std::uint8_t, kHolds + 1> first{};

    constexpr Terms() {
        std::size_t count = 0;
        for (std::size_t held = 0; held < kHolds; ++held) {
            first[held] = static_cast<std::uint8_t>(count);
            for (std::size_t subset = held; subset < kHolds; ++subset) {
                if ((subset & held) != held) continue;
                terms[count++] = {static_cast<std::uint8_t>(subset),
                                  std::popcount(subset ^ held) % 2 == 1};
            }
        }
        first[kHolds] = static_cast<std::uint8_t>(count);
    }
    std::span<const Term> Of(std::size_t held) const {
        return {&terms[first[held]], &terms[0] + first[held + 1]};
    }
};
constexpr Terms kTerms;

// Eight whole numbers beside each other, and as many that are compared.
template <typename Number>
struct Eights;
template <>
struct Eights<std::uint32_t> {
    using Worth = std::uint32_t __attribute__((vector_size(32)));
    using Signed = std::int32_t __attribute__((vector_size(32)));
    using Real = float __attribute__((vector_size(32)));
};
template <>
struct Eights<std::uint64_t> {
    using Worth = std::uint64_t __attribute__((vector_size(64)));
    using Signed = std::int64_t __attribute__((vector_size(64)));
    using Real = float __attribute__((vector_size(32)));
};
using Bits = std::uint32_t __attribute__((vector_size(32)));

constexpr std::size_t kBehindLast = 16;  // numbers that a look-up may read behind the last

// A table of worths for a subset, and what each of eight hands looks up in it.
template <typename Number>
struct LookUp {
    const Number* worths = nullptr;
    const std::uint32_t* classes = nullptr;
    std::size_t count = 0;  // of the worths

    using Worth = typename Eights<Number>::Worth;

    [[gnu::always_inline]] void Eight(std::size_t hand, Worth& found) const {
        for (std::size_t i = 0; i < kColumnsAtOnce; ++i) found[i] = worths[classes[hand + i]];
    }
};

#if defined(__GNUC__) && !defined(__clang__)
// Where suits are interchangeable there are at most fifteen classes of the same kinds: they fit
// into two vectors, which processors look eight numbers up in at once.
template <>
[[gnu::always_inline]] inline void LookUp<std::uint32_t>::Eight(std::size_t hand,
                                                                Worth& found) const {
    Worth numbers;
    std::memcpy(&numbers, classes + hand, sizeof numbers);
    Worth low;
    std::memcpy(&low, worths, sizeof low);
    if (count <= kColumnsAtOnce) {
        found = __builtin_shuffle(low, numbers);
    } else if (count <= 2 * kColumnsAtOnce) {
        Worth high;
        std::memcpy(&high, worths + kColumnsAtOnce, sizeof high);
        found = __builtin_shuffle(low, high, numbers);
    } else {
        for (std::size_t i = 0; i < kColumnsAtOnce; ++i) found[i] = worths[numbers[i]];
    }
}
#endif

// What eight hands are found to be.
template <typename Number>
struct Found {
    typename Eights<Number>::Worth coins[kHolds];  // by hold
    Bits best;                                     // the holds that can be the best, as bits
};

// A hold's return that falls short of the greatest by this part of it is smaller, however it is
// rounded: whole numbers, scales and their products are each right to 2^-24 of them.
constexpr float kNearGreatest = 1.0F - 0x1p-20F;

template <typename Number>
[[gnu::always_inline]] inline void FindEight(const LookUp<Number>* lookUps, std::size_t hand,
                                             const float* scales, Found<Number>& found) {
    using Eight = Eights<Number>;
    typename Eight::Worth coins[kHolds];
    coins[0] = typename Eight::Worth{} + lookUps[0].worths[0];
#pragma GCC unroll 32
    for (std::size_t subset = 1; subset < kHolds; ++subset) {
        lookUps[subset].Eight(hand, coins[subset]);
    }
#pragma GCC unroll 5
    for (std::size_t bit = 1; bit < kHolds; bit *= 2) {
#pragma GCC unroll 32
        for (std::size_t subset = 0; subset < kHolds; ++subset) {
            if ((subset & bit) == 0) coins[subset] -= coins[subset | bit];
        }
    }
    typename Eight::Real returns[kHolds];
    typename Eight::Real greatest{};
#pragma GCC unroll 32
    for (std::size_t held = 0; held < kHolds; ++held) {
        found.coins[held] = coins[held];
        const auto whole = (typename Eight::Signed)coins[held];
        returns[held] = __builtin_convertvector(whole, typename Eight::Real) * scales[held];
        greatest = returns[held] > greatest ? returns[held] : greatest;
    }
    greatest *= kNearGreatest;
    Bits best{};
#pragma GCC unroll 32
    for (std::size_t held = 0; held < kHolds; ++held) {
        best |= (Bits)(returns[held] >= greatest) & (1U << held);
    }
    found.best = best;
}

TOLVANE_WIDE_VECTORS
void Find(const LookUp<std::uint32_t>* lookUps, std::size_t hand, const float* scales,
          Found<std::uint32_t>& found) {
    FindEight(lookUps, hand, scales, found);
}

TOLVANE_WIDE_VECTORS
void Find(const LookUp<std::uint64_t>* lookUps, std::size_t hand, const float* scales,
          Found<std::uint64_t>& found) {
    FindEight(lookUps, hand, scales, found);
}

}  // namespace

BatchGame::BatchGame(const LineTables& tables, const PayTable& table, int bet, double coin)
    : tables(tables),
      worths(tables, table, bet),
      coin(coin),
      tieRule(table.type == GameType::kDoubleDraw ? TieRule::kLowerMask : TieRule::kWinRate) {
    if (worths.OfAllHands() <= std::numeric_limits<std::int32_t>::max()) {
        narrow.assign(worths.worths.begin(), worths.worths.end());
        narrow.resize(narrow.size() + kBehindLast);
    }
    const bool odd = !(coin > 1e-100 && coin < 1e100);
    for (std::size_t hold = 0; hold < kHolds; ++hold) {
        scales[hold] = odd ? 0 : 1 / static_cast<float>(worths.draws[Drawn(hold)]);
    }
}

// The keys of all subsets of the kinds, written out one by one, so that their sizes and places are
// known to the compiler.
template <std::size_t... Subsets>
void HoldBatch::SetFirstRows(std::index_sequence<Subsets...>) {
    const LineTables& tables = game.tables;
    std::array<std::uint32_t, kHolds> keys{};
    const auto set = [&]<std::size_t Subset>(std::integral_constant<std::size_t, Subset>) {
        constexpr std::size_t last = std::bit_width(Subset) - 1;
        constexpr std::size_t others = Subset ^ (std::size_t{1} << last);
        constexpr int place = std::popcount(others);
        keys[Subset] = keys[others] + SetKey::Add(place, {kinds.kinds[last], 0});
        firstRow[Subset] = static_cast<std::uint32_t>(tables.FirstRow(place + 1));
        if constexpr (Subset != kAllFive) {
            firstRow[Subset] += tables.Classes(place + 1).Of(SetKey::Kinds(keys[Subset])).first;
        }
    };
    (set(std::integral_constant<std::size_t, Subsets + 1>()), ...);
    const auto lines = tables.LinesOfKinds(SetKey::Kinds(keys[kAllFive]));
    for (std::size_t view = 0; view < lines.size(); ++view) {
        laneOfView[view] = static_cast<std::uint8_t>(LaneOf(lines[view]));
    }
}

void HoldBatch::Find(const HandKinds& ofHands, const SuitLayout& suits) {
    kinds = ofHands;
    layout = &suits;
    SetFirstRows(std::make_index_sequence<kAllFive>());
    held.resize(suits.columns);
    returns.resize(suits.columns);
    weights.assign(suits.columns, 0);
    if (game.narrow.empty()) {
        // The same numbers without a sign, which inclusion and exclusion restores.
        FindAll(reinterpret_cast<const std::uint64_t*>(game.worths.worths.data()));
    } else {
        FindAll(game.narrow.data());
    }
}

template <typename Number>
void HoldBatch::FindAll(const Number* worths) {
    std::array<Number, LineTables::kViews> worthOfView{};
    for (std::size_t view = 0; view < worthOfView.size(); ++view) {
        worthOfView[view] = worths[firstRow[kAllFive] + laneOfView[view]];
    }
    std::array<LookUp<Number>, kHolds> lookUps;
    for (std::size_t subset = 0; subset < kHolds; ++subset) {
        lookUps[subset] = {worths + firstRow[subset], layout->Classes(subset),
                           layout->classCounts[subset]};
    }
    lookUps[kAllFive].worths = worthOfView.data();
    Found<Number> found;
    std::array<std::int64_t, kHolds> coins;
    for (std::size_t first = 0; first < layout->columns; first += kColumnsAtOnce) {
        ::Find(lookUps.data(), first, game.scales.data(), found);
        const std::size_t count = std::min(kColumnsAtOnce, layout->columns - first);
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint32_t candidates = found.best[i];
            auto best = static_cast<std::size_t>(std::countr_zero(candidates));
            if ((candidates & (candidates - 1)) != 0) {
                for (std::size_t hold = 0; hold < kHolds; ++hold) {
                    coins[hold] = static_cast<std::int64_t>(found.coins[hold][i]);
                }
                best = Settle(first + i, candidates, coins);
            }
            held[first + i] = static_cast<std::uint8_t>(best);
            returns[first + i] = ReturnOf(best, static_cast<std::int64_t>(found.coins[best][i]));
        }
    }
}

// One quotient and one product, as AnalyzeHand has them, so that equal returns are equal numbers.
double HoldBatch::ReturnOf(std::size_t hold, std::int64_t coins) const {
    return static_cast<double>(coins) / static_cast<double>(game.worths.draws[Drawn(hold)]) *
           game.coin;
}

std::size_t HoldBatch::Settle(std::size_t column, std::uint32_t candidates,
                              const std::array<std::int64_t, kHolds>& coins) const {
    const auto returnOf = [&](std::size_t hold) { return ReturnOf(hold, coins[hold]); };
    double greatest = -std::numeric_limits<double>::infinity();
    for (std::uint32_t left = candidates; left != 0; left &= left - 1) {
        const auto hold = static_cast<std::size_t>(std::countr_zero(left));
        greatest = std::max(greatest, returnOf(hold));
    }
    std::optional<std::size_t> best;
    double bestRate = 0;
    for (std::uint32_t left = candidates; left != 0; left &= left - 1) {
        const auto hold = static_cast<std::size_t>(std::countr_zero(left));
        if (returnOf(hold) != greatest) continue;
        if (hold == kAllFive) return hold;
        const double rate = game.tieRule == TieRule::kWinRate ? WinRate(column, hold) : 0;
        const bool lower = best && MaskOf(hold) < MaskOf(*best);
        if (!best || rate > bestRate || (rate == bestRate && lower)) {
            best = hold;
            bestRate = rate;
        }
    }
    return best.value_or(kAllFive);
}

double HoldBatch::WinRate(std::size_t column, std::size_t hold) const {
    const std::int64_t total = game.worths.draws[Drawn(hold)];
    LineCounts counts;
    CountLinesOf(column, hold, counts);
    return static_cast<double>(total - counts[kNothingLane]) / static_cast<double>(total);
}

HoldMask HoldBatch::MaskOf(std::size_t hold) const {
    HoldMask mask = 0;
    for (std::size_t place = 0; place < kHandSize; ++place) {
        if ((hold >> place & 1) != 0) mask |= PositionBit(std::size_t{kinds.positions[place]});
    }
    return mask;
}

std::size_t HoldBatch::CardsDrawn(std::size_t hand) const {
    return Drawn(held[layout->columnOf[hand]]);
}

// The row of a subset of the hands of a column.
std::size_t HoldBatch::Row(std::size_t column, std::size_t subset) const {
    const std::uint32_t number = layout->Classes(subset)[column];
    return firstRow[subset] + (subset == kAllFive ? laneOfView[number] : number);
}

void HoldBatch::CountLines(std::size_t hand, LineCounts& counts) const {
    const std::size_t column = layout->columnOf[hand];
    CountLinesOf(column, held[column], counts);
}

// Numbers that are taken away are so modulo 2^32.
TOLVANE_WIDE_VECTORS
void HoldBatch::CountLinesOf(std::size_t column, std::size_t hold, LineCounts& counts) const {
    counts.fill(0);
    for (const Term term : kTerms.Of(hold)) {
        const std::uint32_t sign = term.subtracted ? ~0U : 1U;
        const auto size = static_cast<int>(kSizeOf[term.subset]);
        const std::size_t row = Row(column, term.subset) - game.tables.FirstRow(size);
        if (term.subset == kAllFive) {
            counts[row] += sign;
            continue;
        }
        LineCounts with;
        game.tables.ReadClass(size, static_cast<std::uint32_t>(row), with);
        for (std::size_t lane = 0; lane < kLanes; ++lane) counts[lane] += sign * with[lane];
    }
}

// Most hands that are played alike have the same rows; others are counted to be compared.
bool HoldBatch::AreAlike(std::size_t a, std::size_t b) const {
    const std::size_t columnA = layout->columnOf[a];
    const std::size_t columnB = layout->columnOf[b];
    if (columnA == columnB) return true;
    if (held[columnA] != held[columnB] || returns[columnA] != returns[columnB]) return false;
    if (std::ranges::all_of(kTerms.Of(held[columnA]), [&](Term term) {
            return Row(columnA, term.subset) == Row(columnB, term.subset);
        })) {
        return true;
    }
    LineCounts countsA;
    LineCounts countsB;
    CountLines(a, countsA);
    CountLines(b, countsB);
    return countsA == countsB;
}

void HoldBatch::AddDraws(std::int64_t factor, DrawSums& sums) const {
    for (std::size_t column = 0; column < layout->columns; ++column) {
        const std::size_t hold = held[column];
        const std::int64_t hands = weights[column] * factor;
        std::int64_t* const times = sums.Of(Drawn(hold), hands);
        const auto terms = kTerms.Of(hold);
        const std::uint32_t* const classes = layout->classes.data() + column;
        for (const Term term : terms.first(terms.size() - 1)) {
            const std::size_t row = firstRow[term.subset] + classes[term.subset * layout->stride];
            times[row] += term.subtracted ? -hands : hands;
        }
        times[Row(column, kAllFive)] += terms.back().subtracted ? -hands : hands;
    }
}
