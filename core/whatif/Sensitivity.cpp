#include "core/whatif/Sensitivity.h"

#include <limits>

std::vector<LineSensitivity> LineSensitivities(const LineTables& tables, const PayTable& table,
                                               const GameTotals& totals,
                                               const std::function<bool()>& goOn) {
    constexpr int most = std::numeric_limits<int>::max();
    std::vector<LineSensitivity> lines(table.lines.size());
    if (!CanAnalyzeGame(table) || totals.denominator <= 0) return lines;
    PayTable changed = table;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (goOn && !goOn()) break;
        PayLine& line = changed.lines[i];
        lines[i].slope = totals.summary[i] / totals.denominator * 100;
        if (line.payout == most || line.maxPayout > most - kFullBet) continue;
        line.payout += 1;
        line.maxPayout += kFullBet;
        const GameTotals more = AnalyzeGame(tables, changed, 1, {});
        lines[i].gain = more.payoutPercent - totals.payoutPercent;
        lines[i].known = true;
        line = table.lines[i];
    }
    return lines;
}
