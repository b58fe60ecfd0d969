#include "core/analysis/Combinations.h"

#include <array>
#include <cstddef>

namespace {

constexpr int kChooseRows = 14;    // n below 14 ...
constexpr int kChooseColumns = 6;  // ... and k below 6 are looked up

constexpr auto kFactorialTable = [] {
    std::array<double, kLargestDeck + 1> factorials{};
    factorials[0] = 1;
    for (std::size_t n = 1; n < factorials.size(); ++n) {
        factorials[n] = factorials[n - 1] * static_cast<double>(n);
    }
    return factorials;
}();

constexpr std::int64_t RoundedQuotient(int n, int k) {
    const auto factorial = [](int of) { return kFactorialTable[static_cast<std::size_t>(of)]; };
    const double quotient = factorial(n) / (factorial(n - k) * factorial(k));
    const auto whole = static_cast<std::int64_t>(quotient);
    return quotient - static_cast<double>(whole) < 0.5 ? whole : whole + 1;
}

constexpr auto kChooseTable = [] {
    std::array<std::array<std::int64_t, kChooseColumns>, kChooseRows> table{};
    for (int n = 1; n < kChooseRows; ++n) {
        for (int k = 1; k < kChooseColumns && k <= n; ++k) {
            table[static_cast<std::size_t>(n)][static_cast<std::size_t>(k)] = RoundedQuotient(n, k);
        }
    }
    return table;
}();

}  // namespace

std::int64_t Combinations(int n, int k) {
    if (n == k) return 1;
    if (k > n || n < 1 || k < 1 || n > kLargestDeck) return 0;
    if (k == 1) return n;
    if (n < kChooseRows && k < kChooseColumns) {
        return kChooseTable[static_cast<std::size_t>(n)][static_cast<std::size_t>(k)];
    }
    return RoundedQuotient(n, k);
}
