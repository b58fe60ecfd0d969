#include "cli/Texts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <tuple>

#include "core/cards/CardText.h"
#include "core/text/Numbers.h"
#include "core/text/Ranks.h"

namespace cli {
namespace {

constexpr std::size_t kMaxQuoted = 60;

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }

// A byte after the first of a UTF-8 character.
bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

std::string QuotedUpTo(std::size_t limit, std::string_view text) {
    const std::string_view shown = CutText(text, limit);
    return "\"" + Printable(shown) + (shown.size() < text.size() ? "..." : "") + "\"";
}

constexpr std::size_t kMaxSuggested = 3;
constexpr std::size_t kMaxTyped = 80;  // no name is longer: the time stays bounded

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

// Insertions, deletions and replacements of one character each.
std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row[b.size()];
}

struct Candidate {
    std::size_t score = 0;  // 0 when the name contains what was typed
    std::size_t distance = 0;
    std::string name;
};

std::vector<std::string> NearestNames(std::string_view typed,
                                      const std::vector<std::string>& names) {
    const std::string wanted = LowerCase(typed.substr(0, kMaxTyped));
    std::vector<Candidate> candidates;
    for (const std::string& name : names) {
        const std::string lower = LowerCase(name);
        const std::size_t distance = EditDistance(wanted, lower);
        const bool contained = wanted.size() > 1 && lower.find(wanted) != std::string::npos;
        candidates.push_back({contained ? 0 : distance, distance, name});
    }
    std::ranges::stable_sort(candidates, [](const Candidate& a, const Candidate& b) {
        return std::tie(a.score, a.distance) < std::tie(b.score, b.distance);
    });
    std::vector<std::string> nearest;
    for (const Candidate& candidate : candidates) {
        if (nearest.size() == kMaxSuggested || candidate.score > candidates.front().score + 1) {
            break;
        }
        nearest.push_back(candidate.name);
    }
    return nearest;
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

std::string Listed(const std::vector<std::string>& texts) {
    std::string list;
    for (const std::string& text : texts) list += (list.empty() ? "" : ", ") + text;
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

std::string SentencesOnLines(std::string text) {
    for (auto at = text.find(". "); at != std::string::npos; at = text.find(". ", at + 2)) {
        text[at + 1] = '\n';
    }
    return text;
}

std::string DidYouMean(std::string_view typed, const std::vector<std::string>& names) {
    std::vector<std::string> quoted;
    for (const std::string& name : NearestNames(typed, names)) quoted.push_back(Quoted(name));
    return quoted.empty() ? "" : ": did you mean " + Alternatives(quoted) + "?";
}

std::string FaceTexts(const Hand& hand) {
    std::string text;
    for (const CardFace face : hand) {
        if (face.IsEmpty()) return "";
        text += (text.empty() ? "" : " ") + std::string(1, RankChar(face.rank));
        if (!face.IsJoker()) text += SuitChar(face.suit);
    }
    return text;
}

std::string NumberText(double number) {
    if (!std::isfinite(number)) return "null";
    constexpr double smallest = 1e-5;  // of those without an exponent
    constexpr double largest = 1e15;
    const double size = std::abs(number);
    const bool plain = size == 0 || (size >= smallest && size < largest);
    std::array<char, 40> digits{};
    const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, format);
    return {digits.data(), error == std::errc() ? end : digits.data()};
}

std::string JsonText(const nlohmann::ordered_json& json) {
    using Json = nlohmann::ordered_json;
    return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace cli
