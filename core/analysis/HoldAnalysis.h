// The exact worth of each of the 32 ways to hold a dealt hand. Every number is a count of
// combinations: nothing is dealt and nothing is random, so the same hand always has the same
// numbers.
#pragma once
#include <array>
#include <cstdint>

#include "core/analysis/HoldCounts.h"
#include "core/analysis/LineTables.h"

// The cards that an analysis knows.
struct KnownCards {
    Hand hand;  // Pick 'Em knows positions 0..2 only
    // The top card of the other pile in Pick 'Em, the first draw card in Sneak Peak Poker; no card
    // elsewhere, and where it is not known.
    CardFace firstDraw;
};

struct HoldResult {
    double expectedReturn = 0;  // dollars for the whole bet
    // Distinct draws, or ordered ones where four aces in order pay; 0 = not evaluated.
    std::int64_t totalHands = 0;
    std::int64_t nothing = 0;                             // draws that pay no line
    std::array<std::int64_t, kMaxPayLines> lineCounts{};  // draws per pay line, in table order
    int cardsDrawn = 0;
    int knownCardPosition = -1;  // Sneak Peak Poker: where the known draw card comes to lie

    double WinRate() const {
        return static_cast<double>(totalHands - nothing) / static_cast<double>(totalHands);
    }
};

// What a double-draw game adds to a hold.
struct DrawAgainResult {
    int heldAces = 0;
    // The line that the held cards make by themselves, looked up where at least two aces are held.
    int heldLine = -1;
    // A first draw that ends in this line, or in a worse one of matching ranks down to heldLine, is
    // best drawn again. -1 where fewer than two aces are held.
    int drawAgainLine = -1;
    // What the hold is worth with its second draw, in whole numbers: coins x draws x draws.
    std::int64_t worth = 0;
    std::array<double, kMaxPayLines> contributions{};  // to the return, in dollars, per line
    std::array<double, kMaxPayLines> probabilities{};  // of ending in the line
};

struct HoldAnalysis {
    std::array<HoldResult, kHolds> holds{};  // by HoldMask
    HoldMask best = 0;
    double bestReturn = 0;  // dollars
    std::array<DrawAgainResult, kHolds>
        drawAgain{};  // by HoldMask; filled in double-draw games only
};

// Fills the analysis of a hand for a bet in coins of the given dollar value; the tables are those
// of the pay table. Without five (in Pick 'Em four) distinct cards of the deck all results are 0.
//
// Ordinary games: standing pat wins every tie, otherwise the hold with the larger share of winning
// draws, then the lower mask. Pick 'Em evaluates 28 (the first pile: positions 0, 1, 2) and 25 (the
// other pile: 0, 1, 4), and 28 wins a tie. In Sneak Peak Poker with a known draw card, and in the
// second look of a double-draw game, standing pat wins a tie, then the lower mask.
void AnalyzeHand(const LineTables& tables, const PayTable& table, const KnownCards& cards, int bet,
                 double coin, HoldAnalysis& analysis);
