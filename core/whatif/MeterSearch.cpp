#include "core/whatif/MeterSearch.h"

#include <cmath>
#include <limits>
#include <map>

namespace {

constexpr int kMostSteps = 60;
constexpr double kAll = 100;  // percent

class Searcher {
  public:
    Searcher(const PayTable& table, std::size_t line, const std::function<bool()>& goOn)
        : tables(table), table(table), line(line), goOn(goOn) {}

    double Return(int coins) {
        const auto known = returns.find(coins);
        if (known != returns.end()) return known->second;
        if (cancelled) return 0;
        table.lines[line].maxPayout = coins;
        GameAnalysisWatcher watcher;
        if (goOn) watcher.progress = [this](double, double) { return goOn(); };
        const GameTotals totals = AnalyzeGame(tables, table, 1, watcher);
        if (totals.cancelled) cancelled = true;
        if (cancelled) return 0;
        return returns[coins] = totals.payoutPercent;
    }

    // Percent by coin, behind the meter.
    double Slope(int coins) { return Return(coins + 1) - Return(coins); }

    std::optional<double> BreakEven(int coins) {
        constexpr double most = std::numeric_limits<int>::max() - 1;
        if (Return(0) >= kAll) return 0;
        for (int step = 0; step < kMostSteps && !cancelled; ++step) {
            const double slope = Slope(coins);
            const double root = coins + (kAll - Return(coins)) / slope;
            if (slope <= 0 || root > most) return std::nullopt;
            // The answer lies on the piece that begins here, or behind it.
            if (root >= coins && root < coins + 1) return root;
            coins = static_cast<int>(std::floor(std::max(root, 0.0)));
        }
        return std::nullopt;
    }

    std::map<int, double> returns;  // percent, by meter
    bool cancelled = false;

  private:
    const LineTables tables;
    PayTable table;
    std::size_t line;
    const std::function<bool()>& goOn;
};

}  // namespace

MeterResult SearchMeter(const PayTable& table, std::size_t line, int coins,
                        const std::function<bool()>& goOn) {
    Searcher searcher(table, line, goOn);
    MeterResult result;
    result.coins = coins;
    result.percent = searcher.Return(coins);
    result.breakEven = searcher.BreakEven(coins);
    result.analyses = static_cast<int>(searcher.returns.size());
    result.cancelled = searcher.cancelled;
    return result;
}
