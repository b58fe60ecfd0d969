// The exact return of a pay table that is being edited, reckoned beside the player's typing on a
// thread of its own.
#pragma once
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "core/analysis/LineTableCache.h"
#include "game/paytables/PayTableForm.h"

struct LiveResult {
    std::uint64_t run = 0;     // what Start returned
    double returnPercent = 0;  // of the wager, at the full bet
    double variance = 0;       // per coin
};

// "Return 99.5439%  Variance 19.51".
std::string LiveText(const LiveResult& result);

// "Line 3: Description can not be blank"; without a line where it is none of one.
std::string LiveText(const FormProblem& problem);

class LiveAnalysis {
  public:
    // The function is called on the thread, for each run that was not cancelled in time.
    explicit LiveAnalysis(std::function<void(const LiveResult&)> report);

    // Cancels and waits, a few milliseconds at most.
    ~LiveAnalysis();
    LiveAnalysis(const LiveAnalysis&) = delete;
    LiveAnalysis& operator=(const LiveAnalysis&) = delete;

    // Cancels what runs and begins with this table, which CanAnalyzeGame. The number of the run.
    std::uint64_t Start(PayTable table);

    void Cancel();

    // False for the result of a run that has been cancelled since.
    bool IsLatest(const LiveResult& result) const { return result.run == latest; }

  private:
    struct Work {
        std::uint64_t run = 0;
        PayTable table;
    };

    void Run(const std::stop_token& stop);
    void Analyze(const Work& work);

    std::function<void(const LiveResult&)> report;
    std::atomic<std::uint64_t> latest = 0;
    std::mutex mutex;  // of waiting
    std::condition_variable_any changed;
    std::optional<Work> waiting;
    LineTableCache tables;  // of the thread
    std::jthread thread;    // last, so that it finds all else there
};
