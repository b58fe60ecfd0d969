// The law of a session as bars of a picture, and as the rows of a table.
#pragma once
#include <array>
#include <optional>
#include <vector>

#include "core/odds/LineChances.h"
#include "core/odds/Ruin.h"
#include "core/odds/SessionLaw.h"
#include "game/reports/ReportTable.h"

struct LawBar {
    double from = 0;  // dollars; what is just at the end belongs to the next bar
    double to = 0;
    double share = 0;  // of all sessions
    double below = 0;  // all that bring less than "from"
};

// That are told of every session, in percent, and of every game.
inline constexpr std::array kUsualPercents = {1, 5, 25, 50, 75, 95, 99};
inline constexpr std::array kUsualRisks = {0.5, 0.2, 0.1, 0.05, 0.02, 0.01, 0.001};

// From the result that five of a thousand fall below to the one that five of a thousand exceed,
// and as far as a result of the player's own, in dollars; some dozens of bars, each as wide as
// 1, 2 or 5 times a power of ten of bets. One bar for a law of one result.
std::vector<LawBar> BarsOf(const SessionLaw& law, double betDollars, std::optional<double> own);

// Chances and results, then the chance to see each line at least once.
ReportTable SessionTable(const SessionLaw& law, const LineChances& lines, const PayTable& table,
                         double betDollars);

// The bankroll for each of the usual risks; none where ruin is certain.
ReportTable RiskTable(const LongRun& run, double betDollars);
