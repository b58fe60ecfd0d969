#include "core/text/Ranks.h"

#include <algorithm>
#include <cstddef>

#include "core/text/Numbers.h"

namespace {

constexpr std::size_t kMaxTokens = 13;
constexpr std::string_view kRankChars = "WA23456789TJQKA";

// The tokens of a list, at least one: an empty one for an empty text.
std::vector<std::string_view> Tokens(std::string_view text) {
    std::vector<std::string_view> tokens;
    for (;;) {
        const auto end = text.find_first_of(kListSeparators);
        tokens.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return tokens;
        text.remove_prefix(end + 1);
    }
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

// As Tokens, but blanks end a token only where nothing else does: people type "2, K , A ".
std::vector<std::string_view> TypedTokens(std::string_view text) {
    std::vector<std::string_view> tokens;
    for (;;) {
        text = WithoutLeadingBlanks(text);
        const auto end = std::min(text.find_first_of(kListSeparators), text.size());
        tokens.push_back(text.substr(0, end));
        text = WithoutLeadingBlanks(text.substr(end));
        if (text.empty()) return tokens;
        if (kListSeparators.find(text.front()) != std::string_view::npos) text.remove_prefix(1);
    }
}

// The rank that a token names; 0 when it is no rank.
int TypedRank(std::string_view token) {
    if (token.empty()) return 0;
    const int letter = RankFromChar(token.front());
    const bool isLetter = letter == 1 || letter >= 10;
    return isLetter ? letter : ParseInt(token);
}

void Append(std::string& list, std::string_view item) {
    if (!list.empty()) list += ',';
    list += item;
}

}  // namespace

char RankChar(int rank) {
    if (rank < 0 || rank >= static_cast<int>(kRankChars.size())) return '?';
    return kRankChars[static_cast<std::size_t>(rank)];
}

int RankFromChar(char c) {
    const char upper = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    const auto rank = kRankChars.find(upper);
    return rank == std::string_view::npos ? -1 : static_cast<int>(rank);
}

std::optional<std::string> ParseRankList(std::string_view typed) {
    std::string stored;
    if (WithoutLeadingBlanks(typed).empty()) return stored;
    const auto tokens = TypedTokens(typed);
    if (tokens.size() > kMaxTokens) return std::nullopt;
    for (const auto token : tokens) {
        const int rank = TypedRank(token);
        if (rank == 0) return std::nullopt;
        Append(stored, std::to_string(rank));
    }
    return stored;
}

std::string FormatRankList(std::string_view stored) {
    std::string shown;
    for (const int rank : ReadRankNumbers(stored, kMaxTokens)) {
        const bool isLetter = rank == 1 || (rank >= 10 && rank <= 14);
        Append(shown, isLetter ? std::string(1, RankChar(rank)) : std::to_string(rank));
    }
    return shown;
}

std::vector<int> ReadRankNumbers(std::string_view stored, std::size_t limit) {
    std::vector<int> numbers;
    if (stored.empty()) return numbers;
    for (const auto token : Tokens(stored)) {
        if (numbers.size() == limit) break;
        numbers.push_back(ParseInt(token));
    }
    return numbers;
}
