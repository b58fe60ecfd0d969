#include "core/text/Csv.h"

#include <algorithm>

namespace {

std::string Quoted(const std::string& cell) {
    const bool plain = cell.find_first_of(",;\t\"\r\n") == std::string::npos &&
                       !cell.starts_with(' ') && !cell.ends_with(' ');
    if (plain) return cell;
    std::string quoted = "\"";
    for (const char c : cell) {
        quoted += c;
        if (c == '"') quoted += c;
    }
    return quoted + '"';
}

bool LooksLikeFormula(std::string_view text) {
    if (text.size() < 2) return text == "=" || text == "@";
    return std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
}

}  // namespace

std::string CsvText(std::string_view text) {
    return (LooksLikeFormula(text) ? "'" : "") + std::string(text);
}

std::string CsvRow(std::span<const std::string> cells) {
    std::string row;
    for (const std::string& cell : cells) row += (&cell == cells.data() ? "" : ",") + Quoted(cell);
    return row;
}

char CsvSeparator(std::string_view text) {
    const std::string_view first = text.substr(0, text.find('\n'));
    char separator = ',';
    for (const char c : {';', '\t'}) {
        if (std::ranges::count(first, c) > std::ranges::count(first, separator)) separator = c;
    }
    return separator;
}

std::optional<CsvCells> CsvReader::Next() {
    if (at >= text.size()) return std::nullopt;
    CsvCells row{line, false, {}};
    do {
        auto quoted = QuotedCell();
        row.cells.push_back(quoted ? *std::move(quoted) : PlainCell());
    } while (at < text.size() && text[at++] == separator);
    row.quoteOpen = quoteOpen;
    ++line;
    return row;
}

bool CsvReader::EndsCell(std::size_t place) const {
    place = std::min(text.find_first_not_of('\r', place), text.size());
    return place == text.size() || text[place] == separator || text[place] == '\n';
}

// Goes on behind the cell; nothing, and stays, where none begins.
std::optional<std::string> CsvReader::QuotedCell() {
    if (at >= text.size() || text[at] != '"') return std::nullopt;
    std::string cell;
    int breaks = 0;
    for (std::size_t i = at + 1; i < text.size(); ++i) {
        if (text[i] == '"' && (i + 1 == text.size() || text[i + 1] != '"')) {
            if (!EndsCell(i + 1)) return std::nullopt;
            at = std::min(text.find_first_not_of('\r', i + 1), text.size());
            line += breaks;
            return cell;
        }
        if (text[i] == '"') ++i;
        if (text[i] == '\n') ++breaks;
        cell += text[i];
    }
    at = text.size();
    quoteOpen = true;
    return cell;
}

std::string CsvReader::PlainCell() {
    const char ends[] = {separator, '\n'};
    const std::size_t end = std::min(text.find_first_of({ends, 2}, at), text.size());
    std::string cell(text.substr(at, end - at));
    at = end;
    while (cell.ends_with('\r')) cell.pop_back();
    return cell;
}
