#include "core/analysis/HoldCounts.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

#include "core/analysis/WideVectors.h"

namespace {

constexpr int kBehindBit = 32;  // the mark of a card beside the five positions

// A card and the bit of its place, so that sorting by number sorts by card.
class PlacedCard {
  public:
    PlacedCard() = default;
    PlacedCard(SetCard card, int bit)
        : number(static_cast<std::uint32_t>((card.kind * kSuits + card.suit) << 8 | bit)) {}

    int Bit() const { return static_cast<int>(number & 0xFF); }
    SetCard Card() const {
        const std::uint32_t card = number >> 8;
        return {static_cast<std::uint8_t>(card / kSuits), static_cast<std::uint8_t>(card % kSuits)};
    }
    auto operator<=>(const PlacedCard&) const = default;

  private:
    std::uint32_t number = 0;
};

template <std::size_t N>
void Sort(std::array<PlacedCard, N>& cards) {
    for (std::size_t i = 1; i < N; ++i) {
        const PlacedCard card = cards[i];
        std::size_t at = i;
        for (; at > 0 && card < cards[at - 1]; --at) cards[at] = cards[at - 1];
        cards[at] = card;
    }
}

// The keys of all subsets of N cards, and the bits of their places.
template <std::size_t N>
struct Subsets {
    static constexpr std::size_t kCount = std::size_t{1} << N;
    std::array<std::uint32_t, kCount> keys{};  // of subsets of at most five cards
    std::array<int, kCount> bits{};

    explicit Subsets(std::array<PlacedCard, N>& cards) {
        Sort(cards);
        AddAll(cards, std::make_index_sequence<kCount - 1>());
    }

  private:
    template <std::size_t... Is>
    void AddAll(const std::array<PlacedCard, N>& cards, std::index_sequence<Is...>) {
        (Add<Is + 1>(cards), ...);
    }

    // In sorted order the last card of a subset takes the place behind the others.
    template <std::size_t Subset>
    void Add(const std::array<PlacedCard, N>& cards) {
        constexpr std::size_t last = std::bit_width(Subset) - 1;
        constexpr std::size_t others = Subset ^ (std::size_t{1} << last);
        constexpr int place = std::popcount(others);
        bits[Subset] = bits[others] | cards[last].Bit();
        if constexpr (place < SetKey::kPlaces) {
            keys[Subset] = keys[others] + SetKey::Add(place, cards[last].Card());
        }
    }
};

// Reads the counts of all proper subsets of five cards, none of them left out: written out one by
// one the subsets' sizes are known to the compiler. Inlined, so that it is compiled as widely as
// its caller.
template <std::size_t... Is>
[[gnu::always_inline]] inline void ReadSubsets(const LineTables& tables,
                                               const Subsets<kHandSize>& subsets,
                                               HoldCounts& counts, std::index_sequence<Is...>) {
    (tables.Read<std::popcount(Is)>(subsets.keys[Is],
                                    counts[static_cast<std::size_t>(subsets.bits[Is])]),
     ...);
}

void CountOne(int line, LineCounts& counts) {
    counts.fill(0);
    counts[LaneOf(line)] = 1;
}

// Inclusion and exclusion: from the hands that hold the held cards to those that hold none of the
// discarded ones besides.
inline void TakeOutDiscards(HoldCounts& counts) {
    for (std::size_t bit = 1; bit < kHolds; bit *= 2) {
        for (std::size_t mask = 0; mask < kHolds; ++mask) {
            if ((mask & bit) != 0) continue;
            for (std::size_t lane = 0; lane < kLanes; ++lane) {
                counts[mask][lane] -= counts[mask | bit][lane];
            }
        }
    }
}

std::array<PlacedCard, kHandSize> Place(const LineTables& tables, const Hand& hand) {
    std::array<PlacedCard, kHandSize> placed;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        placed[i] = PlacedCard(tables.ToSetCard(hand[i]), PositionBit(i));
    }
    return placed;
}

int LineOf(const LineTables& tables, const std::array<PlacedCard, kHandSize>& sorted) {
    SortedCards cards;
    for (std::size_t i = 0; i < kHandSize; ++i) cards[i] = sorted[i].Card();
    return tables.LineOfFive(cards);
}

int LineOf(const LineTables& tables, const Hand& hand) {
    auto placed = Place(tables, hand);
    Sort(placed);
    return LineOf(tables, placed);
}

}  // namespace

TOLVANE_WIDE_VECTORS
void CountDraws(const LineTables& tables, const Hand& hand, HoldCounts& counts) {
    auto placed = Place(tables, hand);
    const Subsets<kHandSize> subsets(placed);
    ReadSubsets(tables, subsets, counts, std::make_index_sequence<kStandPat>());
    CountOne(LineOf(tables, placed), counts[kStandPat]);
    TakeOutDiscards(counts);
}

TOLVANE_WIDE_VECTORS
void CountDrawsBehind(const LineTables& tables, const Hand& hand, CardFace firstDraw,
                      HoldCounts& counts) {
    std::array<PlacedCard, kHandSize + 1> placed;
    std::ranges::copy(Place(tables, hand), placed.begin());
    placed[kHandSize] = PlacedCard(tables.ToSetCard(firstDraw), kBehindBit);
    const Subsets<kHandSize + 1> subsets(placed);
    for (std::size_t subset = 0; subset < subsets.kCount; ++subset) {
        const int bits = subsets.bits[subset];
        const int size = std::popcount(subset);
        if ((bits & kBehindBit) == 0 || size > kHandSize) continue;
        LineCounts& target = counts[static_cast<std::size_t>(bits - kBehindBit)];
        if (size < kHandSize) {
            tables.ReadClass(size, tables.Classes(size).ClassOf(subsets.keys[subset]), target);
            continue;
        }
        std::array<PlacedCard, kHandSize> five;
        std::ranges::copy_if(placed, five.begin(),
                             [bits](PlacedCard card) { return (card.Bit() & bits) != 0; });
        CountOne(LineOf(tables, five), target);
    }
    counts[kStandPat].fill(0);  // the known card makes six of five held ones
    TakeOutDiscards(counts);
    CountOne(LineOf(tables, hand), counts[kStandPat]);
}

void CountPileDraws(const LineTables& tables, const std::array<CardFace, 3>& held, CardFace other,
                    LineCounts& counts) {
    std::array<PlacedCard, 3> three;
    std::array<PlacedCard, 4> four;
    for (std::size_t i = 0; i < held.size(); ++i) {
        four[i] = three[i] = PlacedCard(tables.ToSetCard(held[i]), 0);
    }
    four.back() = PlacedCard(tables.ToSetCard(other), 0);
    LineCounts withOther;
    tables.Read<3>(Subsets<3>(three).keys.back(), counts);
    tables.Read<4>(Subsets<4>(four).keys.back(), withOther);
    for (std::size_t lane = 0; lane < kLanes; ++lane) counts[lane] -= withOther[lane];
}
