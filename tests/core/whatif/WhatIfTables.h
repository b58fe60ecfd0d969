// Shipped tables with other pays, and what single hands of them are worth.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/analysis/HoldAnalysis.h"
#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"

inline PayTable Shipped(const std::string& game) {
    ProfileFile file;
    const std::string path = TOLVANE_DATA_FOLDER "/Tolvane.ini";
    return LoadPayTable({file, path}, {GameIdFromName({file, path}, game), game}, "");
}

inline PayTable WithPay(PayTable table, std::size_t line, int coins) {
    table.lines[line].payout = coins;
    table.lines[line].maxPayout = coins * kFullBet;
    return table;
}

// 9/6 Jacks with a flush of 5, and 8/5.
inline PayTable NineFive() { return WithPay(Shipped("Jacks or Better"), 4, 5); }
inline PayTable EightFive() { return WithPay(NineFive(), 3, 8); }

// By the analysis of single hands, which knows nothing of starting hands and their classes.
inline HoldAnalysis Analyzed(const PayTable& table, const Hand& hand) {
    HoldAnalysis analysis;
    AnalyzeHand(LineTables(table), table, {hand, {}}, kFullBet, 1, analysis);
    return analysis;
}

inline double ReturnOf(const HoldAnalysis& analysis, HoldMask mask) {
    return analysis.holds[static_cast<std::size_t>(mask)].expectedReturn;
}
