#include "core/odds/EndMasses.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>

namespace {

constexpr double kMostPlaces = 8192;
constexpr double kFewestPlaces = 64;
constexpr double kMostCells = 1 << 23;
constexpr double kNothing = 1e-21;  // chances that all together are less than a rounding
constexpr double kWhole = 1e-12;    // of a number of units that only rounding keeps from whole
constexpr double kRounding = 1e-9;  // of many hands' cash back

}  // namespace

EndMasses::EndMasses(double cashBack, std::int64_t hands, double amounts) : cashBack(cashBack) {
    const auto places = static_cast<std::int64_t>(
        std::clamp(kMostCells / std::max(amounts, 1.0), kFewestPlaces, kMostPlaces));
    for (std::int64_t n = 0; n <= hands && n < places; ++n) {
        const double units = cashBack * static_cast<double>(n);
        const double fraction =
            std::abs(units - std::round(units)) < kWhole ? 0 : units - std::floor(units);
        isExact = n == hands || (n > 0 && fraction == 0);
        if (n == 0 || fraction > 0) fractions.emplace_back().least = fraction;
        if (isExact) return;
    }
    // The first place is for whole units alone.
    fractions.assign(static_cast<std::size_t>(places) + 1, {});
    for (std::size_t i = 1; i < fractions.size(); ++i) {
        fractions[i].least = static_cast<double>(i - 1) / static_cast<double>(places);
    }
}

std::size_t EndMasses::PlaceOf(std::int64_t hands, double fraction) const {
    if (isExact) return static_cast<std::size_t>(hands) % fractions.size();
    if (fraction < kRounding) return 0;
    const auto places = static_cast<double>(fractions.size() - 1);
    return static_cast<std::size_t>(std::min(std::floor(fraction * places), places - 1)) + 1;
}

void EndMasses::Add(std::int64_t hands, std::int64_t first, std::span<const double> masses,
                    double share) {
    const double units = cashBack * static_cast<double>(hands);
    const double rest = std::max(units - std::floor(units + kRounding), 0.0);
    Fraction& place = fractions[PlaceOf(hands, rest)];
    const double fraction = isExact ? place.least : rest;
    const double all = share * std::accumulate(masses.begin(), masses.end(), 0.0);
    place.mass += all;
    place.moment += all * fraction;
    std::int64_t unit = first + std::llround(units - fraction);
    while (!masses.empty()) {
        const std::int64_t number = unit >= 0 ? unit / kBlock : -((kBlock - 1 - unit) / kBlock);
        const auto from = static_cast<std::size_t>(unit - number * kBlock);
        Block& block = place.blocks[number];
        if (block.empty()) block.resize(kBlock);
        const std::size_t count = std::min(masses.size(), kBlock - from);
        for (std::size_t i = 0; i < count; ++i) block[from + i] += share * masses[i];
        masses = masses.subspan(count);
        unit += static_cast<std::int64_t>(count);
    }
}

std::vector<EndMasses::End> EndMasses::Ends(double unit) const {
    std::vector<const Fraction*> rising;
    std::set<std::int64_t> numbers;
    std::size_t count = 0;
    for (const Fraction& fraction : fractions) {
        if (!fraction.blocks.empty()) rising.push_back(&fraction);
        for (const auto& [number, block] : fraction.blocks) {
            numbers.insert(number);
            const auto isSome = [](double mass) { return mass > kNothing; };
            count += static_cast<std::size_t>(std::ranges::count_if(block, isSome));
        }
    }
    std::ranges::sort(rising, {}, &Fraction::Mean);
    std::vector<End> results;
    results.reserve(count);
    for (const std::int64_t number : numbers) {
        std::vector<std::pair<double, const Block*>> here;
        for (const Fraction* fraction : rising) {
            const auto found = fraction->blocks.find(number);
            if (found != fraction->blocks.end())
                here.emplace_back(fraction->Mean(), &found->second);
        }
        for (std::size_t i = 0; i < kBlock; ++i) {
            const auto whole = static_cast<double>(number * kBlock) + static_cast<double>(i);
            for (const auto& [mean, block] : here) {
                if ((*block)[i] > kNothing) results.push_back({(whole + mean) * unit, (*block)[i]});
            }
        }
    }
    return results;
}
