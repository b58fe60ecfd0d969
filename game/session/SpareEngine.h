// The second machine, for what must not disturb the player's: autoplay, and the reports that
// analyse.
#pragma once
#include <memory>
#include <string>

#include "game/seat/Seat.h"

// Puts the player's game and table on the spare engine, with the settings and statistics as last
// saved, and a deck that does not run along with the player's.
void LoadSpare(Seat& seat, GameEngine& spare);

// Puts any table there, with all but the deck so.
void LoadSpareTable(Seat& seat, GameEngine& spare, const TableOfGame& table);

// Shows the player how far long work on the spare engine has come, seldom enough to cost nothing.
class WorkProgress {
  public:
    // The work stands before the percentage: "Analyzing game...". At most so many calls of Show
    // leave the window without a look at it.
    WorkProgress(Player& player, std::string work, int callsBetweenLooks);

    // False when the player has cancelled the work.
    bool Show(int percent);

  private:
    std::string Text(int percent) const { return work + std::to_string(percent) + "%"; }

    std::string work;
    int callsBetweenLooks;
    std::unique_ptr<ProgressMeter> progress;
    int shown = 0;
    int calls = 0;
};

// Asks for a number of hands, plays them on the spare engine, from statistics of 0 and without
// credits, and shows its statistics. Nothing is stored.
void RunAutoplay(Seat& seat, GameEngine& spare);
