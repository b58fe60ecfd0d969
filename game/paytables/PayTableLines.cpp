#include "game/paytables/PayTableLines.h"

#include <algorithm>
#include <array>
#include <vector>

#include "core/text/Csv.h"
#include "core/text/Numbers.h"
#include "core/text/Ranks.h"
#include "core/text/WholeNumber.h"
#include "game/paytables/TableImport.h"

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
std::string ColumnProblem(FormField field, const std::string& text) {
    const bool isNumber = field == kPayout || field == kMaxPayout;
    const bool isList = field == kBonusQuads || field == kKickers;
    if (isNumber && !text.empty() && !PlainWholeNumber(text)) return "is no whole number.";
    if (isList && !IsRankList(text)) return "is no list of ranks.";
    return TextProblem(text);
}

// What is wrong with the cell; empty when it has been put into the line.
std::string PutCell(PayLineTexts& line, FormField field, const std::string& cell) {
    if (field == kRank) {
        const auto rank = RankOfText(cell);
        if (!rank) return "is no hand rank.";
        line.rank = *rank;
    } else if (field == kWildsOK) {
        const auto flag = FlagOfText(cell);
        if (!flag) return "is neither yes nor no.";
        line.wildsOK = *flag;
    } else {
        std::string problem = ColumnProblem(field, cell);
        if (!problem.empty()) return problem;
        *TextAt(line, field) = cell;
    }
    return "";
}

std::string InRow(std::size_t row, const std::string& problem) {
    return "Row " + std::to_string(row + 1) + ": " + problem;
}

std::vector<CsvCells> RowsOf(std::string_view cells) {
    std::vector<CsvCells> rows;
    CsvReader reader(cells, '\t');
    while (auto row = reader.Next()) rows.push_back(*std::move(row));
    return rows;
}

using MayChange = std::function<bool(FieldPlace)>;

// What is wrong with the row; empty when it has been put into the line, from the place on.
std::string PutRow(PayLineTexts& line, FieldPlace place, const CsvCells& row,
                   const MayChange& mayChange) {
    const PayLineTexts whole = line;
    bool described = place.field > kDescription;
    for (const std::string& word : row.cells) {
        if (place.field > kWildsOK) return "there are more cells than columns.";
        const PayLineTexts before = line;
        std::string problem = PutCell(line, place.field, word);
        if (row.quoteOpen && &word == &row.cells.back()) {
            problem = "begins with a quote that is not closed.";
        } else if (problem.empty() && line != before && !mayChange(place)) {
            problem = "is for a field that can not be changed.";
        }
        if (!problem.empty()) return QuotedWord(word) + " " + problem;
        described = described || place.field == kDescription;
        place.field = static_cast<FormField>(static_cast<int>(place.field) + 1);
    }
    if (!described && line.rank != whole.rank) ChooseRank(line, line.rank);
    return "";
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
                                      const MayChange& mayChange) {
    const auto rows = RowsOf(cells);
    if (rows.size() > static_cast<std::size_t>(kMaxPayLines - from.line)) {
        return "There are " + std::to_string(rows.size()) + " rows and only " +
               std::to_string(kMaxPayLines - from.line) + " lines from here on.";
    }
    PayTableTexts pasted = table;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const FieldPlace place{from.field, from.line + static_cast<int>(row)};
        PayLineTexts& line = pasted.lines[static_cast<std::size_t>(place.line)];
        const std::string problem = PutRow(line, place, rows[row], mayChange);
        if (!problem.empty()) return InRow(row, problem);
    }
    table = pasted;
    return std::nullopt;
}
