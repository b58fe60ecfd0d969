#include "core/odds/GainLaw.h"

#include <algorithm>
#include <map>
#include <numeric>

double GainLaw::Mean() const {
    double mean = 0;
    for (const auto& [gain, probability] : outcomes) {
        mean += probability * static_cast<double>(gain);
    }
    return mean;
}

double GainLaw::Variance() const {
    const double mean = Mean();
    double variance = 0;
    for (const auto& [gain, probability] : outcomes) {
        const double off = static_cast<double>(gain) - mean;
        variance += probability * off * off;
    }
    return variance;
}

std::int64_t UnitOf(const PayTable& table, int bet) {
    std::int64_t unit = bet;
    for (std::size_t line = 0; line < table.lines.size(); ++line) {
        unit = std::gcd(unit, std::int64_t{LineUnitPay(table, static_cast<int>(line), bet)});
    }
    return unit;
}

GainLaw GainLawOf(const HandLaw& law, const PayTable& table, int bet) {
    const std::int64_t unit = UnitOf(table, bet);
    GainLaw gains;
    gains.stake = bet / unit;
    gains.unit = static_cast<double>(unit) / bet;
    std::map<std::int64_t, double> byGain;
    double paid = 0;
    for (std::size_t line = 0; line < table.lines.size(); ++line) {
        const std::int64_t pay = LineUnitPay(table, static_cast<int>(line), bet) / unit;
        byGain[pay - gains.stake] += law.lines[line];
        paid += law.lines[line];
    }
    byGain[-gains.stake] += std::max(0.0, 1 - paid);
    const double all = std::max(paid, 1.0);  // a rounding above 1
    for (const auto& [gain, probability] : byGain) {
        if (probability > 0) gains.outcomes.push_back({gain, probability / all});
    }
    return gains;
}
