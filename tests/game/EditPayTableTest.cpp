#include "game/EditPayTable.h"

#include <gtest/gtest.h>

#include "tests/game/ManagerTable.h"

namespace {

// Does in the manager what the test says.
class ScriptedManager : public PayTableManager {
  public:
    std::optional<std::string> selection;
    std::function<void(PayTableEditor&)> script = [](PayTableEditor&) {};
    bool done = true;    // false: cancelled, and what was saved stays
    std::string opened;  // "My Game(1)", "new " before it for a new game

    std::optional<std::string> SelectsGame(const std::vector<std::string>& games,
                                           const std::string& current) override {
        EXPECT_NE(std::ranges::find(games, current), games.end());
        return selection;
    }
    bool Edits(PayTableEditor& editor) override {
        opened = (editor.IsEnabled({FormField::kName}) ? "new " : "") +
                 TableSection(editor.gameName, editor.TableIndex());
        script(editor);
        return done;
    }
};

struct EditPayTableTest : testing::Test, ManagerTable {
    ScriptedManager manager;
};

TEST_F(EditPayTableTest, TheChosenGameIsOpenedAtItsActiveTable) {
    MakeMyGame(2);
    WriteActiveTable(machine.file, machine.files.gamePath, "My Game", 1);
    EditPayTable(table, paths, manager);
    EXPECT_EQ(manager.opened, "");
    EXPECT_TRUE(log.empty()) << "cancelled";
    manager.selection = "My Game";
    EditPayTable(table, paths, manager);
    EXPECT_EQ(manager.opened, "My Game(1)");
    EXPECT_EQ(engine.settings.gameName, "Jacks or Better");
    EditCurrentPayTable(table, paths, manager);
    EXPECT_EQ(manager.opened, "Jacks or Better(0)");
}

TEST_F(EditPayTableTest, ChangedPaysArePaidInTheSameSession) {
    engine.statistics.handsPlayed.session = 5;
    manager.script = [&](PayTableEditor& editor) {
        editor.texts.lines[3].payout = "8";
        editor.MakeActive(player);
    };
    manager.done = false;
    EditCurrentPayTable(table, paths, manager);
    EXPECT_EQ(engine.payTable.lines[3].payout, 8);
    EXPECT_EQ(engine.statistics.handsPlayed.session, 5);
    EXPECT_EQ(log.back(), "relayout");
}

TEST_F(EditPayTableTest, ATableOfAnotherGameMadeActiveIsPlayed) {
    MakeMyGame(2);
    manager.selection = "My Game";
    manager.script = [&](PayTableEditor& editor) {
        editor.GoToNextTable();
        editor.MakeActive(player);
        editor.Rename(player.Saying({"Your Game"}));
    };
    EditPayTable(table, paths, manager);
    EXPECT_EQ(StatsSection(engine), "Your Game(1)");
    EXPECT_EQ(engine.settings.gameId, 9001);
}

TEST_F(EditPayTableTest, AUserGameWithoutATableIsMadeFirst) {
    manager.done = false;
    manager.script = [&](PayTableEditor& editor) {
        editor.LoadTemplate(player.Saying({"Deuces Wild"}));
        editor.gameName = "Mine";
        if (manager.done) editor.Save(player);
    };
    ChooseUserGame(table, 9004, paths, manager);
    EXPECT_EQ(manager.opened, "new User Game 4(0)");
    EXPECT_EQ(StatsSection(engine), "Jacks or Better(0)");
    manager.done = true;
    ChooseUserGame(table, 9004, paths, manager);
    EXPECT_EQ(StatsSection(engine), "Mine(0)");
    EXPECT_EQ(engine.settings.gameId, 9004);
    EXPECT_TRUE(engine.payTable.usesWilds);
    manager.opened = "";
    ChooseUserGame(table, 9004, paths, manager);
    EXPECT_EQ(manager.opened, "");
}

TEST_F(EditPayTableTest, ARenamedCurrentGameGoesOn) {
    MakeMyGame();
    ChooseUserGame(table, 9001, paths, manager);
    EXPECT_EQ(manager.opened, "") << "it has a table";
    manager.script = [&](PayTableEditor& editor) { editor.Rename(player.Saying({"Your Game"})); };
    EditCurrentPayTable(table, paths, manager);
    EXPECT_EQ(StatsSection(engine), "Your Game(0)");
    EXPECT_EQ(Stored(machine.files.gamePath, "main", "GameName"), "Your Game");
}

}  // namespace
