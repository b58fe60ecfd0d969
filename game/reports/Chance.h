// How rare it is to see something so often in so many hands that do not depend on each other.
#pragma once
#include <cstdint>
#include <string>

// The chance, by the binomial law, that it comes at most, or at least, "seen" times in so many
// hands, each of which has it with the probability. Both are right to ten digits as long as
// they are above 1e-290, and 0 from there on; they take some milliseconds for two thousand million
// hands, and no time to speak of for a million.
double ChanceOfAtMost(std::int64_t seen, std::int64_t hands, double probability);
double ChanceOfAtLeast(std::int64_t seen, std::int64_t hands, double probability);

struct Rarity {
    double chance = 1;  // of so few, where there are fewer than expected, otherwise of so many
    std::string words;  // "as expected", "1 in 40 players sees so few"
};

// Nothing unusual is found in numbers that cannot be: no hands, or more seen than there are hands.
Rarity RarityOf(std::int64_t seen, std::int64_t hands, double probability);
