// Aligned columns. Cells of the last column are lists whose items are kept whole: they go on in the
// next line where a line would become too wide to read.
#pragma once
#include <string>
#include <vector>

namespace cli {

struct TextColumn {
    std::string title;
    bool number = false;  // stands to the right
};

class TextTable {
  public:
    explicit TextTable(std::vector<TextColumn> columns) : columns(std::move(columns)) {}

    // One cell for each column but the last, whose items follow.
    void AddRow(std::vector<std::string> cells, std::vector<std::string> lastItems);

    // The titles and the rows, each line ended by '\n'.
    std::string Text() const;

  private:
    struct Row {
        std::vector<std::string> cells;
        std::vector<std::string> lastItems;
    };

    std::vector<std::size_t> Widths() const;

    std::vector<TextColumn> columns;
    std::vector<Row> rows;
};

}  // namespace cli
