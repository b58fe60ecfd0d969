// The law of a sum on a ring of M places, as its Fourier coefficients. The coefficient of a law at
// the frequency j is the sum over its places x of p(x) * exp(2 pi i j x / M); places that differ by
// M are one. A law is real, so the first M / 2 + 1 coefficients say all.
#pragma once
#include <complex>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "core/odds/GainLaw.h"

// Whether to go on, asked all the time by what takes long.
using GoesOn = std::function<bool()>;

using Coefficient = std::complex<double>;
using Spectrum = std::vector<Coefficient>;  // of a ring of M places, M / 2 + 1 of them

// More places than this are never asked for: 4,194,304, 64 MB of coefficients.
inline constexpr std::int64_t kMostPlaces = std::int64_t{1} << 22;

// An even number of places of small factors, at least so many; nothing above kMostPlaces.
std::optional<std::size_t> PlacesFor(double atLeast);

// The logarithms of the coefficients of a gain. They are right to the last digits of what they
// differ from 0 by, so that a power of many thousand hands keeps ten digits and more. Empty when
// goesOn says no.
Spectrum LogSpectrumOf(const GainLaw& law, std::size_t places, const GoesOn& goesOn);

// The law at the places 0..M - 1. What rounding leaves below 0 becomes 0.
std::vector<double> LawOnRing(const Spectrum& spectrum, std::size_t places);

// The coefficients of a law whose places are 0..M - 1.
Spectrum SpectrumOf(const std::vector<double>& law);
