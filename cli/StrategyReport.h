// A strategy chart and its price as text, as JSON, and as a card for the pocket.
#pragma once
#include <string>

#include "cli/ChosenTable.h"
#include "core/strategy/Grade.h"

namespace cli {

struct StrategyReport {
    ChosenTable chosen;
    double coin = 1;  // dollars
    Chart chart;
    ChartGrade grade;
    bool checked = false;  // the chart came from a file
};

std::string StrategyAsText(const StrategyReport& report);
std::string StrategyAsCsv(const StrategyReport& report);
std::string StrategyAsJson(const StrategyReport& report);

// The chart with its game, pays and figures as remarks, so that it can be read back. The date is
// today's.
std::string StrategyCard(const StrategyReport& report);

}  // namespace cli
