#include "game/paytables/PayTableEditor.h"

#include <gtest/gtest.h>

#include <set>

#include "game/paytables/PayTableLines.h"
#include "tests/core/profile/FullDisk.h"
#include "tests/game/ManagerTable.h"
#include "tests/game/RandomTables.h"

namespace {

using enum FormField;

struct PayTableEditorTest : testing::Test, ManagerTable {
    using Fields = std::set<FormField>;
    static bool On(const PayTableEditor& editor, FormField field, int line = 0) {
        return editor.IsEnabled({field, line});
    }
    static Fields EnabledFields(const PayTableEditor& editor, int line) {
        Fields fields;
        for (auto field = kName; field <= kWildsOK;
             field = static_cast<FormField>(static_cast<int>(field) + 1)) {
            if (On(editor, field, line)) fields.insert(field);
        }
        return fields;
    }
    // Of a game that has so many tables.
    PayTableEditor MyGame(int tables = 1, int index = 0) {
        MakeMyGame(tables);
        return Manager("My Game", 9001, index);
    }
};

TEST_F(PayTableEditorTest, OfABuiltInGameOnlyThePaysAndTheBetCanBeEdited) {
    auto editor = Manager("Bonus Poker", 301);
    EXPECT_EQ(EnabledFields(editor, 2), (Fields{kMaxBet, kPayout, kMaxPayout}));
    EXPECT_EQ(EnabledFields(editor, 11), (Fields{kMaxBet})) << "no such line";
    editor.texts.lines[0].kickers = "x";  // from a file edited by hand, which could not be saved
    EXPECT_EQ(EnabledFields(editor, 0), (Fields{kMaxBet, kPayout, kMaxPayout, kKickers}));
    AppendTable(Files(), {301, "Bonus Poker"},
                ReadPayTableTexts(Files().main, "Jacks or Better", 0));
    editor.GoToNextTable(player.Saying({"discard"}));
    EXPECT_EQ(editor.TableIndex(), 1);
    EXPECT_EQ(EnabledFields(editor, 10), (Fields{kMaxBet})) << "of this table, not of the last one";
}

TEST_F(PayTableEditorTest, OfAUserGameEverythingCanBeEditedThatItsLineTakes) {
    auto editor = MyGame();
    Fields line{kOneEyedJacks, kFiveAces, kPickEm,      kWilds,  kMinPair,
                kMaxBet,       kRank,     kDescription, kPayout, kMaxPayout};
    EXPECT_EQ(EnabledFields(editor, 14), line) << "the name by a command alone";
    editor.texts.lines[14].bonusQuads = "A, 2 ";
    editor.texts.lines[14].kickers = "2,x";
    line.insert(kKickers);
    EXPECT_EQ(EnabledFields(editor, 14), line) << "what cannot be read can be got at";
    ChooseRank(editor.texts.lines[14], HandRank::kFourOfAKind);
    line.insert(kBonusQuads);
    EXPECT_EQ(EnabledFields(editor, 14), line);
    CheckWilds(editor.texts, true);
    line.insert({kJokers, kWildRanks, kWildsOK});
    EXPECT_EQ(EnabledFields(editor, 14), line);
    const std::pair<GameType, Fields> types[] = {
        {GameType::kOneEyedJacks, {kOneEyedJacks, kWildsOK}},
        {GameType::kPickEm, {kPickEm}},
        {GameType::kDoubleDraw, {}}};  // it has no box
    for (auto [type, boxes] : types) {
        CheckType(editor.texts, type, true);
        boxes.insert({kMinPair, kMaxBet, kRank, kDescription, kPayout, kMaxPayout});
        EXPECT_EQ(EnabledFields(editor, 3), boxes) << "only its own box is left";
    }
}

TEST_F(PayTableEditorTest, SavingOverwritesAppendsOrDoesNothing) {
    auto editor = MyGame(2, 1);
    editor.texts.lines[0].payout = " 7,000";
    editor.texts.lines[3].kickers = "2 , k ";  // of a full house, which has none
    editor.Save(player.Saying({"cancel", "no", "yes"}));
    EXPECT_EQ(InMain("My Game(1)", "Payout0"), "250");
    editor.Save(player);
    EXPECT_EQ(editor.TableIndex(), 2);
    EXPECT_EQ(InMain("My Game(2)", "Trailer3"), "2,13");
    EXPECT_EQ(editor.texts.lines[0].payout, "7000");
    editor.texts.maxBet = "1,000";
    editor.Save(player);
    EXPECT_EQ(InMain("My Game(2)", "MaxBet"), "1000");
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

TEST_F(PayTableEditorTest, TwoHundredRandomEditsAreUndoneAndDoneAgain) {
    auto editor = MyGame(2, 1);
    const auto start = editor.texts;
    RandomTables random(200);
    std::vector<PayTableTexts> steps{start};
    while (steps.size() <= 200) {
        switch (random.Below(20)) {
            case 0:
                editor.Clear();
                break;
            case 1:
                editor.LoadTemplate(player.Saying({"Deuces Wild"}));
                break;
            case 2:
                editor.texts.lines[3].payout += "1";
                editor.NoteTyped({kPayout, 3});
                editor.texts.lines[3].payout += "2";  // one step with it
                editor.NoteTyped({kPayout, 3});
                editor.NoteChange();
                break;
            default:
                random.Edit(editor.texts);
                editor.NoteChange();
        }
        if (editor.texts != steps.back()) steps.push_back(editor.texts);
    }
    const auto last = editor.texts;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        ASSERT_EQ(editor.texts, *step);
        editor.Undo();
        if (!editor.CanUndo()) break;
    }
    EXPECT_EQ(editor.texts, start);
    EXPECT_EQ(editor.TableIndex(), 1) << "the template had made it 0";
    EXPECT_FALSE(editor.IsChanged());
    const std::string before = machine.folder.Read("Tolvane.ini");
    editor.Save(player.Saying({"yes"}));
    EXPECT_EQ(machine.folder.Read("Tolvane.ini"), before) << "byte for byte";
    while (editor.CanRedo()) editor.Redo();
    EXPECT_EQ(editor.texts, last);
    editor.Undo();
    const auto branch = editor.texts;
    editor.texts.maxBet = "77";
    editor.NoteChange();
    EXPECT_FALSE(editor.CanRedo());
    editor.Undo();
    EXPECT_EQ(editor.texts, branch) << "what was undone is forgotten";
}

TEST_F(PayTableEditorTest, ChangesAreAskedAboutAndARefusalKeepsThem) {
    auto editor = MyGame(2, 1);
    const auto leaves = [&](std::deque<std::string> answers) {
        return editor.MayLeave(player.Saying(std::move(answers)));
    };
    editor.texts.lines[0].payout = " 250 ";  // as it is stored
    EXPECT_TRUE(leaves({}));
    editor.texts.lines[0].payout = "25x";
    EXPECT_FALSE(leaves({"cancel"}));
    EXPECT_EQ(player.Take(), "Pay Table Manager: Save the changes to this table?");
    EXPECT_FALSE(leaves({"save"})) << "it is refused";
    EXPECT_FALSE((editor.ChangeGame(player.Saying({"save"})), editor.gameName != "My Game"));
    editor.texts.lines[0].payout = "25";
    EXPECT_FALSE(leaves({"save", "cancel"})) << "not to be overwritten";
    EXPECT_TRUE(leaves({"save", "yes"}));
    EXPECT_EQ(InMain("My Game(1)", "Payout0"), "25");
    EXPECT_TRUE(leaves({}));
    // Saved as a new table, at the end of the chain, the changes do not lead astray.
    editor.GoToPreviousTable(player);
    editor.texts.lines[0].payout = "26";
    editor.GoToNextTable(player.Saying({"save", "no"}));
    EXPECT_EQ(editor.TableIndex(), 1);
    EXPECT_EQ(InMain("My Game(2)", "Payout0"), "26");
    // What stands below the end of the table would be lost.
    editor.texts.lines[12].payout = "9";
    EXPECT_FALSE(leaves({"cancel"}));
    EXPECT_TRUE(leaves({"discard"}));
    auto fresh = Manager("User Game 2", 9002, 0, true);
    EXPECT_TRUE(fresh.MayLeave(player.Saying({})));
    fresh.gameName = "Mine";
    EXPECT_FALSE(fresh.MayLeave(player.Saying({"cancel"})));
}

TEST_F(PayTableEditorTest, ASteppedSaveIsUndoneInTheTableThatItHasBecome) {
    auto editor = MyGame(2, 1);
    editor.texts.lines[0].payout = "7";
    editor.NoteChange();
    editor.Add(player);
    EXPECT_FALSE(editor.IsChanged());
    editor.Undo();
    EXPECT_EQ(editor.texts.lines[0].payout, "250");
    EXPECT_EQ(editor.TableIndex(), 2);
    EXPECT_TRUE(editor.IsChanged());
    editor.GoToPreviousTable(player.Saying({"discard"}));
    EXPECT_FALSE(editor.CanUndo() || editor.CanRedo()) << "another table";
}

TEST_F(PayTableEditorTest, TablesOfABuiltInGameAreAddedDeletedAndRestored) {
    const std::string shipped = machine.folder.Read("Tolvane.ini");
    const std::string section = TableSection("Jacks or Better", 0);
    machine.file.WriteString(section, "ER", "1.0", paths.analysisCache);
    auto editor = Manager("Jacks or Better", 300);
    EXPECT_FALSE(editor.HasDeletableTable());
    editor.texts.lines[3].payout = "1";
    editor.texts.lines[3].maxPayout = "5";
    editor.MakeActive(player.Saying({"yes"}));
    editor.Add(player);
    EXPECT_TRUE(editor.HasDeletableTable() && !editor.HasShippedTable());
    editor.GoToPreviousTable(player);
    EXPECT_FALSE(editor.Restore(player.Saying({"cancel"})));
    EXPECT_TRUE(editor.Restore(player.Saying({"ok"})));
    EXPECT_EQ(editor.texts.lines[3].maxPayout, "45");
    EXPECT_EQ(InMain(section, "NextIndex"), "1") << "the other table stays in the chain";
    EXPECT_EQ(Stored(paths.analysisCache, section, "ER"), "(none)");
    editor.GoToNextTable(player);
    editor.Delete(player.Saying({"ok"}));
    EXPECT_TRUE(player.Take().ends_with("Are you sure you want to delete this pay table?"));
    EXPECT_EQ(machine.folder.Read("Tolvane.ini"), shipped) << "byte for byte";
}

TEST_F(PayTableEditorTest, ATableOfTheLastIndexCanBeGoneToAndNoneBehindIt) {
    machine.file.WriteString("Jacks or Better(0)", "PrevIndex", "3", paths.mainProfile);
    for (const int last : {254, 255}) {
        machine.file.WriteString("Jacks or Better(0)", "NextIndex", std::to_string(last),
                                 paths.mainProfile);
        auto editor = Manager("Jacks or Better", 300);
        EXPECT_EQ(editor.HasNextTable(), last == 254);
        editor.GoToPreviousTable(player);  // none, whatever stands in the file
        editor.GoToNextTable(player);
        EXPECT_EQ(editor.TableIndex(), last == 254 ? 254 : 0);
    }
}

TEST_F(PayTableEditorTest, ClearingLeavesABuiltInGameItsLines) {
    MakeMyGame();
    auto builtIn = Manager("Jacks or Better", 300);
    const auto before = builtIn.texts;
    builtIn.Clear();
    EXPECT_EQ(builtIn.texts.lines[8].payout + builtIn.texts.lines[8].maxPayout, "");
    EXPECT_EQ(builtIn.texts.lines[8].description, before.lines[8].description);
    auto mine = Manager("My Game", 9001);
    mine.texts.maxBet = "10";
    mine.texts.spinBonus = true;
    CheckType(mine.texts, GameType::kPickEm, true);
    mine.Clear();
    PayTableTexts cleared;
    cleared.spinBonus = true;
    EXPECT_EQ(mine.texts, cleared);
}

TEST_F(PayTableEditorTest, AnotherGameIsShownAtItsActiveTable) {
    MakeMyGame(3);
    WriteActiveTable(machine.files.Game(), "My Game", 2);
    auto editor = Manager("User Game 2", 9002, 0, true);
    editor.ChangeGame(player.Saying({"cancel", "My Game", "Bonus Poker", "yes", "Deuces Wild"}));
    EXPECT_TRUE(On(editor, kName)) << "still the new game";
    editor.ChangeGame(player);
    EXPECT_EQ(editor.TableIndex(), 2);
    EXPECT_FALSE(On(editor, kName));
    editor.LoadTemplate(player);  // into the first table, under the game's own name
    editor.Save(player);
    EXPECT_EQ(InMain("My Game(0)", "Payout2"), "80");
    EXPECT_EQ(InMain("My Game(0)", "NextIndex"), "1");
    editor.ChangeGame(player);
    EXPECT_EQ(editor.texts.wildRanks, "2");
    EXPECT_FALSE(On(editor, kWildRanks));
}

// Three game files that use "My Game", one of them in use and on table 2.
struct ThreeGameFilesTest : PayTableEditorTest {
    ThreeGameFilesTest() {
        MakeMyGame(4);
        engine.settings.activeTable = 2;
        machine.Play("My Game", 9001);
        engine.statistics.handsPlayed.total = 77;
        const std::string statistics =
            "[My Game(0)]\nCreditsPlayed=10\n\n[My Game(3)]\nCreditsPlayed=13\nErr0=x\n\n"
            "[Error Dates My Game(3)]\nError0=y\n\n";
        machine.folder.Write("a.qdx",
                             "[main]\nGameName=My Game\n[ActiveTbl]\nMy Game=3\n" + statistics);
        machine.folder.Write("b.QDX",
                             "[main]\nGameName=Bonus Poker\n[ActiveTbl]\nMy Game=2\n" + statistics);
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
    editor.Delete(player);
    EXPECT_EQ(TableChain({machine.file, paths.mainProfile}, "My Game"),
              (std::vector<int>{0, 1, 3}));
    EXPECT_EQ(engine.settings.activeTable, 0);
    EXPECT_EQ(In("game.qdx", "My Game(2)", "HandsPlayed"), "(none)");
    EXPECT_EQ(In("a.qdx", "ActiveTbl", "My Game"), "3");
    EXPECT_EQ(In("b.QDX", "ActiveTbl", "My Game"), "0");
    EXPECT_EQ(In("b.QDX", "My Game(3)", "CreditsPlayed"), "13");
    EXPECT_FALSE(editor.Save(player) || editor.HasTable());
}

TEST_F(ThreeGameFilesTest, ADeletedGameLeavesNoTraceAndJacksOrBetterIsPlayed) {
    auto editor = Manager("My Game", 9001, 0);
    editor.MakeActive(player.Saying({"ok"}));
    editor.Delete(player);
    EXPECT_FALSE(editor.MadeActive());
    EXPECT_EQ(engine.settings.gameName, "Jacks or Better");
    ExpectMyGameIsGone();
    EXPECT_EQ(In("a.qdx", "main", "GameName"), "Jacks or Better");
    EXPECT_EQ(In("b.QDX", "main", "GameName"), "Bonus Poker");
    EXPECT_EQ(machine.folder.Read("c.txt"), "[main]\nGameName=My Game\n") << "no game file";
}

TEST_F(ThreeGameFilesTest, ARenamedGameKeepsItsStatisticsInAllGameFiles) {
    auto editor = Manager("My Game", 9001, 1);
    editor.Rename(player.Saying({"", "Deuces Wild", "my game", "a]b", "Your Game"}));
    EXPECT_EQ(player.log.front(), "rename My Game");
    EXPECT_EQ(player.log[8], "rename My Game, typed a]b") << "what is refused can be mended";
    EXPECT_EQ(player.log[3], "Input Error: \"Deuces Wild\" already exists");
    EXPECT_EQ(TableChain({machine.file, paths.mainProfile}, "Your Game").size(), 4U);
    EXPECT_EQ(StatsSection(engine), "Your Game(2)");
    ExpectMyGameIsGone();
    EXPECT_EQ(In("game.qdx", "Your Game(2)", "HandsPlayed"), "77");
    EXPECT_EQ(In("a.qdx", "main", "GameName"), "Your Game");
    EXPECT_EQ(In("a.qdx", "Your Game(3)", "Err0"), "x");
    EXPECT_EQ(In("a.qdx", "Error Dates Your Game(3)", "Error0"), "y");
    EXPECT_EQ(In("b.QDX", "ActiveTbl", "Your Game"), "2");
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
    editor.Delete(player);
    EXPECT_FALSE(editor.MadeActive()) << "not a valid table";
    EXPECT_TRUE(Exists("My Game", 1));
    editor.texts.lines[0].payout = "99";
    editor.MakeActive(player);
    editor.Rename(player.Saying({"Your Game", "ok"}));
    EXPECT_EQ(editor.MadeActive()->gameName, "Your Game");
    EXPECT_EQ(editor.MadeActive()->tableIndex, 1);
    editor.Delete(player);
    EXPECT_EQ(editor.MadeActive()->tableIndex, 0);
}

TEST_F(ThreeGameFilesTest, OnAFullDiskThePlayerIsToldAndNothingChanges) {
    machine.file.Flush();
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
    EXPECT_EQ(StatsSection(engine), "My Game(2)");
}

}  // namespace
