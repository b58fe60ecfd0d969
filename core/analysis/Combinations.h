// Binomial coefficients of card counts.
#pragma once
#include <cstdint>

inline constexpr int kLargestDeck = 57;

// C(n, k) for n up to kLargestDeck: 1 when n = k (0 included), n when k = 1, and 0 when k > n, n <
// 1, k < 1 or n > kLargestDeck. So a draw of no cards has to be counted as one by the caller. Exact
// up to 2^50, which every draw from a deck stays below.
std::int64_t Combinations(int n, int k);
