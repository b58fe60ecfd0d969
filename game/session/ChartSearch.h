// A search for the strategy charts of one table on a thread of its own. It knows nothing but a copy
// of the pay table; what it finds is fetched by the thread of the window.
#pragma once
#include <atomic>
#include <mutex>
#include <thread>

#include "core/paytable/PayTable.h"
#include "core/store/StrategyCharts.h"

struct ChartWish {
    TableOfGame place;
    PayTable table;          // of which charts can be made
    bool penalties = false;  // rows may ask something of the discards
    bool whole = false;      // charts of all lengths; otherwise the standard chart alone
};

class ChartSearch {
  public:
    // Begins at once, and at a low priority: the player goes on meanwhile. Where there is no thread
    // to be had, it is over without having found anything.
    explicit ChartSearch(ChartWish wish);

    // Cancels and waits, some tenths of a second at most.
    ~ChartSearch();
    ChartSearch(const ChartSearch&) = delete;
    ChartSearch& operator=(const ChartSearch&) = delete;

    void Cancel() { cancelled = true; }

    const ChartWish& Wish() const { return wish; }

    struct Found {
        ChartsOfWording charts;  // those found until now; none is missing in a later one
        double best = 0;         // percent that the best play returns; 0 = not known yet
        bool isNew = false;      // there is more than when it was last asked for
    };
    Found Take();

    double Share() const { return share; }  // 0..1 of all the work

    // Nothing comes behind what is taken now.
    bool IsOver() const { return over; }

  private:
    void Work();
    void Note(const SearchResult::Found& chart);

    const ChartWish wish;
    std::atomic<bool> cancelled = false;
    std::atomic<bool> over = false;
    std::atomic<double> share = 0;
    std::mutex mutex;  // of found
    Found found;
    std::jthread thread;  // last, so that it finds all else there
};
