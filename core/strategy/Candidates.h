// The rows that a chart of a table may be made of: every hold in the words of docs/strategy.md that
// some hand has, with up to two further words. Rows that cover the same holds are one, in the
// plainest of their words.
#pragma once
#include <cstdint>
#include <vector>

#include "core/strategy/Holds.h"
#include "core/strategy/LookIndex.h"

struct Candidate {
    Row row;
    std::vector<std::uint32_t> looks;  // numbers of the index that the row fits, rising
};

struct Wording {
    bool penalties = false;  // conditions on the discards are allowed
};

// Plain rows first; the order is the same for the same table.
std::vector<Candidate> MakeCandidates(const Terms& terms, const PayTable& table,
                                      const LookIndex& index, const Wording& wording);

// The row with one word more, in every way that changes what it fits.
std::vector<Candidate> Refined(const Terms& terms, const PayTable& table, const LookIndex& index,
                               const Wording& wording, const Candidate& candidate);
