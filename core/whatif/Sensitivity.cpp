#include "core/whatif/Sensitivity.h"

#include <limits>

std::vector<LineSensitivity> LineSensitivities(const LineTables& tables, const PayTable& table,
                                               const GameTotals& totals,
                                               const std::function<bool()>& goOn) {
    constexpr int most = std::numeric_limits<int>::max();
    std::vector<LineSensitivity> lines(table.lines.size());
    if (!CanAnalyzeGame(table) || totals.denominator <= 0) return lines;
    PayTable changed = table;
    GameAnalysisWatcher watcher;
    if (goOn) watcher.progress = [&goOn](double, double) { return goOn(); };
    if (table.type != GameType::kDoubleDraw) {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            lines[i].slope = totals.summary[i] / totals.denominator * 100;
        }
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        PayLine& line = changed.lines[i];
        if (line.payout == most || line.maxPayout > most - kFullBet) continue;
        line.payout += 1;
        line.maxPayout += kFullBet;
        const GameTotals more = AnalyzeGame(tables, changed, 1, watcher);
        if (more.cancelled) break;
        lines[i].gain = more.payoutPercent - totals.payoutPercent;
        lines[i].known = true;
        line = table.lines[i];
    }
    return lines;
}
