// Decides which pay line five cards are paid on: the hand is reduced to counts with its wild cards
// spent to best effect, and the first line whose requirements the counts meet takes it. Hands are
// never compared with each other, so the order of the lines is the precedence of the hands.
#pragma once
#include <array>

#include "core/cards/Hand.h"

struct PayTable;

// The ranks of a hand in rising order; wild cards are 0, empty positions -1, an ace 1 or, playing
// high, 14.
using SortedRanks = std::array<int, kHandSize>;

using WildFlags = std::array<bool, kHandSize>;  // by position

struct HandFeatures {
    int pairs = 0;          // pairs of equal rank: 0, 1, 2, 3, 4, 6 or 10
    int straightSteps = 0;  // sorted neighbours one rank apart; 4 = straight
    int suitPairs = 0;      // pairs of equal suit; 10 = flush
    int highPairs = 0;      // pairs of a rank from the table's minPair up, or of aces
    int highCards = 0;      // cards of a rank from the table's minPair up, and aces
    int royalCards = 0;     // cards from ten to ace, and the wild cards
    int wilds = 0;
    int reds = 0;    // hearts and diamonds
    int blacks = 0;  // spades and clubs
    int aces = 0;

    bool operator==(const HandFeatures&) const = default;
};

// A hand on the evaluator's table: what it was reduced to, and the copy that SaveFeatures put
// aside.
struct EvaluatedHand {
    Hand hand;
    WildFlags wild{};
    HandFeatures features;
    SortedRanks sortedRanks{};

    HandFeatures savedFeatures;
    SortedRanks savedSortedRanks{};
    WildFlags savedWild{};
};

struct Classification {
    int line = -1;         // index of the pay line, -1 no win
    int linePay = 0;       // what the line pays for the bet, in coins
    bool charlie = false;  // a winning hand of a table with the charlie bonus that adds up to 21

    // Coins paid in all: five times the line's pay with the charlie bonus, at most the largest int.
    int Pay() const;
};

// Whether a pair of the rank, 1..13, is a high one: from the table's minPair up, and of aces.
bool IsHigh(int rank, const PayTable& table);

// The hand with its wild cards marked as the table has them, ready to be reduced.
EvaluatedHand WithWildFlags(const Hand& hand, const PayTable& table);

SortedRanks SortRanks(const Hand& hand, const WildFlags& wild);

// Reduces all five cards, wild cards as wild when the table uses them.
void ComputeFeatures(EvaluatedHand& evaluated, const PayTable& table);

// Reduces the held positions of the mask alone. With useWilds the wild cards are counted but left
// out of the natural counts; without it they count as the natural cards they are printed as, and
// the hand's own wild flags are cleared (a kicker is then found among natural ranks).
void ComputePartialFeatures(EvaluatedHand& evaluated, const PayTable& table, HoldMask mask,
                            bool useWilds);

// Reduces the dealt hand of a Pick 'Em game: to the pairs among the cards of positions 0..2 and the
// rank of the other pile's top card. Two pairs lie in different piles and count as one; all other
// counts are 0.
void ComputePickEmDealFeatures(EvaluatedHand& evaluated, const PayTable& table, int otherPileRank);

// Put the features, the sorted ranks and the hand's wild flags aside, and back.
void SaveFeatures(EvaluatedHand& evaluated);
void RestoreFeatures(EvaluatedHand& evaluated);

// Finds the first matching line. Wants the features computed and saved: lines that wild cards may
// not make are tested on the natural hand, and the saved features are back in place afterwards.
Classification ClassifyHand(EvaluatedHand& evaluated, const PayTable& table, int bet);

// Computes, saves and classifies five cards.
Classification EvaluateHand(const Hand& hand, const PayTable& table, int bet);

// Whether the blackjack values of the five ranks add up to 21: ace 1, or one ace 11, face cards 10,
// joker 0.
bool IsCharlie(const Hand& hand);
