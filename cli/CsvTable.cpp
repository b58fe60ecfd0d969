#include "cli/CsvTable.h"

#include <cmath>

#include "cli/Texts.h"
#include "core/text/Csv.h"

namespace cli {
namespace {

bool LooksLikeFormula(std::string_view text) {
    return !text.empty() &&
           std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
}

}  // namespace

CsvCell::CsvCell(std::string_view text) {
    written = (LooksLikeFormula(text) ? "'" : "") + std::string(text);
}

CsvCell::CsvCell(double number) : written(std::isfinite(number) ? NumberText(number) : "") {}

void CsvTable::AddRow(const std::vector<CsvCell>& cells) {
    std::vector<std::string> row;
    for (const CsvCell& cell : cells) row.push_back(cell.Written());
    text += CsvRow(row) + "\n";
}

}  // namespace cli
