#include "game/paytables/PayTableLines.h"

#include <algorithm>
#include <array>
#include <vector>

#include "core/text/Numbers.h"
#include "core/text/Ranks.h"
#include "core/text/WholeNumber.h"

namespace {

using enum FormField;

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string AsRead(const std::string& ranks) {
    const auto stored = ParseRankList(ranks);
    return stored ? FormatRankList(*stored) : ranks;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const auto end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

// A spreadsheet puts a cell with marks of its own between quotes, and doubles those inside.
std::string Unquoted(std::string_view cell) {
    if (cell.size() < 2 || !cell.starts_with('"') || !cell.ends_with('"')) return std::string(cell);
    std::string text;
    for (std::size_t i = 1; i + 1 < cell.size(); ++i) {
        text += cell[i];
        if (cell[i] == '"' && cell[i + 1] == '"' && i + 2 < cell.size()) ++i;
    }
    return text;
}

std::string* TextAt(PayLineTexts& line, FormField field) {
    switch (field) {
        case kDescription:
            return &line.description;
        case kPayout:
            return &line.payout;
        case kMaxPayout:
            return &line.maxPayout;
        case kBonusQuads:
            return &line.bonusQuads;
        case kKickers:
            return &line.kickers;
        default:
            return nullptr;
    }
}

// What is wrong with a text in that column; empty when nothing is.
const char* TextProblem(FormField field, const std::string& text) {
    const bool isNumber = field == kPayout || field == kMaxPayout;
    const bool isList = field == kBonusQuads || field == kKickers;
    if (text.size() > kLongestTableText) return "is longer than 80 characters";
    if (isNumber && !text.empty() && !PlainWholeNumber(text)) return "is no whole number";
    if (isList && !IsRankList(text)) return "is no list of ranks";
    return "";
}

// What is wrong with the cell; empty when it has been put into the line.
std::string PutCell(PayLineTexts& line, FormField field, const std::string& cell) {
    if (field == kRank) {
        const auto rank = RankOfText(cell);
        if (!rank) return "is no hand rank";
        line.rank = *rank;
    } else if (field == kWildsOK) {
        const auto flag = FlagOfText(cell);
        if (!flag) return "is neither yes nor no";
        line.wildsOK = *flag;
    } else {
        std::string problem = TextProblem(field, cell);
        if (!problem.empty()) return problem;
        *TextAt(line, field) = cell;
    }
    return "";
}

std::string InRow(std::size_t row, const std::string& problem) {
    return "Row " + std::to_string(row + 1) + ": " + problem;
}

}  // namespace

bool IsBlank(const PayLineTexts& line) {
    return line.rank == HandRank::kUnknown &&
           (line.description + line.payout + line.maxPayout + line.bonusQuads + line.kickers)
               .empty();
}

bool InsertLine(PayTableTexts& table, int line) {
    if (!IsBlank(table.lines.back())) return false;
    std::rotate(table.lines.begin() + line, table.lines.end() - 1, table.lines.end());
    PayLineTexts blank;
    blank.wildsOK = table.usesWilds;
    table.lines[static_cast<std::size_t>(line)] = blank;
    return true;
}

bool DuplicateLine(PayTableTexts& table, int line) {
    if (line + 1 >= kMaxPayLines || !InsertLine(table, line + 1)) return false;
    table.lines[static_cast<std::size_t>(line) + 1] = table.lines[static_cast<std::size_t>(line)];
    return true;
}

void DeleteLine(PayTableTexts& table, int line) {
    std::rotate(table.lines.begin() + line, table.lines.begin() + line + 1, table.lines.end());
    table.lines.back() = PayLineTexts();
    table.lines.back().wildsOK = table.usesWilds;
}

void MoveLine(PayTableTexts& table, int from, int to) {
    const auto at = [&](int line) { return table.lines.begin() + line; };
    if (from < to) {
        std::rotate(at(from), at(from + 1), at(to + 1));
    } else {
        std::rotate(at(to), at(from), at(from + 1));
    }
}

std::optional<HandRank> RankOfText(std::string_view text) {
    const std::string_view name = Trimmed(text);
    if (name.empty() || SameText(name, "End of Table")) return HandRank::kUnknown;
    for (const auto nameOf : {&HandRankInfo::longName, &HandRankInfo::shortName}) {
        for (int rank = 0; rank < kRankCount; ++rank) {
            const HandRank candidate = HandRankFromNumber(rank);
            if (SameText(RankInfo(candidate).*nameOf, name)) return candidate;
        }
    }
    const auto number = PlainWholeNumber(name);
    const HandRank rank = number ? HandRankFromNumber(ParseInt(*number)) : HandRank::kUnknown;
    if (rank == HandRank::kUnknown) return std::nullopt;
    return rank;
}

std::optional<bool> FlagOfText(std::string_view text) {
    const std::string_view word = Trimmed(text);
    const auto isOneOf = [word](std::initializer_list<const char*> words) {
        return std::ranges::any_of(words, [word](const char* w) { return SameText(word, w); });
    };
    if (isOneOf({"1", "yes", "true", "x"})) return true;
    if (isOneOf({"0", "no", "false", ""})) return false;
    return std::nullopt;
}

PayTableTexts AsKept(PayTableTexts table) {
    table = WithPlainNumbers(table);
    table.wildRanks = AsRead(table.wildRanks);
    table.minPair = AsRead(table.minPair);
    for (PayLineTexts& line : table.lines) {
        line.bonusQuads = AsRead(line.bonusQuads);
        line.kickers = AsRead(line.kickers);
        if (IsBlank(line)) line.wildsOK = false;
    }
    return table;
}

std::optional<std::string> PasteCells(PayTableTexts& table, FieldPlace from, std::string_view cells,
                                      const std::function<bool(FieldPlace)>& mayChange) {
    std::string text(cells);
    std::erase(text, '\r');
    if (text.ends_with('\n')) text.pop_back();
    const auto rows = Split(text, '\n');
    if (rows.size() > static_cast<std::size_t>(kMaxPayLines - from.line)) {
        return "There are " + std::to_string(rows.size()) + " rows and only " +
               std::to_string(kMaxPayLines - from.line) + " lines from here on.";
    }
    PayTableTexts pasted = table;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const auto number = static_cast<std::size_t>(from.line) + row;
        PayLineTexts& line = pasted.lines[number];
        FieldPlace place{from.field, static_cast<int>(number)};
        bool described = from.field > kDescription;
        for (const std::string_view cell : Split(rows[row], '\t')) {
            if (place.field > kWildsOK) return InRow(row, "there are more cells than columns.");
            const std::string word = Unquoted(cell);
            const PayLineTexts before = line;
            std::string problem = PutCell(line, place.field, word);
            if (problem.empty() && line != before && !mayChange(place)) {
                problem = "is for a field that can not be changed";
            }
            if (!problem.empty()) return InRow(row, "\"" + word + "\" " + problem.append("."));
            described = described || place.field == kDescription;
            place.field = static_cast<FormField>(static_cast<int>(place.field) + 1);
        }
        if (!described) ChooseRank(line, line.rank);
    }
    table = pasted;
    return std::nullopt;
}
