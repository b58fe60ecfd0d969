#include "core/text/CombinationText.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <optional>

#include "core/text/Amount.h"
#include "core/text/WholeNumber.h"

namespace {

constexpr std::size_t kMostDigits = 18;
constexpr std::int64_t kLargest = 999'999'999'999'999'999;

// C(n, k) for 0 < k < n <= kLargest; nothing when it is larger than kLargest. Goes up the diagonal
// C(n - k + i, i), which more than doubles until half of n is drawn: some sixty steps at most.
std::optional<std::int64_t> Choose(std::int64_t n, std::int64_t k) {
    k = std::min(k, n - k);
    std::int64_t ways = 1;
    for (std::int64_t i = 1; i <= k; ++i) {
        const std::int64_t common = std::gcd(ways, i);
        ways /= common;
        const std::int64_t factor = (n - k + i) / (i / common);
        if (ways > kLargest / factor) return std::nullopt;
        ways *= factor;
    }
    return ways;
}

}  // namespace

std::string CombinationText(std::string_view cards, std::string_view drawn) {
    const WholeNumber n = ReadWholeNumber(cards);
    const WholeNumber k = ReadWholeNumber(drawn);
    if (n == k) return "1";
    if (n < k || n.negative || k.negative || k.IsZero()) return "0";
    // There are n ways at least.
    if (n.digits.size() > kMostDigits) return "too large";
    const auto ways = Choose(n.Nearest(), k.Nearest());
    return ways ? FormatCount(*ways) : "too large";
}
