#include "core/analysis/PatternBatches.h"

#include <algorithm>
#include <numeric>

namespace {

// Where the card of the fifth suit lies.
std::size_t FifthSuitPosition(const PositionSuits& suits) {
    return static_cast<std::size_t>(std::ranges::find(suits, kStars) - suits.begin());
}

// Cards of equal kinds stay in their order, which is that of their suits.
HandKinds SortedKinds(const Ranks& ranks, const PositionSuits& suits) {
    std::array<std::uint8_t, kHandSize> kinds;
    for (std::size_t i = 0; i < kHandSize; ++i) kinds[i] = ToSetCard(ranks[i], suits[i]).kind;
    HandKinds sorted;
    std::iota(sorted.positions.begin(), sorted.positions.end(), std::uint8_t{0});
    std::ranges::stable_sort(sorted.positions, {}, [&kinds](std::uint8_t at) { return kinds[at]; });
    for (std::size_t place = 0; place < kHandSize; ++place) {
        sorted.kinds[place] = kinds[sorted.positions[place]];
    }
    return sorted;
}

// What a layout depends on beside the suits: hands of the same rows differ in the order of their
// kinds and in which suits of them are wild.
std::uint64_t LayoutKey(const LineTables& tables, const HandKinds& kinds) {
    std::uint64_t key = 0;
    for (std::size_t place = 0; place < kHandSize; ++place) {
        key = key << 3 | kinds.positions[place];
        key = key << kSuits | tables.WildSuits(kinds.kinds[place]);
    }
    return key;
}

}  // namespace

PatternBatches::Table& PatternBatches::TableOf(std::span<const SuitPattern> rows) {
    const auto [entry, isNew] = tables.try_emplace(rows.data());
    Table& table = entry->second;
    if (!isNew) return table;
    std::array<std::size_t, kHandSize + 1> partOf;  // by the position of the fifth suit
    partOf.fill(SIZE_MAX);
    for (const SuitPattern& row : rows) {
        for (const SuitVariant& variant : row.variants) {
            std::size_t& part = partOf[FifthSuitPosition(variant.suits)];
            if (part == SIZE_MAX) {
                part = table.parts.size();
                table.parts.emplace_back();
            }
            auto& members = table.parts[part].variants;
            members.push_back(table.variants.size());
            table.variants.push_back(
                {variant.suits, variant.count, row.variants.size(), part, members.size() - 1});
        }
    }
    return table;
}

void PatternBatches::FindPart(const Ranks& ranks, const Table& table, Part& part,
                              HoldBatch& batch) {
    const HandKinds kinds = SortedKinds(ranks, table.variants[part.variants.front()].suits);
    const auto [entry, isNew] = part.layouts.try_emplace(LayoutKey(game.tables, kinds));
    if (isNew) {
        std::vector<SortedCards> hands;
        for (const std::size_t variant : part.variants) {
            SortedCards& cards = hands.emplace_back();
            for (std::size_t place = 0; place < kHandSize; ++place) {
                const std::size_t position = kinds.positions[place];
                cards[place] = ToSetCard(ranks[position], table.variants[variant].suits[position]);
            }
        }
        entry->second = LayOut(game.tables, hands);
    }
    batch.Find(kinds, entry->second);
    for (std::size_t i = 0; i < part.variants.size(); ++i) {
        batch.Count(i, table.variants[part.variants[i]].count);
    }
}

std::span<const PatternVariant> PatternBatches::Find(const Ranks& ranks,
                                                     std::span<const SuitPattern> rows) {
    Table& table = TableOf(rows);
    parts = table.parts.size();
    while (batches.size() < parts) batches.emplace_back(game);
    for (std::size_t i = 0; i < table.parts.size(); ++i) {
        FindPart(ranks, table, table.parts[i], batches[i]);
    }
    return table.variants;
}

BestHold PatternBatches::Best(const PatternVariant& variant) const {
    const HoldBatch& batch = BatchOf(variant);
    const std::size_t drawn = batch.CardsDrawn(variant.number);
    BestHold best;
    best.mask = batch.Mask(variant.number);
    best.cardsDrawn = static_cast<int>(drawn);
    best.expectedReturn = batch.Return(variant.number);
    best.totalHands = game.worths.draws[drawn];
    batch.CountLines(variant.number, best.counts);
    return best;
}

bool PatternBatches::AreAlike(const PatternVariant& a, const PatternVariant& b) const {
    if (a.batch == b.batch) return BatchOf(a).AreAlike(a.number, b.number);
    const BestHold bestA = Best(a);
    const BestHold bestB = Best(b);
    return bestA.mask == bestB.mask && bestA.expectedReturn == bestB.expectedReturn &&
           bestA.counts == bestB.counts;
}

void PatternBatches::AddDraws(std::int64_t factor, DrawSums& sums) const {
    for (std::size_t part = 0; part < parts; ++part) batches[part].AddDraws(factor, sums);
}
