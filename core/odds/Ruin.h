// Playing for ever: how much money it takes not to lose it all.
#pragma once
#include "core/odds/GainLaw.h"

// Money is in bets of one line.
struct LongRun {
    double edge = 0;  // what a bet wins on average, cash back included, in shares of the bet
    // The chance to lose all of a bankroll is base to the power of the bankroll: 1 where nothing is
    // won on average, 0 where nothing can be lost.
    double base = 1;
    // The share of the money that makes it grow fastest, bet on every hand; 0 without an edge, and
    // 1 where nothing can be lost.
    double kelly = 0;

    bool canLose = false;  // something with a hand, cash back included
    double stake = 1;      // of one hand or deal

    bool RuinIsCertain() const { return base >= 1; }
    double RiskOf(double bankroll) const;  // 0..1
    // What takes the risk, above 0 and at most 1, down to this; infinite where ruin is certain.
    double BankrollFor(double risk) const;
    // The bankroll of which one bet is the Kelly share; infinite without an edge.
    double KellyBankroll() const;
};

// Cash back is 0..1 of what is bet, paid with every hand. The base is the root below 1 of
// E base^(gain + cash back) = 1, gains being in bets.
LongRun FindLongRun(const GainLaw& law, double cashBack);
