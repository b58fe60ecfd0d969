// The rows that a chart of a table may be made of: every hold in the words of docs/strategy.md that
// some hand has, with up to two further words. Rows that cover the same holds are one, in the
// plainest of their words.
#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "core/strategy/LookIndex.h"
#include "core/strategy/Words.h"

struct Candidate {
    static constexpr std::uint32_t kNone = UINT32_MAX;

    Row row;
    std::vector<std::uint32_t> looks;  // numbers of the index that the row fits, rising
    // Candidates before this one that fit all of its looks and more: its hold with a word less.
    std::array<std::uint32_t, 2> wider = {kNone, kNone};
};

// A hold with each of its words, and what these leave of its looks.
struct WordedHold {
    using Bits = std::vector<std::uint64_t>;  // by place among the looks

    Row row;
    std::vector<std::uint32_t> looks;
    std::vector<Word> words;  // those that leave some looks and not all
    std::vector<Bits> bits;   // by word

    std::vector<std::uint32_t> Chosen(const Bits& chosen) const;
};

// Plain ones first, as everywhere below; the order is the same for the same table.
std::vector<WordedHold> MakeWordedHolds(const Terms& terms, const PayTable& table,
                                        const LookIndex& index, const Wording& wording);

// Those that fit a look of use at least, and always that which discards everything.
std::vector<Candidate> MakeCandidates(std::span<const WordedHold> holds,
                                      const std::function<bool(std::uint32_t)>& isOfUse);
