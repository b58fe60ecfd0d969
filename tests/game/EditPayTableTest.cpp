#include "game/EditPayTable.h"

#include <gtest/gtest.h>

#include "tests/game/ManagerTable.h"

namespace {

// Does in the manager what the test says.
class ScriptedManager : public PayTableManager {
  public:
    std::optional<std::string> selection;
    std::function<bool(PayTableEditor&)> script = [](PayTableEditor&) { return true; };
    std::string opened;  // "My Game(1)", "new " before it for a new game

    std::optional<std::string> SelectsGame(const std::vector<std::string>& games,
                                           const std::string& current) override {
        EXPECT_NE(std::ranges::find(games, current), games.end());
        return selection;
    }
    bool Edits(PayTableEditor& editor) override {
        opened =
            (editor.IsNewGame() ? "new " : "") + TableSection(editor.gameName, editor.TableIndex());
        return script(editor);
    }
};

TEST(EditPayTableTest, TheChosenGameIsOpenedAtItsActiveTable) {
    ManagerTable t;
    ScriptedManager manager;
    t.MakeMyGame(2);
    WriteActiveTable(t.machine.file, t.machine.files.gamePath, "My Game", 1);
    EditPayTable(t, t.paths, manager);
    EXPECT_EQ(manager.opened, "");
    EXPECT_TRUE(t.log.empty()) << "cancelled";
    manager.selection = "My Game";
    EditPayTable(t, t.paths, manager);
    EXPECT_EQ(manager.opened, "My Game(1)");
    EXPECT_EQ(t.engine.settings.gameName, "Jacks or Better");
    EditCurrentPayTable(t, t.paths, manager);
    EXPECT_EQ(manager.opened, "Jacks or Better(0)");
}

TEST(EditPayTableTest, ChangedPaysArePaidInTheSameSession) {
    ManagerTable t;
    ScriptedManager manager;
    ManagerRecorder player;
    t.engine.statistics.handsPlayed.session = 5;
    manager.script = [&](PayTableEditor& editor) {
        editor.texts.lines[3].payout = "8";
        editor.MakeActive(player);
        return false;  // cancelled: what was saved stays
    };
    EditCurrentPayTable(t, t.paths, manager);
    EXPECT_EQ(t.engine.payTable.lines[3].payout, 8);
    EXPECT_EQ(t.engine.statistics.handsPlayed.session, 5);
    EXPECT_EQ(t.log.back(), "relayout");
}

TEST(EditPayTableTest, AnotherActiveTableIsPlayed) {
    ManagerTable t;
    ScriptedManager manager;
    ManagerRecorder player;
    manager.script = [&](PayTableEditor& editor) {
        player.answers = {"no"};
        editor.GoToNextTable();
        editor.MakeActive(player);
        return true;
    };
    AppendTable(t.Files(), {300, "Jacks or Better"},
                ReadPayTableTexts(t.Files(), "Bonus Poker", 0));
    EditCurrentPayTable(t, t.paths, manager);
    EXPECT_EQ(t.engine.settings.activeTable, 1);
    EXPECT_EQ(t.engine.payTable.lines.size(), 11U);
    EXPECT_EQ(ActiveTable(t.machine.file, t.machine.files.gamePath, t.paths.mainProfile,
                          "Jacks or Better"),
              1);
}

TEST(EditPayTableTest, ATableOfAnotherGameMadeActiveIsPlayed) {
    ManagerTable t;
    ScriptedManager manager;
    ManagerRecorder player;
    t.MakeMyGame(2);
    manager.selection = "My Game";
    manager.script = [&](PayTableEditor& editor) {
        editor.GoToNextTable();
        editor.MakeActive(player);
        player.answers = {"Your Game"};
        editor.Rename(player);
        return true;
    };
    EditPayTable(t, t.paths, manager);
    EXPECT_EQ(StatsSection(t.engine), "Your Game(1)");
    EXPECT_EQ(t.engine.settings.gameId, 9001);
}

TEST(EditPayTableTest, ARenamedCurrentGameGoesOn) {
    ManagerTable t;
    ScriptedManager manager;
    ManagerRecorder player;
    t.MakeMyGame(1);
    ChooseUserGame(t, 9001, t.paths, manager);
    EXPECT_EQ(manager.opened, "") << "it has a table";
    manager.script = [&](PayTableEditor& editor) {
        player.answers = {"Your Game"};
        editor.Rename(player);
        return true;
    };
    EditCurrentPayTable(t, t.paths, manager);
    EXPECT_EQ(StatsSection(t.engine), "Your Game(0)");
    EXPECT_EQ(t.Stored(t.machine.files.gamePath, "main", "GameName"), "Your Game");
}

TEST(EditPayTableTest, AUserGameWithoutATableIsMadeFirst) {
    ManagerTable t;
    ScriptedManager manager;
    ManagerRecorder player;
    bool done = false;
    manager.script = [&](PayTableEditor& editor) {
        player.answers = {"Deuces Wild"};
        editor.LoadTemplate(player);
        editor.gameName = "Mine";
        if (done) editor.Save(player);
        return done;
    };
    ChooseUserGame(t, 9004, t.paths, manager);
    EXPECT_EQ(manager.opened, "new User Game 4(0)");
    EXPECT_EQ(StatsSection(t.engine), "Jacks or Better(0)");
    done = true;
    ChooseUserGame(t, 9004, t.paths, manager);
    EXPECT_EQ(StatsSection(t.engine), "Mine(0)");
    EXPECT_EQ(t.engine.settings.gameId, 9004);
    EXPECT_TRUE(t.engine.payTable.usesWilds);
    manager.opened = "";
    ChooseUserGame(t, 9004, t.paths, manager);
    EXPECT_EQ(manager.opened, "");
}

TEST(EditPayTableTest, ADeletedCurrentGameGivesJacksOrBetter) {
    ManagerTable t;
    ScriptedManager manager;
    ManagerRecorder player;
    t.MakeMyGame(2);
    ChooseUserGame(t, 9001, t.paths, manager);
    manager.script = [&](PayTableEditor& editor) {
        player.answers = {"ok"};
        editor.Delete(player);
        return true;
    };
    EditCurrentPayTable(t, t.paths, manager);
    EXPECT_EQ(StatsSection(t.engine), "Jacks or Better(0)");
    t.machine.file.Flush();
    EXPECT_EQ(t.machine.folder.Read("game.qdx").find("My Game"), std::string::npos);
}

}  // namespace
