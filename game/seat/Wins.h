// How a win is told and paid out: the line of the pay table, the count-up, the offer of a double
// up, and what is heard.
#pragma once
#include "game/seat/Seat.h"

// Marks a line as won. It is heard unless the draw has only confirmed the line of the deal: a beep,
// or from 100 credits on, and for every five-card charlie, five flashes.
void AnnounceWin(Seat& seat, int line);

// Takes the mark off again; nothing when there is no such line.
void ClearLine(Seat& seat, int line);

// Counts a win, which the credits already hold, into the meters; the player may stop that.
void CountUp(Seat& seat);

// What follows a won final hand once its line is marked: the win in the meters, and the offer of a
// double up while the option is on. Pick 'Em makes the offer last.
void ShowWin(Seat& seat);
void OfferDoubleUp(Seat& seat);

// The offer made after the last hand ends.
void WithdrawDoubleUp(Seat& seat);

// Nothing when the sounds are switched off.
void Play(Seat& seat, Wave wave);
void PlayToEnd(Seat& seat, Wave wave);
void SoundBeep(Seat& seat, Beep beep);
