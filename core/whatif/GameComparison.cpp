#include "core/whatif/GameComparison.h"

#include <algorithm>

#include "core/text/Numbers.h"

namespace {

constexpr double kAll = 100;           // percent
constexpr double kAnalysesPart = 0.5;  // of the work, by which its progress is told

double Probability(const GameTotals& totals, double summary) {
    return totals.denominator > 0 ? summary / totals.denominator : 0;
}

TableFigures FiguresOf(const PayTable& table, const GameTotals& totals) {
    TableFigures figures{totals.payoutPercent, totals.variance, 0};
    const auto royal = std::ranges::find(table.lines, HandRank::kRoyalFlush, &PayLine::rank);
    if (royal == table.lines.end()) return figures;
    const double often =
        Probability(totals, totals.summary[static_cast<std::size_t>(royal - table.lines.begin())]);
    if (often > 0) figures.royalCycle = 1 / often;
    return figures;
}

// The line's number among those not taken yet.
std::optional<std::size_t> Find(const PayTable& table, const PayLine& wanted,
                                const std::vector<bool>& taken) {
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        if (!taken[i] && SameText(table.lines[i].description, wanted.description)) return i;
    }
    return std::nullopt;
}

void Split(LineDifference& line) {
    const double payA = line.payA.value_or(line.payB.value_or(0));
    const double payB = line.payB.value_or(payA);
    line.byFrequency = (line.probabilityB - line.probabilityA) * (payA + payB) / 2 * kAll;
    line.byPay = (payB - payA) * (line.probabilityA + line.probabilityB) / 2 * kAll;
}

// The lines of a double-draw game are counted after the first draw: what the second ones add to its
// return is the rest.
LineDifference SecondDraws(const std::vector<LineDifference>& lines, double percentA,
                           double percentB) {
    LineDifference rest;
    rest.description = "(second draws)";
    rest.percentA = percentA;
    rest.percentB = percentB;
    for (const LineDifference& line : lines) {
        rest.percentA -= line.percentA;
        rest.percentB -= line.percentB;
    }
    rest.byFrequency = rest.percentB - rest.percentA;
    return rest;
}

double CoinPay(const PayLine& line) { return static_cast<double>(line.maxPayout) / kFullBet; }

std::vector<LineDifference> LinesOf(const PayTable& a, const GameTotals& totalsA, const PayTable& b,
                                    const GameTotals& totalsB) {
    std::vector<LineDifference> lines;
    std::vector<bool> taken(b.lines.size());
    const auto addB = [&](LineDifference& line, std::size_t number) {
        taken[number] = true;
        line.payB = CoinPay(b.lines[number]);
        line.probabilityB = Probability(totalsB, totalsB.summary[number]);
        line.percentB = LinePercentReturn(totalsB, b, number);
    };
    for (std::size_t i = 0; i < a.lines.size(); ++i) {
        LineDifference& line = lines.emplace_back();
        line.description = a.lines[i].description;
        line.payA = CoinPay(a.lines[i]);
        line.probabilityA = Probability(totalsA, totalsA.summary[i]);
        line.percentA = LinePercentReturn(totalsA, a, i);
        if (const auto other = Find(b, a.lines[i], taken)) addB(line, *other);
    }
    for (std::size_t i = 0; i < b.lines.size(); ++i) {
        if (taken[i]) continue;
        LineDifference& line = lines.emplace_back();
        line.description = b.lines[i].description;
        addB(line, i);
    }
    std::ranges::for_each(lines, Split);
    if (a.type == GameType::kDoubleDraw || b.type == GameType::kDoubleDraw) {
        lines.push_back(SecondDraws(lines, totalsA.payoutPercent, totalsB.payoutPercent));
    }
    return lines;
}

}  // namespace

GameComparison CompareGames(const PayTable& a, const PayTable& b, const WhatIfProgress& progress) {
    GameComparison comparison;
    double done = 0;
    const auto analyze = [&](const PayTable& table) {
        GameAnalysisWatcher watcher;
        watcher.progress = [&](double part, double all) {
            return !progress || progress(done + part / all * kAnalysesPart / 2);
        };
        const GameTotals totals = AnalyzeGame(LineTables(table), table, 1, watcher);
        comparison.cancelled = comparison.cancelled || totals.cancelled;
        done += kAnalysesPart / 2;
        return totals;
    };
    const GameTotals totalsA = analyze(a);
    if (comparison.cancelled) return comparison;
    const GameTotals totalsB = analyze(b);
    if (comparison.cancelled) return comparison;
    comparison.a = FiguresOf(a, totalsA);
    comparison.b = FiguresOf(b, totalsB);
    comparison.lines = LinesOf(a, totalsA, b, totalsB);
    comparison.whyNoPlay = TwoTables::WhyNot(a, b);
    if (!comparison.whyNoPlay.empty()) return comparison;
    comparison.play = ComparePlay(TwoTables(a, b), [&](double part) {
        return !progress || progress(done + part * (1 - kAnalysesPart));
    });
    comparison.cancelled = comparison.play->cancelled;
    return comparison;
}
