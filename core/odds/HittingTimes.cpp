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

// None when it is stopped.
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

constexpr std::size_t kAsked = 64;  // frequencies, until it is asked again whether to go on

// The frequencies on which the first hits are counted.
class Ring {
  public:
    Ring(const GainLaw& law, const Course& course, std::size_t places, const GoesOn& goesOn)
        : level(course.level),
          hands(course.hands),
          places(places),
          frequencies(FrequenciesOf(law, places, goesOn)),
          goesOn(goesOn) {}

    // The chance to be broke after 0, 1, ... hands; nothing when it is stopped.
    std::optional<std::vector<double>> BrokeAt() const {
        if (frequencies.empty()) return std::nullopt;
        std::vector<double> brokeAt(static_cast<std::size_t>(hands) + 1);
        const auto k = static_cast<std::size_t>(level);
        for (std::size_t j = 0; j < frequencies.size(); ++j) {
            if (j % kAsked == 0 && !goesOn()) return std::nullopt;
            AddLosses(frequencies[j], k, frequencies[j].weight / static_cast<double>(places),
                      brokeAt);
        }
        for (std::size_t n = k; n < brokeAt.size(); ++n) {
            brokeAt[n] =
                std::max(0.0, brokeAt[n] * static_cast<double>(level) / static_cast<double>(n));
        }
        return brokeAt;
    }

    std::optional<WholeLaw> Alive(const std::vector<double>& brokeAt) const {
        Spectrum spectrum(frequencies.size());
        for (std::size_t j = 0; j < spectrum.size(); ++j) {
            if (j % kAsked == 0 && !goesOn()) return std::nullopt;
            const auto& [log, angle, weight] = frequencies[j];
            const double fall = log.real() * static_cast<double>(hands);
            if (fall > kGone) {
                spectrum[j] = std::exp(log * static_cast<double>(hands) +
                                       Coefficient(0, angle * static_cast<double>(level)));
            }
            spectrum[j] -= GoneOn(frequencies[j], static_cast<std::size_t>(level), brokeAt);
        }
        WholeLaw alive{0, LawOnRing(spectrum, places)};
        alive.probabilities[0] = 0;
        return alive;
    }

  private:
    std::int64_t level;  // at most the hands
    std::int64_t hands;
    std::size_t places;
    std::vector<Frequency> frequencies;  // none when it is stopped
    const GoesOn& goesOn;
};

// What loses more than the level and one turn of the ring must not be taken for a loss of the
// level, nor what wins.
std::optional<std::size_t> PlacesOf(const GainLaw& law, const Course& course) {
    const GainWindow window = WindowOf(law, static_cast<double>(course.hands));
    const auto height = static_cast<double>(course.level);
    return PlacesFor(std::max(window.highestEver + height, -window.lowest - height) + 2);
}

}  // namespace

WalkAnswer HittingTimes(const GainLaw& law, const Course& course, const GoesOn& goesOn) {
    const auto places = PlacesOf(law, course);
    if (!places) return {std::nullopt, NoEnd::kTooWide};
    const Ring ring(law, course, *places, goesOn);
    auto brokeAt = ring.BrokeAt();
    if (!brokeAt) return {std::nullopt, NoEnd::kStopped};
    auto alive = ring.Alive(*brokeAt);
    if (!alive) return {std::nullopt, NoEnd::kStopped};
    return {WalkEnd{std::move(*alive), std::move(*brokeAt), {}}, {}};
}

std::optional<std::vector<double>> ChancesToEnd(const GainLaw& law, const Course& course,
                                                const GoesOn& goesOn) {
    if (course.NeverEnds(law)) return std::vector<double>{};
    if (law.FallsByOne() && !course.goal) {
        const auto places = PlacesOf(law, course);
        return places ? Ring(law, course, *places, goesOn).BrokeAt() : std::nullopt;
    }
    EndMasses goals(0, course.hands, 1);
    const WalkAnswer walk = AbsorbingWalk(law, course, goals, goesOn);
    if (!walk.end) return std::nullopt;
    const auto stake = static_cast<std::size_t>(law.stake);
    std::vector<double> ends(walk.end->brokeAt.size() / stake);
    for (std::size_t i = 0; i < ends.size() * stake; ++i) ends[i / stake] += walk.end->brokeAt[i];
    for (std::size_t n = 0; n < walk.end->goalAt.size(); ++n) ends[n] += walk.end->goalAt[n];
    return ends;
}

WalkAnswer FollowCourse(const GainLaw& law, const Course& course, EndMasses& goals,
                        const GoesOn& goesOn) {
    if (course.NeverEnds(law)) {
        auto sum = SumLaw(law, course.hands, goesOn);
        if (!sum) return {std::nullopt, goesOn() ? NoEnd::kTooWide : NoEnd::kStopped};
        sum->first += course.level;
        return {WalkEnd{std::move(*sum), {}, {}}, {}};
    }
    return law.FallsByOne() && !course.goal ? HittingTimes(law, course, goesOn)
                                            : AbsorbingWalk(law, course, goals, goesOn);
}
