// A report's table as text: to be saved, printed and pasted into other programs.
#pragma once
#include <cstddef>
#include <span>
#include <string>

#include "game/reports/ReportTable.h"

// "Return ($)"; the title alone where there is no unit.
std::string Heading(const ReportColumn& column);

// What the row is marked as, in words: its remark, otherwise "best", "yours", "not valid"; empty
// for a row without a mark.
std::string MarkWord(const ReportRow& row);

// Some of the rows and columns in the order given, with the title, the head and the warning. What
// is not in the table is left out.
ReportTable PartOf(const ReportTable& table, std::span<const std::size_t> rows,
                   std::span<const std::size_t> columns);

// A whole report: its title and head, the warning, the headings and the rows. Where rows are
// marked, a last column "Mark" says as what. Lines end in "\n".
//
// In Csv no commas part the digits of numbers, and a text that a spreadsheet would take for a
// formula begins with a '. Html is a page of its own; PlainText lines its columns up with blanks
// for a face of fixed width.
std::string Csv(const ReportTable& table);
std::string Html(const ReportTable& table);
std::string PlainText(const ReportTable& table);

// The headings and the rows alone, for the clipboard, numbers and texts as in Csv. Tabs and line
// breaks inside a cell become blanks in TabSeparated; HtmlTable is the table element.
std::string TabSeparated(const ReportTable& table);
std::string HtmlTable(const ReportTable& table);
