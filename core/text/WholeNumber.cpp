#include "core/text/WholeNumber.h"

#include <charconv>
#include <limits>

namespace {

std::string_view Without(std::string_view leading, std::string_view text) {
    const auto first = text.find_first_not_of(leading);
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

bool SmallerDigits(std::string_view a, std::string_view b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

}  // namespace

std::int64_t WholeNumber::Nearest() const {
    if (digits.empty()) return 0;
    using Limits = std::numeric_limits<std::int64_t>;
    std::int64_t value = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (read.ec == std::errc()) return negative ? -value : value;
    return negative ? Limits::min() : Limits::max();
}

WholeNumber ReadWholeNumber(std::string_view text) {
    text = Without(" \t\n\v\f\r", text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    const auto end = text.find_first_not_of("0123456789");
    WholeNumber number{negative, Without("0", text.substr(0, end))};
    number.negative = negative && !number.IsZero();
    return number;
}

bool operator<(const WholeNumber& a, const WholeNumber& b) {
    if (a.negative != b.negative) return a.negative;
    return a.negative ? SmallerDigits(b.digits, a.digits) : SmallerDigits(a.digits, b.digits);
}
