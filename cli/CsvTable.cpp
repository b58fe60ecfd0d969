#include "cli/CsvTable.h"

#include <cmath>

#include "cli/Texts.h"

namespace cli {

CsvCell::CsvCell(double number) : text(std::isfinite(number) ? NumberText(number) : "") {}

void CsvTable::AddRow(const std::vector<CsvCell>& cells) {
    std::vector<std::string> texts;
    texts.reserve(cells.size());
    for (const CsvCell& cell : cells) texts.push_back(cell.Text());
    text += CsvRow(texts) + '\n';
}

}  // namespace cli
