// The texts of the play statistics: the current game and table, the running session beside all that
// was ever played of it. Each line is a label, the session's value and the game's value with tabs
// between them, and ends in "\r\n". A quotient by zero reads as 0. Nothing is changed, nothing
// fails.
#pragma once
#include <cstdint>
#include <string>

struct GameEngine;

// What the pay line table shows of each line.
enum class StatisticsDisplay {
    kHands,          // how often it was won
    kFrequency,      // the hands played for each win
    kShareOfReturn,  // its percentage of the credits won, as if all were won with the current bet
};

// Hands, time played and double ups, under a heading. "now" is the time of the wall clock in
// seconds since the epoch; of the session whole minutes count, and none before its start.
std::string StatisticsHands(const GameEngine& engine, std::int64_t now);

std::string StatisticsCredits(const GameEngine& engine);

// Play errors and what they cost.
std::string StatisticsErrors(const GameEngine& engine);

// The pay lines in table order under the game's name; these lines have a tab before their end too.
std::string StatisticsLines(const GameEngine& engine, StatisticsDisplay display);
