#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "core/odds/Spectrum.h"
#include "core/odds/Walk.h"

namespace {

constexpr double kGone = -42.0;      // the logarithm of what adds nothing any more
constexpr std::size_t kLanes = 8;    // powers that are taken side by side
constexpr std::size_t kRounds = 32;  // until they are taken anew, so that no rounding adds up
constexpr std::size_t kBlock = kLanes * kRounds;

// One frequency: the logarithm of what one hand does to it, and its angle.
struct Frequency {
    Coefficient log;
    double angle = 0;
    double weight = 2;  // of its term in a sum over all frequencies; 1 where it is its own mirror
};

// The powers from, from + 1, ... of a coefficient, times a start, in lanes side by side.
class Powers {
  public:
    Powers(Coefficient log, double from, Coefficient start) {
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            const Coefficient power = std::exp(log * (from + static_cast<double>(lane)) + start);
            re[lane] = power.real();
            im[lane] = power.imag();
        }
        const Coefficient step = std::exp(log * static_cast<double>(kLanes));
        stepRe = step.real();
        stepIm = step.imag();
    }

    void Next() {
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            const double real = re[lane] * stepRe - im[lane] * stepIm;
            im[lane] = re[lane] * stepIm + im[lane] * stepRe;
            re[lane] = real;
        }
    }

    std::array<double, kLanes> re{};
    std::array<double, kLanes> im{};

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

// Adds the chance that n hands lose k, for n from k on, to sums[n].
void AddLosses(const Frequency& frequency, std::size_t k, double scale, std::vector<double>& sums) {
    const std::size_t end = std::min(LifeOf(frequency, sums.size()) + 1, sums.size());
    const Coefficient turn(0, frequency.angle * static_cast<double>(k));
    for (std::size_t n = k; n < end; n += kBlock) {
        Powers powers(frequency.log, static_cast<double>(n), turn);
        const std::size_t stop = std::min(n + kBlock, end);
        for (std::size_t at = n; at < stop; at += kLanes) {
            const std::size_t lanes = std::min(kLanes, stop - at);
            for (std::size_t lane = 0; lane < lanes; ++lane) {
                sums[at + lane] += scale * powers.re[lane];
            }
            powers.Next();
        }
    }
}

// The sum of brokeAt[n] * z^(hands - n): what the broken would have done to the frequency until
// the last hand, had they gone on.
Coefficient GoneOn(const Frequency& frequency, std::size_t k, const std::vector<double>& brokeAt) {
    const std::size_t hands = brokeAt.size() - 1;
    const std::size_t end = std::min(LifeOf(frequency, hands), hands - k) + 1;
    Coefficient sum = 0;
    for (std::size_t back = 0; back < end; back += kBlock) {
        Powers powers(frequency.log, static_cast<double>(back), 0);
        const std::size_t stop = std::min(back + kBlock, end);
        for (std::size_t at = back; at < stop; at += kLanes) {
            const std::size_t lanes = std::min(kLanes, stop - at);
            for (std::size_t lane = 0; lane < lanes; ++lane) {
                const double broke = brokeAt[hands - at - lane];
                sum += Coefficient(broke * powers.re[lane], broke * powers.im[lane]);
            }
            powers.Next();
        }
    }
    return sum;
}

std::vector<Frequency> FrequenciesOf(const GainLaw& law, std::size_t places) {
    const Spectrum logs = LogSpectrumOf(law, places);
    std::vector<Frequency> frequencies(logs.size());
    for (std::size_t j = 0; j < logs.size(); ++j) {
        const double angle =
            2 * std::numbers::pi * static_cast<double>(j) / static_cast<double>(places);
        const bool own = j == 0 || j + 1 == logs.size();
        frequencies[j] = {logs[j], angle, own ? 1.0 : 2.0};
    }
    return frequencies;
}

}  // namespace

std::optional<WalkEnd> HittingTimes(const GainLaw& law, std::int64_t level, std::int64_t hands) {
    const auto most = static_cast<std::size_t>(hands);
    WalkEnd end;
    end.brokeAt.assign(most + 1, 0);
    end.brokeWith.assign(1, 0);
    const GainWindow window = WindowOf(law, static_cast<double>(hands));
    const auto height = static_cast<double>(level);
    // What loses more than the level and one turn of the ring must not be taken for a loss of the
    // level, nor what wins.
    const auto places =
        PlacesFor(std::max(window.highestEver + height, -window.lowest - height) + 2);
    if (!places) return std::nullopt;
    const std::vector<Frequency> frequencies = FrequenciesOf(law, *places);
    if (level <= hands) {
        const auto k = static_cast<std::size_t>(level);
        for (const Frequency& frequency : frequencies) {
            AddLosses(frequency, k, frequency.weight / static_cast<double>(*places), end.brokeAt);
        }
        for (std::size_t n = k; n <= most; ++n) {
            double& broke = end.brokeAt[n];
            broke = std::max(0.0, broke * height / static_cast<double>(n));
            end.brokeWith[0] += broke;
        }
    }
    Spectrum spectrum(frequencies.size());
    for (std::size_t j = 0; j < spectrum.size(); ++j) {
        const auto& [log, angle, weight] = frequencies[j];
        const double fall = log.real() * static_cast<double>(hands);
        if (fall > kGone) {
            spectrum[j] =
                std::exp(log * static_cast<double>(hands) + Coefficient(0, angle * height));
        }
        if (level <= hands) {
            spectrum[j] -= GoneOn(frequencies[j], static_cast<std::size_t>(level), end.brokeAt);
        }
    }
    end.alive = {0, LawOnRing(spectrum, *places)};
    end.alive.probabilities[0] = 0;
    return end;
}
