// One hand of a suit pattern, whose best hold is found together with those of others.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>

#include "core/analysis/CardSets.h"
#include "core/analysis/SuitPatterns.h"

// The ranks of a hand, 0 a joker, by position.
using Ranks = std::array<int, kHandSize>;

// A card of a deck, or a joker, as sets are made of it; its suit is that of SuitVariant.
inline SetCard ToSetCard(int rank, std::uint8_t suit) {
    if (rank == 0 || suit == kStars) return {kExtraKind, 0};
    return {static_cast<std::uint8_t>(rank - 1), static_cast<std::uint8_t>(suit - 1)};
}

// A variant of a pattern, and where its best hold is found.
struct PatternVariant {
    PositionSuits suits{};
    int count = 0;          // suit assignments that are like it
    std::size_t ofRow = 0;  // so many variants its row has
    std::size_t batch = 0;
    std::size_t number = 0;  // in the batch
};
