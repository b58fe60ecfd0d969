#include "cli/TextTable.h"

#include <algorithm>

#include "cli/Texts.h"

namespace cli {
namespace {

constexpr std::size_t kLineWidth = 100;
constexpr std::size_t kGap = 2;

std::string Padded(const std::string& text, std::size_t width, bool right) {
    const std::string blanks(width - std::min(width, DisplayWidth(text)), ' ');
    return right ? blanks + text : text + blanks;
}

std::string EndLine(std::string line) {
    line.resize(line.find_last_not_of(' ') + 1);
    return line + "\n";
}

// The items behind the start of a line, going on below themselves.
std::string WithItems(std::string line, const std::vector<std::string>& items) {
    const std::size_t start = DisplayWidth(line);
    std::string text;
    std::size_t width = start;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::string item = items[i] + (i + 1 < items.size() ? ", " : "");
        // A trailing blank may hang over.
        if (width > start && width + DisplayWidth(item) > kLineWidth + 1) {
            text += EndLine(line);
            line = std::string(start, ' ');
            width = start;
        }
        line += item;
        width += DisplayWidth(item);
    }
    return text + EndLine(line);
}

}  // namespace

void TextTable::AddRow(std::vector<std::string> cells, std::vector<std::string> lastItems) {
    for (std::string& cell : cells) cell = Printable(cell);
    for (std::string& item : lastItems) item = Printable(item);
    rows.push_back({std::move(cells), std::move(lastItems)});
}

std::vector<std::size_t> TextTable::Widths() const {
    std::vector<std::size_t> widths;
    for (std::size_t i = 0; i + 1 < columns.size(); ++i) {
        std::size_t width = DisplayWidth(columns[i].title);
        for (const Row& row : rows) width = std::max(width, DisplayWidth(row.cells[i]));
        widths.push_back(width);
    }
    return widths;
}

std::string TextTable::Text() const {
    const auto widths = Widths();
    const auto line = [&](const auto& cellOf) {
        std::string text;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            text += Padded(cellOf(i), widths[i], columns[i].number) + std::string(kGap, ' ');
        }
        return text;
    };
    std::string text =
        EndLine(line([&](std::size_t i) { return columns[i].title; }) + columns.back().title);
    for (const Row& row : rows) {
        text += WithItems(line([&](std::size_t i) { return row.cells[i]; }), row.lastItems);
    }
    return text;
}

}  // namespace cli
