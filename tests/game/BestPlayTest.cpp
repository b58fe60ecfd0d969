#include "game/BestPlay.h"

#include <gtest/gtest.h>

#include "core/analysis/ErrorLog.h"
#include "tests/game/TestMachine.h"

namespace {

// Remembers what it was told, and gives one answer.
class Told {
  public:
    explicit Told(bool answer) : answer(answer) {}

    bool operator()(const std::string& message) {
        messages.push_back(message);
        return answer;
    }

    bool answer;
    std::vector<std::string> messages;
};

TEST(BestPlayTest, TheBestHoldIsCountedWithoutAWord) {
    TestMachine machine;
    Told player(true);
    machine.Stack("JS JD TC 9H 2S", 5);
    machine.DealOrDraw();
    machine.Hold(machine.engine.analysis.best);
    EXPECT_TRUE(CheckBestPlay(machine.engine, machine.files, std::ref(player), true));
    EXPECT_TRUE(player.messages.empty());
    EXPECT_EQ(machine.engine.statistics.bestReturns.total, machine.engine.analysis.bestReturn);
    EXPECT_EQ(machine.engine.statistics.playErrors, Counter{});
}

TEST(BestPlayTest, AnErrorIsSaidEveryTimeAndLoggedOnce) {
    TestMachine machine;
    GameEngine& engine = machine.engine;
    Told player(false);
    engine.settings.coin = 0.25;
    machine.Stack("JS JD TC 9H 2S", 5);
    machine.DealOrDraw();
    machine.Hold(0b10000);
    EXPECT_FALSE(CheckBestPlay(engine, machine.files, std::ref(player), true));
    EXPECT_FALSE(CheckBestPlay(engine, machine.files, std::ref(player), false));
    ASSERT_EQ(player.messages.size(), 2U);
    EXPECT_EQ(player.messages[0].substr(0, 53),
              "JJ___ is the best play for this hand. Continue?\r\n\r\nBe");
    EXPECT_EQ(engine.statistics.playErrors.total, 1);
    EXPECT_EQ(engine.statistics.nextError, 1);
    const double cost = engine.analysis.bestReturn - engine.analysis.holds[16].expectedReturn;
    EXPECT_DOUBLE_EQ(engine.statistics.errorCosts.session, cost);
    const auto entry =
        ParseEntry(ReadErrorText(machine.file, machine.files.gamePath, StatsSection(engine), 0));
    EXPECT_EQ(entry.hand, engine.hand);
    EXPECT_EQ(entry.player, 0b10000);
    EXPECT_NE(machine.folder.Read("game.qdx").find("PlayErrors=1"), std::string::npos)
        << "on the disk at once";
}

TEST(BestPlayTest, APracticedErrorIsSaidButNotLogged) {
    TestMachine machine;
    GameEngine& engine = machine.engine;
    Told player(true);
    machine.Stack("JS JD TC 9H 2S", 5);
    machine.DealOrDraw();
    engine.settings.mode = PlayMode::kErrorLog;
    machine.Hold(0);
    EXPECT_TRUE(CheckBestPlay(engine, machine.files, std::ref(player), true));
    EXPECT_EQ(player.messages.size(), 1U);
    EXPECT_EQ(engine.statistics.playErrors, Counter{});
    EXPECT_EQ(engine.statistics.bestReturns, DollarSum{});
}

TEST(BestPlayTest, DrawingAgainIsJudgedByTheLineOfTheFirstDraw) {
    TestMachine machine("Dbl Draw Bonus", 318);
    GameEngine& engine = machine.engine;
    machine.Stack("AS AH TC 9H 2S 3C 4C 5D", 8);
    machine.DealOrDraw();
    machine.Hold(0b11000);
    machine.DealOrDraw();
    const int again = engine.analysis.drawAgain[0b11000].drawAgainLine;
    ASSERT_EQ(engine.finalLine, again) << "the pair of aces alone";
    Told yes(true);
    Told no(false);
    EXPECT_TRUE(CheckDrawAgain(engine, std::ref(yes), true));
    EXPECT_TRUE(yes.messages.empty());
    EXPECT_FALSE(CheckDrawAgain(engine, std::ref(yes), false)) << "holds all the same";
    EXPECT_TRUE(CheckDrawAgain(engine, std::ref(no), false)) << "thinks better of it";
    EXPECT_EQ(no.messages.back(), "The best play is to draw again. Do you still wish to hold?");
    engine.finalLine = again - 1;
    EXPECT_FALSE(CheckDrawAgain(engine, std::ref(no), true));
    EXPECT_EQ(no.messages.back(), "The best play is to hold. Do you still wish to draw again?");
    EXPECT_TRUE(CheckDrawAgain(engine, std::ref(yes), true));
    EXPECT_FALSE(CheckDrawAgain(engine, std::ref(yes), false));
}

}  // namespace
