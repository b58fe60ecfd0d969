// One hand from the press of Deal to the payout and what is offered after it.
#pragma once
#include "game/seat/ShowScene.h"

// Takes a card of the dealt hand among the held ones, or out again; position 0..4.
void ToggleHold(Seat& seat, int position);

// What the DEAL/DRAW button does, whatever the game and mode: deals, draws, or asks for money when
// the credits do not cover the bet. During a hand of Pick 'Em it does nothing.
void DealDraw(Seat& seat);

// Plays a pile of Pick 'Em; nothing while no hand of it is in play.
void ChoosePile(Seat& seat, Pile pile);
