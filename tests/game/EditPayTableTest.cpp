#include "game/paytables/EditPayTable.h"

#include <gtest/gtest.h>

#include "tests/game/ManagerTable.h"

namespace {

struct EditPayTableTest : testing::Test, ManagerTable {
    EditPayTableTest() {
        ports.atManager = [this](PayTableEditor& editor) {
            opened = (editor.IsEnabled({FormField::kName}) ? "new " : "") +
                     TableSection(editor.gameName, editor.TableIndex());
            if (script) script(editor);
            return done;
        };
    }

    std::function<void(PayTableEditor&)> script;  // in the manager
    bool done = true;                             // false: cancelled, and what was saved stays
    std::string opened;                           // "My Game(1)", "new " before it for a new game
};

TEST_F(EditPayTableTest, TheChosenGameIsOpenedAtItsActiveTable) {
    MakeMyGame(2);
    WriteActiveTable(machine.files.Game(), "My Game", 1);
    answers = {"cancel", "My Game"};
    EditPayTable(seat, paths);
    EXPECT_EQ(opened, "");
    EditPayTable(seat, paths);
    EXPECT_EQ(opened, "My Game(1)");
    EditCurrentPayTable(seat, paths);
    EXPECT_EQ(opened, "Jacks or Better(0)");
}

TEST_F(EditPayTableTest, ChangedPaysArePaidInTheSameSession) {
    engine.statistics.handsPlayed.session = 5;
    engine.payTable.lines[3].totalWins = engine.payTable.lines[3].sessionWins = 2;
    script = [&](PayTableEditor& editor) {
        editor.texts.lines[3].payout = "8";
        editor.MakeActive(player.Saying({"no"}));
        EXPECT_EQ(InMain("Jacks or Better(0)", "Payout3"), "9");
        editor.MakeActive(player.Saying({"yes"}));
        editor.MakeActive(player);  // changes nothing and asks nothing
    };
    done = false;
    EditCurrentPayTable(seat, paths);
    EXPECT_EQ(engine.payTable.lines[3].payout, 8);
    EXPECT_EQ(engine.payTable.lines[3].sessionWins, 2);
    EXPECT_EQ(engine.payTable.lines[3].totalWins, 2);
    EXPECT_EQ(engine.statistics.handsPlayed.session, 5);
    EXPECT_EQ(log.back(), "relayout");
}

TEST_F(EditPayTableTest, ATableOfAnotherGameMadeActiveIsPlayed) {
    MakeMyGame(2);
    answers = {"My Game"};
    script = [&](PayTableEditor& editor) {
        editor.GoToNextTable(player);
        editor.MakeActive(player);
        editor.Rename(player.Saying({"Your Game"}));
    };
    EditPayTable(seat, paths);
    EXPECT_EQ(StatsSection(engine), "Your Game(1)");
    script = [&](PayTableEditor& editor) {
        editor.GoToPreviousTable(player);
        editor.MakeActive(player);
    };
    EditCurrentPayTable(seat, paths);
    EXPECT_EQ(StatsSection(engine), "Your Game(0)");
}

TEST_F(EditPayTableTest, AUserGameWithoutATableIsMadeFirst) {
    done = false;
    script = [&](PayTableEditor& editor) {
        editor.LoadTemplate(player.Saying({"Deuces Wild"}));
        editor.gameName = "Mine";
        if (done) editor.Save(player);
    };
    ChooseUserGame(seat, 9004, paths);
    EXPECT_TRUE(log.empty()) << "not asked for";
    EXPECT_EQ(opened, "new User Game 4(0)");
    EXPECT_EQ(StatsSection(engine), "Jacks or Better(0)");
    done = true;
    ChooseUserGame(seat, 9004, paths);
    EXPECT_EQ(StatsSection(engine), "Mine(0)");
    EXPECT_TRUE(engine.payTable.usesWilds);
}

TEST_F(EditPayTableTest, ARenamedCurrentGameGoesOn) {
    MakeMyGame();
    ChooseUserGame(seat, 9001, paths);
    EXPECT_EQ(opened, "") << "it has a table";
    script = [&](PayTableEditor& editor) { editor.Rename(player.Saying({"Your Game"})); };
    EditCurrentPayTable(seat, paths);
    EXPECT_EQ(StatsSection(engine), "Your Game(0)");
}

}  // namespace
