// A game that is being made at the pay table manager: named, saved, given more tables, deleted.
#include <gtest/gtest.h>

#include "tests/game/ManagerTable.h"

namespace {

using Pays = std::vector<std::string>;

struct NewGameTest : testing::Test, ManagerTable {
    NewGameTest() {
        MakeMyGame(2);
        machine.file.WriteString("My Game(1)", "Payout0", "111", paths.mainProfile);
        twoTables = *Manager("My Game", 9001).ExportGame(player, TableFormat::kText);
    }

    // What the first line of each table along the chain pays.
    Pays PaysOf(const std::string& game) {
        Pays pays;
        for (const int index : TableChain(Files().main, game)) {
            pays.push_back(InMain(TableSection(game, index), "Payout0"));
        }
        return pays;
    }

    void TypeName(const char* name) {
        editor.gameName = name;
        editor.NoteTyped({FormField::kName});
    }
    void TypePay(const char* pay) {
        editor.texts.lines[0].payout = pay;
        editor.NoteTyped({FormField::kPayout, 0});
    }
    void SaveFirst() {
        TypeName("Mine");
        editor.LoadTemplate(player.Saying({"Jacks or Better"}));
        EXPECT_TRUE(editor.Save(player));
    }
    void ImportTwo() {
        TypeName("Mine");
        EXPECT_TRUE(editor.Import(player.Saying({"discard", "ok"}), twoTables));
        EXPECT_EQ(PaysOf("Mine"), (Pays{"250", "111"}));
    }

    std::string twoTables;  // with pays of 250 and 111
    PayTableEditor editor = Manager("User Game 2", 9002, 0, true);
};

TEST_F(NewGameTest, ANewGameIsNamedSavedAndSavedAgainAsOneGame) {
    EXPECT_TRUE(editor.IsEnabled({FormField::kName}));
    editor.LoadTemplate(player.Saying({"Bonus Poker"}));
    EXPECT_EQ(editor.gameName, "User Game 2");
    editor.gameName = "First";
    editor.Save(player);
    EXPECT_EQ(InMain("User Games", "2"), "9002,First");
    editor.gameName = "Second";
    editor.texts.lines[0].payout = "300";
    editor.Save(player);
    EXPECT_FALSE(Exists("First", 0));
    EXPECT_EQ(InMain("Second(0)", "Payout0"), "300");
    EXPECT_EQ(InMain("User Games", "2"), "9002,Second");
}

TEST_F(NewGameTest, ANewGameTakesNoNameOfAnother) {
    editor.texts = ReadPayTableTexts(Files().main, "My Game", 0);
    const std::pair<const char*, const char*> refusals[] = {
        {"", "Game name can not be blank"},
        {"deuces wild",
         "\"deuces wild\" already exists. A user-defined game can not have the same name as a "
         "pre-defined game."},
        {"my game", "\"my game\" already exists"},
        {"User Game 10", "\"User Game 10\" already exists"},
        {"a]", "Game name can not contain ] or = or line breaks, and can not begin with ["},
    };
    for (const auto& [name, refusal] : refusals) {
        editor.gameName = name;
        editor.Save(player);
        EXPECT_EQ(player.where, FieldPlace{FormField::kName});
        EXPECT_EQ(player.Take(), "Input Error: " + std::string(refusal));
    }
    editor.gameName = "User Game 2";
    EXPECT_TRUE(editor.Save(player)) << "its own";
}

TEST_F(NewGameTest, ImportedTablesStayInTheirChain) {
    ImportTwo();
    TypePay("77");
    EXPECT_FALSE(editor.Save(player.Saying({"cancel"})));
    EXPECT_TRUE(editor.MakeActive(player));
    EXPECT_EQ(PaysOf("Mine"), (Pays{"77", "111"}));
    editor.GoToNextTable(player);
    TypePay("88");
    EXPECT_TRUE(editor.Save(player.Saying({"yes"})));
    EXPECT_EQ(PaysOf("Mine"), (Pays{"77", "88"}));
    TypePay("99");
    EXPECT_TRUE(editor.MakeActive(player));
    EXPECT_EQ(editor.MadeActive()->tableIndex, 1);
    EXPECT_EQ(PaysOf("Mine"), (Pays{"77", "99"}));
    EXPECT_TRUE(editor.Add(player));
    EXPECT_EQ(PaysOf("Mine"), (Pays{"77", "99", "99"}));
}

TEST_F(NewGameTest, TablesAreImportedBehindTheOneThatWasSaved) {
    SaveFirst();
    TypeName("Ours");
    TypePay("77");
    EXPECT_TRUE(editor.Import(player.Saying({"save", "ok"}), twoTables));
    EXPECT_EQ(PaysOf("Ours"), (Pays{"77", "250", "111"}));
    EXPECT_FALSE(Exists("Mine", 0));
    TypePay("66");
    EXPECT_TRUE(editor.MakeActive(player));
    EXPECT_EQ(PaysOf("Ours"), (Pays{"77", "66", "111"}));
}

TEST_F(NewGameTest, ATableIsAddedUnderTheNameThatWasTypedLast) {
    SaveFirst();
    TypeName("Ours");
    TypePay("77");
    EXPECT_TRUE(editor.Add(player));
    EXPECT_EQ(PaysOf("Ours"), (Pays{"250", "77"}));
    EXPECT_EQ(InMain("User Games", "2"), "9002,Ours");
    EXPECT_FALSE(editor.IsEnabled({FormField::kName})) << "from now on with Rename Game";
    editor.Undo();
    EXPECT_EQ(editor.texts.lines[0].payout, "250") << "names are steps no more";
    while (editor.CanUndo()) editor.Undo();
    EXPECT_EQ(editor.gameName, "Ours") << "no step can name another game";
    EXPECT_EQ(editor.texts.lines[0].payout, "");
    editor.NoteChange();
    while (editor.CanRedo()) editor.Redo();
    EXPECT_EQ(editor.texts.lines[0].payout, "77");
    editor.LoadTemplate(player.Saying({"Jacks or Better"}));
    EXPECT_TRUE(editor.Save(player.Saying({"no"})));
    EXPECT_EQ(PaysOf("Ours"), (Pays{"250", "77", "250"}));
}

TEST_F(NewGameTest, ADeletedTableLeavesTheGameToItself) {
    ImportTwo();
    editor.GoToNextTable(player);
    editor.Delete(player.Saying({"ok"}));
    EXPECT_FALSE(editor.HasTable() || editor.IsEnabled({FormField::kName}));
    TypeName("Mine");
    editor.texts = ReadPayTableTexts(Files().main, "Deuces Wild", 0);
    EXPECT_FALSE(editor.Save(player) || editor.Add(player) || editor.MakeActive(player));
    EXPECT_EQ(PaysOf("Mine"), (Pays{"250"}));
}

TEST_F(NewGameTest, ADeletedGameIsBegunAgainAsItsFirstTable) {
    SaveFirst();
    editor.Delete(player.Saying({"ok"}));
    EXPECT_FALSE(Exists("Mine", 0));
    TypeName("Again");
    editor.texts = ReadPayTableTexts(Files().main, "Bonus Poker", 0);
    const auto text = editor.ExportTable(player, TableFormat::kText);
    EXPECT_TRUE(text->starts_with("[Again(0)]\n")) << *text;
    EXPECT_TRUE(editor.Save(player));
    EXPECT_EQ(PaysOf("Again"), (Pays{"250"}));
}

}  // namespace
