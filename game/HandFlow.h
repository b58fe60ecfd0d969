// One hand from the press of Deal to the payout and what is offered after it, in every game but
// Pick 'Em, whose two piles have a flow of their own (PickEmFlow.h).
#pragma once
#include "game/GameTable.h"

// Takes a card of the dealt hand among the held ones, or out again; position 0..4.
void ToggleHold(GameTable& table, int position);

// What the DEAL/DRAW button does, whatever the game and mode: deals, draws, or asks for money when
// the credits do not cover the bet. During a hand of Pick 'Em it does nothing.
void DealDraw(GameTable& table);

// Shared by all deals: whether there is a pay table to play on and, outside fixed-hand mode, the
// credits for the bet; the player is told or asked for what is missing.
bool CanBeginHand(GameTable& table);

// Of a game that cannot be played or analysed for want of one.
void TellOfMissingPayTable(Player& player);

// Takes the bet, and the mark of the last hand's line.
void TakeBet(GameTable& table);

// The offer made after the last hand ends.
void WithdrawDoubleUp(GameTable& table);

// Lets the player enter dollars.
void EnterCredits(GameTable& table);

// The best-play check of the modes that have one. False when the player backs out: the hand stays
// as it is, and a second try is not logged again.
bool PassesBestPlayCheck(GameTable& table);

// The five places show card backs; at full speed the old cards stay until new ones cover them.
void ShowBacks(GameTable& table);

// The five cards are turned; afterwards the hand waits for holds.
void ShowDeal(GameTable& table);
