#include "game/PayTableEditor.h"

#include <gtest/gtest.h>

#include "tests/core/profile/FullDisk.h"
#include "tests/game/ManagerTable.h"

namespace {

using enum FormField;

struct PayTableEditorTest : testing::Test, ManagerTable {
    static bool On(const PayTableEditor& editor, FormField field, int line = 0) {
        return editor.IsEnabled({field, line});
    }
    // Of a game that has so many tables.
    PayTableEditor MyGame(int tables = 1, int index = 0) {
        MakeMyGame(tables);
        return Manager("My Game", 9001, index);
    }
};

TEST_F(PayTableEditorTest, OfABuiltInGameOnlyThePaysAndTheBetCanBeEdited) {
    const auto editor = Manager("Jacks or Better", 300);
    for (const FormField field :
         {kName, kOneEyedJacks, kFiveAces, kPickEm, kWilds, kJokers, kWildRanks, kMinPair, kRank,
          kDescription, kBonusQuads, kKickers, kWildsOK}) {
        EXPECT_FALSE(On(editor, field)) << static_cast<int>(field);
    }
    EXPECT_TRUE(On(editor, kMaxBet) && On(editor, kPayout, 8) && On(editor, kMaxPayout, 8));
    EXPECT_FALSE(On(editor, kPayout, 9) || On(editor, kMaxPayout, 9)) << "no such line";
    EXPECT_FALSE(editor.HasOwnTable());
    EXPECT_EQ(editor.texts.lines[3].description, "FULL HOUSE");
    EXPECT_EQ(editor.texts.minPair, "J");
}

TEST_F(PayTableEditorTest, OfAUserGameEverythingCanBeEdited) {
    auto editor = MyGame();
    for (const FormField field : {kOneEyedJacks, kFiveAces, kPickEm, kWilds, kMinPair, kMaxBet,
                                  kRank, kDescription, kPayout, kBonusQuads, kKickers}) {
        EXPECT_TRUE(On(editor, field, 14)) << static_cast<int>(field);
    }
    EXPECT_FALSE(On(editor, kName)) << "it is renamed by a command";
    EXPECT_FALSE(On(editor, kJokers) || On(editor, kWildRanks) || On(editor, kWildsOK, 14));
    EXPECT_TRUE(editor.HasOwnTable());
    CheckWilds(editor.texts, true);
    EXPECT_TRUE(On(editor, kJokers) && On(editor, kWildRanks) && On(editor, kWildsOK, 14));
}

TEST_F(PayTableEditorTest, ACheckedTypeLeavesOnlyItsOwnBox) {
    auto editor = MyGame();
    CheckType(editor.texts, GameType::kOneEyedJacks, true);
    EXPECT_TRUE(On(editor, kOneEyedJacks) && On(editor, kWildsOK, 3));
    EXPECT_FALSE(On(editor, kFiveAces) || On(editor, kPickEm) || On(editor, kWilds));
    EXPECT_FALSE(On(editor, kJokers) || On(editor, kWildRanks));
    CheckType(editor.texts, GameType::kOneEyedJacks, false);
    CheckType(editor.texts, GameType::kPickEm, true);
    EXPECT_TRUE(On(editor, kPickEm));
    EXPECT_FALSE(On(editor, kOneEyedJacks) || On(editor, kFiveAces) || On(editor, kWilds));
    CheckType(editor.texts, GameType::kDoubleDraw, true);  // has no box
    EXPECT_FALSE(On(editor, kPickEm));
}

TEST_F(PayTableEditorTest, ANewGameIsNamedSavedAndSavedAgainAsOneGame) {
    auto editor = Manager("User Game 1", 9001, 0, true);
    EXPECT_TRUE(On(editor, kName));
    editor.Save(player);
    EXPECT_EQ(player.Take(),
              "Input Error: The pay table is blank. You must enter at least one pay line.");
    editor.LoadTemplate(player.Saying({"Bonus Poker"}));
    EXPECT_EQ(editor.gameName, "User Game 1");
    editor.gameName = "First";
    editor.Save(player);
    EXPECT_TRUE(Exists("First", 0));
    EXPECT_EQ(InMain("First(0)", "NextIndex"), "-1");
    EXPECT_EQ(InMain("User Games", "1"), "9001,First");
    editor.gameName = "Second";
    editor.texts.lines[0].payout = "300";
    editor.Save(player);
    EXPECT_FALSE(Exists("First", 0));
    EXPECT_EQ(InMain("Second(0)", "Payout0"), "300");
    EXPECT_EQ(InMain("User Games", "1"), "9001,Second");
    EXPECT_EQ(player.Take(), "select of 31 at User Game 1");
}

TEST_F(PayTableEditorTest, ANewGameTakesNoNameOfAnother) {
    MakeMyGame();
    auto editor = Manager("User Game 2", 9002, 0, true);
    editor.texts = ReadPayTableTexts(Files(), "My Game", 0);
    const auto refusal = [&](const char* name) {
        editor.gameName = name;
        editor.Save(player);
        EXPECT_EQ(player.where, FieldPlace{kName});
        return player.Take();
    };
    EXPECT_EQ(refusal(""), "Input Error: Game name can not be blank");
    EXPECT_EQ(refusal("deuces wild"),
              "Input Error: \"deuces wild\" already exists. A user-defined game can not have the "
              "same name as a pre-defined game.");
    EXPECT_EQ(refusal("my game"), "Input Error: \"my game\" already exists");
    EXPECT_EQ(refusal("User Game 10"), "Input Error: \"User Game 10\" already exists");
    EXPECT_EQ(refusal("a]"),
              "Input Error: Game name can not contain ] or = or line breaks, and can not begin "
              "with [");
    EXPECT_EQ(refusal(" a"), "Input Error: Game name can not begin or end with a blank");
    EXPECT_EQ(UserGameName(Files(), 2), "User Game 2");
    EXPECT_EQ(refusal("User Game 2"), "") << "its own";
}

TEST_F(PayTableEditorTest, TheDefaultTableOfABuiltInGameIsNotOverwritten) {
    auto editor = Manager("Jacks or Better", 300);
    editor.texts.lines[0].payout = "1";
    editor.Save(player);
    EXPECT_EQ(player.Take(),
              "Error: You can not overwrite the default pay table for a pre-defined game");
    EXPECT_EQ(InMain("Jacks or Better(0)", "Payout0"), "250");
    editor.MakeActive(player);
    EXPECT_EQ(player.Take(), "");
    EXPECT_EQ(InMain("Jacks or Better(0)", "Payout0"), "1") << "but made active it is";
}

TEST_F(PayTableEditorTest, SavingOverwritesAppendsOrDoesNothing) {
    auto editor = MyGame(2, 1);
    editor.texts.lines[0].payout = "7";
    editor.Save(player.Saying({"cancel", "no", "yes"}));
    EXPECT_EQ(player.Take(),
              "Overwrite?: Do you wish to overwrite table 1? If NO, the current table will be "
              "added as a new index.");
    EXPECT_EQ(InMain("My Game(1)", "Payout0"), "250");
    editor.Save(player);
    EXPECT_EQ(editor.TableIndex(), 2);
    EXPECT_TRUE(editor.HasPreviousTable());
    EXPECT_FALSE(editor.HasNextTable());
    EXPECT_EQ(InMain("My Game(2)", "Payout0"), "7");
    editor.texts.lines[0].payout = "8";
    editor.Save(player);
    EXPECT_EQ(InMain("My Game(2)", "Payout0"), "8");
    EXPECT_EQ(InMain("My Game(1)", "Payout0"), "250");
    EXPECT_FALSE(Exists("My Game", 3));
}

TEST_F(PayTableEditorTest, OnlyAChangedTableLosesItsAnalysis) {
    MakeMyGame();
    const std::string section = TableSection("My Game", 0);
    machine.file.WriteString(section, "ER", "1.0", paths.analysisCache);
    auto editor = Manager("My Game", 9001);
    editor.Save(player.Saying({"yes", "yes"}));
    editor.texts.maxBet = "10";
    editor.texts.lines[3].description = "BOAT";
    editor.MakeActive(player);
    EXPECT_EQ(Stored(paths.analysisCache, section, "ER"), "1.0") << "of five coins, as before";
    editor.texts.lines[3].payout = "8";
    editor.Save(player);
    EXPECT_EQ(Stored(paths.analysisCache, section, "ER"), "(none)");
}

TEST_F(PayTableEditorTest, TablesOfABuiltInGameAreAddedAndSteppedThrough) {
    AppendTable(Files(), {300, "Jacks or Better"}, ReadPayTableTexts(Files(), "Bonus Poker", 0));
    auto editor = Manager("Jacks or Better", 300);
    EXPECT_FALSE(editor.HasPreviousTable());
    editor.GoToPreviousTable();
    EXPECT_EQ(editor.TableIndex(), 0);
    editor.GoToNextTable();
    EXPECT_EQ(editor.TableIndex(), 1);
    EXPECT_TRUE(On(editor, kPayout, 10)) << "lines of this table, not of the last one";
    editor.texts.lines[0].payout = "200";
    editor.Save(player.Saying({"yes"}));
    EXPECT_EQ(InMain("Jacks or Better(1)", "Payout0"), "200");
    EXPECT_EQ(InMain("User Games", "1"), "9001,User Game 1");
    editor.GoToNextTable();
    EXPECT_EQ(editor.TableIndex(), 1);
    editor.GoToPreviousTable();
    EXPECT_EQ(editor.texts, ReadPayTableTexts(Files(), "Jacks or Better", 0));
}

TEST_F(PayTableEditorTest, ClearingLeavesABuiltInGameItsLines) {
    MakeMyGame();
    auto builtIn = Manager("Jacks or Better", 300);
    const auto before = builtIn.texts;
    builtIn.Clear();
    EXPECT_EQ(builtIn.texts.lines[8].payout + builtIn.texts.lines[8].maxPayout, "");
    EXPECT_EQ(builtIn.texts.lines[8].description, before.lines[8].description);
    EXPECT_EQ(builtIn.texts.minPair, "J");
    EXPECT_TRUE(On(builtIn, kPayout, 8));
    auto mine = Manager("My Game", 9001);
    mine.texts.maxBet = "10";
    mine.texts.spinBonus = true;
    CheckType(mine.texts, GameType::kPickEm, true);
    mine.Clear();
    PayTableTexts cleared;
    cleared.spinBonus = true;
    EXPECT_EQ(mine.texts, cleared);
    EXPECT_EQ(mine.gameName, "My Game");
}

TEST_F(PayTableEditorTest, AnotherGameIsShownAtItsActiveTable) {
    MakeMyGame(3);
    WriteActiveTable(machine.file, machine.files.gamePath, "My Game", 2);
    auto editor = Manager("User Game 2", 9002, 0, true);
    editor.ChangeGame(player.Saying({"cancel", "My Game", "Deuces Wild"}));
    EXPECT_TRUE(On(editor, kName)) << "still the new game";
    editor.ChangeGame(player);
    EXPECT_EQ(editor.TableIndex(), 2);
    EXPECT_EQ(editor.GameId(), 9001);
    EXPECT_FALSE(On(editor, kName));
    editor.ChangeGame(player);
    EXPECT_EQ(editor.GameId(), 330);
    EXPECT_FALSE(editor.HasOwnTable());
    EXPECT_EQ(editor.texts.wildRanks, "2");
    EXPECT_FALSE(On(editor, kWildRanks));
}

TEST_F(PayTableEditorTest, ATemplateIsStoredUnderTheGamesOwnName) {
    auto editor = MyGame(2, 1);
    editor.LoadTemplate(player.Saying({"Deuces Wild", "yes"}));
    EXPECT_EQ(editor.TableIndex(), 0);
    EXPECT_TRUE(On(editor, kWildRanks) && editor.HasNextTable());
    editor.Save(player);
    EXPECT_EQ(InMain("My Game(0)", "WildCard"), "2");
    EXPECT_EQ(InMain("My Game(0)", "NextIndex"), "1");
}

// Three game files that use "My Game", one of them in use and on table 2.
struct ThreeGameFilesTest : PayTableEditorTest {
    ThreeGameFilesTest() {
        MakeMyGame(4);
        engine.settings.activeTable = 2;
        machine.Play("My Game", 9001);
        engine.statistics.handsPlayed.total = 77;
        const std::string statistics =
            "[My Game(0)]\nCreditsPlayed=10\n\n[My Game(3)]\nCreditsPlayed=13\nErr0=x\n\n";
        machine.folder.Write("a.qdx",
                             "[main]\nGameName=My Game\n[ActiveTbl]\nMy Game=3\n" + statistics);
        machine.folder.Write("b.QDX",
                             "[main]\nGameName=Bonus Poker\n[ActiveTbl]\nMy Game=2\n"
                             "Bonus Poker=0\n[Bonus Poker(0)]\nCreditsPlayed=5\n" +
                                 statistics);
        machine.folder.Write("c.txt", "[main]\nGameName=My Game\n");
    }
    // Nowhere in the data files.
    void ExpectMyGameIsGone() {
        machine.file.Flush();
        for (const char* name : {"Tolvane.ini", "game.qdx", "a.qdx", "b.QDX"}) {
            EXPECT_EQ(machine.folder.Read(name).find("My Game"), std::string::npos) << name;
        }
    }
    std::string In(const char* name, std::string_view section, std::string_view key) {
        return Stored(machine.folder.Path(name), section, key);
    }
};

TEST_F(ThreeGameFilesTest, ADeletedTableLeavesNoTraceInTheGameFiles) {
    auto editor = Manager("My Game", 9001, 2);
    editor.Delete(player.Saying({"cancel", "ok"}));
    EXPECT_TRUE(Exists("My Game", 2));
    EXPECT_EQ(player.Take(), "Confirm Delete: Are you sure you want to delete this pay table?");
    editor.Delete(player);
    EXPECT_EQ(TableChain(machine.file, "My Game", paths.mainProfile), (std::vector<int>{0, 1, 3}));
    EXPECT_EQ(engine.settings.gameName, "My Game");
    EXPECT_EQ(engine.settings.activeTable, 0);
    EXPECT_EQ(In("game.qdx", "ActiveTbl", "My Game"), "0");
    EXPECT_EQ(In("game.qdx", "My Game(2)", "HandsPlayed"), "(none)");
    EXPECT_EQ(In("a.qdx", "ActiveTbl", "My Game"), "3");
    EXPECT_EQ(In("b.QDX", "ActiveTbl", "My Game"), "0");
    EXPECT_EQ(In("b.QDX", "My Game(3)", "CreditsPlayed"), "13");
    EXPECT_EQ(editor.gameName, "");
    EXPECT_EQ(editor.TableIndex(), -1);
    EXPECT_EQ(editor.texts, PayTableTexts());
    EXPECT_FALSE(On(editor, kMaxBet) || On(editor, kPayout) || editor.HasOwnTable());
    EXPECT_FALSE(editor.Save(player)) << "nor anything else, until a game is chosen";
    editor.ChangeGame(player.Saying({"Jacks or Better"}));
    EXPECT_TRUE(On(editor, kMaxBet) && !editor.Problem());
}

TEST_F(ThreeGameFilesTest, ADeletedGameLeavesNoTraceAndJacksOrBetterIsPlayed) {
    auto editor = Manager("My Game", 9001, 0);
    editor.MakeActive(player.Saying({"ok"}));
    editor.Delete(player);
    EXPECT_EQ(player.Take(),
              "Confirm Delete: Deleting the default pay table will delete the entire game? "
              "Continue?");
    EXPECT_FALSE(editor.MadeActive());
    EXPECT_EQ(InMain("User Games", "1"), "9001,User Game 1");
    EXPECT_EQ(engine.settings.gameName, "Jacks or Better");
    EXPECT_EQ(engine.payTable.lines.size(), 9U);
    ExpectMyGameIsGone();
    EXPECT_EQ(In("a.qdx", "main", "GameName"), "Jacks or Better");
    EXPECT_EQ(In("b.QDX", "main", "GameName"), "Bonus Poker");
    EXPECT_EQ(In("b.QDX", "Bonus Poker(0)", "CreditsPlayed"), "5");
    EXPECT_EQ(machine.folder.Read("c.txt"), "[main]\nGameName=My Game\n") << "no game file";
}

TEST_F(ThreeGameFilesTest, ARenamedGameKeepsItsStatisticsInAllGameFiles) {
    auto editor = Manager("My Game", 9001, 1);
    editor.Rename(player.Saying({"", "Deuces Wild", "my game", "a]b", "Your Game"}));
    EXPECT_EQ(player.Take(),
              "rename My Game\nInput Error: Game name can not be blank\n"
              "rename My Game\nInput Error: \"Deuces Wild\" already exists\n"
              "rename My Game\nInput Error: \"my game\" already exists\n"
              "rename My Game\nInput Error: Game name can not contain ] or = or line breaks, and "
              "can not begin with [\nrename My Game");
    EXPECT_EQ(editor.gameName, "Your Game");
    EXPECT_EQ(InMain("User Games", "1"), "9001,Your Game");
    EXPECT_EQ(TableChain(machine.file, "Your Game", paths.mainProfile).size(), 4U);
    EXPECT_EQ(engine.settings.gameName, "Your Game");
    EXPECT_EQ(engine.settings.activeTable, 2);
    EXPECT_EQ(engine.statistics.handsPlayed.total, 77);
    ExpectMyGameIsGone();
    EXPECT_EQ(In("game.qdx", "Your Game(2)", "HandsPlayed"), "77");
    EXPECT_EQ(In("a.qdx", "main", "GameName"), "Your Game");
    EXPECT_EQ(In("a.qdx", "Your Game(3)", "Err0"), "x");
    EXPECT_EQ(In("b.QDX", "main", "GameName"), "Bonus Poker");
    EXPECT_EQ(In("b.QDX", "ActiveTbl", "Your Game"), "2");
    editor.Rename(player.Saying({"cancel"}));
    EXPECT_EQ(editor.gameName, "Your Game");
}

TEST_F(ThreeGameFilesTest, AGameFileElsewhereIsKeptWhileItIsInUse) {
    std::filesystem::create_directory(machine.folder.Path("else"));
    machine.files.gamePath = machine.folder.Path("else/mine.qdx");
    std::filesystem::rename(machine.folder.Path("game.qdx"), machine.files.gamePath);
    machine.file.Hold(machine.files.gamePath);
    auto editor = Manager("My Game", 9001, 0);
    editor.Rename(player.Saying({"Your Game"}));
    EXPECT_EQ(Stored(machine.files.gamePath, "Your Game(2)", "HandsPlayed"), "77");
}

TEST_F(PayTableEditorTest, MadeActiveFollowsRenamingAndDeleting) {
    auto editor = MyGame(2, 1);
    editor.texts.lines[0].payout = "0";
    editor.MakeActive(player);
    EXPECT_FALSE(editor.MadeActive()) << "not a valid table";
    editor.texts.lines[0].payout = "99";
    editor.MakeActive(player);
    EXPECT_EQ(InMain("My Game(1)", "Payout0"), "99");
    editor.Rename(player.Saying({"Your Game", "ok"}));
    EXPECT_EQ(editor.MadeActive()->gameName, "Your Game");
    EXPECT_EQ(editor.MadeActive()->tableIndex, 1);
    editor.Delete(player);
    EXPECT_EQ(editor.MadeActive()->tableIndex, 0);
    EXPECT_EQ(engine.settings.gameName, "Jacks or Better");
}

TEST_F(PayTableEditorTest, ARefusedTableIsNeitherDeletedNorRenamed) {
    auto editor = MyGame(2, 1);
    editor.texts.lines[2].description = "";
    editor.Delete(player);
    editor.Rename(player);
    EXPECT_EQ(player.Take(),
              "Input Error: Description can not be blank\nInput Error: Description can not be "
              "blank");
    EXPECT_EQ(player.where, (FieldPlace{kDescription, 2}));
    EXPECT_TRUE(Exists("My Game", 1));
}

TEST_F(ThreeGameFilesTest, OnAFullDiskThePlayerIsToldAndNothingIsLost) {
    machine.file.Flush();
    const std::string main = machine.folder.Read("Tolvane.ini");
    auto editor = Manager("My Game", 9001, 2);
    player.answers = {"no", "ok", "Your Game"};
    editor.texts.lines[0].description = "Changed";
    {
        const FullDisk full(8);
        editor.Save(player);
        editor.MakeActive(player);
        editor.Delete(player);
        editor.Rename(player);
    }
    EXPECT_EQ(std::ranges::count_if(
                  player.log, [](const auto& line) { return line.starts_with("Error: The pay"); }),
              4);
    EXPECT_FALSE(editor.MadeActive());
    EXPECT_EQ(editor.gameName, "My Game");
    EXPECT_EQ(engine.settings.gameName, "My Game");
    machine.file.Flush();
    EXPECT_EQ(machine.folder.Read("Tolvane.ini"), main);
}

}  // namespace
