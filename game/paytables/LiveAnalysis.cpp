#include "game/paytables/LiveAnalysis.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/analysis/StartThread.h"
#include "core/text/Amount.h"
#include "core/text/Numbers.h"

namespace {

// At the full bet it pays what the table pays at a single coin.
PayTable AtOneCoin(PayTable table) {
    constexpr int kLargest = std::numeric_limits<int>::max();
    for (PayLine& line : table.lines) {
        line.maxPayout = line.payout > kLargest / kFullBet ? kLargest : line.payout * kFullBet;
    }
    return table;
}

double ProbabilityOf(const GameTotals& totals, std::size_t line) {
    return totals.denominator == 0 ? 0 : totals.summary[line] / totals.denominator;
}

double PercentForCoin(const GameTotals& totals, std::size_t line) {
    return ProbabilityOf(totals, line) / kFullBet * 100;
}

// Of double draw games the lines are those after the first draw, whose sum is not the return of the
// game: the shares are of that sum, so that they always make 100 percent.
std::vector<LiveLine> LinesOf(const GameTotals& totals, const PayTable& table) {
    std::vector<LiveLine> lines;
    double all = 0;
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        const double percent = LinePercentReturn(totals, table, i);
        lines.push_back({ProbabilityOf(totals, i), percent, PercentForCoin(totals, i)});
        all += percent;
    }
    for (LiveLine& line : lines) line.sharePercent = all > 0 ? line.sharePercent / all * 100 : 0;
    return lines;
}

// "−1.10 %".
std::string SignedPercent(double percent) {
    const std::string amount = FormatDouble("%.2f", percent < 0 ? -percent : percent);
    const char* sign = amount == "0.00" ? "" : percent < 0 ? "\u2212" : "+";
    return sign + amount + " %";
}

// The long description of the line at the top, by which the player knows it.
std::string BreakEvenText(const BreakEven& even, const PayTableTexts& texts) {
    const std::string& description =
        texts.lines.at(static_cast<std::size_t>(even.line)).description;
    const std::string name = description.substr(0, description.find(';'));
    if (!even.payout) return name + " never breaks even";
    if (*even.payout == 0) return "At least 100 % whatever " + name + " pays";
    return name + " breaks even at " + FormatCount(*even.payout);
}

}  // namespace

std::string LiveText(const LiveResult& result) {
    return "Return " + FormatDouble("%.4f", result.returnPercent) + "%  Variance " +
           FormatDouble("%.2f", result.variance);
}

std::string LiveDetailText(const LiveResult& result, const PayTableTexts& texts) {
    std::string text;
    const auto add = [&text](const std::string& part) {
        text += (text.empty() ? "" : "  ") + part;
    };
    if (result.oneCoinPercent) {
        add("Return at one coin " + FormatDouble("%.4f", *result.oneCoinPercent) + "%");
    }
    if (result.storedPercent) {
        add(SignedPercent(result.returnPercent - *result.storedPercent) + " against stored");
    }
    if (result.breakEven) add(BreakEvenText(*result.breakEven, texts));
    return text;
}

std::string LiveText(const FormProblem& problem) {
    if (!problem.ofLine) return problem.text;
    return "Line " + std::to_string(problem.where.line + 1) + ": " + problem.text;
}

LiveAnalysis::LiveAnalysis(std::function<void(const LiveResult&)> report)
    : report(std::move(report)),
      thread(StartThread([this](const std::stop_token& stop) { Run(stop); })) {}

LiveAnalysis::~LiveAnalysis() { Cancel(); }

std::uint64_t LiveAnalysis::Start(PayTable table, std::optional<PayTable> stored) {
    const std::lock_guard lock(mutex);
    waiting = Work{++latest, std::move(table), std::move(stored)};
    changed.notify_one();
    return waiting->run;
}

void LiveAnalysis::Cancel() {
    const std::lock_guard lock(mutex);
    ++latest;
    waiting.reset();
}

void LiveAnalysis::Run(const std::stop_token& stop) {
    for (;;) {
        std::unique_lock lock(mutex);
        if (!changed.wait(lock, stop, [this] { return waiting.has_value(); })) return;
        const Work work = *std::exchange(waiting, std::nullopt);
        lock.unlock();
        Analyze(work);
    }
}

bool LiveAnalysis::GoesOn(const Work& work) const {
    return latest.load(std::memory_order_relaxed) == work.run;
}

// Nothing when the run has been cancelled.
std::optional<GameTotals> LiveAnalysis::TotalsOf(const Work& work, const PayTable& table) {
    if (!GoesOn(work)) return std::nullopt;
    GameAnalysisWatcher watcher;
    watcher.progress = [&](double, double) { return GoesOn(work); };
    GameTotals totals = AnalyzeGame(*tables.For(table), table, 1.0, watcher);
    if (totals.cancelled || !GoesOn(work)) return std::nullopt;
    return totals;
}

void LiveAnalysis::Analyze(const Work& work) {
    const auto totals = TotalsOf(work, work.table);
    if (!totals) return;
    LiveResult result{work.run, totals->payoutPercent, totals->variance,
                      LinesOf(*totals, work.table)};
    report(result);
    result.unpaid =
        FindUnpaidLines(work.table, *tables.For(work.table), [&] { return GoesOn(work); });
    Compare(work, result);
    if (!GoesOn(work)) return;
    report(result);
    result.breakEven = FindBreakEven(work);
    if (result.breakEven && GoesOn(work)) report(result);
}

void LiveAnalysis::Compare(const Work& work, LiveResult& result) {
    const PayTable atOneCoin = AtOneCoin(work.table);
    const auto oneCoin = TotalsOf(work, atOneCoin);
    if (oneCoin) result.oneCoinPercent = oneCoin->payoutPercent;
    if (!work.stored) return;
    if (!storedAnalysed || storedAnalysed->first != *work.stored) {
        const auto stored = TotalsOf(work, *work.stored);
        if (!stored) return;
        storedAnalysed.emplace(*work.stored, stored->payoutPercent);
    }
    result.storedPercent = storedAnalysed->second;
}

std::optional<BreakEven> LiveAnalysis::FindBreakEven(const Work& work) {
    const int line = TopLine(work.table);
    if (line < 0) return std::nullopt;
    const auto top = static_cast<std::size_t>(line);
    bool cancelled = false;
    PayTable tried = work.table;
    const auto payout =
        BreakEvenPay(work.table.lines[top].maxPayout, [&](int pay) -> std::optional<ReturnAtPay> {
            tried.lines[top].maxPayout = pay;
            const auto totals = TotalsOf(work, tried);
            cancelled = !totals;
            if (cancelled) return std::nullopt;
            return ReturnAtPay{totals->payoutPercent, PercentForCoin(*totals, top)};
        });
    if (cancelled) return std::nullopt;
    return BreakEven{line, payout};
}
