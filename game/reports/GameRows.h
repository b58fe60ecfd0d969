// The report on a whole game as a table: what the analysis cache has of each pay line.
#pragma once
#include "game/reports/ReportTable.h"

struct GameEngine;
struct ProfileOnDisk;

// Of the engine's game and table: the pay lines in their order, then the hands that pay nothing;
// the id of a row is its number from 0. A table that was not analysed has its pays alone.
ReportTable GameTable(const GameEngine& engine, const ProfileOnDisk& cache);
