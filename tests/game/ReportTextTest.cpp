// Reports as text for files, printers and other programs.
#include "game/reports/ReportText.h"

#include <gtest/gtest.h>

#include <array>

namespace {

// Names that a file can hold, and what a spreadsheet would make formulas of.
ReportTable Awkward() {
    return {
        .title = "Games",
        .head = {{"Game", "Jacks, \"Better\""}, {"Note", "=1+1"}},
        .warning = "<old>",
        .columns = {{.title = "Name"},
                    {.title = "Return", .unit = "%", .number = true},
                    {.title = "Text", .number = false}},
        .rows = {{.id = 7,
                  .cells = {{.text = "=SUM(A1)"},
                            {.text = "1,099.50", .value = 1099.5},
                            {.text = "a\nb\tc"}},
                  .mark = RowMark::kBest},
                 {.id = 8,
                  .cells = {{.text = "é&<b>"}, {.text = "−2.25", .value = -2.25}, {.text = "-"}},
                  .mark = RowMark::kNone}}};
}

TEST(ReportTextTest, ASpreadsheetKeepsNumbersNumbersAndTextsTexts) {
    EXPECT_EQ(Csv(Awkward()),
              "Games\nGame,\"Jacks, \"\"Better\"\"\"\nNote,'=1+1\n<old>\n\n"
              "Name,Return (%),Text,Mark\n"
              "'=SUM(A1),1099.50,\"a\nb\tc\",best\n"
              "é&<b>,-2.25,-,\n");
    EXPECT_EQ(TabSeparated(Awkward()),
              "Name\tReturn (%)\tText\n'=SUM(A1)\t1099.50\ta b c\né&<b>\t-2.25\t-\n");
}

TEST(ReportTextTest, APageShowsEveryCharacterAsItIs) {
    const std::string html = Html(Awkward());
    for (const char* part :
         {"<meta charset=\"utf-8\">", "Game: Jacks, &quot;Better&quot;", "<b>&lt;old&gt;</b>",
          "<td>=SUM(A1)</td><td align=\"right\">1,099.50</td><td>a<br>b\tc</td><td>best</td>",
          "<td>é&amp;&lt;b&gt;</td>", "<th align=\"right\">Return (%)</th>"}) {
        EXPECT_NE(html.find(part), std::string::npos) << part << " in\n" << html;
    }
    EXPECT_NE(HtmlTable(Awkward()).find("<td>'=SUM(A1)</td><td align=\"right\">1099.50</td>"),
              std::string::npos);
}

TEST(ReportTextTest, ColumnsOfPlainTextStandInLine) {
    EXPECT_EQ(PlainText(Awkward()),
              "Games\nGame: Jacks, \"Better\"\nNote: =1+1\n<old>\n\n"
              "Name      Return (%)  Text   Mark\n"
              "=SUM(A1)    1,099.50  a b c  best\n"
              "é&<b>          −2.25  -\n");
    const ReportTable none{.title = "Nothing", .columns = {{.title = "A"}}};
    EXPECT_EQ(PlainText(none), "Nothing\n\nA\n");
    EXPECT_EQ(Csv(none), "Nothing\n\nA\n");
}

TEST(ReportTextTest, APartHasTheRowsAndColumnsInTheOrderAskedFor) {
    const ReportTable part =
        PartOf(Awkward(), std::array<std::size_t, 3>{1, 0, 9}, std::array<std::size_t, 2>{1, 0});
    EXPECT_EQ(TabSeparated(part), "Return (%)\tName\n-2.25\té&<b>\n1099.50\t'=SUM(A1)\n");
    EXPECT_EQ(part.head.size(), 2U);
    EXPECT_EQ(MarkWord(part.rows[1]), "best");
}

}  // namespace
