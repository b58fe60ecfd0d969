#include "cli/Texts.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/text/Numbers.h"

namespace {

constexpr std::size_t kMaxQuoted = 60;

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }

// A byte after the first of a UTF-8 character.
bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

std::string QuotedUpTo(std::size_t limit, std::string_view text) {
    const std::string_view shown = CutText(text, limit);
    return "\"" + Printable(shown) + (shown.size() < text.size() ? "..." : "") + "\"";
}

}  // namespace

std::string Printable(std::string_view text) {
    std::string printable(text);
    std::ranges::replace_if(printable, IsControl, '?');
    return printable;
}

std::string Quoted(std::string_view text) { return QuotedUpTo(kMaxQuoted, text); }

std::string QuotedPath(std::string_view path) { return QuotedUpTo(path.size(), path); }

std::string Alternatives(std::span<const std::string> texts) {
    std::string list;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (i > 0) list += i + 1 == texts.size() ? " or " : ", ";
        list += texts[i];
    }
    return list;
}

std::string Dollars(double amount) {
    std::string twoDecimals = FormatDouble("%.2f", amount);
    if (ParseDouble(twoDecimals) == amount) return "$" + twoDecimals;
    std::array<char, 512> shortest{};
    const auto end = std::to_chars(shortest.data(), shortest.data() + shortest.size(), amount).ptr;
    return "$" + std::string(shortest.data(), end);
}

std::size_t DisplayWidth(std::string_view text) {
    return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, IsContinuation));
}

std::string Shortened(std::string_view text, std::size_t columns) {
    constexpr std::string_view kCut = "...";
    std::string shortened(text);
    if (DisplayWidth(text) <= columns) return shortened;
    while (!shortened.empty() && DisplayWidth(shortened) + kCut.size() > columns) {
        while (!shortened.empty() && IsContinuation(shortened.back())) shortened.pop_back();
        if (!shortened.empty()) shortened.pop_back();
    }
    return shortened.append(kCut);
}
