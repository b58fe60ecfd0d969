// The cells of the reports' tables.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "game/reports/ReportTable.h"

ReportCell TextCell(std::string text);

// As FormatDecimals writes it, but never "-0.0".
ReportCell NumberCell(std::string_view format, double value);

// "16,215".
ReportCell CountCell(std::int64_t count);

// "2026-11-23 20:15" by the clock on the wall, of a time in seconds since 1970; empty for one that
// the calendar does not reach.
std::string DateText(std::int64_t seconds);

// The same, sorted by the time; empty for 0.
ReportCell DateCell(std::int64_t seconds);

// How many hands it takes for one of that probability, 0..1: "40,390.55", or "never".
ReportCell OddsCell(double probability);
