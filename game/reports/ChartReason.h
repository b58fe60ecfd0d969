// The best play of a hand, in the words of a strategy chart: below what a report says of the hand.
#pragma once
#include <optional>
#include <string>

#include "core/analysis/LineTables.h"
#include "core/cards/Hand.h"
#include "core/paytable/PayTable.h"
#include "core/strategy/Row.h"

// A hand as it is asked about: the best hold is compared with this one or, without one and where it
// is a best one itself, with what stands behind it in the chart.
struct AskedHand {
    Hand hand;
    std::optional<HoldMask> played;
};

// See WhyText; empty for a hand that could not be analysed, or that has nothing to be told of.
// Charts are for bets of five coins. The tables are those of the pay table, of which charts can be
// made.
std::string ChartReason(const LineTables& tables, const PayTable& table, const AskedHand& asked,
                        const Chart& chart);
