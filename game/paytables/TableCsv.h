// Pay tables as a spreadsheet has them (RFC 4180): one row for each line of a table, under a row
// with the names of the columns; what holds for the whole table stands in each of its rows.
#pragma once
#include <span>
#include <string>
#include <string_view>

#include "game/paytables/TableImport.h"

// The tables have no problem (FindProblem) and names that can be kept. Rows end with "\r\n".
std::string TablesAsCsv(std::span<const NamedTable> tables);

// Reads what TablesAsCsv writes, and what spreadsheets make of it: the columns may stand in any
// order, those with defaults may be missing, and ';' or tabs may part them as the first row has it.
TablesRead ReadTablesCsv(std::string_view text);
