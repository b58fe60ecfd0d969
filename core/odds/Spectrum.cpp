#include "core/odds/Spectrum.h"

#include <algorithm>
#include <cmath>
#include <kissfft/kissfft.hh>
#include <numbers>

namespace {

// A law of more outcomes is transformed as a whole; the sines of fewer are taken one by one, which
// keeps more digits.
constexpr std::size_t kFewOutcomes = 64;
constexpr std::size_t kAsked = 4096;  // frequencies, until it is asked again whether to go on

std::size_t Ring(std::int64_t place, std::size_t places) {
    const auto size = static_cast<std::int64_t>(places);
    return static_cast<std::size_t>((place % size + size) % size);
}

// log(1 + d), precise for a small d.
Coefficient LogOnePlus(double re, double im) {
    return {std::log1p(2 * re + re * re + im * im) / 2, std::atan2(im, 1 + re)};
}

Spectrum LogOfFew(const GainLaw& law, std::size_t places, const GoesOn& goesOn) {
    const double mean = law.Mean();
    Spectrum logs(places / 2 + 1);
    for (std::size_t j = 0; j < logs.size(); ++j) {
        if (j % kAsked == 0 && !goesOn()) return {};
        const double angle =
            2 * std::numbers::pi * static_cast<double>(j) / static_cast<double>(places);
        double re = 0;
        double im = 0;
        for (const auto& [gain, probability] : law.outcomes) {
            const double half = angle * (static_cast<double>(gain) - mean) / 2;
            const double sine = std::sin(half);
            re -= 2 * probability * sine * sine;
            im += 2 * probability * sine * std::cos(half);
        }
        logs[j] = LogOnePlus(re, im) + Coefficient(0, angle * mean);
    }
    return logs;
}

// Of a real law: two of its places are put into each complex one, so a transform of half the size
// does.
template <typename Real>
std::vector<std::complex<Real>> Transform(const std::vector<Real>& law) {
    using Complex = std::complex<Real>;
    const std::size_t half = law.size() / 2;
    std::vector<Complex> packed(half);
    for (std::size_t i = 0; i < half; ++i) packed[i] = {law[2 * i], law[2 * i + 1]};
    std::vector<Complex> mixed(half);
    kissfft<Real>(half, true).transform(packed.data(), mixed.data());
    std::vector<Complex> spectrum(half + 1);
    for (std::size_t j = 0; j <= half; ++j) {
        const Complex here = mixed[j % half];
        const Complex other = std::conj(mixed[(half - j) % half]);
        const Real angle =
            std::numbers::pi_v<Real> * static_cast<Real>(j) / static_cast<Real>(half);
        const Complex odd = (here - other) * Complex(0, Real(-0.5));
        spectrum[j] = (here + other) * Real(0.5) + odd * std::polar(Real(1), angle);
    }
    return spectrum;
}

}  // namespace

std::optional<std::size_t> PlacesFor(double atLeast) {
    if (!(atLeast <= static_cast<double>(kMostPlaces))) return std::nullopt;
    const auto wanted = static_cast<std::size_t>(std::max(std::ceil(atLeast), 16.0));
    std::size_t best = static_cast<std::size_t>(kMostPlaces);
    for (const std::size_t odd : {1U, 3U, 5U, 9U, 15U}) {
        std::size_t places = odd * 4;
        while (places < wanted) places *= 2;
        best = std::min(best, places);
    }
    return best;
}

Spectrum LogSpectrumOf(const GainLaw& law, std::size_t places, const GoesOn& goesOn) {
    if (law.outcomes.size() <= kFewOutcomes) return LogOfFew(law, places, goesOn);
    // A power of many hands makes the roundings of one so many times as large, so three digits more
    // are taken here.
    std::vector<long double> ring(places);
    for (const auto& [gain, probability] : law.outcomes) ring[Ring(gain, places)] += probability;
    const auto precise = Transform(ring);
    if (!goesOn()) return {};
    const long double all = precise.front().real();
    Spectrum logs(precise.size());
    for (std::size_t j = 0; j < logs.size(); ++j) {
        logs[j] = LogOnePlus(static_cast<double>((precise[j].real() - all) / all),
                             static_cast<double>(precise[j].imag() / all));
    }
    return logs;
}

std::vector<double> LawOnRing(const Spectrum& spectrum, std::size_t places) {
    const std::size_t half = places / 2;
    Spectrum packed(half);
    for (std::size_t j = 0; j < half; ++j) {
        const double angle =
            2 * std::numbers::pi * static_cast<double>(j) / static_cast<double>(places);
        const Coefficient other = std::conj(spectrum[half - j]);
        const Coefficient even = spectrum[j] + other;
        const Coefficient odd = (spectrum[j] - other) * std::polar(1.0, -angle);
        packed[j] = even + Coefficient(0, 1) * odd;
    }
    Spectrum law(half);
    kissfft<double>(half, false).transform(packed.data(), law.data());
    std::vector<double> probabilities(places);
    const double scale = 1 / static_cast<double>(places);
    for (std::size_t i = 0; i < half; ++i) {
        probabilities[2 * i] = std::max(0.0, law[i].real() * scale);
        probabilities[2 * i + 1] = std::max(0.0, law[i].imag() * scale);
    }
    return probabilities;
}

Spectrum SpectrumOf(const std::vector<double>& law) { return Transform(law); }
