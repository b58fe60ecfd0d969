#include <algorithm>
#include <cmath>
#include <numeric>

#include "core/analysis/WideVectors.h"
#include "core/odds/Spectrum.h"
#include "core/odds/Walk.h"

namespace {

constexpr std::size_t kFewOutcomes = 64;  // of more, a step is a product of transforms
constexpr double kMassLeft = 1e-14;       // that a walk of few players left ends with
constexpr double kLost = 1e-14;           // mass that all steps together may leave out

using Masses = std::vector<double>;

TOLVANE_WIDE_VECTORS void AddShare(const double* __restrict source, std::size_t count, double share,
                                   double* __restrict target) {
    for (std::size_t i = 0; i < count; ++i) target[i] += share * source[i];
}

// The steps of all players who are still playing, at levels from the stake to below the top.
class Walk {
  public:
    Walk(const GainLaw& law, std::int64_t level, std::int64_t top, std::int64_t hands)
        : law(law),
          stake(law.stake),
          top(top),
          alive(static_cast<std::size_t>(top - stake)),
          next(alive.size()),
          visits(alive.size()),
          lateVisits(alive.size()),
          small(kLost / static_cast<double>(hands)) {
        end.brokeAt.assign(static_cast<std::size_t>(hands) + 1, 0);
        end.brokeWith.assign(static_cast<std::size_t>(stake), 0);
        low = high = level - stake;
        alive[static_cast<std::size_t>(low)] = 1;
        if (law.outcomes.size() > kFewOutcomes) PrepareTransforms();
    }

    // False when it would be too much work, or is stopped.
    bool Play(std::int64_t hands, const GoesOn& goesOn) {
        double work = 0;
        double left = 1;
        for (std::int64_t hand = 1; hand <= hands && left > kMassLeft; ++hand) {
            Visit(static_cast<double>(hand));
            places > 0 ? StepByTransform() : StepByOutcome();
            work += places > 0 ? transformWork
                               : static_cast<double>(law.outcomes.size()) *
                                     static_cast<double>(high - low + 1);
            if (work > kMostWork || !goesOn()) return false;
            const double broke = CountBroke();
            end.brokeAt[static_cast<std::size_t>(hand)] = broke;
            std::swap(alive, next);
            left = Trim();
            if (low > high) break;
        }
        return true;
    }

    WalkEnd End(bool isGoal) {
        end.alive = {stake, alive};
        CountGoals(isGoal);
        return std::move(end);
    }

  private:
    double& At(Masses& masses, std::int64_t place) const {
        return masses[static_cast<std::size_t>(place)];
    }

    void Visit(double hand) {
        for (std::int64_t place = low; place <= high; ++place) {
            const double mass = At(alive, place);
            At(visits, place) += mass;
            At(lateVisits, place) += mass * hand;
        }
    }

    // Places are levels less the stake. Those below 0 cannot bet any more, and since no hand loses
    // more than the stake, they are above -stake - 1.
    void StepByOutcome() {
        std::ranges::fill(next, 0.0);
        broken.assign(static_cast<std::size_t>(stake), 0);
        const std::int64_t places = top - stake;
        for (const auto& [gain, probability] : law.outcomes) {
            for (std::int64_t place = low; place < std::min(high + 1, -gain); ++place) {
                At(broken, place + gain + stake) += probability * At(alive, place);
            }
            const std::int64_t from = std::max(low, -gain);
            const std::int64_t to = std::min(high, places - 1 - gain);
            if (from > to) continue;
            const double* source = &At(alive, from);
            double* target = &At(next, from + gain);
            AddShare(source, static_cast<std::size_t>(to - from + 1), probability, target);
        }
    }

