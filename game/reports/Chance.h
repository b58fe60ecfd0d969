// How rare it is to see something so often in so many hands that do not depend on each other.
#pragma once
#include <cstdint>
#include <string>

struct Rarity {
    double chance = 1;  // of so few, where there are fewer than expected, otherwise of so many
    std::string words;  // "as expected", "1 in 40 players sees so few"
};

// "1 in 1,230" of a chance above 0: to three digits, since nobody needs more.
std::string OneIn(double chance);

// Nothing unusual is found in numbers that cannot be: no hands, or more seen than there are hands.
Rarity RarityOf(std::int64_t seen, std::int64_t hands, double probability);
