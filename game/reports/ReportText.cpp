#include "game/reports/ReportText.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "core/text/Csv.h"

namespace {

constexpr std::string_view kMinusSign = "\u2212";
constexpr std::size_t kLongText = 40;  // characters
constexpr std::size_t kGap = 2;        // blanks between the columns of PlainText

void ReplaceAll(std::string& text, std::string_view what, std::string_view by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
        text.replace(at, what.size(), by);
    }
}

// Line breaks and tabs as blanks.
std::string OneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    return text;
}

// What a spreadsheet reads as the number or the text that it is.
std::string ForSpreadsheet(const ReportCell& cell) {
    if (!cell.value) return CsvText(cell.text);
    std::string number = cell.text;
    std::erase(number, ',');
    ReplaceAll(number, kMinusSign, "-");
    return number;
}

std::string Escaped(std::string text) {
    ReplaceAll(text, "&", "&amp;");
    ReplaceAll(text, "<", "&lt;");
    ReplaceAll(text, ">", "&gt;");
    ReplaceAll(text, "\"", "&quot;");
    ReplaceAll(text, "\r\n", "<br>");
    ReplaceAll(text, "\n", "<br>");
    return text;
}

// The characters of a UTF-8 text.
std::size_t Length(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

ReportTable WithMarks(const ReportTable& table) {
    ReportTable marked = table;
    const auto isMarked = [](const ReportRow& row) { return !MarkWord(row).empty(); };
    if (std::ranges::none_of(table.rows, isMarked)) return marked;
    marked.columns.push_back({.title = "Mark"});
    for (ReportRow& row : marked.rows) {
        row.cells.resize(table.columns.size());
        row.cells.push_back({.text = MarkWord(row)});
    }
    return marked;
}

std::string CsvLine(const std::vector<std::string>& cells) { return CsvRow(cells) + '\n'; }

const char* Colour(RowMark mark) {
    switch (mark) {
        case RowMark::kBest:
            return "#dff0d8";
        case RowMark::kChosen:
            return "#d9e8f7";
        case RowMark::kBad:
            return "#f7dcd9";
        case RowMark::kNone:
            break;
    }
    return nullptr;
}

// A row is one line, unless a name is long.
std::string HtmlCell(const std::string& text, bool number) {
    const char* plain = Length(text) > kLongText ? R"(<td style="white-space: normal">)" : "<td>";
    return (number ? R"(<td align="right">)" : plain) + Escaped(text) + "</td>";
}

template <typename Text>
std::string HtmlElement(const ReportTable& table, Text text) {
    std::string html = R"(<table border="1" cellspacing="0" cellpadding="3">)"
                       "\n<thead><tr>";
    for (const ReportColumn& column : table.columns) {
        html += (column.number ? R"(<th align="right">)" : R"(<th align="left">)") +
                Escaped(Heading(column)) + "</th>";
    }
    html += "</tr></thead>\n<tbody>\n";
    for (const ReportRow& row : table.rows) {
        const char* colour = Colour(row.mark);
        html += colour ? std::string("<tr bgcolor=\"") + colour + "\">" : "<tr>";
        for (std::size_t i = 0; i < table.columns.size() && i < row.cells.size(); ++i) {
            html += HtmlCell(text(row.cells[i]), table.columns[i].number);
        }
        html += "</tr>\n";
    }
    return html + "</tbody>\n</table>\n";
}

class Lines {
  public:
    explicit Lines(const ReportTable& table) : table(table) {
        for (const ReportColumn& column : table.columns) {
            widths.push_back(Length(OneLine(Heading(column))));
        }
        for (const ReportRow& row : table.rows) {
            for (std::size_t i = 0; i < widths.size() && i < row.cells.size(); ++i) {
                widths[i] = std::max(widths[i], Length(OneLine(row.cells[i].text)));
            }
        }
    }

    std::string Headings() const {
        std::string line;
        for (std::size_t i = 0; i < widths.size(); ++i) Add(line, Heading(table.columns[i]), i);
        return Ended(line);
    }

    std::string Row(const ReportRow& row) const {
        std::string line;
        for (std::size_t i = 0; i < widths.size() && i < row.cells.size(); ++i) {
            Add(line, row.cells[i].text, i);
        }
        return Ended(line);
    }

  private:
    void Add(std::string& line, const std::string& cell, std::size_t column) const {
        const std::string text = OneLine(cell);
        const std::string blanks(widths[column] - Length(text), ' ');
        if (column > 0) line += std::string(kGap, ' ');
        line += table.columns[column].number ? blanks + text : text + blanks;
    }

    static std::string Ended(std::string line) {
        while (line.ends_with(' ')) line.pop_back();
        return line + '\n';
    }

    const ReportTable& table;
    std::vector<std::size_t> widths;
};

}  // namespace

