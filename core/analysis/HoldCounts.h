// The draws of every hold of a hand, line by line: the counting that the hold analysis judges by.
#pragma once
#include <array>

#include "core/analysis/LineTables.h"

inline constexpr std::size_t kHolds = 32;
using HoldCounts = std::array<LineCounts, kHolds>;  // by HoldMask

// All functions want distinct cards of the deck.

// Counts the distinct draws of every hold, five cards having been seen. Standing pat counts one.
void CountDraws(const LineTables& tables, const Hand& hand, HoldCounts& counts);

// Counts them with six cards seen and the first draw card known: whatever is discarded, it comes
// first. Standing pat counts one.
void CountDrawsBehind(const LineTables& tables, const Hand& hand, CardFace firstDraw,
                      HoldCounts& counts);

// Counts the draws of a pile, four cards having been seen: three are held, two are drawn, and the
// fourth is out of the deck.
void CountPileDraws(const LineTables& tables, const std::array<CardFace, 3>& held, CardFace other,
                    LineCounts& counts);
