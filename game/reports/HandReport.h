// The hand analysis: what each way to hold a dealt hand is worth, the best first. It is made of the
// spare engine, which has been given the player's hand or another one.
#pragma once
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/eval/HandEvaluator.h"
#include "game/engine/FixedHandEditor.h"

struct ErrorLogEntry;
struct GameEngine;

// What the report shows of winning and losing draws, and of each pay line.
enum class HandDisplay {
    kHands,          // the number of draws
    kOdds,           // the draws for each such draw
    kShareOfReturn,  // the percentage of the hold's return
};

// Gives the spare engine, on which LoadSpare has put the player's game, the player's bet and coin
// and the hand last dealt (before any deal the fixed one) with what is held of it, and analyses it.
// The player's engine may be in the middle of the hand.
void LendHand(const GameEngine& player, GameEngine& spare);

// Gives the spare engine, on which LoadSpare has put the game of the log, the hand of an entry with
// the hold that the player chose, and analyses it. False, with nothing analysed, when a card of the
// hand is missing.
bool LendLoggedHand(const ErrorLogEntry& entry, GameEngine& spare);

// Takes the fixed hand of the spare engine, as the editor leaves it, for the dealt one and analyses
// it. False, with nothing changed, when a place of the hand is empty. The spare engine goes on
// without a fixed hand.
bool TakeFixedHand(GameEngine& spare);

// The hand as it is typed: "AS KD 7H 2C 2D". In Pick 'Em these are the player's two cards and the
// tops of the left and the right pile; in Sneak Peak Poker the known draw card comes last.
std::string HandInWords(const GameEngine& engine);

// Takes such a text for the dealt hand and analyses it; Sneak Peak's known card may be left out and
// stays. What is wrong and how to mend it, with nothing changed, or empty.
std::string TakeTypedHand(GameEngine& spare, std::string_view text);

// The player's own hold of the hand, as it was lent: what is held while the hand is in play, what
// was held in the draw afterwards, the one that was logged. Nothing for a hand that was not played,
// and for one of Pick 'Em before a pile is chosen.
std::optional<HoldMask> PlayersHold(const GameEngine& engine);

// Whether the hand could be analysed: its cards are in the deck, none of them twice.
bool IsAnalyzed(const GameEngine& spare);

// The holds that the report shows, by falling return; in Pick 'Em these are the two piles. Which of
// some equal ones comes first is settled by the exchanges that sort them. None when the hand could
// not be analysed.
std::vector<HoldMask> HoldsByReturn(const GameEngine& spare);

// The text of HoldText in game/reports/PlayErrorText.h, with a "D" where the known draw card of
// Sneak Peak Poker comes to lie.
std::string HoldPattern(const GameEngine& spare, HoldMask hold);

// The five places of the "Starting Hand". In Pick 'Em place 2 is empty, place 3 shows the third
// card of the hand and place 4 the first draw card. A code that is not in the deck shows no card.
Hand PlacesOf(const GameEngine& engine, const HandCards& hand, CardCode firstDraw);

// A heading, an empty line, and a line for each of HoldsByReturn, with tabs between the cells and
// "\r\n" at the ends: the pattern, the return in dollars, the draws, winners, losers, and the pay
// lines from the last to the first. After a "*" a double-draw game tells a line that is drawn
// again. A quotient by zero reads as 0. For a hand that could not be analysed a sentence says so.
std::string HandReport(const GameEngine& spare, HandDisplay display);
