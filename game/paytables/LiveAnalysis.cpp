#include "game/paytables/LiveAnalysis.h"

#include <utility>

#include "core/analysis/GameAnalysis.h"
#include "core/text/Numbers.h"

std::string LiveText(const LiveResult& result) {
    return "Return " + FormatDouble("%.4f", result.returnPercent) + "%  Variance " +
           FormatDouble("%.2f", result.variance);
}

std::string LiveText(const FormProblem& problem) {
    if (!problem.ofLine) return problem.text;
    return "Line " + std::to_string(problem.where.line + 1) + ": " + problem.text;
}

LiveAnalysis::LiveAnalysis(std::function<void(const LiveResult&)> report)
    : report(std::move(report)), thread([this](const std::stop_token& stop) { Run(stop); }) {}

LiveAnalysis::~LiveAnalysis() {
    Cancel();
    thread.request_stop();
    thread.join();
}

std::uint64_t LiveAnalysis::Start(PayTable table) {
    const std::lock_guard lock(mutex);
    waiting = Work{++latest, std::move(table)};
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

void LiveAnalysis::Analyze(const Work& work) {
    const auto goesOn = [&] { return latest.load(std::memory_order_relaxed) == work.run; };
    const auto lineTables = tables.For(work.table);
    GameAnalysisWatcher watcher;
    watcher.progress = [&goesOn](double, double) { return goesOn(); };
    const GameTotals totals = AnalyzeGame(*lineTables, work.table, 1.0, watcher);
    if (!totals.cancelled && goesOn()) {
        report({work.run, totals.payoutPercent, totals.variance});
    }
}
