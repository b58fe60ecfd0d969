#include "core/analysis/LineTableCache.h"

#include <algorithm>

namespace {

constexpr std::size_t kKept = 2;

// A copy without what no hand is classified by. A field that is new, and stands here only when it
// does not matter, then costs a table built too often, never one that is wrong.
PayTable KeyOf(const PayTable& table) {
    PayTable key = table;
    key.gameId = 0;
    key.maxBet = 0;
    key.charlieBonus = key.redBlackBonus = key.spinBonus = key.targetBonus = false;
    for (PayLine& line : key.lines) {
        line.description.clear();
        line.shortDescription.clear();
        line.payout = line.maxPayout = 0;
        line.sessionWins = line.totalWins = 0;
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
