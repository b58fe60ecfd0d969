// How likely it is to see something so often in so many hands that do not depend on each other.
#pragma once
#include <cstdint>

// The chance, by the binomial law, that it comes at most, or at least, "seen" times in so many
// hands, each of which has it with the probability. Both are right to ten digits as long as
// they are above 1e-290, and 0 from there on; they take some milliseconds for two thousand million
// hands, and no time to speak of for a million.
double ChanceOfAtMost(std::int64_t seen, std::int64_t hands, double probability);
double ChanceOfAtLeast(std::int64_t seen, std::int64_t hands, double probability);
