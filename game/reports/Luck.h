// How lucky a player has been: what a game file has counted beside the exact law of as many hands.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/odds/SessionLaw.h"
#include "core/store/Statistics.h"
#include "game/reports/ReportTable.h"

struct Luck {
    std::int64_t hands = 0;
    double mean = 0;      // bet, coins
    int bet = 0;          // the law is of: the mean, or the nearest to it where it is not one bet
    bool oneBet = true;   // all hands were played for this bet
    double playback = 0;  // what pay lines have won for each credit played
    double errors = 0;    // what they cost, in the dollars of their time
    double result = 0;    // mean bets won on pay lines, less those played, the errors taken off
    SessionLaw law;       // of as many hands
    double less = 0;      // the share of all players who have less
    HandLaw hand;
    std::string whyNot;  // a sentence instead of all this; empty = it is there
};

// Of the totals of a game file, and of the credits bet on its hands, without that of one in play;
// at today's coin in dollars, by which the costs of errors are taken for coins: nothing tells at
// which they were made. Double ups and bonuses are no part of it. The law of a hand comes from
// handLaw, for a bet in coins.
Luck FindLuck(const Statistics& statistics, std::int64_t creditsBet, const PayTable& table,
              double coin, const std::function<std::optional<HandLaw>(int bet)>& handLaw);

// Hands and return, the share of players who have less, and what this does not prove.
std::string LuckInWords(const Luck& luck);

// Each line as it was seen, as it was to be expected, and how rare it is to see so few or so many.
ReportTable LuckTable(const Luck& luck, const PayTable& table);
