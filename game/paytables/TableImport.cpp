#include "game/paytables/TableImport.h"

#include <algorithm>

#include "core/paytable/PayTableStore.h"
#include "core/text/Numbers.h"

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kLongestWordShown = 60;  // bytes

// Of the sequence that begins so; 0 for what begins none.
std::size_t Utf8Length(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = Utf8Length(static_cast<unsigned char>(text.front()));
        if (length == 0 || length > text.size()) return false;
        const auto isContinuation = [](char c) {
            return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
        };
        if (!std::ranges::all_of(text.substr(1, length - 1), isContinuation)) return false;
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace

std::string LineProblemText(int line, std::string_view word, std::string_view problem) {
    return "Line " + std::to_string(line) + ": " + QuotedWord(word) + " " + std::string(problem);
}

std::string QuotedWord(std::string_view word) {
    const std::string_view shown = CutText(word, kLongestWordShown);
    return "\"" + std::string(shown) + (shown.size() < word.size() ? "...\"" : "\"");
}

void TableDraft::Place(FieldPlace place, int lineOfFile, std::string_view word) {
    places[{place.field, place.line}] = {lineOfFile, std::string(word)};
}

std::string TableDraft::Problem() const {
    const auto problem = FindProblem(table.texts);
    if (!problem) return "";
    const bool ofField = problem->ofLine || problem->where.field < FormField::kRank;
    if (const auto at = places.find({problem->where.field, problem->where.line});
        ofField && at != places.end()) {
        return LineProblemText(at->second.line, at->second.word, "is not taken: " + problem->text);
    }
    // What is missing has no place of its own, but its line has one.
    if (const auto at = places.find({FormField::kRank, problem->where.line});
        problem->ofLine && at != places.end()) {
        return LineProblemText(at->second.line, at->second.word, "has a fault: " + problem->text);
    }
    return LineProblemText(line, TableSection(table.gameName, table.tableIndex),
                           "has a fault: " + problem->text);
}

std::string PlaceProblem(std::string_view gameName, int tableIndex) {
    if (tableIndex < 0 || tableIndex > kLastTableIndex) return "has no index from 0 to 254.";
    const std::string problem = GameNameProblem(gameName);
    return problem.empty() ? TextProblem(gameName) : "is not taken: " + problem + ".";
}

std::string TextProblem(std::string_view text) {
    if (text.size() > kLongestTableText) return "is longer than 80 characters.";
    if (!IsUtf8(text)) return "is no text in UTF-8: save the file as such.";
    const bool isClean = std::ranges::none_of(text, [](char c) { return c >= 0 && c < ' '; });
    return isClean ? "" : "has a character that no text can keep.";
}

std::string_view TakeTextLine(std::string_view& text) {
    const auto end = text.find('\n');
    const auto line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line.substr(0, line.find_last_not_of('\r') + 1);
}

std::string_view WithoutMark(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    return text;
}
