#include "game/reports/BankrollTexts.h"

#include <algorithm>
#include <cmath>

#include "core/text/Amount.h"
#include "game/reports/Chance.h"

namespace {

constexpr double kRounding = 1e-12;

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

// Where the cash back is, so rounded, what is there already, with more digits and rounded up.
std::string WantedCashBack(double wanted, double already) {
    constexpr double kThousandth = 1e-5;  // of a percent
    const double rounded = std::round(wanted / kThousandth) * kThousandth;
    if (rounded > already + kRounding) return Percent(rounded);
    for (double unit = kThousandth / 10; unit > kRounding; unit /= 10) {
        const double up = std::ceil(wanted / unit - 1e-3) * unit;
        if (up > already + unit / 2) {
            const int digits = static_cast<int>(std::lround(-std::log10(unit))) - 2;
            return FormatDecimals("%." + std::to_string(digits) + "f", up * 100) + " %";
        }
    }
    return "a little more than " + Percent(already);
}

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
    std::string text = law.ahead < kRounding
                           ? "No such session ends ahead"
                           : Capital(ShareInWords(law.ahead)) + " such sessions end ahead";
    text += "; the middle one " + WinsOrLoses(law.Quantile(0.5), betDollars) + ".";
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
        if (!run.canLose) return "Nothing is ever won or lost.";
        const double wanted = cashBack - run.edge;
        if (wanted <= cashBack + kRounding) {
            const std::string more = cashBack > 0 ? "any more cash back" : "any cash back";
            return "Ruin is certain; " + more + " would change that.";
        }
        return "Ruin is certain; cash back of " + WantedCashBack(wanted, cashBack) +
               " would change that.";
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
