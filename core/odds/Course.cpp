#include <algorithm>
#include <cmath>

#include "core/odds/Walk.h"

namespace {

constexpr double kRounding = 1e-9;  // of amounts, bets

// The faster way for gains that fall by more than one, where it is not too much.
WalkAnswer FollowMoney(const GainLaw& law, const Course& course, EndMasses& goals,
                       const GoesOn& goesOn) {
    if (!course.goal) {
        WalkAnswer renewal = RenewalTimes(law, course, goesOn);
        if (renewal.end || renewal.whyNot == NoEnd::kStopped) return renewal;
    }
    return AbsorbingWalk(law, course, goals, goesOn);
}

}  // namespace

std::optional<Course> CourseOf(const GainLaw& law, const SessionWish& wish) {
    // More than all hands take is never needed.
    const double most = static_cast<double>(wish.hands + 1) * static_cast<double>(law.stake);
    Course course{static_cast<std::int64_t>(most), std::nullopt, wish.hands};
    if (!wish.bankroll) return course;
    const double money = *wish.bankroll;
    const double levels = std::floor(money / law.unit + kRounding);
    if (levels < static_cast<double>(law.stake)) return std::nullopt;
    if (wish.goal && *wish.goal <= money + kRounding) return std::nullopt;
    course.level = static_cast<std::int64_t>(std::min(levels, most));
    if (wish.goal && *wish.goal - money < static_cast<double>(kMostPlaces) * law.unit) {
        const double above = std::ceil((*wish.goal - money) / law.unit - kRounding);
        course.goal = course.level + static_cast<std::int64_t>(std::max(above, 1.0));
    }
    return course;
}

std::optional<std::vector<double>> ChancesToEnd(const GainLaw& law, const Course& course,
                                                const GoesOn& goesOn) {
    if (course.NeverEnds(law)) return std::vector<double>{};
    if (law.FallsByOne() && !course.goal) return HittingChances(law, course, goesOn);
    EndMasses goals(0, course.hands, 1);
    const WalkAnswer walk = FollowMoney(law, course, goals, goesOn);
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
    if (law.FallsByOne() && !course.goal) return HittingTimes(law, course, goesOn);
    return FollowMoney(law, course, goals, goesOn);
}
