// Rows of cells as spreadsheets write, read and copy them (RFC 4180).
#pragma once
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The cells with commas between them, without the end of the row. A cell stands in quotes where
// some program would otherwise part it or cut its blanks.
std::string CsvRow(std::span<const std::string> cells);

// The text as a cell: one that a spreadsheet would take for a formula begins with a '. A lone sign
// is none.
std::string CsvText(std::string_view text);

// What parts the cells of the first line: a comma, or where there are more of them, a semicolon or
// a tab.
char CsvSeparator(std::string_view text);

struct CsvCells {
    int line = 0;            // of the text, counted from 1, where the row begins
    bool quoteOpen = false;  // the last cell begins with a quote that is not closed
    std::vector<std::string> cells;
};

class CsvReader {
  public:
    // The text outlives the reader. Quotes that do not stand around a whole cell are part of it.
    CsvReader(std::string_view text, char separator) : text(text), separator(separator) {}

    // An empty line is a row of one empty cell. Nothing at the end.
    std::optional<CsvCells> Next();

  private:
    bool EndsCell(std::size_t place) const;
    std::optional<std::string> QuotedCell();
    std::string PlainCell();

    std::string_view text;
    char separator;
    std::size_t at = 0;
    int line = 1;
    bool quoteOpen = false;
};