std::string Heading(const ReportColumn& column) {
    return column.unit.empty() ? column.title : column.title + " (" + column.unit + ")";
}

std::string MarkWord(const ReportRow& row) {
    if (!row.remark.empty()) return row.remark;
    switch (row.mark) {
        case RowMark::kBest:
            return "best";
        case RowMark::kChosen:
            return "yours";
        case RowMark::kBad:
            return "not valid";
        case RowMark::kNone:
            break;
    }
    return {};
}

ReportTable PartOf(const ReportTable& table, std::span<const std::size_t> rows,
                   std::span<const std::size_t> columns) {
    ReportTable part{.title = table.title, .head = table.head, .warning = table.warning};
    for (const std::size_t column : columns) {
        if (column < table.columns.size()) part.columns.push_back(table.columns[column]);
    }
    for (const std::size_t at : rows) {
        if (at >= table.rows.size()) continue;
        const ReportRow& whole = table.rows[at];
        ReportRow row{.id = whole.id, .mark = whole.mark, .remark = whole.remark};
        for (const std::size_t column : columns) {
            if (column >= table.columns.size()) continue;
            row.cells.push_back(column < whole.cells.size() ? whole.cells[column] : ReportCell{});
        }
        part.rows.push_back(std::move(row));
    }
    return part;
}

std::string Csv(const ReportTable& plain) {
    const ReportTable table = WithMarks(plain);
    std::string text = CsvLine({CsvText(table.title)});
    for (const ReportFact& fact : table.head) {
        text += CsvLine({CsvText(fact.label), CsvText(fact.value)});
    }
    if (!table.warning.empty()) text += CsvLine({CsvText(table.warning)});
    std::vector<std::string> cells;
    for (const ReportColumn& column : table.columns) cells.push_back(CsvText(Heading(column)));
    text += '\n' + CsvLine(cells);
    for (const ReportRow& row : table.rows) {
        cells.clear();
        for (const ReportCell& cell : row.cells) cells.push_back(ForSpreadsheet(cell));
        text += CsvLine(cells);
    }
    return text;
}

std::string Html(const ReportTable& plain) {
    const ReportTable table = WithMarks(plain);
    std::string html = "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>" +
                       Escaped(table.title) +
                       "</title>\n<style>td, th { white-space: nowrap; }</style>\n</head>\n"
                       "<body text=\"#000000\" bgcolor=\"#ffffff\">\n<h2>" +
                       Escaped(table.title) + "</h2>\n";
    if (!table.head.empty()) {
        html += "<p>";
        for (const ReportFact& fact : table.head) {
            html += (&fact == &table.head.front() ? "" : "<br>\n") + Escaped(fact.label) + ": " +
                    Escaped(fact.value);
        }
        html += "</p>\n";
    }
    if (!table.warning.empty()) html += "<p><b>" + Escaped(table.warning) + "</b></p>\n";
    html += HtmlElement(table, [](const ReportCell& cell) { return cell.text; });
    return html + "</body>\n</html>\n";
}

std::string PlainText(const ReportTable& plain) {
    const ReportTable table = WithMarks(plain);
    std::string text = OneLine(table.title) + '\n';
    for (const ReportFact& fact : table.head) {
        text += OneLine(fact.label) + ": " + OneLine(fact.value) + '\n';
    }
    if (!table.warning.empty()) text += OneLine(table.warning) + '\n';
    const Lines lines(table);
    text += '\n' + lines.Headings();
    for (const ReportRow& row : table.rows) text += lines.Row(row);
    return text;
}

std::string TabSeparated(const ReportTable& table) {
    std::string text;
    const auto add = [&text](const std::string& cell, std::size_t column) {
        text += (column > 0 ? "\t" : "") + OneLine(cell);
    };
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        add(CsvText(Heading(table.columns[i])), i);
    }
    text += '\n';
    for (const ReportRow& row : table.rows) {
        for (std::size_t i = 0; i < row.cells.size(); ++i) add(ForSpreadsheet(row.cells[i]), i);
        text += '\n';
    }
    return text;
}

std::string HtmlTable(const ReportTable& table) { return HtmlElement(table, ForSpreadsheet); }
