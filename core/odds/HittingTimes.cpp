#include <algorithm>

#include "core/odds/Frequencies.h"
#include "core/odds/Walk.h"

namespace {

constexpr std::size_t kAsked = 64;  // frequencies, until it is asked again whether to go on

// What loses more than the level and one turn of the ring must not be taken for a loss of the
// level, nor what wins.
std::optional<std::size_t> PlacesOf(const GainLaw& law, const Course& course) {
    const GainWindow window = WindowOf(law, static_cast<double>(course.hands));
    const auto height = static_cast<double>(course.level);
    return PlacesFor(std::max(window.highestEver + height, -window.lowest - height) + 2);
}

// Nothing when it is stopped.
std::optional<std::vector<double>> BrokeAt(const std::vector<Frequency>& frequencies,
                                           std::size_t places, const Course& course,
                                           const GoesOn& goesOn) {
    if (frequencies.empty()) return std::nullopt;
    std::vector<double> brokeAt(static_cast<std::size_t>(course.hands) + 1);
    const auto k = static_cast<std::size_t>(course.level);
    for (std::size_t j = 0; j < frequencies.size(); ++j) {
        if (j % kAsked == 0 && !goesOn()) return std::nullopt;
        AddChances(frequencies[j], -course.level, k, brokeAt);
    }
    const double share = static_cast<double>(course.level) / static_cast<double>(places);
    for (std::size_t n = k; n < brokeAt.size(); ++n) {
        brokeAt[n] = std::max(0.0, brokeAt[n] * share / static_cast<double>(n));
    }
    return brokeAt;
}

std::optional<WholeLaw> Alive(const std::vector<Frequency>& frequencies, std::size_t places,
                              const Course& course, const std::vector<double>& brokeAt,
                              const GoesOn& goesOn) {
    Spectrum spectrum(frequencies.size());
    for (std::size_t j = 0; j < spectrum.size(); ++j) {
        if (j % kAsked == 0 && !goesOn()) return std::nullopt;
        spectrum[j] = PowerFrom(frequencies[j], course.level, course.hands) -
                      GoneOn(frequencies[j], static_cast<std::size_t>(course.level), brokeAt);
    }
    WholeLaw alive{0, LawOnRing(spectrum, places)};
    alive.probabilities[0] = 0;
    return alive;
}

}  // namespace

std::optional<std::vector<double>> HittingChances(const GainLaw& law, const Course& course,
                                                  const GoesOn& goesOn) {
    const auto places = PlacesOf(law, course);
    if (!places) return std::nullopt;
    return BrokeAt(FrequenciesOf(law, *places, goesOn), *places, course, goesOn);
}

WalkAnswer HittingTimes(const GainLaw& law, const Course& course, const GoesOn& goesOn) {
    const auto places = PlacesOf(law, course);
    if (!places) return {std::nullopt, NoEnd::kTooWide};
    const std::vector<Frequency> frequencies = FrequenciesOf(law, *places, goesOn);
    auto brokeAt = BrokeAt(frequencies, *places, course, goesOn);
    if (!brokeAt) return {std::nullopt, NoEnd::kStopped};
    auto alive = Alive(frequencies, *places, course, *brokeAt, goesOn);
    if (!alive) return {std::nullopt, NoEnd::kStopped};
    return {WalkEnd{std::move(*alive), std::move(*brokeAt), {}}, {}};
}
