// What the top line of a game has to pay for the game to return all that is wagered.
#pragma once
#include <functional>
#include <optional>

#include "core/paytable/PayTable.h"

// The line that pays most at the full bet, the first of several; -1 for a table without lines.
int TopLine(const PayTable& table);

// A game as it is analysed at one pay of the line.
struct ReturnAtPay {
    double returnPercent = 0;   // at the full bet
    double percentForCoin = 0;  // what one coin more adds while the best holds stay the same
};

// The least maxPayout at which the return is at least 100 percent, the function giving the return
// at a pay; 0 when it is so whatever the line pays. Nothing when no pay is enough, or the function
// gives nothing.
//
// The return is the most of many plays, each of which is a straight line over the pay: it is convex
// and grows, so that its tangents lie below it and Newton's steps from above come down to the
// answer. Every answer is proved by the analysis of the pay and of one coin less.
std::optional<int> BreakEvenPay(int presentPay,
                                const std::function<std::optional<ReturnAtPay>(int)>& returnAt);
