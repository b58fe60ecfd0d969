// The cards of one hand: the deal, the draw, and the second draw of the double-draw games, with
// what each pays and counts.
#pragma once
#include <functional>

#include "game/engine/GameEngine.h"

inline constexpr std::size_t kCardsOfHand = std::size_t{2} * kHandSize;  // with those drawn

// Analyses the hand as it was dealt, with its first draw card where the game shows that. Holds are
// judged by it until the hand is over, also those of a second draw.
void AnalyzeDealtHand(GameEngine& engine);

// What a deal judges the hand by: AnalyzeDealtHand, or what finds less of it faster.
using HandAnalyzer = std::function<void(GameEngine& engine)>;

// Deals when the engine is ready to, otherwise draws. A deal gives 0, a draw the credits that the
// final hand pays. The bet is counted as played by an ordinary deal, but taken from the credits by
// the caller.
//
// An ordinary deal takes the top ten cards of the order, five for the hand and five to replace
// discards; where cards were dealt from that order before, the ten are drawn anew. A fixed hand
// deals its own cards and fills what it leaves open at random; in Error Log mode the next logged
// hand is taken for the fixed one first. A fixed card that the deck does not hold counts as open.
int DealOrDraw(GameEngine& engine, const GameFiles& files,
               const HandAnalyzer& analyze = AnalyzeDealtHand);

// New draw cards for a hand already drawn to, none of them in the hand: five, since the player may
// come to hold fewer cards than now. What the first draw paid and counted is taken back, except for
// a fixed hand.
void PrepareSecondDraw(GameEngine& engine);

// The entry of that index in the error log of the current table, as ReadErrorText has it.
std::string LoggedText(const GameEngine& engine, const GameFiles& files, int index);

// The held flags as bits, and the bits as held flags.
HoldMask HeldMask(const GameEngine& engine);
void HoldCards(GameEngine& engine, HoldMask mask);
