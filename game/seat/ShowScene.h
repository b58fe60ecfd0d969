// How the machine comes to show something. At rest the picture is a function of the state; a flow
// changes in it what it reveals step by step, and ends with the picture of the state again.
#pragma once
#include <string>

#include "game/seat/Seat.h"

enum class Pile { kLeft, kRight };

// Credits as the meters show them: "1,000", or "$250.00" when the machine shows dollars.
std::string CreditText(const GameEngine& engine, int credits);

// What the machine has to say by itself: "HOLD/DRAW", "GAME OVER", "WON 250", "1,000 Bonus
// Credits".
std::string MeterText(const Seat& seat);

// What a won line is marked with, in credits: five times its pay for a five-card charlie.
int AnnouncedPay(const GameEngine& engine, int line);

// How the pick that is held compares with the dealer's card: a wild card is worth most, then the
// ace. Open before a card is picked.
DuelResult DuelOf(const GameEngine& engine);

// Lights the cards that made the line, all five for a five-card charlie, and no others; none when
// there is no such line.
void LightCards(const GameEngine& engine, int line, Scene& scene);

// The picture of the state. The message that stands goes on standing, and a button that the player
// holds down stays down.
Scene SceneOf(const Seat& seat);

void ShowAtRest(Seat& seat);
void ShowAtRest(Seat& seat, const std::string& message);

// The hand is over, none is held, and the message says so, unless a double up of the hand that is
// over still waits. The line of a dealt hand that was never drawn to becomes the final one.
void ShowGameOver(Seat& seat);

// The scene as a flow has changed it.
void Show(Seat& seat);

// The steps that more than one flow takes.
void ShowMessage(Seat& seat, const std::string& text);
void ShowMeters(Seat& seat);                             // the message meter with MeterText
void ShowCredits(Seat& seat);                            // as they are now
void ShowCard(Seat& seat, int position, CardCode card);  // kNoCard clears the place
void ShowPileTop(Seat& seat, Pile pile);

// A mark other than the plain one comes with the payout, in credits, in the column of the bet.
// Nothing when there is no such line.
void ShowLine(Seat& seat, int line, LineMark mark, int payout = 0);

inline ButtonLook& HoldButtonAt(Scene& scene, int position) {
    return scene.places[static_cast<std::size_t>(position)].holdButton;
}

// A button under the player's finger; nothing where the button is not on the machine.
void PressButton(ButtonLook& button);
void ReleaseButton(ButtonLook& button);
void ReleaseAllButtons(Scene& scene);
