// Pay tables that go out as a text or a spreadsheet and come back, and what is said of those that
// cannot be read.
#include <gtest/gtest.h>

#include "core/paytable/ShippedPayTables.h"
#include "game/paytables/TableCsv.h"
#include "game/paytables/TableTextFile.h"
#include "tests/Sanitized.h"
#include "tests/core/profile/FullDisk.h"
#include "tests/game/ManagerTable.h"
#include "tests/game/RandomTables.h"

namespace {

constexpr int kTables = kSanitized ? 100 : 1000;

std::vector<NamedTable> AsKept(std::vector<NamedTable> tables) {
    for (NamedTable& table : tables) table.texts = AsKept(table.texts);
    return tables;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    return text.replace(text.find(from), from.size(), to);
}

TEST(TableExchangeTest, AnImportedExportIsTheSameTable) {
    RandomTables random(20261123);
    for (int i = 0; i < kTables; ++i) {
        std::vector<NamedTable> tables;
        for (int index = random.Below(3); index >= 0; --index) {
            tables.push_back({i % 2 ? "My (new) Game" : "a, \"b\"; c", index, random.Table()});
        }
        const std::string text = TablesAsText(tables);
        const auto read = ReadTablesText(text);
        ASSERT_EQ(read.problem, "") << text;
        ASSERT_EQ(AsKept(read.tables), AsKept(tables)) << text;
        ASSERT_EQ(TablesAsText(read.tables), text);
        const std::string csv = TablesAsCsv(tables);
        const auto readCsv = ReadTablesCsv(csv);
        ASSERT_EQ(readCsv.problem, "") << csv;
        ASSERT_EQ(AsKept(readCsv.tables), AsKept(tables)) << csv;
    }
}

TEST(TableExchangeTest, AMailAndASpreadsheetMayChangeWhatTheyLike) {
    // Sections of the program's own file, as a mail of another system brings them.
    std::string mail = "\xEF\xBB\xBF";
    for (const char* section : {"Jacks or Better(0)", "Deuces Wild(0)"}) {
        mail += "[" + std::string(section) + "] \n\n" + *ShippedSection(section) + " \n";
    }
    for (auto at = mail.find('\n'); at != std::string::npos; at = mail.find('\n', at + 2)) {
        mail.insert(at, "\r");
    }
    const auto read = ReadTablesText(mail);
    ASSERT_EQ(read.problem, "");
    EXPECT_EQ(read.tables[1].gameName, "Deuces Wild");
    EXPECT_EQ(read.tables[1].texts.wildRanks, "2");
    // Columns in another order, a semicolon between them, numbers as a spreadsheet groups them.
    const auto sheet = ReadTablesCsv(
        "payout;max payout;hand rank;min pair\n\n\"1,000\";\"4,000\";Royal Flush;j;;\n3;15;3K;j\n");
    ASSERT_EQ(sheet.problem, "");
    const PayTableTexts& table = sheet.tables.front().texts;
    EXPECT_EQ(table.lines[0].payout, "1000");
    EXPECT_EQ(table.lines[1].description, "3 OF A KIND;3K");
    EXPECT_EQ(table.minPair, "J");
    EXPECT_EQ(LineCount(table), 2);
}

TEST(TableExchangeTest, WhatCannotBeReadIsSaidByLineAndWord) {
    const std::string good =
        "[G(0)]\nType=1\nMinPair=11\nRank0=11\nDescr0=PAIR\nPayout0=1\nMaxPayout0=5\nPayLines=1\n";
    const std::array<const char*, 3> faults[] = {
        {"Payout0=1", "Payot0=1", "Line 6: \"Payot0\" is no key of a pay table."},
        {"Payout0=1", "Hello", "Line 6: \"Hello\" has no \"=\"."},
        {"Payout0=1", "payOUT0=1\nPayout0=2", "Line 7: \"Payout0\" is there twice."},
        {"Payout0=1", "Payout0=ten",
         "Line 6: \"ten\" is not taken: Payout can not be blank and must be numeric"},
        {"MinPair=11", "MinPair=",
         "Line 3: \"\" is not taken: Minimum pair can not be blank if 1 Pair rank is selected"},
        {"Rank0=11", "Rank0=19", "Line 4: \"19\" is no whole number from 0 to 18."},
        {"Rank0=11\n", "", "Line 7: \"Rank0\" is missing: PayLines is 1."},
        {"PayLines=1", "", "Line 1: \"PayLines\" is missing."},
        {"PayLines=1", "PayLines=3\nRank2=5", "Line 8: \"Rank1\" is missing: PayLines is 3."},
        {"Descr0=PAIR\n", "", "Line 4: \"11\" has a fault: Description can not be blank"},
        {"Type=1", "Type=1\nUsesWilds=yes", "Line 3: \"yes\" is neither 0 nor 1."},
        {"[G(0)]", "Hi,\n[G(0)]", "Line 1: \"Hi,\" stands before the first pay table."},
        {"[G(0)]", "[G]", "Line 1: \"[G]\" is no pay table, such as [Jacks or Better(0)]."},
        {"[G(0)]", "[G(255)]", "Line 1: \"G(255)\" has no index from 0 to 254."},
        {"[G(0)]", "[ G(0)]",
         "Line 1: \" G(0)\" is not taken: Game name can not begin or end with a blank."},
        {"PAIR", "P\xFCR", "Line 5: \"P\xFCR\" is no text in UTF-8: save the file as such."},
        {"PayLines=1", "PayLines=0",
         "Line 1: \"G(0)\" has a fault: The pay table is blank. You must enter at least one pay "
         "line."},
    };
    ASSERT_EQ(ReadTablesText(good).problem, "");
    for (const auto& [from, to, problem] : faults) {
        const auto read = ReadTablesText(Replaced(good, from, to));
        EXPECT_EQ(read.problem, problem);
        EXPECT_TRUE(read.tables.empty());
    }
    EXPECT_EQ(ReadTablesText(good + good).problem, "Line 9: \"G(0)\" is there twice.");
    EXPECT_NE(ReadTablesText("\n").problem, "");
    const std::string longOne = Replaced(good, "PAIR", std::string(81, 'x'));
    EXPECT_NE(ReadTablesText(longOne).problem.find("...\" is longer than 80"), std::string::npos);

    const std::string csv = "Hand Rank,Payout,Max Payout,Min Pair,Wilds OK\r\n";
    const std::array<const char*, 2> rows[] = {
        {"FULL HUSE,1,5,,", "Line 2: \"FULL HUSE\" is no hand rank."},
        {"FLUSH,1,5,,maybe", "Line 2: \"maybe\" is neither yes nor no."},
        {"FLUSH,1,5,,,8", "Line 2: \"8\" is in no column."},
        {"FLUSH,1,5,J,\r\nSTRAIGHT,1,5,Q,",
         "Line 3: \"Pay Table(0)\" has other settings here than in its first row."},
        {"FLUSH,1,5,,\r\nSTRAIGHT,one,5,,",
         "Line 3: \"one\" is not taken: Payout can not be blank and must be numeric"},
        {"FLUSH,1,5\r\nSTRAIGHT,1",
         "Line 3: \"STRAIGHT\" has a fault: Max Payout can not be blank and must be numeric"},
        {"\"FLUSH,1,5", "Line 2: \"FLUSH,1,5\" begins with a quote that is not closed."},
    };
    for (const auto& [row, problem] : rows) EXPECT_EQ(ReadTablesCsv(csv + row).problem, problem);
    EXPECT_EQ(ReadTablesCsv("Payout,Pays\n").problem, "Line 1: \"Pays\" is no column.");
    std::string many = csv;
    for (int i = 0; i < 16; ++i) many += "FLUSH,1,5,,\r\n";
    EXPECT_EQ(ReadTablesCsv(many).problem, "Line 17: \"FLUSH\" is more than fifteen lines.");
}

struct TableImportTest : testing::Test, ManagerTable {};

TEST_F(TableImportTest, ASingleTableIsAChangeThatCanBeUndone) {
    auto source = Manager("Bonus Poker", 301);
    const auto text = source.ExportTable(player, TableFormat::kText);
    auto editor = Manager("User Game 1", 9001, 0, true);
    const auto before = editor.texts;
    EXPECT_EQ(editor.Import(player, *text), "The table is imported and not yet saved.");
    EXPECT_EQ(AsKept(editor.texts), AsKept(source.texts));
    EXPECT_EQ(editor.gameName, "User Game 1") << "the other name is taken";
    EXPECT_TRUE(editor.IsChanged());
    EXPECT_FALSE(editor.Import(player, Replaced(*text, "Rank0", "Rnk0")));
    EXPECT_EQ(player.Take(), "Input Error: Line 12: \"Rnk0\" is no key of a pay table.");
    editor.Undo();
    EXPECT_EQ(editor.texts, before);
    // A built-in game takes other pays and no other lines.
    auto builtIn = Manager("Jacks or Better", 300);
    EXPECT_FALSE(builtIn.Import(player, *text));
    EXPECT_TRUE(player.Take().starts_with("Input Error: The table has other lines or settings"));
    const auto csv = builtIn.ExportTable(player, TableFormat::kCsv);
    EXPECT_TRUE(builtIn.Import(player, Replaced(*csv, "FULL HOUSE,9,45", "FULL HOUSE,8,40")));
    EXPECT_EQ(builtIn.texts.lines[3].maxPayout, "40");
}

TEST_F(TableImportTest, AWholeGameIsAddedOrNothingOfIt) {
    MakeMyGame(3);
    UnlinkTable(Files(), "My Game", 1);
    auto source = Manager("My Game", 9001, 2);
    source.texts.lines[0].payout = "777";
    const auto game = source.ExportGame(player, TableFormat::kCsv);
    auto editor = Manager("User Game 2", 9002, 0, true);
    EXPECT_FALSE(editor.Import(player.Saying({"cancel"}), *game));
    EXPECT_EQ(player.Take(),
              "Import: The file has 2 pay tables. Do you wish to add them to User "
              "Game 2? No table of it is overwritten.");
    {
        const FullDisk disk(8);
        EXPECT_FALSE(editor.Import(player.Saying({"ok"}), *game));
    }
    EXPECT_FALSE(Exists("User Game 2", 0));
    editor.gameName = "Yours";
    editor.texts.minPair = "K";
    EXPECT_EQ(editor.Import(player.Saying({"discard", "ok"}), *game), "2 tables are saved.");
    EXPECT_EQ(InMain("User Games", "2"), "9002,Yours");
    EXPECT_EQ(TableChain({machine.file, paths.mainProfile}, "Yours"), (std::vector{0, 1}));
    EXPECT_EQ(InMain("Yours(1)", "Payout0"), "777") << "as it was shown";
    EXPECT_EQ(editor.TableIndex(), 0);
    EXPECT_FALSE(editor.IsChanged());
    // A game with tables keeps them.
    EXPECT_TRUE(editor.Import(player.Saying({"ok"}), *game));
    EXPECT_EQ(editor.TableIndex(), 2);
    EXPECT_EQ(InMain("Yours(3)", "PrevIndex"), "2");
    machine.file.WriteString("Yours(3)", "NextIndex", "253", paths.mainProfile);
    AppendTable(Files(), {9002, "Yours"}, source.texts);
    machine.file.WriteString("Yours(3)", "NextIndex", "253", paths.mainProfile);
    machine.file.RenameSection("Yours(4)", "Yours(253)", paths.mainProfile);
    EXPECT_FALSE(editor.Import(player.Saying({"ok"}), *game)) << "one index is left for two";
    EXPECT_FALSE(Exists("Yours", 254));
}

}  // namespace
