// The report on the whole-game analysis of one pay table, from what the analysis cache keeps of it;
// nothing is computed. A cache that is missing or cannot be read makes every table one that was not
// analysed.
#pragma once
#include <string>
#include <vector>

struct GameEngine;
struct ProfileOnDisk;

// Whether the cache has an analysis of the engine's game and table.
bool IsAnalyzed(const GameEngine& engine, const ProfileOnDisk& cache);

// Why the figures that the cache has of the engine's table are not those of the table; empty when
// they are, and when there are none.
std::string AnalysisWarning(const GameEngine& engine, const ProfileOnDisk& cache);

// Of the engine's game and table: the figures of its analysis, cells parted by tabs, or when there
// is none its pays and what to do about it. Lines end in "\r\n", but for the last one.
std::string GameReport(const GameEngine& engine, const ProfileOnDisk& cache);

// What a pay line adds to the return and to the variance of the game.
struct LineShare {
    std::string description;
    double percentReturn = 0;  // in percent of the wager, to two decimals
    double variance = 0;       // per coin, to four decimals
    double returnShare = 0;    // in percent of the return of all lines
    double varianceShare = 0;  // in percent of the variance of all lines
};

// The pay lines in table order, then the hands that pay nothing; empty when the table was not
// analysed.
std::vector<LineShare> LineShares(const GameEngine& engine, const ProfileOnDisk& cache);
