#include "game/paytables/BreakEven.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kEven = 100 - 1e-9;  // percent; sums of doubles are not exact
constexpr double kMostPay = std::numeric_limits<int>::max();

bool IsEven(const ReturnAtPay& at) { return at.returnPercent >= kEven; }

// Where the tangent comes to 100 percent.
double TangentRoot(int pay, const ReturnAtPay& at) {
    return pay + (100 - at.returnPercent) / at.percentForCoin;
}

}  // namespace

int TopLine(const PayTable& table) {
    const auto top = std::ranges::max_element(table.lines, {}, &PayLine::maxPayout);
    return table.lines.empty() ? -1 : static_cast<int>(top - table.lines.begin());
}

std::optional<int> BreakEvenPay(int presentPay,
                                const std::function<std::optional<ReturnAtPay>(int)>& returnAt) {
    int low = 0;
    int high = presentPay;
    auto at = returnAt(high);  // of the high one
    if (at && IsEven(*at)) {
        const auto unpaid = returnAt(0);
        if (!unpaid) return std::nullopt;
        if (IsEven(*unpaid)) return 0;
    }
    // Up to a pay that is enough. A line that nobody plays for has no slope at first.
    while (at && !IsEven(*at)) {
        if (high == std::numeric_limits<int>::max()) return std::nullopt;
        low = high;
        const double doubled = std::max(2.0 * low, 1000.0);
        const double next = at->percentForCoin > 0 ? std::ceil(TangentRoot(low, *at)) : doubled;
        high = static_cast<int>(std::clamp(next, low + 1.0, kMostPay));
        at = returnAt(high);
    }
    while (at && high - low > 1) {
        const double root = at->percentForCoin > 0 ? TangentRoot(high, *at) : low;
        const int pay = static_cast<int>(std::clamp(std::ceil(root), low + 1.0, high - 1.0));
        const auto tried = returnAt(pay);
        if (!tried) return std::nullopt;
        if (IsEven(*tried)) {
            high = pay;
            at = tried;
        } else {
            low = pay;
        }
    }
    if (!at) return std::nullopt;
    return high;
}
