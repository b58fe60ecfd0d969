#include <algorithm>
#include <cmath>
#include <numeric>

#include "core/analysis/WideVectors.h"
#include "core/odds/Spectrum.h"
#include "core/odds/Walk.h"

namespace {

constexpr double kMassLeft = 1e-14;  // that a walk of few players left ends with
constexpr double kLost = 1e-14;      // mass that all steps together may leave out

using Masses = std::vector<double>;

TOLVANE_WIDE_VECTORS void AddShare(const double* __restrict source, std::size_t count, double share,
                                   double* __restrict target) {
    for (std::size_t i = 0; i < count; ++i) target[i] += share * source[i];
}

double SumOf(const Masses& masses) { return std::accumulate(masses.begin(), masses.end(), 0.0); }

// The steps of all players who are still playing, at levels from the stake to below the top.
class Walk {
  public:
    Walk(const GainLaw& law, const Course& course, std::int64_t top, EndMasses* goals)
        : law(law),
          level(course.level),
          stake(law.stake),
          top(top),
          hands(course.hands),
          goals(goals),
          alive(static_cast<std::size_t>(top - stake)),
          next(alive.size()),
          visits(goals ? alive.size() : 0),
          small(kLost / static_cast<double>(hands)) {
        end.brokeAt.assign(static_cast<std::size_t>(stake), 0);
        if (goals) end.goalAt.assign(1, 0);
        low = high = level - stake;
        alive[static_cast<std::size_t>(low)] = 1;
        ChooseStep();
    }

    // False when it would be too much work, or is stopped.
    bool Play(const GoesOn& goesOn) {
        if (workOfHand * std::min(static_cast<double>(hands), HandsToEnd()) > kMostWork) {
            return false;
        }
        double work = 0;
        double left = 1;
        for (std::int64_t hand = 1; hand <= hands && left > kMassLeft && low <= high; ++hand) {
            const double before = left;
            places > 0 ? StepByTransform(hand) : StepByOutcome(hand);
            work += places > 0 ? workOfHand
                               : static_cast<double>(law.outcomes.size()) *
                                     static_cast<double>(high - low + 1);
            if (work > kMostWork || !goesOn()) return false;
            end.brokeAt.insert(end.brokeAt.end(), broken.begin(), broken.end());
            std::swap(alive, next);
            left = Trim();
            if (goals) end.goalAt.push_back(std::max(0.0, before - left - SumOf(broken)));
        }
        // Without cash back, goals are the same whenever they were reached.
        if (goals && !goals->HasCashBack() && places == 0) AddGoals(0, visits, 0, top - stake - 1);
        end.alive = {stake, std::move(alive)};
        return true;
    }

    WalkEnd TakeEnd() { return std::move(end); }

  private:
    double& At(Masses& masses, std::int64_t place) const {
        return masses[static_cast<std::size_t>(place)];
    }

    // A step outcome by outcome, or a product of transforms for all of them, whichever is less.
    void ChooseStep() {
        const auto width = static_cast<double>(top);
        workOfHand = static_cast<double>(law.outcomes.size()) * width;
        const auto reach = static_cast<double>(std::max<std::int64_t>(law.outcomes.back().gain, 0));
        // Without a goal, nothing of note goes above the top.
        const double ring =
            width + static_cast<double>(stake) + (goals ? reach : std::min(reach, width));
        const std::size_t wanted = PlacesFor(ring).value_or(0);
        if (wanted == 0) return;
        const double byTransform = 12 * static_cast<double>(wanted) * std::log2(wanted);
        if (byTransform > workOfHand) return;
        workOfHand = byTransform;
        places = wanted;
        Masses kernel(places);
        for (const auto& [gain, probability] : law.outcomes) {
            const auto place = static_cast<std::size_t>(gain + stake);
            if (place < places) kernel[place] = probability;
        }
        step = SpectrumOf(kernel);
    }