    void PrepareTransforms() {
        const double width = static_cast<double>(top);
        const double reach = std::min(width, static_cast<double>(law.outcomes.back().gain));
        places = PlacesFor(width + reach + static_cast<double>(stake)).value_or(0);
        if (places == 0) return;
        Masses kernel(places);
        for (const auto& [gain, probability] : law.outcomes) {
            const auto place = static_cast<std::size_t>(gain + stake);
            if (place < places && static_cast<double>(gain) <= width) kernel[place] = probability;
        }
        step = SpectrumOf(kernel);
        transformWork = 12 * static_cast<double>(places) * std::log2(static_cast<double>(places));
    }

    void StepByTransform() {
        Masses ring(places);
        std::ranges::copy(alive, ring.begin());
        Spectrum spectrum = SpectrumOf(ring);
        for (std::size_t j = 0; j < spectrum.size(); ++j) spectrum[j] *= step[j];
        const Masses after = LawOnRing(spectrum, places);
        broken.assign(after.begin(), after.begin() + stake);
        std::copy_n(after.begin() + stake, next.size(), next.begin());
    }

    double CountBroke() {
        double all = 0;
        for (std::size_t i = 0; i < broken.size(); ++i) {
            end.brokeWith[i] += broken[i];
            all += broken[i];
        }
        return all;
    }

    // Leaves out what is too little to matter at both ends; what remains is returned.
    double Trim() {
        low = 0;
        high = static_cast<std::int64_t>(alive.size()) - 1;
        double left = 0;
        while (low <= high && left + At(alive, low) <= small) left += At(alive, low++);
        double right = 0;
        while (high >= low && right + At(alive, high) <= small) right += At(alive, high--);
        std::fill(alive.begin(), alive.begin() + low, 0.0);
        std::fill(alive.begin() + high + 1, alive.end(), 0.0);
        return std::accumulate(alive.begin() + low, alive.begin() + high + 1, 0.0);
    }

    // Whoever was at a place and won enough has reached the goal, whenever that was.
    void CountGoals(bool isGoal) {
        if (!isGoal) return;
        const auto reach =
            static_cast<std::size_t>(std::max<std::int64_t>(law.outcomes.back().gain, 0));
        Masses masses(reach);
        Masses hands(reach);
        for (const auto& [gain, probability] : law.outcomes) {
            const auto first = std::max<std::int64_t>(0, top - stake - gain);
            for (std::int64_t place = first; place < top - stake; ++place) {
                const std::int64_t over = place + stake + gain - top;
                At(masses, over) += probability * At(visits, place);
                At(hands, over) += probability * At(lateVisits, place);
            }
        }
        for (std::size_t i = 0; i < reach; ++i) {
            if (masses[i] > 0) hands[i] /= masses[i];
        }
        end.goal = {top, std::move(masses)};
        end.goalHands = std::move(hands);
    }

    const GainLaw& law;
    std::int64_t stake;
    std::int64_t top;
    Masses alive;  // by place
    Masses next;
    Masses visits;      // how often a player was at the place before a hand
    Masses lateVisits;  // each times the number of that hand
    Masses broken;      // by the last hand, by units left
    double small;
    std::int64_t low = 0;  // the places from low to high are occupied
    std::int64_t high = 0;
    std::size_t places = 0;  // of the transforms; 0 = none
    double transformWork = 0;
    Spectrum step;
    WalkEnd end;
};

}  // namespace

std::optional<WalkEnd> AbsorbingWalk(const GainLaw& law, std::int64_t level,
                                     std::optional<std::int64_t> goal, std::int64_t hands,
                                     const GoesOn& goesOn) {
    const double window = WindowOf(law, static_cast<double>(hands)).highestEver;
    const auto most = static_cast<double>(kMostPlaces);
    const double never = static_cast<double>(level) + window + 1;
    const bool isGoal = goal && static_cast<double>(*goal) < never;
    const double top = isGoal ? static_cast<double>(*goal) : never;
    if (top > most || static_cast<double>(law.outcomes.back().gain) > 16 * most)
        return std::nullopt;
    Walk walk(law, level, static_cast<std::int64_t>(top), hands);
    if (!walk.Play(hands, goesOn)) return std::nullopt;
    return walk.End(isGoal);
}
