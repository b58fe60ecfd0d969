// All that can be told of a chart: its exact grade, a hand for each row, and where it differs from
// the best play.
#pragma once
#include <vector>

#include "core/strategy/Grade.h"

// A hand with what is held of it.
struct HeldHand {
    Hand hand;
    HoldMask held = 0;
};

// A class of hands that the chart plays worse than the best play does, whatever the suits' names.
struct ExceptionHand {
    Hand hand;
    HoldMask chartHold = 0;
    HoldMask bestHold = 0;
    std::int64_t hands = 0;
    std::int64_t cost = 0;  // parts of a coin, of each
};

// Those in which a row decides where another one, or none, fits the best hold.
struct ExceptionGroup {
    std::size_t row = 0;      // as in ChartPlay
    std::size_t bestRow = 0;  // likewise
    std::int64_t hands = 0;
    Worth loss = 0;  // of all its hands
    std::vector<ExceptionHand>
        dearest;  // those that cost most each come first; at most kMostListed
};

struct ChartStudy {
    static constexpr std::size_t kMostListed = 500;

    Chart chart;
    ChartGrade grade;
    std::vector<HeldHand> examples;          // by row; no cards where it is never reached
    std::vector<ExceptionGroup> exceptions;  // those that lose most come first
    bool cancelled = false;                  // it is of no use
};

ChartStudy StudyChart(const StartingHands& hands, const Terms& terms, Chart chart,
                      const Progress& progress = {});
