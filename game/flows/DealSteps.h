// The steps that the deals of all games share: what has to be there for one, the bet, the turning
// of the cards, and the check of the player's choice.
#pragma once
#include "game/table/ShowTable.h"

// Asks the player for dollars.
void EnterCredits(GameTable& table);

// Of a game that cannot be played or analysed for want of one.
void TellOfMissingPayTable(Player& player);

// Whether there is a pay table to play on and, outside fixed-hand mode, the credits for the bet;
// the player is told or asked for what is missing.
bool CanBeginHand(GameTable& table);

// Takes the bet, and the mark of the last hand's line; the offer of a double up goes with them.
void TakeBet(GameTable& table);

void PauseAfterDeal(GameTable& table);
void PauseAfterCard(GameTable& table);

// At full speed the old cards stay until the new ones cover them.
bool TurnsCardsOver(const GameTable& table);

// All five places without a HELD mark, and with their backs up if so wanted.
enum class Faces { kStay, kTurnedOver };
void ShowUnheld(GameTable& table, Faces faces);

// Turns the cards up that are not held: all after a deal, after a draw the new ones.
void TurnCards(GameTable& table);

// A hand that has been dealt is turned up, with what it wins already, and waits for the holds.
void ShowDeal(GameTable& table);

// Judges the holds in the modes that check them. False when the player would rather choose anew.
bool PassesBestPlayCheck(GameTable& table);
