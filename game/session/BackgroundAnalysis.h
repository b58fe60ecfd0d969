// Pay tables analysed on threads of their own, while the player goes on with something else. What
// they find is fetched and stored by the thread of the window.
#pragma once
#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

#include "core/analysis/GameAnalysis.h"

struct AnalyzedTable {
    TableOfGame place;
    PayTable table;  // as it was when the work was given
    GameTotals totals;
};

class BackgroundAnalysis {
  public:
    // Begins at once, in as many threads as can be had; without any it is over at once. The tables
    // can be analysed (CanAnalyzeGame); their totals are filled in.
    BackgroundAnalysis(std::vector<AnalyzedTable> tables, double coin);

    // Cancels and waits, some milliseconds at most.
    ~BackgroundAnalysis();
    BackgroundAnalysis(const BackgroundAnalysis&) = delete;
    BackgroundAnalysis& operator=(const BackgroundAnalysis&) = delete;

    // No table is analysed any more; those that are done stay to be taken.
    void Cancel() { cancelled = true; }

    // What has been done since it was last asked for, whole analyses alone.
    std::vector<AnalyzedTable> TakeDone();

    // 0..1 of all the work.
    double Share() const;

    // All threads have ended, so that nothing comes behind what is taken now.
    bool IsOver() const { return running == 0; }

  private:
    void Work();
    void Analyze(AnalyzedTable& work, double& share);

    std::vector<AnalyzedTable> tables;
    const double coin;
    std::atomic<bool> cancelled = false;
    std::atomic<std::size_t> next = 0;  // table to be begun
    std::atomic<int> running = 0;       // threads
    mutable std::mutex mutex;           // of done and shares
    std::vector<AnalyzedTable> done;
    std::vector<double> shares;         // 0..1 of each table
    std::vector<std::jthread> threads;  // last, so that they find all else there
};
