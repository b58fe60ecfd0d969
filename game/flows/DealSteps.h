// The steps that the deals of all games share: what has to be there for one, the bet, the turning
// of the cards, and the check of the player's choice.
#pragma once
#include "game/seat/ShowScene.h"

// Asks the player for dollars.
void EnterCredits(Seat& seat);

// Of a game that cannot be played or analysed for want of one.
void TellOfMissingPayTable(Player& player);

// Whether there is a pay table to play on and, outside fixed-hand mode, the credits for the bet;
// the player is told or asked for what is missing.
bool CanBeginHand(Seat& seat);

// Takes the bet, and the mark of the last hand's line; the offer of a double up goes with them.
void TakeBet(Seat& seat);

// What every deal begins with: no offer or feature of the last hand stands.
void WishLuck(Seat& seat);

void PauseAfterDeal(Seat& seat);
void PauseAfterCard(Seat& seat);

// At full speed the old cards stay until the new ones cover them.
bool TurnsCardsOver(const Seat& seat);

// All five places without a HELD mark, and with their backs up if so wanted.
enum class Faces { kStay, kTurnedOver };
void ShowUnheld(Seat& seat, Faces faces);

// Turns the cards up that are not held: all after a deal, after a draw the new ones.
void TurnCards(Seat& seat);

// A hand that has been dealt is turned up, with what it wins already, and waits for the holds.
void ShowDeal(Seat& seat);

// Judges the holds in the modes that check them. False when the player would rather choose anew.
bool PassesBestPlayCheck(Seat& seat);
