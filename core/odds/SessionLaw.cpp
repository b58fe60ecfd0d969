#include "core/odds/SessionLaw.h"

#include <algorithm>
#include <cmath>

#include "core/odds/Spectrum.h"
#include "core/odds/Walk.h"
#include "core/text/Amount.h"

namespace {

constexpr double kRounding = 1e-9;        // of amounts, bets
constexpr double kMet = 1e-12;            // of shares
constexpr std::size_t kMoments = 50'000;  // at which broke players are told apart by cash back

// Puts the ends of a session together.
class Results {
  public:
    Results(const GainLaw& law, const SessionWish& wish) : unit(law.unit) {
        cashBackOfHand = wish.cashBack * static_cast<double>(law.stake) * law.unit;
    }

    void Add(double units, double hands, double probability) {
        if (probability <= 0) return;
        session.results.push_back({units * unit + cashBackOfHand * hands, probability});
    }

    void AddLaw(const WholeLaw& law, double hands, double less) {
        for (std::size_t i = 0; i < law.probabilities.size(); ++i) {
            Add(static_cast<double>(law.first) + static_cast<double>(i) - less, hands,
                law.probabilities[i]);
        }
    }

    // Those who were broke earlier have had less cash back.
    void AddBroke(const WalkEnd& end, double level) {
        double all = 0;
        for (const double probability : end.brokeAt) all += probability;
        session.broke = all;
        if (all <= 0) return;
        for (std::size_t left = 0; left < end.brokeWith.size(); ++left) {
            const double share = end.brokeWith[left] / all;
            const double units = static_cast<double>(left) - level;
            if (cashBackOfHand == 0) {
                Add(units, 0, end.brokeWith[left]);
                continue;
            }
            const std::size_t step = end.brokeAt.size() / kMoments + 1;
            for (std::size_t from = 0; from < end.brokeAt.size(); from += step) {
                double mass = 0;
                double moment = 0;
                for (std::size_t n = from; n < std::min(from + step, end.brokeAt.size()); ++n) {
                    mass += end.brokeAt[n];
                    moment += end.brokeAt[n] * static_cast<double>(n);
                }
                if (mass > 0) Add(units, moment / mass, mass * share);
            }
        }
    }

    void AddGoals(const WalkEnd& end, double level) {
        for (std::size_t i = 0; i < end.goal.probabilities.size(); ++i) {
            const double probability = end.goal.probabilities[i];
            Add(static_cast<double>(end.goal.first) + static_cast<double>(i) - level,
                end.goalHands[i], probability);
            session.goal += probability;
        }
    }

    SessionLaw Take() {
        std::ranges::sort(session.results, {}, &SessionLaw::Result::bets);
        double squares = 0;
        for (const auto& [bets, probability] : session.results) {
            session.expected += probability * bets;
            if (bets > kRounding) session.ahead += probability;
            if (std::abs(bets) <= kRounding) session.even += probability;
        }
        for (const auto& [bets, probability] : session.results) {
            squares += probability * (bets - session.expected) * (bets - session.expected);
        }
        session.deviation = std::sqrt(squares);
        return std::move(session);
    }

  private:
    double unit;
    double cashBackOfHand;  // bets
    SessionLaw session;
};

SessionAnswer TooWide() {
    return {std::nullopt, "the results spread over more than " + FormatCount(kMostPlaces) +
                              " different amounts, which is the limit"};
}

SessionAnswer NothingPlayed(bool broke, bool atGoal) {
    SessionLaw law;
    law.results = {{0, 1}};
    law.even = 1;
    law.broke = broke ? 1 : 0;
    law.goal = atGoal ? 1 : 0;
    return {law, ""};
}

SessionAnswer PlayWithMoney(const GainLaw& law, const SessionWish& wish, const GoesOn& goesOn) {
    const double money = *wish.bankroll;
    const double levels = std::floor(money / law.unit + kRounding);
    const bool broke = levels < static_cast<double>(law.stake);
    const bool atGoal = wish.goal && *wish.goal <= money + kRounding;
    if (broke || atGoal || wish.hands == 0) return NothingPlayed(broke && !atGoal, atGoal);
    std::optional<std::int64_t> goal;
    if (wish.goal && *wish.goal - money < static_cast<double>(kMostPlaces) * law.unit) {
        const double above = std::ceil((*wish.goal - money) / law.unit - kRounding);
        goal = static_cast<std::int64_t>(std::min(levels, 1e15) + std::max(above, 1.0));
    }
    // Who cannot go broke has money without end; more than all hands take is never needed.
    const double most = static_cast<double>(wish.hands + 1) * static_cast<double>(law.stake);
    const auto level = static_cast<std::int64_t>(std::min(levels, most));
    if (goal && levels > most) *goal -= static_cast<std::int64_t>(levels - most);
    const auto end = law.FallsByOne() && !goal
                         ? HittingTimes(law, level, wish.hands)
                         : AbsorbingWalk(law, level, goal, wish.hands, goesOn);
    if (!end) {
        return {std::nullopt,
                "following the money hand by hand through all its amounts is more work than the "
                "limit of 15,000,000,000 steps: ask for fewer hands, or leave out the bankroll and "
                "the goal"};
    }
    Results results(law, wish);
    results.AddLaw(end->alive, static_cast<double>(wish.hands), static_cast<double>(level));
    results.AddBroke(*end, static_cast<double>(level));
    results.AddGoals(*end, static_cast<double>(level));
    return {results.Take(), ""};
}

}  // namespace

double SessionLaw::Quantile(double share) const {
    double sum = 0;
    double last = 0;
    for (const auto& [bets, probability] : results) {
        sum += probability;
        last = bets;
        if (sum >= share - kMet) break;
    }
    return last;
}

double SessionLaw::ShareBelow(double bets) const {
    double sum = 0;
    for (const auto& result : results) {
        if (result.bets < bets - kRounding) sum += result.probability;
    }
    return std::min(sum, 1.0);
}

double SessionLaw::ShareUpTo(double bets) const {
    double sum = 0;
    for (const auto& result : results) {
        if (result.bets <= bets + kRounding) sum += result.probability;
    }
    return std::min(sum, 1.0);
}

SessionAnswer FindSessionLaw(const GainLaw& law, const SessionWish& wish,
                             const std::function<bool()>& goesOn) {
    if (law.outcomes.empty()) return {std::nullopt, "nothing is known of a hand"};
    if (wish.hands > SessionWish::kMostHands) {
        return {std::nullopt,
                "more than " + FormatCount(SessionWish::kMostHands) + " hands are never followed"};
    }
    if (wish.bankroll) return PlayWithMoney(law, wish, goesOn);
    const auto sum = SumLaw(law, wish.hands);
    if (!sum) return TooWide();
    Results results(law, wish);
    results.AddLaw(*sum, static_cast<double>(wish.hands), 0);
    return {results.Take(), ""};
}
