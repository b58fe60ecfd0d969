#include "core/analysis/PileBatches.h"

#include <algorithm>

#include "core/analysis/Combinations.h"

namespace {

constexpr std::size_t kCardsDrawn = 2;
constexpr HoldMask kLeftPileHeld = 26;  // position 3 holds the left pile's card here

// The positions of each set's cards: the player's two, and the tops of the piles.
constexpr std::array<std::array<std::uint8_t, 4>, 3> kPositions = {
    {{0, 1, 3, 3}, {0, 1, 4, 4}, {0, 1, 3, 4}}};
constexpr std::array<int, 3> kSizes = {3, 3, 4};

// The key of a set of a deal.
std::uint32_t KeyOf(const Ranks& ranks, const PositionSuits& suits, std::size_t set) {
    SortedCards cards;
    for (int i = 0; i < kSizes[set]; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const std::size_t position = kPositions[set][at];
        InsertCard(cards, at, ToSetCard(ranks[position], suits[position]));
    }
    std::uint32_t key = 0;
    for (int i = 0; i < kSizes[set]; ++i) key += SetKey::Add(i, cards[static_cast<std::size_t>(i)]);
    return key;
}

// Which ranks are higher, equal and wild: what the classes of the suits depend on.
std::uint64_t OrderKey(const LineTables& tables, const Ranks& ranks) {
    std::uint64_t key = 0;
    for (const std::size_t position : kPositions.back()) {
        for (const std::size_t other : kPositions.back()) {
            key = key << 1 | (ranks[position] < ranks[other] ? 1U : 0U);
        }
        key = key << kSuits | tables.WildSuits(ToSetCard(ranks[position], kSpades).kind);
    }
    return key;
}

}  // namespace

PileBatches::PileBatches(const BatchGame& game)
    : game(game), draws(Combinations(game.tables.DeckSize() - 4, static_cast<int>(kCardsDrawn))) {}

PileBatches::Table& PileBatches::TableOf(std::span<const SuitPattern> rows) {
    const auto [entry, isNew] = tables.try_emplace(rows.data());
    std::vector<PatternVariant>& members = entry->second.variants;
    if (!isNew) return entry->second;
    for (const SuitPattern& row : rows) {
        for (const SuitVariant& variant : row.variants) {
            members.push_back(
                {variant.suits, variant.count, row.variants.size(), 0, members.size()});
        }
    }
    return entry->second;
}

std::span<const PatternVariant> PileBatches::Find(const Ranks& ranks,
                                                  std::span<const SuitPattern> rows) {
    Table& table = TableOf(rows);
    variants = table.variants;
    Numbers first{};
    std::array<SetClasses::OfKinds, kSets> ofKinds;
    for (std::size_t set = 0; set < kSets; ++set) {
        const std::uint32_t key = KeyOf(ranks, variants.front().suits, set);
        ofKinds[set] = game.tables.Classes(kSizes[set]).Of(SetKey::Kinds(key));
        first[set] =
            static_cast<std::uint32_t>(game.tables.FirstRow(kSizes[set])) + ofKinds[set].first;
    }
    const auto [entry, isNew] = table.classes.try_emplace(OrderKey(game.tables, ranks));
    std::vector<Numbers>& classes = entry->second;
    for (std::size_t i = 0; isNew && i < variants.size(); ++i) {
        Numbers& numbers = classes.emplace_back();
        for (std::size_t set = 0; set < kSets; ++set) {
            const std::uint32_t key = KeyOf(ranks, variants[i].suits, set);
            numbers[set] = ofKinds[set].bySuits[SetKey::Suits(key)];
        }
    }
    results.clear();
    for (const Numbers& numbers : classes) {
        results.push_back(Judge({first[kLeft] + numbers[kLeft], first[kRight] + numbers[kRight],
                                 first[kBoth] + numbers[kBoth]}));
    }
    return variants;
}

// The draws of a pile are the hands that hold its cards, but not the other pile's. The left pile
// wins a tie.
PileBatches::Result PileBatches::Judge(const Numbers& rows) const {
    const auto& worths = game.worths.worths;
    const auto worthOf = [&](Set pile) {
        const std::int64_t coins = worths[rows[pile]] - worths[rows[kBoth]];
        return static_cast<double>(coins) / static_cast<double>(draws) * game.coin;
    };
    const double left = worthOf(kLeft);
    const double right = worthOf(kRight);
    return right > left ? Result{rows, kRight, right} : Result{rows, kLeft, left};
}

BestHold PileBatches::Best(const PatternVariant& variant) const {
    const Result& result = results[variant.number];
    BestHold best;
    best.mask = result.pile == kRight ? kRightPile : kLeftPileHeld;
    best.cardsDrawn = static_cast<int>(kCardsDrawn);
    best.expectedReturn = result.worth;
    best.totalHands = draws;
    const auto read = [&](Set set, LineCounts& counts) {
        const std::size_t first = game.tables.FirstRow(kSizes[set]);
        game.tables.ReadClass(kSizes[set], static_cast<std::uint32_t>(result.rows[set] - first),
                              counts);
    };
    LineCounts both;
    read(result.pile, best.counts);
    read(kBoth, both);
    for (std::size_t lane = 0; lane < kLanes; ++lane) best.counts[lane] -= both[lane];
    return best;
}

bool PileBatches::AreAlike(const PatternVariant& a, const PatternVariant& b) const {
    const Result& ofA = results[a.number];
    const Result& ofB = results[b.number];
    if (ofA.pile != ofB.pile || ofA.worth != ofB.worth) return false;
    return ofA.rows == ofB.rows || Best(a).counts == Best(b).counts;
}

void PileBatches::AddDraws(std::int64_t factor, DrawSums& sums) const {
    for (const PatternVariant& variant : variants) {
        const Result& result = results[variant.number];
        const std::int64_t hands = variant.count * factor;
        std::int64_t* const times = sums.Of(kCardsDrawn, hands);
        times[result.rows[result.pile]] += hands;
        times[result.rows[kBoth]] -= hands;
    }
}
