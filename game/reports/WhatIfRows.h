// Comparisons of two pay tables and turning points of a growing jackpot as tables, and in words.
#pragma once
#include <span>
#include <string>
#include <vector>

#include "core/paytable/PayTable.h"
#include "core/whatif/GameComparison.h"
#include "core/whatif/Meter.h"
#include "core/whatif/Sensitivity.h"
#include "game/reports/ReportTable.h"

// What the comparison is of: "Jacks or Better, table 0".
struct ComparedNames {
    std::string a;
    std::string b;
};

// Where the difference of the returns comes from, line by line.
ReportTable DifferenceTable(const GameComparison& comparison, const ComparedNames& names);

// What is played differently; the id of a row is the number of its class. Empty where the hands
// cannot be set side by side.
ReportTable PlayedTable(const GameComparison& comparison, const ComparedNames& names);

// The returns, and what the play of the one costs on the other, in some lines.
std::string ComparisonInWords(const GameComparison& comparison);

// Puts what one coin more on each line is worth behind the columns of a table of the game's lines;
// without figures, that they are being reckoned.
void AddSensitivities(std::span<const LineSensitivity> lines, ReportTable& table);

// What is known of a meter.
struct MeterFigures {
    double coins = 0;    // for the full bet
    double percent = 0;  // the return
    std::optional<double> breakEven;
    double rise = 1;  // percent of what is played that it grows by
};

std::string MeterInWords(const MeterFigures& meter);

// The costs are those at the meter; the id of a row is the number of its turning point.
ReportTable TurningTable(std::span<const TurningPoint> points, const std::string& name,
                         double coins);