    // About how many hands it takes until nobody plays any more between nothing and the top: a walk
    // leaves a range at least as fast when larger gains are taken for its width.
    double HandsToEnd() const {
        const auto width = static_cast<double>(top);
        double squares = 0;
        for (const auto& [gain, probability] : law.outcomes) {
            const double cut = std::min(static_cast<double>(gain), width);
            squares += probability * cut * cut;
        }
        constexpr double kTimes = 7;  // until the rest of 1e-14, 2 * 32 / pi^2 of them
        return 1 + kTimes * width * width / std::max(squares, 1e-300);
    }

    // Places are levels less the stake. Those below 0 cannot bet any more, and since no hand loses
    // more than the stake, they are above -stake - 1.
    void StepByOutcome(std::int64_t hand) {
        const auto occupied = static_cast<std::size_t>(high - low + 1);
        if (goals && goals->HasCashBack()) {
            AddGoals(hand, alive, low, high);
        } else if (goals) {
            AddShare(&At(alive, low), occupied, 1, &At(visits, low));
        }
        std::ranges::fill(next, 0.0);
        broken.assign(static_cast<std::size_t>(stake), 0);
        const std::int64_t size = top - stake;
        for (const auto& [gain, probability] : law.outcomes) {
            for (std::int64_t place = low; place < std::min(high + 1, -gain); ++place) {
                At(broken, place + gain + stake) += probability * At(alive, place);
            }
            const std::int64_t from = std::max(low, -gain);
            const std::int64_t to = std::min(high, size - 1 - gain);
            if (from > to) continue;
            const double* source = &At(alive, from);
            double* target = &At(next, from + gain);
            AddShare(source, static_cast<std::size_t>(to - from + 1), probability, target);
        }
    }

    void StepByTransform(std::int64_t hand) {
        Masses ring(places);
        std::ranges::copy(alive, ring.begin());
        Spectrum spectrum = SpectrumOf(ring);
        for (std::size_t j = 0; j < spectrum.size(); ++j) spectrum[j] *= step[j];
        const Masses after = LawOnRing(spectrum, places);
        broken.assign(after.begin(), after.begin() + stake);
        std::copy_n(after.begin() + stake, next.size(), next.begin());
        if (goals) {
            goals->Add(hand, top - level, std::span(after).subspan(static_cast<std::size_t>(top)));
        }
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

    // Whoever was at a place, in the range from first to last, and wins enough reaches the goal.
    void AddGoals(std::int64_t hand, Masses& players, std::int64_t first, std::int64_t last) {
        for (const auto& [gain, probability] : law.outcomes) {
            const auto from = std::max(first, top - stake - gain);
            if (from > last) continue;
            const std::span winners(&At(players, from), static_cast<std::size_t>(last - from + 1));
            goals->Add(hand, from + stake + gain - level, winners, probability);
        }
    }

    const GainLaw& law;
    std::int64_t level;
    std::int64_t stake;
    std::int64_t top;
    std::int64_t hands;
    EndMasses* goals;
    Masses alive;  // by place
    Masses next;
    Masses visits;  // how often players were at the place before a hand
    Masses broken;  // by the last hand, by units left
    double small;
    std::int64_t low = 0;  // the places from low to high are occupied
    std::int64_t high = 0;
    std::size_t places = 0;  // of the transforms; 0 = none
    double workOfHand = 0;
    Spectrum step;
    WalkEnd end;
};

}  // namespace

WalkAnswer AbsorbingWalk(const GainLaw& law, const Course& course, EndMasses& goals,
                         const GoesOn& goesOn) {
    const double window = WindowOf(law, static_cast<double>(course.hands)).highestEver;
    const double never = static_cast<double>(course.level) + window + 1;
    const bool isGoal = course.goal && static_cast<double>(*course.goal) < never;
    const double top = isGoal ? static_cast<double>(*course.goal) : never;
    if (top > static_cast<double>(kMostPlaces)) return {std::nullopt, NoEnd::kTooWide};
    Walk walk(law, course, static_cast<std::int64_t>(top), isGoal ? &goals : nullptr);
    if (walk.Play(goesOn)) return {walk.TakeEnd(), {}};
    return {std::nullopt, goesOn() ? NoEnd::kTooMuch : NoEnd::kStopped};
}
