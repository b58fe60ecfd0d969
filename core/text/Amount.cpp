#include "core/text/Amount.h"

#include <algorithm>
#include <cstddef>

#include "core/text/Numbers.h"

namespace {

constexpr int kGroupSize = 3;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool TakesNoComma(char left) { return left == ' ' || left == '-'; }

std::string Grouped(std::string_view whole) {
    std::string reversed;
    int digits = 0;
    for (std::size_t i = whole.size(); i-- > 0;) {
        if (whole[i] == ' ') continue;
        reversed += whole[i];
        if (!IsDigit(whole[i])) continue;
        ++digits;
        if (digits % kGroupSize == 0 && i > 0 && !TakesNoComma(whole[i - 1])) reversed += ',';
    }
    std::ranges::reverse(reversed);
    return reversed;
}

}  // namespace

std::string FormatNumber(std::string_view printed, bool decimals, bool dollar) {
    const auto point = decimals ? printed.rfind('.') : std::string_view::npos;
    const auto whole = printed.substr(0, point);
    std::string text(dollar ? "$" : "");
    text += Grouped(whole);
    if (point == std::string_view::npos) return text;
    if (std::ranges::none_of(whole, IsDigit)) text += '0';
    text += printed.substr(point);
    return text;
}

std::string FormatCount(std::int64_t count) {
    return FormatNumber(std::to_string(count), false, false);
}

std::string FormatDecimals(std::string_view format, double value) {
    return FormatNumber(FormatDouble(format, value), true, false);
}

std::string FormatDollars(std::string_view format, double dollars) {
    return FormatNumber(FormatDouble(format, dollars), true, true);
}
