#include "game/reports/Chance.h"

#include <algorithm>
#include <cmath>

#include "core/odds/Binomial.h"
#include "core/text/Amount.h"

namespace {

constexpr double kUsual = 0.3;          // what has a larger chance needs no words
constexpr double kRarestInWords = 1e9;  // players

}  // namespace

std::string OneIn(double chance) {
    const double players = 1 / chance;
    const double unit = std::pow(10, std::max(0.0, std::floor(std::log10(players)) - 2));
    return "1 in " + FormatCount(std::llround(std::round(players / unit) * unit));
}

Rarity RarityOf(std::int64_t seen, std::int64_t hands, double probability) {
    if (hands <= 0 || seen < 0 || seen > hands) return {};
    const bool few = static_cast<double>(seen) < static_cast<double>(hands) * probability;
    const double chance =
        few ? ChanceOfAtMost(seen, hands, probability) : ChanceOfAtLeast(seen, hands, probability);
    if (chance > kUsual) return {chance, "as expected"};
    const std::string sees = few ? " players sees so few" : " players sees so many";
    if (chance * kRarestInWords < 1) {
        return {chance, "less than 1 in " + FormatCount(std::llround(kRarestInWords)) + sees};
    }
    return {chance, OneIn(chance) + sees};
}
