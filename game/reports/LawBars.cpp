#include "game/reports/LawBars.h"

#include <algorithm>
#include <cmath>

#include "game/reports/BankrollTexts.h"
#include "game/reports/ReportCells.h"

namespace {

constexpr double kBars = 80;  // about so many
constexpr double kRare = 0.005;
constexpr double kRounding = 1e-9;
constexpr double kMostBars = 400;  // a result of the player's own beyond them is not shown

// So many bets, a whole number, that every bar has as many results as the next.
double BetsOfBar(double least) {
    if (least <= 1) return 1;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (power * factor >= least * (1 - kRounding)) return power * factor;
    }
    return power * 10;
}

class Rows {
  public:
    explicit Rows(ReportTable& table) : table(table) {}

    void Add(const std::string& name, ReportCell first, ReportCell second = {}) {
        ReportRow row;
        row.id = static_cast<std::int64_t>(table.rows.size());
        row.cells = {TextCell(name), std::move(first), std::move(second)};
        table.rows.push_back(std::move(row));
    }

  private:
    ReportTable& table;
};

}  // namespace

std::vector<LawBar> BarsOf(const SessionLaw& law, double betDollars, std::optional<double> own) {
    if (law.results.empty()) return {};
    double low = law.Quantile(kRare) * betDollars;
    double high = law.Quantile(1 - kRare) * betDollars;
    const double step = BetsOfBar((high - low) / kBars / betDollars) * betDollars;
    if (own && std::abs(*own - low) < kMostBars * step) {
        low = std::min(low, *own);
        high = std::max(high, *own);
    }
    const double first = std::floor(low / step + kRounding);
    const double last = std::floor(high / step + kRounding);
    std::vector<LawBar> bars;
    for (double bar = first; bar <= last; ++bar) bars.push_back({bar * step, (bar + 1) * step});
    for (const auto& [bets, probability] : law.results) {
        const double bar = std::floor(bets * betDollars / step + kRounding) - first;
        if (bar < 0) {
            bars.front().below += probability;
        } else if (bar < static_cast<double>(bars.size())) {
            bars[static_cast<std::size_t>(bar)].share += probability;
        }
    }
    for (std::size_t i = 1; i < bars.size(); ++i) {
        bars[i].below = bars[i - 1].below + bars[i - 1].share;
    }
    return bars;
}

ReportTable SessionTable(const SessionLaw& law, const LineChances& lines, const PayTable& table,
                         double betDollars) {
    ReportTable report;
    report.title = "Session";
    report.columns = {{"Session"},
                      {"Chance", "%", true},
                      {"Result at Most", "$", true, "So many of all sessions bring no more"}};
    Rows rows(report);
    const auto percent = [](double share) { return NumberCell("%.3f", share * 100); };
    rows.Add("Ahead", percent(law.ahead));
    rows.Add("Even", percent(law.even));
    rows.Add("Broke before the end", percent(law.broke));
    rows.Add("At the goal", percent(law.goal));
    for (const int share : kUsualPercents) {
        rows.Add(std::to_string(share) + " of 100", percent(share / 100.0),
                 NumberCell("%.2f", law.Quantile(share / 100.0) * betDollars + 0.0));
    }
    rows.Add("On average", {}, NumberCell("%.2f", law.expected * betDollars + 0.0));
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        rows.Add("At least one " + table.lines[i].description +
                     (lines.areOfAllDeals ? ", all deals played" : ""),
                 percent(lines.atLeastOnce[i]));
    }
    return report;
}

ReportTable RiskTable(const LongRun& run, double betDollars) {
    ReportTable report;
    report.title = "Long Run";
    report.columns = {{"Risk of Ruin"},
                      {"Bankroll", "bets", true, "Beginning with so much, and never stopping"},
                      {"Bankroll", "$", true}};
    if (run.RuinIsCertain()) return report;
    Rows rows(report);
    for (const double risk : kUsualRisks) {
        const double bets = run.BankrollFor(risk);
        rows.Add(ShareInWords(risk), NumberCell("%.1f", bets),
                 NumberCell("%.2f", bets * betDollars));
    }
    return report;
}
