// The best holds of all hands of the same ranks: one of each suit pattern, in the order of the
// patterns.
#pragma once
#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "core/analysis/BestHold.h"
#include "core/analysis/HoldBatch.h"
#include "core/analysis/PatternVariant.h"

class PatternBatches {
  public:
    explicit PatternBatches(const BatchGame& game) : game(game) {}

    // Finds the best holds of the hands of the ranks, which are those of the rows. They are known
    // until the next call.
    std::span<const PatternVariant> Find(const Ranks& ranks, std::span<const SuitPattern> rows);

    double Return(const PatternVariant& variant) const {
        return BatchOf(variant).Return(variant.number);
    }
    BestHold Best(const PatternVariant& variant) const;

    // Whether two variants are played alike.
    bool AreAlike(const PatternVariant& a, const PatternVariant& b) const;

    // Adds the draws of all variants, each so many times as it has assignments times the factor.
    void AddDraws(std::int64_t factor, DrawSums& sums) const;

  private:
    // The variants whose cards are of the same kinds, whatever the ranks: where ranks are those of
    // ordinary cards, a card of the fifth suit is of a kind of its own.
    struct Part {
        std::vector<std::size_t> variants;
        std::map<std::uint64_t, SuitLayout> layouts;  // by the order of the kinds, and what is wild
    };
    struct Table {
        std::vector<PatternVariant> variants;
        std::vector<Part> parts;
    };

    const HoldBatch& BatchOf(const PatternVariant& variant) const { return batches[variant.batch]; }
    Table& TableOf(std::span<const SuitPattern> rows);
    void FindPart(const Ranks& ranks, const Table& table, Part& part, HoldBatch& batch);

    const BatchGame& game;
    std::map<const SuitPattern*, Table> tables;  // by their first row
    std::size_t parts = 0;                       // of the last ranks' table
    std::vector<HoldBatch> batches;              // those of the last ranks, by part
};
