#include "core/odds/Ruin.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kNoEdge = 1e-12;
constexpr int kHalvings = 200;

// E f(gain in shares of the bet).
template <typename Function>
double Expect(const GainLaw& law, double cashBack, const Function& function) {
    double sum = 0;
    for (const auto& [gain, probability] : law.outcomes) {
        sum += probability *
               function(static_cast<double>(gain) / static_cast<double>(law.stake) + cashBack);
    }
    return sum;
}

// The point of a rising or falling function where it changes its sign; it is positive at "above".
template <typename Function>
double Root(double above, double below, const Function& function) {
    for (int i = 0; i < kHalvings; ++i) {
        const double middle = (above + below) / 2;
        (function(middle) > 0 ? above : below) = middle;
    }
    return (above + below) / 2;
}

}  // namespace

double LongRun::RiskOf(double bankroll) const {
    if (RuinIsCertain()) return 1;
    return std::pow(base, std::max(bankroll, 0.0));
}

double LongRun::BankrollFor(double risk) const {
    if (risk >= 1) return 0;
    if (RuinIsCertain()) return std::numeric_limits<double>::infinity();
    return base <= 0 ? 0 : std::log(risk) / std::log(base);
}

double LongRun::KellyBankroll() const {
    return kelly > 0 ? stake / kelly : std::numeric_limits<double>::infinity();
}

LongRun FindLongRun(const GainLaw& law, double cashBack) {
    LongRun run;
    if (law.outcomes.empty()) return run;
    run.stake = static_cast<double>(law.stake) * law.unit;
    run.edge = Expect(law, cashBack, [](double gain) { return gain; });
    const double worst =
        static_cast<double>(law.outcomes.front().gain) / static_cast<double>(law.stake) + cashBack;
    run.canLose = worst < 0;
    if (!run.canLose) {
        run.base = run.edge > kNoEdge ? 0 : 1;
        run.kelly = run.edge > kNoEdge ? 1 : 0;
        return run;
    }
    if (run.edge <= kNoEdge) return run;
    // With base = exp(-t): E (exp(-t gain) - 1) is 0 at t = 0, falls by the edge, and rises past 0
    // again because something can be lost.
    const auto excess = [&](double t) {
        return Expect(law, cashBack, [t](double gain) { return std::expm1(-t * gain); });
    };
    double most = 1;
    while (excess(most) <= 0 && most < 1e6) most *= 2;
    double least = most;
    while (excess(least) > 0 && least > 1e-300) least /= 2;
    run.base = std::exp(-Root(most, least, excess) / run.stake);
    const auto growth = [&](double share) {
        return Expect(law, cashBack, [share](double gain) { return gain / (1 + share * gain); });
    };
    run.kelly = Root(0, std::min(1.0, -1 / worst), growth);
    return run;
}
