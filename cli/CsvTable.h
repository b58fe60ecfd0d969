// A table as comma-separated values, for spreadsheets and scripts: the titles first, numbers in
// full and without units. A text that a spreadsheet would take for a formula begins with a '.
#pragma once
#include <concepts>
#include <string>
#include <string_view>
#include <vector>

#include "core/text/Csv.h"

namespace cli {

// A text, a number, or nothing.
class CsvCell {
  public:
    CsvCell() = default;
    CsvCell(std::string_view text)  // NOLINT(google-explicit-constructor): rows are lists of cells
        : text(CsvText(text)) {}
    CsvCell(const std::string& text)  // NOLINT(google-explicit-constructor)
        : CsvCell(std::string_view(text)) {}
    CsvCell(const char* text)  // NOLINT(google-explicit-constructor)
        : CsvCell(std::string_view(text)) {}
    CsvCell(double number);             // NOLINT(google-explicit-constructor)
    CsvCell(std::integral auto number)  // NOLINT(google-explicit-constructor)
        : text(std::to_string(number)) {}

    const std::string& Text() const { return text; }

  private:
    std::string text;
};

class CsvTable {
  public:
    explicit CsvTable(const std::vector<CsvCell>& titles) { AddRow(titles); }

    void AddRow(const std::vector<CsvCell>& cells);

    // Lines end in "\n".
    const std::string& Text() const { return text; }

  private:
    std::string text;
};

}  // namespace cli
