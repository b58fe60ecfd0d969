#include "cli/CsvTable.h"

#include <cmath>

#include "cli/Texts.h"

namespace cli {
namespace {

bool LooksLikeFormula(std::string_view text) {
    return !text.empty() &&
           std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
}

std::string InQuotes(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

}  // namespace

CsvCell::CsvCell(std::string_view text) {
    const std::string safe = (LooksLikeFormula(text) ? "'" : "") + std::string(text);
    const bool plain = safe.find_first_of(",\"\r\n") == std::string::npos &&
                       !safe.starts_with(' ') && !safe.ends_with(' ');
    written = plain ? safe : InQuotes(safe);
}

CsvCell::CsvCell(double number) : written(std::isfinite(number) ? NumberText(number) : "") {}

void CsvTable::AddRow(const std::vector<CsvCell>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        text += (i == 0 ? "" : ",") + cells[i].Written();
    }
    text += '\n';
}

}  // namespace cli
