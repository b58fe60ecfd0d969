// The error log as tables: all entries of the current game and table, and what they cost by the
// kind of the hold that was best.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "core/store/ErrorLog.h"
#include "game/reports/ReportTable.h"

struct GameEngine;
struct GameFiles;

// All entries, the oldest first, with their dates.
std::vector<ErrorLogEntry> ReadErrors(const GameEngine& engine, const GameFiles& files);

// A row for each; the id is its index in the log. The time is that of the table, in seconds since
// the epoch.
ReportTable ErrorTable(const GameEngine& engine, const std::vector<ErrorLogEntry>& errors,
                       std::int64_t time);

// The rows of one kind of hold alone, which the head then tells.
ReportTable OnlyKind(ReportTable errors, const std::string& kind);

// A row for each kind of hold (HoldKind.h), the one that cost most first; its first cell is the
// kind.
ReportTable ErrorKindTable(const GameEngine& engine, const std::vector<ErrorLogEntry>& errors,
                           std::int64_t time);
