// What the figures of a session, of the long run and of a player's luck say, in sentences.
#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "core/odds/Ruin.h"
#include "core/odds/SessionLaw.h"

// "35 of 100", "1 in 1,230", "none", "all", "all but 1 in 1,230".
std::string ShareInWords(double share);

// "$12.00" of money in bets, to the cent; "$-12.00" where it is lost.
std::string BetsInDollars(double bets, double betDollars);

// Who ends ahead, what the middle session brings, who is broke or reaches the goal before the end,
// and what it costs on average.
std::string SessionInWords(const SessionLaw& law, const SessionWish& wish, double betDollars);

// Cash back is 0..1 of what is played. "Ruin is certain; cash back of 0.456 % would change that.",
// or what becomes of the bankroll, in bets, that is asked for, and of a bet that is Kelly's.
std::string RuinInWords(const LongRun& run, double cashBack, std::optional<double> bankroll,
                        double betDollars);

// What the law leaves out of this game; empty where it is all of it.
std::string LeftOutInWords(const PayTable& table);
