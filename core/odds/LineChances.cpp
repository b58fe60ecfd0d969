#include "core/odds/LineChances.h"

#include <algorithm>
#include <cmath>

#include "core/odds/Walk.h"

namespace {

constexpr double kSeen = 37;  // -log of the chance, 1e-16, that something was not seen yet

// Of hands that do not end in the line.
GainLaw LawWithout(const GainLaw& law, std::int64_t gain, double probability) {
    GainLaw without = law;
    for (auto& outcome : without.outcomes) {
        if (outcome.gain == gain) outcome.probability -= probability;
        outcome.probability /= 1 - probability;
    }
    std::erase_if(without.outcomes,
                  [](const auto& outcome) { return outcome.probability < 1e-15; });
    return without;
}

// Nothing when the course is too much work, or is stopped.
std::optional<double> ChanceOnCourse(const GainLaw& law, std::int64_t gain, double probability,
                                     Course course, const GoesOn& goesOn) {
    if (probability <= 0) return 0;
    if (probability > 1 - 1e-12) return 1;
    const double oneWithout = std::log1p(-probability);
    const double enough = std::ceil(-kSeen / oneWithout);
    if (enough < static_cast<double>(course.hands)) {
        course.hands = static_cast<std::int64_t>(enough);
    }
    const auto seenIn = [oneWithout](std::size_t hands) {
        return -std::expm1(oneWithout * static_cast<double>(hands));
    };
    const auto ends = ChancesToEnd(LawWithout(law, gain, probability), course, goesOn);
    if (!ends) return std::nullopt;
    // What is missing to 1 plays to the last hand.
    double chance = seenIn(static_cast<std::size_t>(course.hands));
    const double toTheLast = chance;
    for (std::size_t n = 0; n < ends->size(); ++n) chance += (*ends)[n] * (seenIn(n) - toTheLast);
    return chance;
}

}  // namespace

std::optional<LineChances> FindLineChances(const DealLaw& deal, const SessionWish& wish,
                                           const std::function<bool()>& goesOn) {
    LineChances chances;
    const auto course = CourseOf(deal.gains, wish);
    if (!course) return chances;
    chances.areOfAllDeals = deal.lines > 1 && !course->NeverEnds(deal.gains);
    for (std::size_t line = 0; line < kMaxPayLines; ++line) {
        double& chance = chances.atLeastOnce[line];
        chance = deal.AtLeastOnce(line, wish.hands);
        if (chances.areOfAllDeals) continue;
        const auto exact =
            ChanceOnCourse(deal.gains, deal.gainOf[line], deal.seen[line], *course, goesOn);
        if (!goesOn()) return std::nullopt;
        chances.areOfAllDeals = !exact;
        chance = exact.value_or(chance);
    }
    return chances;
}
