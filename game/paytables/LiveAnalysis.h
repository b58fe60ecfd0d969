// The exact figures of a pay table that is being edited, reckoned beside the player's typing on a
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
#include <vector>

#include "core/analysis/GameAnalysis.h"
#include "core/analysis/LineTableCache.h"
#include "game/paytables/BreakEven.h"
#include "game/paytables/PayTableForm.h"
#include "game/paytables/UnpaidLines.h"

// What the analysis says of a line.
struct LiveLine {
    double probability = 0;     // that a hand ends there
    double sharePercent = 0;    // of what all lines return
    double percentForCoin = 0;  // of the wager at the full bet: what one coin more of the pay there
                                // adds to the return as long as the best holds stay the same
};

struct BreakEven {
    int line = 0;
    std::optional<int> payout;  // BreakEvenPay
};

// A run reports several times, the later ones telling more.
struct LiveResult {
    std::uint64_t run = 0;     // what Start returned
    double returnPercent = 0;  // of the wager, at the full bet
    double variance = 0;       // per coin
    std::vector<LiveLine> lines{};

    // With the second report.
    std::optional<std::vector<UnpaidLine>> unpaid{};
    std::optional<double> oneCoinPercent{};  // return at a bet of one coin
    std::optional<double> storedPercent{};   // return of the stored table; nothing without one

    // With the last one.
    std::optional<BreakEven> breakEven{};
};

// "Return 99.5439%  Variance 19.51".
std::string LiveText(const LiveResult& result);

// "Return at one coin 98.3735%  −1.10 % against stored  ROYAL FLUSH breaks even at 4,880"; what is
// not known yet is left out.
std::string LiveDetailText(const LiveResult& result, const PayTableTexts& texts);

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

    // Cancels what runs and begins with this table, which CanAnalyzeGame, and the one to compare it
    // with. The number of the run.
    std::uint64_t Start(PayTable table, std::optional<PayTable> stored = std::nullopt);

    void Cancel();

    // False for the result of a run that has been cancelled since.
    bool IsLatest(const LiveResult& result) const { return result.run == latest; }

  private:
    struct Work {
        std::uint64_t run = 0;
        PayTable table;
        std::optional<PayTable> stored;
    };

    void Run(const std::stop_token& stop);
    void Analyze(const Work& work);
    void Compare(const Work& work, LiveResult& result);
    std::optional<BreakEven> FindBreakEven(const Work& work);
    bool GoesOn(const Work& work) const;
    std::optional<GameTotals> TotalsOf(const Work& work, const PayTable& table);

    std::function<void(const LiveResult&)> report;
    std::atomic<std::uint64_t> latest = 0;
    std::mutex mutex;  // of waiting
    std::condition_variable_any changed;
    std::optional<Work> waiting;
    LineTableCache tables;                                      // of the thread
    std::optional<std::pair<PayTable, double>> storedAnalysed;  // and its return; of the thread
    std::jthread thread;  // last, so that it finds all else there
};
