#include "game/reports/ExpectedPlay.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "core/analysis/GameAnalysis.h"
#include "core/analysis/HoldAnalysis.h"
#include "core/analysis/LineTableCache.h"

namespace {

using Probabilities = std::array<double, kMaxPayLines>;

// The game is analysed at the full bet, so a table for another one pays there, coin for coin, what
// this one pays for one coin.
PayTable WithOneSchedule(PayTable table) {
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    for (PayLine& line : table.lines) {
        line.maxPayout = static_cast<int>(std::min(std::int64_t{line.payout} * kFullBet, most));
    }
    return table;
}

// The lines that the best holds of a double-draw game end in, the second draw included: the totals
// of a game know the first draws alone.
class SecondDraws {
  public:
    SecondDraws(const LineTables& tables, const PayTable& table) : tables(tables), table(table) {}

    void Add(const PlayedHand& hand) {
        AnalyzeHand(tables, table, {hand.cards, {}}, kFullBet, 1, analysis);
        const auto best = static_cast<std::size_t>(analysis.best);
        const HoldResult& hold = analysis.holds[best];
        const DrawAgainResult& again = analysis.drawAgain[best];
        const bool drawsAgain =
            std::ranges::any_of(again.probabilities, [](double share) { return share > 0; });
        for (std::size_t line = 0; line < kMaxPayLines; ++line) {
            const double once =
                static_cast<double>(hold.lineCounts[line]) / static_cast<double>(hold.totalHands);
            sums[line] += hand.weight * (drawsAgain ? again.probabilities[line] : once);
        }
    }
    Probabilities Shares(double hands) const {
        Probabilities shares = sums;
        for (double& share : shares) share /= hands;
        return shares;
    }

  private:
    const LineTables& tables;
    const PayTable& table;
    HoldAnalysis analysis;
    Probabilities sums{};
};

std::optional<Probabilities> LinesOf(const LineTables& tables, const PayTable& table,
                                     const std::function<bool()>& goesOn) {
    GameAnalysisWatcher watcher;
    watcher.progress = [&goesOn](double, double) { return goesOn(); };
    SecondDraws draws(tables, table);
    const bool drawsTwice = table.type == GameType::kDoubleDraw;
    if (drawsTwice) watcher.hand = [&draws](const PlayedHand& hand) { draws.Add(hand); };
    const GameTotals totals = AnalyzeGame(tables, table, 1, watcher);
    if (totals.cancelled || !(totals.denominator > 0)) return std::nullopt;
    if (drawsTwice) return draws.Shares(totals.initHandsTotal);
    Probabilities lines = totals.summary;
    for (double& line : lines) line /= totals.denominator;
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

std::optional<ExpectedPlay> AnalyzePlay(const PayTable& table, LineTableCache& tables,
                                        const std::function<bool()>& goesOn) {
    if (!CanAnalyzeGame(table) || table.lines.empty()) return std::nullopt;
    const auto lineTables = tables.For(table);
    const auto full = LinesOf(*lineTables, table, goesOn);
    if (!full) return std::nullopt;
    const HandLaw fullBet = LawOf(*full, table);
    const PayTable other = WithOneSchedule(table);
    if (other == table) return ExpectedPlay{fullBet, fullBet};
    const auto lines = LinesOf(*lineTables, other, goesOn);
    if (!lines) return std::nullopt;
    return ExpectedPlay{fullBet, LawOf(*lines, other)};
}

ExpectedGain GainOf(const CreditHistory::Wagers& wagers, const ExpectedPlay& expected) {
    const double mean = wagers.fullBets * (expected.fullBet.meanReturn - 1) +
                        wagers.otherBets * (expected.otherBets.meanReturn - 1);
    const double variance = wagers.fullSquares * expected.fullBet.variance +
                            wagers.otherSquares * expected.otherBets.variance;
    return {mean, std::sqrt(variance)};
}
