// What every flow shows of money and wins: the meters, the lines of the pay table, the count-up.
#pragma once
#include <string>

#include "game/GameTable.h"

// Credits as the meters show them: "1,000", or "$250.00" when the machine shows dollars.
std::string CreditText(const GameEngine& engine, int credits);
std::string BetText(const GameEngine& engine);

// What the machine has to say by itself: "HOLD/DRAW", "GAME OVER", "WON 250", "1,000 Bonus
// Credits".
std::string MeterText(const GameTable& table);

void ShowMeters(GameTable& table);
void ShowCredits(GameTable& table);
void ShowBet(GameTable& table);

// What a won line is marked with, in credits: five times its pay for a five-card charlie.
int AnnouncedPay(const GameEngine& engine, int line);

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

// Nothing when the sounds are switched off.
void Play(GameTable& table, Wave wave);
void PlayToEnd(GameTable& table, Wave wave);
void SoundBeep(GameTable& table, Beep beep);
