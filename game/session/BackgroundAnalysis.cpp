#include "game/session/BackgroundAnalysis.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "core/analysis/StartThread.h"

namespace {

// One processor is left to the window.
int ThreadsFor(std::size_t tables) {
    constexpr unsigned kMost = 8;
    const unsigned processors = std::clamp(std::thread::hardware_concurrency(), 2U, kMost + 1);
    return static_cast<int>(std::min<std::size_t>(processors - 1, tables));
}

}  // namespace

BackgroundAnalysis::BackgroundAnalysis(std::vector<AnalyzedTable> given, double coin)
    : tables(std::move(given)), coin(coin), shares(tables.size()) {
    const int count = ThreadsFor(tables.size());
    threads.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        ++running;
        std::jthread thread = StartThread([this] { Work(); });
        if (!thread.joinable()) {
            --running;  // those that run do all
            break;
        }
        threads.push_back(std::move(thread));
    }
}

BackgroundAnalysis::~BackgroundAnalysis() {
    Cancel();
    threads.clear();
}

std::vector<AnalyzedTable> BackgroundAnalysis::TakeDone() {
    const std::lock_guard lock(mutex);
    return std::exchange(done, {});
}

double BackgroundAnalysis::Share() const {
    const std::lock_guard lock(mutex);
    if (shares.empty()) return 1;
    return std::accumulate(shares.begin(), shares.end(), 0.0) / static_cast<double>(shares.size());
}

void BackgroundAnalysis::Work() {
    for (std::size_t i = next++; i < tables.size() && !cancelled; i = next++) {
        Analyze(tables[i], shares[i]);
    }
    --running;
}

// Progress is noted when it is seen, and not thousands of times a millisecond.
void BackgroundAnalysis::Analyze(AnalyzedTable& work, double& share) {
    constexpr double kStep = 0.01;
    double noted = 0;
    const auto note = [&](double now) {
        const std::lock_guard lock(mutex);
        share = noted = now;
    };
    GameAnalysisWatcher watcher;
    watcher.progress = [&](double part, double all) {
        if (part / all - noted >= kStep) note(part / all);
        return !cancelled.load(std::memory_order_relaxed);
    };
    const LineTables lineTables(work.table);
    work.totals = AnalyzeGame(lineTables, work.table, coin, watcher);
    if (work.totals.cancelled) return;
    note(1);
    const std::lock_guard lock(mutex);
    done.push_back(work);
}
