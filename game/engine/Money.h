// Dollars and credits.
#pragma once
#include "game/engine/GameEngine.h"

inline constexpr int kMostDollars = 999999;  // that may be entered at once

// Toward zero, 0..2,147,483,647. An amount that is reckoned in nickels may fall short of the whole
// number that it stands for by less than a rounding, and that must not cost a credit.
std::int32_t WholeAmount(double amount);

// Dollars 1..kMostDollars become credits at the coin in use; other amounts change nothing. Credits
// and counters stop at the largest 32-bit number.
void EnterDollars(GameEngine& engine, int dollars);
