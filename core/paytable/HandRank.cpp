#include "core/paytable/HandRank.h"

#include <cstddef>

namespace {

constexpr std::array<HandRankInfo, kRankCount> kRanks = {{
    {"ROYAL FLUSH", "ROY FL", 0, 4, 10, 5, 0},
    {"5 OF A KIND", "5K", 10, 0, 0, 0, 0},
    {"BONUS 4 OF A KIND", "BONUS 4K", 6, 0, 0, 0, 0},
    {"ROYAL FLUSH W/WILD", "WLD ROY", 0, 4, 10, 5, 0},
    {"STRAIGHT FLUSH", "STR FL", 0, 4, 10, 0, 0},
    {"4 OF A KIND", "4K", 6, 0, 0, 0, 0},
    {"FULL HOUSE", "FH", 4, 0, 0, 0, 0},
    {"FLUSH", "FL", 0, 0, 10, 0, 0},
    {"STRAIGHT", "STR", 0, 4, 0, 0, 0},
    {"3 OF A KIND", "3K", 3, 0, 0, 0, 0},
    {"2 PAIR", "2PR", 2, 0, 0, 0, 0},
    {"1 PAIR", "PR", 1, 0, 0, 0, 0},
    {"5 WILDS", "5 WILDS", 0, 0, 0, 0, 5},
    {"4 WILDS", "4 WILDS", 0, 0, 0, 0, 4},
    {"BONUS 5 OF A KIND", "5K", 10, 0, 0, 0, 0},
    {"5K WITH 1 WILD", "5K 1W", 10, 0, 0, 0, 0},
    {"4 ACE$ BONUS", "4 ACE$", 6, 0, 0, 0, 0},
    {"ALL RED/BLACK", "All R/B", 10, 0, 0, 0, 0},
    {"5 CARD CHARLIE", "CHARLIE", 0, 0, 0, 0, 0},
}};
constexpr HandRankInfo kNoRank;

}  // namespace

const HandRankInfo& RankInfo(HandRank rank) {
    return rank == HandRank::kUnknown ? kNoRank : kRanks[static_cast<std::size_t>(rank)];
}

HandRank HandRankFromNumber(int number) {
    return number >= 0 && number < kRankCount ? static_cast<HandRank>(number) : HandRank::kUnknown;
}
