#include "core/odds/Binomial.h"

#include <algorithm>

namespace {

constexpr double kNothing = 1e-300;  // beside the likeliest count

// The share of the counts from "low" to "high" among all. The counts are weighed one after the
// other from the likeliest, which is 1, to both sides, until they weigh nothing: each is the one
// before it times a quotient, so no factorial is needed, and the sum of all is their measure.
double Share(std::int64_t low, std::int64_t high, std::int64_t hands, double probability) {
    if (probability <= 0) return low <= 0 ? 1 : 0;
    if (probability >= 1) return high >= hands ? 1 : 0;
    const double odds = probability / (1 - probability);
    const auto likeliest = std::clamp<std::int64_t>(
        static_cast<std::int64_t>(static_cast<double>(hands + 1) * probability), 0, hands);
    double all = 0;
    double inside = 0;
    const auto add = [&](std::int64_t count, double weight) {
        all += weight;
        if (low <= count && count <= high) inside += weight;
    };
    add(likeliest, 1);
    double weight = 1;
    for (std::int64_t count = likeliest; count > 0 && weight > kNothing; --count) {
        weight *= static_cast<double>(count) / (static_cast<double>(hands - count + 1) * odds);
        add(count - 1, weight);
    }
    weight = 1;
    for (std::int64_t count = likeliest; count < hands && weight > kNothing; ++count) {
        weight *= static_cast<double>(hands - count) * odds / static_cast<double>(count + 1);
        add(count + 1, weight);
    }
    return inside / all;
}

}  // namespace

double ChanceOfAtMost(std::int64_t seen, std::int64_t hands, double probability) {
    return Share(0, seen, hands, probability);
}

double ChanceOfAtLeast(std::int64_t seen, std::int64_t hands, double probability) {
    return Share(seen, hands, hands, probability);
}
