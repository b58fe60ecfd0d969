// The essentially different ways to give suits to the ranks of a starting hand, and how many hands
// each stands for. A whole-game analysis plays one hand of each instead of all: 135,746 for
// 2,598,960.
//
// There is a table of rows for each shape of hand. It is built so:
// 1. All assignments of suits to the ranks are gone through, each once: of equal ranks the suits
//    rise.
// 2. An assignment belongs to the row of its key. The key is the least of the assignments that a
//    renaming of the four suits makes of it; a few tables have rows that are wider or narrower.
// 3. Inside its row it belongs to the variant of all assignments that the pay table cannot tell
//    from it, which a renaming of interchangeable suits makes of it. The analysis plays one of each
//    variant and counts it as often as the variant has assignments.
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "core/analysis/CardSets.h"
#include "core/eval/HandEvaluator.h"
#include "core/paytable/PayTable.h"

// The suits of a hand by position: 1..4 the ordinary suits, 5 the fifth ace's, 0 for a joker and
// for an empty position.
using PositionSuits = std::array<std::uint8_t, kHandSize>;

// Suit assignments that a pay table cannot tell apart.
struct SuitVariant {
    PositionSuits suits{};  // one of them
    int count = 0;          // how many there are
};

// A row stands for the assignments that differ by a renaming of the four suits, or, in hands whose
// best hold cannot make a flush, in suits that no longer matter. Where a pay table tells suits
// apart, by single wild jacks or a line of one colour, the row falls into several variants; the
// rows stay the same.
struct SuitPattern {
    std::vector<SuitVariant> variants;
};

// What selects the table of a hand.
struct HandShape {
    int pairs = 0;   // of natural ranks, wild ranks being ordinary here: 0, 1, 2, 3, 4, 6 or 10
    int jokers = 0;  // in the hand
    int aces = 0;
    std::array<bool, 6> pairedPositions{};  // Pick 'Em: those of kPickEmPairs that have one rank
};

// The pairs of positions that hold cards in Pick 'Em.
inline constexpr std::array<std::array<int, 2>, 6> kPickEmPairs = {
    {{0, 1}, {0, 3}, {0, 4}, {1, 3}, {1, 4}, {3, 4}}};

// The shape of a hand by its ranks, 0 a joker; in Pick 'Em position 2 is empty and its rank does
// not count.
HandShape ShapeOf(const std::array<int, kHandSize>& ranks, GameType type);

// Puts the ranks into the order that the tables of a shape assume: jokers, then the largest group
// of equal ranks, pairs by rising rank, then single ranks rising. Not for Pick 'Em, whose positions
// are the game's.
void ArrangeForPatterns(std::array<int, kHandSize>& ranks);

class SuitPatternTables {
  public:
    static constexpr std::size_t kTables = 49;

    // The tables that the hands of a game can need; the others stay empty.
    explicit SuitPatternTables(const PayTable& table);

    // No rows for a shape that has no table: such ranks are no hand.
    std::span<const SuitPattern> Select(const HandShape& shape) const;

  private:
    GameType type;
    std::array<std::vector<SuitPattern>, kTables> tables;
    std::vector<std::size_t> used;  // their numbers, rising
};
