// The second look at the holds of a double-draw game: the player who holds two aces or more may
// draw twice, and is asked after the first draw.
#pragma once
#include "core/analysis/HoldAnalysis.h"

// Wants the ordinary results of all holds in place; the best hold is left to be chosen anew. A hold
// of at least two aces, standing pat excepted, is worth what it returns when the first draws that
// are better drawn again are, the second draw being taken to end like the first. A draw is drawn
// again only when its line is one of matching ranks that the held cards lead to: not better than
// none, and not worse than the line that they make already.
void AnalyzeSecondDraw(const LineTables& tables, const PayTable& table, const Hand& hand, int bet,
                       double coin, HoldAnalysis& analysis);
