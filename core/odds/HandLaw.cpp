#include "core/odds/HandLaw.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "core/analysis/LineTableCache.h"

namespace {

using Probabilities = std::array<double, kMaxPayLines>;

std::optional<Probabilities> LinesOf(const LineTables& tables, const PayTable& table,
                                     const std::function<bool()>& goesOn) {
    GameAnalysisWatcher watcher;
    watcher.progress = [&goesOn](double, double) { return goesOn(); };
    BestEnd ends(tables, table);
    Probabilities lines{};
    const bool drawsTwice = table.type == GameType::kDoubleDraw;
    if (drawsTwice) {
        watcher.hand = [&ends, &lines](const PlayedHand& hand) {
            const Probabilities of = ends.Of(hand);
            for (std::size_t line = 0; line < kMaxPayLines; ++line) {
                lines[line] += hand.weight * of[line];
            }
        };
    }
    const GameTotals totals = AnalyzeGame(tables, table, 1, watcher);
    if (totals.cancelled || !(totals.denominator > 0)) return std::nullopt;
    if (!drawsTwice) lines = totals.summary;
    for (double& line : lines) line /= drawsTwice ? totals.initHandsTotal : totals.denominator;
    return lines;
}

HandLaw LawOf(const Probabilities& lines, const PayTable& table) {
    HandLaw law{lines};
    double squares = 0;
    for (std::size_t line = 0; line < table.lines.size(); ++line) {
        const double pay = static_cast<double>(table.lines[line].maxPayout) / kFullBet;
        law.anyLine += lines[line];
        law.meanReturn += lines[line] * pay;
        squares += lines[line] * pay * pay;
    }
    law.variance = std::max(0.0, squares - law.meanReturn * law.meanReturn);
    return law;
}

}  // namespace

PayTable ScheduleOf(PayTable table, int bet) {
    if (bet == kFullBet) return table;
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    for (PayLine& line : table.lines) {
        line.maxPayout = static_cast<int>(std::min(std::int64_t{line.payout} * kFullBet, most));
    }
    return table;
}

PayTable WithoutWins(PayTable table) {
    for (PayLine& line : table.lines) line.sessionWins = line.totalWins = 0;
    return table;
}

std::array<double, kMaxPayLines> BestEnd::Of(const PlayedHand& hand) {
    Probabilities shares{};
    const auto draws = static_cast<double>(hand.best.totalHands);
    for (std::size_t line = 0; line < kMaxPayLines; ++line) {
        shares[line] = static_cast<double>(hand.best.counts[line]) / draws;
    }
    if (table.type != GameType::kDoubleDraw) return shares;
    AnalyzeHand(tables, table, {hand.cards, {}}, kFullBet, 1, analysis);
    const DrawAgainResult& again = analysis.drawAgain[static_cast<std::size_t>(analysis.best)];
    const bool drawsAgain =
        std::ranges::any_of(again.probabilities, [](double share) { return share > 0; });
    return drawsAgain ? again.probabilities : shares;
}

std::optional<HandLaw> AnalyzeBet(const PayTable& table, int bet, LineTableCache& tables,
                                  const std::function<bool()>& goesOn) {
    if (!CanAnalyzeGame(table) || table.lines.empty()) return std::nullopt;
    const PayTable schedule = ScheduleOf(table, bet);
    const auto lines = LinesOf(*tables.For(table), schedule, goesOn);
    if (!lines) return std::nullopt;
    return LawOf(*lines, schedule);
}

std::optional<ExpectedPlay> AnalyzePlay(const PayTable& table, LineTableCache& tables,
                                        const std::function<bool()>& goesOn) {
    const auto full = AnalyzeBet(table, kFullBet, tables, goesOn);
    if (!full) return std::nullopt;
    if (ScheduleOf(table, 1) == table) return ExpectedPlay{*full, *full};
    const auto other = AnalyzeBet(table, 1, tables, goesOn);
    if (!other) return std::nullopt;
    return ExpectedPlay{*full, *other};
}
