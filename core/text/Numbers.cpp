#include "core/text/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "core/text/WholeNumber.h"

namespace {

constexpr int kMaxFormatNumber = 99;

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view WithoutLeadingBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\n\v\f\r");
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

struct FixedConversion {
    bool leftJustified = false;
    int width = 0;
    int precision = 6;
};

// Digits at the start of text, taken off it; nothing when the number is larger than a format may
// ask for.
std::optional<int> TakeFormatNumber(std::string_view& text) {
    int number = 0;
    while (!text.empty() && IsDigit(text.front())) {
        number = number * 10 + (text.front() - '0');
        if (number > kMaxFormatNumber) return std::nullopt;
        text.remove_prefix(1);
    }
    return number;
}

// Takes a conversion off the start of text, which follows a '%'.
std::optional<FixedConversion> TakeConversion(std::string_view& text) {
    FixedConversion conversion;
    if (text.starts_with('-')) {
        conversion.leftJustified = true;
        text.remove_prefix(1);
    }
    const auto width = TakeFormatNumber(text);
    if (!width) return std::nullopt;
    conversion.width = *width;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        const auto precision = TakeFormatNumber(text);
        if (!precision) return std::nullopt;
        conversion.precision = *precision;
    }
    if (text.starts_with('l')) text.remove_prefix(1);
    if (!text.starts_with('f')) return std::nullopt;
    text.remove_prefix(1);
    return conversion;
}

std::string Fixed(double value, const FixedConversion& conversion) {
    // The largest double has 309 digits before its point.
    std::array<char, 512> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::fixed, conversion.precision)
                         .ptr;
    std::string text(digits.data(), end);
    const auto width = static_cast<std::size_t>(conversion.width);
    if (text.size() < width) {
        text.insert(conversion.leftJustified ? text.size() : 0, width - text.size(), ' ');
    }
    return text;
}

}  // namespace

bool SameText(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, LowerAscii, LowerAscii);
}

std::string_view CutText(std::string_view text, std::size_t bytes) {
    if (text.size() <= bytes) return text;
    const auto continues = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
    };
    while (bytes > 0 && continues(text[bytes])) --bytes;
    return text.substr(0, bytes);
}

std::int32_t ParseInt(std::string_view text) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t number = ReadWholeNumber(text).Nearest();
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

double ParseDouble(std::string_view text) {
    text = WithoutLeadingBlanks(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc() && std::isfinite(value) ? value : 0.0;
}

std::string FormatDouble(std::string_view format, double value) {
    const auto percent = format.find('%');
    if (percent != std::string_view::npos) {
        std::string_view rest = format.substr(percent + 1);
        const auto conversion = TakeConversion(rest);
        if (conversion && rest.find('%') == std::string_view::npos) {
            return std::string(format.substr(0, percent)) + Fixed(value, *conversion) +
                   std::string(rest);
        }
    }
    return Fixed(value, FixedConversion());
}
