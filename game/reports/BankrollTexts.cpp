#include "game/reports/BankrollTexts.h"

#include <algorithm>
#include <cmath>

#include "core/text/Amount.h"

namespace {

constexpr double kRounding = 1e-12;

// To three digits: 1,230,000.
std::string OneIn(double share) {
    const double of = 1 / share;
    const double unit = std::pow(10, std::max(0.0, std::floor(std::log10(of)) - 2));
    return "1 in " + FormatCount(std::llround(std::round(of / unit) * unit));
}

std::string Capital(std::string text) {
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') {
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
    }
    return text;
}

std::string WinsOrLoses(double bets, double betDollars) {
    if (std::abs(bets * betDollars) < 0.005) return "breaks even";
    return (bets > 0 ? "wins " : "loses ") + BetsInDollars(std::abs(bets), betDollars);
}

std::string Percent(double share) { return FormatDecimals("%.3f", share * 100) + " %"; }

}  // namespace

std::string ShareInWords(double share) {
    constexpr double kFew = 0.00995;  // that is not one of a hundred any more
    if (share < kRounding) return "none";
    if (share > 1 - kRounding) return "all";
    if (share < kFew) return OneIn(share);
    if (share > 1 - kFew) return "all but " + OneIn(1 - share);
    return FormatCount(std::llround(share * 100)) + " of 100";
}

std::string BetsInDollars(double bets, double betDollars) {
    return FormatDollars("%.2f", std::round(bets * betDollars * 100) / 100 + 0.0);
}

std::string SessionInWords(const SessionLaw& law, const SessionWish& wish, double betDollars) {
    std::string text = Capital(ShareInWords(law.ahead)) +
                       " such sessions end ahead; the middle one " +
                       WinsOrLoses(law.Quantile(0.5), betDollars) + ".";
    if (wish.bankroll) {
        text += " " + Capital(ShareInWords(law.broke)) + " are broke before the end";
        if (wish.goal) text += ", and " + ShareInWords(law.goal) + " reach the goal";
        text += ".";
    }
    const double mean = law.expected;
    if (std::abs(mean * betDollars) < 0.005) return text + " On average a session costs nothing.";
    return text + " On average a session " + (mean < 0 ? "costs " : "brings ") +
           BetsInDollars(std::abs(mean), betDollars) + ".";
}

std::string RuinInWords(const LongRun& run, double cashBack, std::optional<double> bankroll,
                        double betDollars) {
    if (run.RuinIsCertain()) {
        const double wanted = cashBack - run.edge;
        if (wanted <= kRounding) return "Nothing is ever won or lost.";
        return "Ruin is certain; cash back of " + Percent(wanted) + " would change that.";
    }
    if (run.base <= 0) return "Nothing can be lost.";
    std::string text = "Every bet wins " + Percent(run.edge) + " on average.";
    if (bankroll) {
        text += " " + Capital(ShareInWords(run.RiskOf(*bankroll))) + " who begin with " +
                BetsInDollars(*bankroll, betDollars) + " and never stop lose it all.";
    }
    return text + " To risk no more than one in a hundred takes " +
           BetsInDollars(run.BankrollFor(0.01), betDollars) + ". Money grows fastest when " +
           BetsInDollars(run.KellyBankroll(), betDollars) + " stand behind this bet.";
}

std::string LeftOutInWords(const PayTable& table) {
    std::string features;
    const auto add = [&features](bool has, const std::string& name) {
        if (has) features += (features.empty() ? "" : ", ") + name;
    };
    add(table.spinBonus, "Spin");
    add(table.targetBonus, "Target");
    add(table.redBlackBonus, "Red or Black");
    add(table.charlieBonus, "the five-card charlie");
    if (features.empty()) return "";
    return "The base game only: what " + features + " brings is left out.";
}
