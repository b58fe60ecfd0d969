#include "core/odds/SessionLaw.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "core/odds/Walk.h"
#include "core/text/Amount.h"

namespace {

constexpr double kRounding = 1e-9;  // of amounts, bets
constexpr double kMet = 1e-12;      // of shares

SessionAnswer Refused(NoEnd whyNot) {
    if (whyNot == NoEnd::kStopped) return {std::nullopt, "it was stopped"};
    if (whyNot == NoEnd::kTooWide) {
        return {std::nullopt, "the results spread over more than " + FormatCount(kMostPlaces) +
                                  " different amounts, which is the limit"};
    }
    return {std::nullopt,
            "following the money hand by hand through all its amounts is more work than the limit "
            "of " +
                FormatCount(static_cast<std::int64_t>(kMostWork)) +
                " steps: ask for fewer hands, or leave out the bankroll and the goal"};
}

// Where sessions can end but by the goal there are as many amounts as units below the stake; the
// goal can be passed by whatever is won from just below it.
double AmountsAtTheEnd(const GainLaw& law, const Course& course) {
    auto amounts = static_cast<double>(law.stake);
    if (!course.goal) return amounts;
    const GainWindow window = WindowOf(law, static_cast<double>(course.hands));
    const double width =
        std::min(static_cast<double>(*course.goal), window.highest - window.lowest);
    double passed = 0;
    for (const auto& [gain, probability] : law.outcomes) {
        passed += std::clamp(static_cast<double>(gain), 0.0, width);
    }
    return amounts + std::min(passed, static_cast<double>(law.outcomes.back().gain));
}

void AddBroke(const WalkEnd& end, const GainLaw& law, std::int64_t level, EndMasses& ends) {
    const auto stake = static_cast<std::size_t>(law.stake);
    if (ends.HasCashBack()) {
        for (std::size_t i = 0; i < end.brokeAt.size(); i += stake) {
            ends.Add(static_cast<std::int64_t>(i / stake), -level, {&end.brokeAt[i], stake});
        }
        return;
    }
    std::vector<double> left(stake);
    for (std::size_t i = 0; i < end.brokeAt.size(); ++i) left[i % stake] += end.brokeAt[i];
    ends.Add(0, -level, left);
}

SessionLaw LawOf(const EndMasses& ends, double unit) {
    SessionLaw law;
    law.results = ends.Ends(unit);
    for (const auto& [bets, probability] : law.results) {
        law.expected += probability * bets;
        if (bets > kRounding) law.ahead += probability;
        if (std::abs(bets) <= kRounding) law.even += probability;
    }
    double squares = 0;
    for (const auto& [bets, probability] : law.results) {
        squares += probability * (bets - law.expected) * (bets - law.expected);
    }
    law.deviation = std::sqrt(squares);
    return law;
}

SessionAnswer NothingPlayed(bool broke, bool atGoal) {
    SessionLaw law;
    law.results = {{0, 1}};
    law.even = 1;
    law.broke = broke ? 1 : 0;
    law.goal = atGoal ? 1 : 0;
    return {law, ""};
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
    const auto course = CourseOf(law, wish);
    if (!course || wish.hands == 0) {
        const bool atGoal = wish.bankroll && wish.goal && *wish.goal <= *wish.bankroll + kRounding;
        return NothingPlayed(!course && !atGoal && wish.hands > 0, atGoal);
    }
    const double cashBack = wish.cashBack * static_cast<double>(law.stake);
    EndMasses ends(cashBack, wish.hands, AmountsAtTheEnd(law, *course));
    const WalkAnswer walk = FollowCourse(law, *course, ends, goesOn);
    if (!walk.end) return Refused(walk.whyNot);
    const WalkEnd& end = *walk.end;
    ends.Add(wish.hands, end.alive.first - course->level, end.alive.probabilities);
    AddBroke(end, law, course->level, ends);
    SessionLaw session = LawOf(ends, law.unit);
    const auto hands = static_cast<std::size_t>(wish.hands * law.stake);
    for (std::size_t i = 0; i < std::min(end.brokeAt.size(), hands); ++i) {
        session.broke += end.brokeAt[i];
    }
    session.goal = std::accumulate(end.goalAt.begin(), end.goalAt.end(), 0.0);
    return {std::move(session), ""};
}
