#include "core/text/Csv.h"

#include <gtest/gtest.h>

namespace {

using Cells = std::vector<std::string>;

TEST(CsvTest, WhatIsWrittenIsReadBack) {
    const Cells rows[] = {{"", "a"},
                          {" b", "c ", "d, e", "f;g", "h\ti"},
                          {"\"quoted\"", "\"", "x\"y", "two\r\nlines"},
                          {""},
                          {"last"}};
    std::string text;
    for (const Cells& row : rows) text += CsvRow(row) + "\r\n";
    CsvReader reader(text, CsvSeparator(text));
    int line = 1;
    for (const Cells& row : rows) {
        const auto read = reader.Next();
        ASSERT_TRUE(read);
        EXPECT_EQ(read->cells, row);
        EXPECT_EQ(read->line, line);
        line += row.back() == "two\r\nlines" ? 2 : 1;
    }
    EXPECT_FALSE(reader.Next());
    EXPECT_EQ(CsvRow(rows[2]), "\"\"\"quoted\"\"\",\"\"\"\",\"x\"\"y\",\"two\r\nlines\"");
}

TEST(CsvTest, QuotesThatAreNotAroundACellBelongToIt) {
    const std::string text = "\"Big\" one\tb\"\"c\t\"d\"\r\n\"e\tf";
    CsvReader reader(text, CsvSeparator(text));
    EXPECT_EQ(reader.Next()->cells, (Cells{"\"Big\" one", "b\"\"c", "d"}));
    const auto open = reader.Next();
    EXPECT_TRUE(open->quoteOpen);
    EXPECT_EQ(open->cells, (Cells{"e\tf"}));
}

}  // namespace
