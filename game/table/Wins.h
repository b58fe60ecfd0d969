// How a win is told and paid out: the line of the pay table, the count-up, the offer of a double
// up, and what is heard.
#pragma once
#include "game/table/GameTable.h"

// Marks a line as won. It is heard unless the draw has only confirmed the line of the deal: a beep,
// or from 100 credits on, and for every five-card charlie, five flashes.
void AnnounceWin(GameTable& table, int line);

// Takes the mark off again; nothing when there is no such line.
void ClearLine(GameTable& table, int line);

// Counts a win, which the credits already hold, into the meters; the player may stop that.
void CountUp(GameTable& table);

// What follows a won final hand once its line is marked: the win in the meters, and the offer of a
// double up while the option is on. Pick 'Em makes the offer last.
void ShowWin(GameTable& table);
void OfferDoubleUp(GameTable& table);

// The offer made after the last hand ends.
void WithdrawDoubleUp(GameTable& table);

// Nothing when the sounds are switched off.
void Play(GameTable& table, Wave wave);
void PlayToEnd(GameTable& table, Wave wave);
void SoundBeep(GameTable& table, Beep beep);
