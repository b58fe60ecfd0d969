// The better piles of all Pick 'Em deals of the same ranks: the player's two cards are held with
// the top card of one pile, and two are drawn to them. It must always agree with AnalyzeHand.
#pragma once
#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "core/analysis/BestHold.h"
#include "core/analysis/HoldBatch.h"
#include "core/analysis/PatternVariant.h"

class PileBatches {
  public:
    // The game must outlive this.
    explicit PileBatches(const BatchGame& game);

    // As those of PatternBatches; the ranks are those of a deal, position 2 being empty.
    std::span<const PatternVariant> Find(const Ranks& ranks, std::span<const SuitPattern> rows);
    double Return(const PatternVariant& variant) const { return results[variant.number].worth; }
    BestHold Best(const PatternVariant& variant) const;
    bool AreAlike(const PatternVariant& a, const PatternVariant& b) const;
    void AddDraws(std::int64_t factor, DrawSums& sums) const;

  private:
    // The three sets that the draws of the piles are counted from.
    enum Set : std::size_t { kLeft, kRight, kBoth };
    static constexpr std::size_t kSets = 3;
    using Numbers = std::array<std::uint32_t, kSets>;  // by set

    struct Table {
        std::vector<PatternVariant> variants;
        // The classes of the variants' sets among those of their kinds, by the order of the kinds
        // and what is wild.
        std::map<std::uint64_t, std::vector<Numbers>> classes;
    };
    struct Result {
        Numbers rows{};
        Set pile = kLeft;
        double worth = 0;  // dollars
    };

    Table& TableOf(std::span<const SuitPattern> rows);
    Result Judge(const Numbers& rows) const;

    const BatchGame& game;
    std::int64_t draws;
    std::map<const SuitPattern*, Table> tables;  // by their first row
    std::span<const PatternVariant> variants;    // of the last ranks
    std::vector<Result> results;                 // of these, by number
};
