// Rows and charts as text, in the field's own terms: "4 to a straight, 2 straights". What is
// printed is read back as the same row; docs/strategy.md has the grammar.
#pragma once
#include <string>
#include <string_view>

#include "core/strategy/Row.h"

std::string RowText(const Row& row);

// What is wrong with a text. Lines and words count from 1.
struct ChartProblem {
    int line = 0;
    int word = 0;
    std::string found;     // the word; empty where the line ends too early
    std::string expected;  // what could stand there
};

struct ReadRow {
    Row row;
    bool valid = false;
    ChartProblem problem;  // its line is left 0
};
ReadRow ParseRow(std::string_view text);

struct ReadChart {
    Chart rows;          // those before the problem
    bool valid = false;  // there is at least one row, and no problem
    ChartProblem problem;
};

// A row a line. Blank lines, and what follows a '#', are passed over; a row may have its number
// before it, "12." or "12)", and letter case matters only to nobody.
ReadChart ParseChart(std::string_view text);

// The rows, numbered, each with its line end.
std::string ChartText(const Chart& chart);
