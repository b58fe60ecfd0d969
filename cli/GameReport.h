// The analysis of a whole game as it is printed.
#pragma once
#include <span>
#include <string>
#include <vector>

#include "cli/ChosenTable.h"
#include "core/analysis/GameAnalysis.h"
#include "core/whatif/Sensitivity.h"

namespace cli {

struct GameReport {
    ChosenTable chosen;
    double coin = 1;  // dollars
    GameTotals totals;
    double seconds = 0;                          // building the tables, and the analysis
    std::vector<LineSensitivity> sensitivities;  // by line; empty when not asked for
};

// The figures of the Summary, set for reading: the return, every line, how the hands are played.
std::string GameAsText(const GameReport& report);

// A line for each game.
std::string GamesAsText(std::span<const GameReport> reports);

std::string GameAsJson(const GameReport& report);

// A list of what GameAsJson gives.
std::string GamesAsJson(std::span<const GameReport> reports);

// A row for each line, and for each game.
std::string GameAsCsv(const GameReport& report);
std::string GamesAsCsv(std::span<const GameReport> reports);

}  // namespace cli
