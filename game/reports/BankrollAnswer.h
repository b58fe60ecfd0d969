// All that the bankroll window tells of a game, from one question. The law of a hand takes up to a
// second; it is kept while table, bet and lines stay the same, and the rest takes some
// milliseconds.
#pragma once
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "core/analysis/LineTableCache.h"
#include "core/odds/DealLaw.h"
#include "core/odds/LineChances.h"
#include "core/odds/Ruin.h"
#include "core/store/Statistics.h"
#include "game/reports/Luck.h"

struct BankrollQuestion {
    PayTable table;
    int bet = kFullBet;  // coins
    double coin = 1;     // dollars
    int lines = 1;       // at once
    SessionWish session;
    double longCashBack = 0;      // 0..1 of what is played
    Statistics statistics;        // of the game file
    std::int64_t creditsBet = 0;  // on its hands, those played to their end

    bool operator==(const BankrollQuestion&) const = default;
};

struct BankrollAnswer {
    SessionAnswer session;
    LineChances lines;  // of the session
    LongRun longRun;
    Luck luck;
    std::string whyNot;  // a sentence instead of the first three; empty = they are there
};

class BankrollReckoner {
  public:
    // Nothing when goesOn, which is asked all the time, says no.
    std::optional<BankrollAnswer> Answer(const BankrollQuestion& question,
                                         const std::function<bool()>& goesOn);

  private:
    std::optional<HandLaw> HandAt(int bet, const std::function<bool()>& goesOn);

    LineTableCache tables;
    PayTable table;                // that the laws are of
    std::map<int, HandLaw> hands;  // by bet
    std::optional<DealLaw> deal;   // at the bet and the lines
    std::pair<int, int> dealOf{0, 0};
};
