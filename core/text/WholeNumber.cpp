#include "core/text/WholeNumber.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>

namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";
constexpr std::size_t kGroupSize = 3;

std::string_view Without(std::string_view leading, std::string_view text) {
    const auto first = text.find_first_not_of(leading);
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view WithoutBlanks(std::string_view text) {
    text = Without(kBlanks, text);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// Whether the commas, if any, stand before every group of three digits, counted from the right.
bool AreGrouped(std::string_view digits) {
    const bool commas = digits.find(',') != std::string_view::npos;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        const bool comma = commas && (digits.size() - i) % (kGroupSize + 1) == 0;
        const bool digit = digits[i] >= '0' && digits[i] <= '9';
        if (comma ? digits[i] != ',' : !digit) return false;
    }
    return !digits.empty() && digits.front() != ',';
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
    text = Without(kBlanks, text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    const auto end = text.find_first_not_of("0123456789");
    WholeNumber number{negative, Without("0", text.substr(0, end))};
    number.negative = negative && !number.IsZero();
    return number;
}

std::optional<std::string> PlainWholeNumber(std::string_view typed) {
    typed = WithoutBlanks(typed);
    std::string plain(typed.starts_with('-') ? "-" : "");
    if (typed.starts_with('-') || typed.starts_with('+')) typed.remove_prefix(1);
    if (!AreGrouped(typed)) return std::nullopt;
    std::ranges::copy_if(typed, std::back_inserter(plain), [](char c) { return c != ','; });
    return plain;
}

bool operator<(const WholeNumber& a, const WholeNumber& b) {
    if (a.negative != b.negative) return a.negative;
    return a.negative ? SmallerDigits(b.digits, a.digits) : SmallerDigits(a.digits, b.digits);
}
