#include "core/odds/SumLaw.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double kOutside = 30.0;  // -log of the chance on either side, 1e-13
constexpr double kGone = -45.0;    // the logarithm of what adds nothing any more

// log E exp(t X), for a positive t upside down where the gain is turned round.
double LogMoment(const GainLaw& law, double t, double sign) {
    double top = -HUGE_VAL;
    for (const auto& outcome : law.outcomes) {
        top = std::max(top, t * sign * static_cast<double>(outcome.gain));
    }
    double sum = 0;
    for (const auto& [gain, probability] : law.outcomes) {
        sum += probability * std::exp(t * sign * static_cast<double>(gain) - top);
    }
    return top + std::log(sum);
}

// The least of (hands * log E exp(t X) + kOutside) / t over t > 0. It falls and then rises, and
// near its least value it hardly moves: some golden cuts of log t are enough for a bound.
template <typename Moment>
double LeastBound(double hands, double range, const Moment& moment) {
    constexpr double kCut = 1 / std::numbers::phi;
    const auto bound = [&](double logT) {
        const double t = std::exp(logT);
        return (hands * moment(t) + kOutside) / t;
    };
    double low = std::log(1e-10 / range);
    double high = std::log(60.0);
    double left = high - kCut * (high - low);
    double right = low + kCut * (high - low);
    double atLeft = bound(left);
    double atRight = bound(right);
    for (int i = 0; i < 24; ++i) {
        if (atLeft < atRight) {
            high = right;
            right = left;
            atRight = atLeft;
            atLeft = bound(left = high - kCut * (high - low));
        } else {
            low = left;
            left = right;
            atLeft = atRight;
            atRight = bound(right = low + kCut * (high - low));
        }
    }
    return std::min(atLeft, atRight);
}

// One hand needs no transform, which would leave its roundings at the places between the outcomes.
WholeLaw AsGiven(const GainLaw& law, const GainWindow& window) {
    WholeLaw one{static_cast<std::int64_t>(window.lowest), {}};
    one.probabilities.resize(static_cast<std::size_t>(window.highest - window.lowest) + 1);
    for (const auto& [gain, probability] : law.outcomes) {
        const auto place = static_cast<std::size_t>(gain - one.first);
        if (place < one.probabilities.size()) one.probabilities[place] = probability;
    }
    return one;
}

}  // namespace

GainWindow WindowOf(const GainLaw& law, double hands) {
    if (law.outcomes.empty()) return {};
    const auto least = static_cast<double>(law.outcomes.front().gain);
    const auto most = static_cast<double>(law.outcomes.back().gain);
    const double range = std::max(most - least, 1.0);
    const auto up = [&law](double t) { return LogMoment(law, t, 1); };
    const auto down = [&law](double t) { return LogMoment(law, t, -1); };
    const auto ever = [&up](double t) { return std::max(0.0, up(t)); };
    GainWindow window;
    window.lowest = std::max(hands * least, std::floor(-LeastBound(hands, range, down)));
    window.highest = std::min(hands * most, std::ceil(LeastBound(hands, range, up)));
    window.highestEver =
        std::min(hands * std::max(most, 0.0), std::ceil(LeastBound(hands, range, ever)));
    return window;
}

std::optional<WholeLaw> SumLaw(const GainLaw& law, std::int64_t hands, const GoesOn& goesOn) {
    if (hands <= 0 || law.outcomes.empty()) return WholeLaw{0, {1}};
    const GainWindow window = WindowOf(law, static_cast<double>(hands));
    const auto places = PlacesFor(window.highest - window.lowest + 1);
    if (!places) return std::nullopt;
    if (hands == 1) return AsGiven(law, window);
    Spectrum spectrum = LogSpectrumOf(law, *places, goesOn);
    if (spectrum.empty()) return std::nullopt;
    for (std::size_t j = 0; j < spectrum.size(); ++j) {
        const double angle =
            2 * std::numbers::pi * static_cast<double>(j) / static_cast<double>(*places);
        const Coefficient log =
            spectrum[j] * static_cast<double>(hands) - Coefficient(0, angle * window.lowest);
        spectrum[j] = log.real() < kGone ? 0 : std::exp(log);
    }
    WholeLaw sum{static_cast<std::int64_t>(window.lowest), LawOnRing(spectrum, *places)};
    sum.probabilities.resize(static_cast<std::size_t>(window.highest - window.lowest) + 1);
    return sum;
}
