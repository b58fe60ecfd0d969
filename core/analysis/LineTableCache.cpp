#include "core/analysis/LineTableCache.h"

#include <algorithm>

namespace {

constexpr std::size_t kKept = 2;

// What the tables depend on: the deck, and which hands the lines take.
PayTable KeyOf(const PayTable& table) {
    PayTable key;
    key.type = table.type;
    key.deckSize = table.deckSize;
    key.jokers = table.jokers;
    key.wildRanks = table.wildRanks;
    key.minPair = table.minPair;
    key.usesWilds = table.usesWilds;
    for (const PayLine& line : table.lines) {
        PayLine& kept = key.lines.emplace_back();
        kept.rank = line.rank;
        kept.bonusQuads = line.bonusQuads;
        kept.trailers = line.trailers;
        kept.wildsOK = line.wildsOK;
    }
    return key;
}

}  // namespace

std::shared_ptr<const LineTables> LineTableCache::For(const PayTable& table) {
    PayTable key = KeyOf(table);
    const auto found = std::ranges::find(entries, key, &Entry::key);
    if (found != entries.end()) {
        std::rotate(found, found + 1, entries.end());
        return entries.back().tables;
    }
    auto tables = std::make_shared<const LineTables>(table);
    if (entries.size() == kKept) entries.erase(entries.begin());
    entries.push_back({std::move(key), std::move(tables)});
    return entries.back().tables;
}
