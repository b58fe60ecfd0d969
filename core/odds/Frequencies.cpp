#include "core/odds/Frequencies.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "core/analysis/WideVectors.h"

namespace {

constexpr double kGone = -42.0;      // the logarithm of what adds nothing any more
constexpr std::size_t kAbreast = 8;  // powers that are taken side by side
constexpr std::size_t kRounds = 32;  // until they are taken anew, so that no rounding adds up
constexpr std::size_t kBlock = kAbreast * kRounds;

// The powers from, from + 1, ... of a coefficient, times a start, in lanes side by side.
class Powers {
  public:
    Powers(Coefficient log, double from, Coefficient start) {
        for (std::size_t lane = 0; lane < kAbreast; ++lane) {
            const Coefficient power = std::exp(log * (from + static_cast<double>(lane)) + start);
            re[lane] = power.real();
            im[lane] = power.imag();
        }
        const Coefficient step = std::exp(log * static_cast<double>(kAbreast));
        stepRe = step.real();
        stepIm = step.imag();
    }

    void Next() {
        for (std::size_t lane = 0; lane < kAbreast; ++lane) {
            const double real = re[lane] * stepRe - im[lane] * stepIm;
            im[lane] = re[lane] * stepIm + im[lane] * stepRe;
            re[lane] = real;
        }
    }

    std::array<double, kAbreast> re{};
    std::array<double, kAbreast> im{};

  private:
    double stepRe = 0;
    double stepIm = 0;
};

// After so many hands a frequency says nothing any more.
std::size_t LifeOf(const Frequency& frequency, std::size_t most) {
    const double fall = frequency.log.real();
    if (fall * static_cast<double>(most) > kGone) return most;
    return static_cast<std::size_t>(kGone / fall) + 1;
}

TOLVANE_WIDE_VECTORS void AddTurned(const double* __restrict re, const double* __restrict im,
                                    std::size_t count, double turnRe, double turnIm,
                                    double* __restrict sums) {
    for (std::size_t n = 0; n < count; ++n) sums[n] += re[n] * turnRe - im[n] * turnIm;
}

}  // namespace

void PowerSeries::Fill(const Frequency& frequency, std::size_t hands) {
    const std::size_t end = std::min(LifeOf(frequency, hands), hands) + 1;
    re.resize(end);
    im.resize(end);
    for (std::size_t n = 0; n < end; n += kBlock) {
        Powers powers(frequency.log, static_cast<double>(n), 0);
        const std::size_t stop = std::min(n + kBlock, end);
        for (std::size_t at = n; at < stop; at += kAbreast) {
            const std::size_t lanes = std::min(kAbreast, stop - at);
            std::copy_n(powers.re.begin(), lanes, re.begin() + static_cast<std::ptrdiff_t>(at));
            std::copy_n(powers.im.begin(), lanes, im.begin() + static_cast<std::ptrdiff_t>(at));
            powers.Next();
        }
    }
}

void PowerSeries::AddTo(Coefficient turn, std::vector<double>& sums) const {
    AddTurned(re.data() + 1, im.data() + 1, re.size() - 1, turn.real(), turn.imag(),
              sums.data() + 1);
}

Coefficient PowerSeries::SumWith(const std::vector<double>& factors) const {
    std::array<double, kAbreast> sumRe{};
    std::array<double, kAbreast> sumIm{};
    std::size_t n = 0;
    for (; n + kAbreast <= re.size(); n += kAbreast) {
        for (std::size_t lane = 0; lane < kAbreast; ++lane) {
            sumRe[lane] += re[n + lane] * factors[n + lane];
            sumIm[lane] += im[n + lane] * factors[n + lane];
        }
    }
    Coefficient sum = 0;
    for (; n < re.size(); ++n) sum += Coefficient(re[n] * factors[n], im[n] * factors[n]);
    for (std::size_t lane = 0; lane < kAbreast; ++lane) {
        sum += Coefficient(sumRe[lane], sumIm[lane]);
    }
    return sum;
}

void AddChances(const Frequency& frequency, std::int64_t moved, std::size_t from,
                std::vector<double>& sums) {
    const std::size_t end = std::min(LifeOf(frequency, sums.size()) + 1, sums.size());
    const Coefficient turn(0, -frequency.angle * static_cast<double>(moved));
    for (std::size_t n = from; n < end; n += kBlock) {
        Powers powers(frequency.log, static_cast<double>(n), turn);
        const std::size_t stop = std::min(n + kBlock, end);
        for (std::size_t at = n; at < stop; at += kAbreast) {
            const std::size_t lanes = std::min(kAbreast, stop - at);
            for (std::size_t lane = 0; lane < lanes; ++lane) {
                sums[at + lane] += frequency.weight * powers.re[lane];
            }
            powers.Next();
        }
    }
}

Coefficient GoneOn(const Frequency& frequency, std::size_t from,
                   const std::vector<double>& brokeAt) {
    const std::size_t hands = brokeAt.size() - 1;
    const std::size_t end = std::min(LifeOf(frequency, hands), hands - from) + 1;
    Coefficient sum = 0;
    for (std::size_t back = 0; back < end; back += kBlock) {
        Powers powers(frequency.log, static_cast<double>(back), 0);
        const std::size_t stop = std::min(back + kBlock, end);
        for (std::size_t at = back; at < stop; at += kAbreast) {
            const std::size_t lanes = std::min(kAbreast, stop - at);
            for (std::size_t lane = 0; lane < lanes; ++lane) {
                const double broke = brokeAt[hands - at - lane];
                sum += Coefficient(broke * powers.re[lane], broke * powers.im[lane]);
            }
            powers.Next();
        }
    }
    return sum;
}

std::vector<Frequency> FrequenciesOf(const GainLaw& law, std::size_t places, const GoesOn& goesOn) {
    const Spectrum logs = LogSpectrumOf(law, places, goesOn);
    std::vector<Frequency> frequencies(logs.size());
    for (std::size_t j = 0; j < logs.size(); ++j) {
        const double angle =
            2 * std::numbers::pi * static_cast<double>(j) / static_cast<double>(places);
        const bool own = j == 0 || j + 1 == logs.size();
        frequencies[j] = {logs[j], angle, own ? 1.0 : 2.0};
    }
    return frequencies;
}

Coefficient PowerFrom(const Frequency& frequency, std::int64_t level, std::int64_t hands) {
    const Coefficient log = frequency.log * static_cast<double>(hands);
    if (log.real() < kGone) return 0;
    return std::exp(log + Coefficient(0, frequency.angle * static_cast<double>(level)));
}
