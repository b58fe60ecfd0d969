// How the reports divide: by 0 gives 0.
#pragma once
#include <cstdint>

inline double Quotient(double value, double divisor) { return divisor == 0 ? 0 : value / divisor; }

inline double Quotient(std::int64_t value, std::int64_t divisor) {
    return Quotient(static_cast<double>(value), static_cast<double>(divisor));
}
