// Two pay tables side by side: what they return, from which lines the difference comes, and, where
// they are of one deck, what is played differently.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "core/analysis/GameAnalysis.h"
#include "core/whatif/Comparison.h"

struct TableFigures {
    double percent = 0;     // the return, of the bet
    double variance = 0;    // per coin
    double royalCycle = 0;  // hands from one royal flush to the next; 0 when there is none
};

// A line that at least one of the two has.
struct LineDifference {
    std::string description;
    std::optional<double> payA;  // coins for each coin of the full bet; nothing without the line
    std::optional<double> payB;
    double probabilityA = 0;
    double probabilityB = 0;
    double percentA = 0;  // what it returns, of the bet
    double percentB = 0;
    // How much more B returns by it, in percent of the bet: because it comes more often, at the
    // mean of the two pays, and because it pays more, at the mean of the probabilities.
    double byFrequency = 0;
    double byPay = 0;
};

struct GameComparison {
    TableFigures a;
    TableFigures b;
    // Those of A, then those that B alone has; where one of the two is a double-draw game, whose
    // lines are counted after the first draw, last a row for all second draws, which has no pay.
    std::vector<LineDifference> lines;
    std::optional<PlayComparison> play;  // nothing when the hands cannot be set side by side
    std::string whyNoPlay;               // a sentence
    bool cancelled = false;              // the rest is of no use
};

// Only for tables that CanAnalyzeGame takes.
GameComparison CompareGames(const PayTable& a, const PayTable& b,
                            const WhatIfProgress& progress = {});
