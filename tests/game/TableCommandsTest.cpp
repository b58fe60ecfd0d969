#include "game/TableCommands.h"

#include <gtest/gtest.h>

#include "core/analysis/ErrorLog.h"
#include "game/DoubleUp.h"
#include "game/GameSelection.h"
#include "game/HandFlow.h"
#include "game/SaveGame.h"
#include "game/SpareEngine.h"
#include "tests/game/FakePorts.h"

namespace {

// A table after a hand that won 50 dollars, which are offered for a double up.
struct WonTable : TestTable {
    WonTable() {
        engine.settings.speed = Speed::kFast;
        machine.Stack("JS JH JC 9H 9S", 5);
        DealDraw(table);
        machine.Hold(kStandPat);
        DealDraw(table);
        TakeLog();
    }
};

std::string Stored(TestTable& t, std::string_view section, std::string_view key) {
    return t.machine.file.GetString(section, key, "(none)", 80, t.machine.files.gamePath);
}

TEST(TableCommandsTest, CashOutPaysAndTheWinCannotBeRiskedAnyMore) {
    WonTable t;
    ASSERT_TRUE(t.engine.doubleUpOffered);
    t.engine.settings.sounds = false;
    CashOutCommand(t);
    EXPECT_EQ(t.TakeLog(), "double up button gone\nbeep\ncredits $0.00\nmessage Paid $140.00\n");
    StartDoubleUp(t);
    EXPECT_FALSE(t.engine.doubleUpPick);
}

TEST(TableCommandsTest, WhatIsAtStakeIsCollectedBeforeItIsPaidOrCountedInAnotherCoin) {
    for (const bool cashOut : {true, false}) {
        WonTable t;
        StartDoubleUp(t);
        ASSERT_TRUE(t.engine.doubleUpPick);
        t.engine.bonusStake = 90;  // won once
        if (cashOut) {
            CashOutCommand(t);
            EXPECT_EQ(t.log.back(), "message Paid $185.00");
        } else {
            ChooseCoin(t, 0.05);
            EXPECT_EQ(t.engine.settings.credits, 185 * 20);
        }
        EXPECT_FALSE(t.engine.doubleUpPick || t.engine.doubleUpOffered);
        EXPECT_EQ(t.machine.HandText(), "JS JH JC 9H 9S ");
    }
}

TEST(TableCommandsTest, AnotherCoinChangesPictureAndMeters) {
    TestTable t;
    ChooseCoin(t, 1);
    EXPECT_EQ(t.TakeLog(), "") << "in use already";
    ChooseCoin(t, 0.25);
    EXPECT_EQ(t.TakeLog(), "coin 0.25\nbet $1.25\ncredits $100.00\n");
    EXPECT_EQ(t.engine.settings.credits, 400);
    EXPECT_EQ(Stored(t, "main", "Coin"), "0.25");
}

TEST(TableCommandsTest, CreditsAsCashRewritesTheMessageOnlyForItsAmount) {
    TestTable fresh;
    ToggleShowDollar(fresh);
    EXPECT_EQ(fresh.TakeLog(), "bet 5\ncredits 100\n") << "PRESS DEAL stays";
    WonTable won;
    ToggleShowDollar(won);
    EXPECT_EQ(won.TakeLog(), "bet 5\nmessage WON 45\ncredits 140\n");
}

TEST(TableCommandsTest, APlayModeEndsWhatIsPlayedButErrorLogWaits) {
    WonTable t;
    StartDoubleUp(t);
    ChooseMode(t, PlayMode::kErrorLog);
    EXPECT_FALSE(t.engine.doubleUpPick);
    EXPECT_TRUE(t.engine.fixedHand);
    EXPECT_EQ(t.log.back(), "repaint") << "of the double up's end";
    t.TakeLog();
    t.engine.handInProgress = true;
    ChooseMode(t, PlayMode::kCasino);
    EXPECT_EQ(t.TakeLog(), "message GAME OVER\nrepaint\n");
    EXPECT_FALSE(t.engine.fixedHand || t.engine.handInProgress);
}

TEST(TableCommandsTest, FixedHandIsDealtAtOnceAndSwitchedOff) {
    TestTable t;
    t.engine.settings.speed = Speed::kFast;
    t.answers = {"cancel", "AS KS QS JS TS"};
    ToggleFixedHand(t);
    EXPECT_FALSE(t.engine.fixedHand);
    ToggleFixedHand(t);
    EXPECT_TRUE(t.engine.fixedHand);
    EXPECT_EQ(t.machine.HandText(), "AS KS QS JS TS ");
    ToggleFixedHand(t);
    EXPECT_FALSE(t.engine.fixedHand);
    EXPECT_TRUE(t.engine.handOver) << "or the draw would be paid";
    EXPECT_EQ(t.engine.settings.credits, 100);
}

TEST(TableCommandsTest, ABetTakesTheMarkOfTheLastLineAway) {
    WonTable t;
    BetOneCommand(t);
    EXPECT_EQ(t.TakeLog(), "line 3 plain 45\nbet $1.00\n");
    BetMaxCommand(t);
    EXPECT_EQ(t.TakeLog(), "bet $5.00\n");
    DealDraw(t);
    t.TakeLog();
    BetOneCommand(t);
    BetMaxCommand(t);
    EXPECT_EQ(t.TakeLog(), "") << "not while a hand is in play";
    EXPECT_EQ(t.engine.settings.bet, 5);
}

TEST(TableCommandsTest, TheLogIsClearedWithItsCounts) {
    TestTable t;
    Statistics& statistics = t.engine.statistics;
    const std::string section = "Jacks or Better(0)";
    EXPECT_TRUE(TellIfErrorLogIsEmpty(t));
    EXPECT_EQ(t.TakeLog(), "told Empty Error Log: No errors in log\n");
    AppendError(t.machine.file, t.machine.files.gamePath, section, {}, statistics.nextError);
    statistics.playErrors.Add(1);
    statistics.errorCosts.Add(2.5);
    statistics.handsPlayed.Add(7);
    t.engine.replayIndex = 1;
    EXPECT_FALSE(TellIfErrorLogIsEmpty(t));

    ResetStatisticsOnly(t);
    EXPECT_EQ(statistics.handsPlayed, Counter{});
    EXPECT_EQ(Stored(t, section, "HandsPlayed"), "0");
    EXPECT_NE(Stored(t, section, "Error0"), "") << "the entries stay";
    statistics.playErrors.Add(1);
    statistics.handsPlayed.Add(7);
    ClearErrorLogCommand(t);
    EXPECT_EQ(Stored(t, section, "Error0"), "");
    EXPECT_EQ(Stored(t, section, "ErrCost"), "0.00");
    EXPECT_EQ(statistics.playErrors, Counter{});
    EXPECT_EQ(statistics.handsPlayed.total, 7);
    EXPECT_EQ(t.engine.replayIndex, 0);
    EXPECT_EQ(t.TakeLog(), "");
}

TEST(GameSelectionTest, AnotherGameKeepsTheMoneyAndBothGamesTheirStatistics) {
    TestTable t;
    t.engine.settings.coin = 0.25;
    t.engine.settings.bet = 3;
    SaveGame(t, true);
    t.engine.statistics.handsPlayed.Add(7);
    t.engine.replayIndex = 4;
    t.ports.now += 3600;
    EXPECT_EQ(ChooseGame(t, 330), GameChoice::kChosen);
    EXPECT_EQ(t.TakeLog(), "message GAME OVER\nrelayout\n");
    EXPECT_EQ(t.engine.settings.gameName, "Deuces Wild");
    EXPECT_TRUE(t.engine.payTable.usesWilds);
    EXPECT_EQ(t.engine.settings.credits, 100);
    EXPECT_EQ(t.engine.settings.bet, 3);
    EXPECT_EQ(t.engine.statistics.handsPlayed, Counter{});
    EXPECT_EQ(t.engine.replayIndex, 0);
    EXPECT_EQ(Stored(t, "main", "GameID"), "330");
    EXPECT_EQ(Stored(t, "Jacks or Better(0)", "HandsPlayed"), "7");
    EXPECT_EQ(Stored(t, "Jacks or Better(0)", "ElapsedTime"), "1.00");
    EXPECT_EQ(Stored(t, "Deuces Wild(0)", "HandsPlayed"), "0");
    ChooseGame(t, 300);
    EXPECT_EQ(t.engine.statistics.handsPlayed.total, 7);
    EXPECT_EQ(t.engine.statistics.elapsedBase, 1);
}

TEST(GameSelectionTest, AFeatureIsSettledBeforeItsGameIsLeft) {
    WonTable t;
    StartDoubleUp(t);
    t.engine.bonusStake = 90;
    ChooseGame(t, 350);
    EXPECT_EQ(t.engine.settings.credits, 185);
    EXPECT_FALSE(FeaturePending(t.engine));
    EXPECT_EQ(Stored(t, "Jacks or Better(0)", "DblUpCredits"), "45");
    EXPECT_EQ(t.engine.statistics.doubleUpCredits.total, 0);
}

TEST(GameSelectionTest, GamesThatAreNotThereChangeNothing) {
    TestTable t;
    t.machine.files.mainPath =
        t.machine.folder.Write("own.ini",
                               "[User Games]\n2=9002,Empty\n7=9007,Practice\n"
                               "[Practice(0)]\nPayLines=1\nRank0=11\nPayout0=1\nMaxPayout0=5\n");
    const std::string before = t.machine.folder.Read("game.qdx");
    for (const int id : {0, -5, 399, 9001, 9011})
        EXPECT_EQ(ChooseGame(t, id), GameChoice::kUnknown);
    EXPECT_EQ(t.TakeLog(), "");
    EXPECT_EQ(ChooseGame(t, 9002), GameChoice::kNoPayTable);
    EXPECT_EQ(t.TakeLog().substr(0, 24), "told Missing pay table: ");
    EXPECT_EQ(t.machine.folder.Read("game.qdx"), before);
    EXPECT_EQ(t.engine.settings.gameName, "Jacks or Better");
    EXPECT_EQ(ChooseGame(t, 9007), GameChoice::kChosen);
    EXPECT_EQ(t.engine.settings.gameName, "Practice");
    EXPECT_EQ(t.engine.payTable.lines.size(), 1U);
}

TEST(GameSelectionTest, AChangedPayTableIsPlayedOnWithTheSameCounts) {
    WonTable t;
    const std::string table = "[Jacks or Better(0)]\nPayLines=9\nRank3=6\nPayout3=11\n";
    t.machine.files.mainPath = t.machine.folder.Write("own.ini", table);
    ReloadPayTable(t);
    EXPECT_EQ(t.engine.payTable.lines[3].payout, 11);
    EXPECT_EQ(t.engine.payTable.lines[3].sessionWins, 1);
    EXPECT_EQ(t.engine.payTable.lines[3].totalWins, 1);
    EXPECT_EQ(t.engine.statistics.handsPlayed.session, 1);
    EXPECT_EQ(t.log.back(), "relayout");
}

TEST(SpareEngineTest, AutoplayLeavesThePlayersMachineAndFileAlone) {
    TestTable t;
    SaveGame(t, false);
    t.engine.settings.credits = 99;
    const MachineSettings settings = t.engine.settings;
    const Statistics statistics = t.engine.statistics;
    const Deck& deck = t.engine.deck;
    const auto order = deck.order;
    const std::string before = t.machine.folder.Read("game.qdx");
    GameEngine spare;
    t.answers = {"cancel", "-3", "200"};
    RunAutoplay(t, spare);
    EXPECT_EQ(t.TakeLog(), "ask hands\n");
    RunAutoplay(t, spare);
    EXPECT_EQ(t.TakeLog(), "ask hands\nstatistics Jacks or Better, 0 hands\n");
    RunAutoplay(t, spare);
    const std::string log = t.TakeLog();
    EXPECT_NE(log.find("progress Hands played...0%\nprogress Hands played...1% (1)\n"),
              std::string::npos);
    EXPECT_NE(log.find("99% (99)\nstatistics Jacks or Better, 200 hands\n"), std::string::npos);
    EXPECT_EQ(spare.settings.mode, PlayMode::kAutoHold);
    EXPECT_NE(spare.deck.order, order);

    EXPECT_TRUE(t.machine.file.Flush());
    EXPECT_EQ(t.machine.folder.Read("game.qdx"), before);
    EXPECT_EQ(t.engine.settings.credits, settings.credits);
    EXPECT_EQ(t.engine.statistics, statistics);
    EXPECT_EQ(deck.order, order);
}

TEST(SpareEngineTest, AutoplayIsCancelledEvenWhereThePercentStandStill) {
    TestTable t;
    GameEngine spare;
    t.answers = {"1000000"};
    t.ports.progressSteps = 1;
    RunAutoplay(t, spare);
    EXPECT_EQ(t.log.back(), "statistics Jacks or Better, 512 hands");
}

TEST(SpareEngineTest, AReportSeesTheSettingsAndStatisticsLastSaved) {
    TestTable t("Deuces Wild", 330);
    t.engine.settings.bet = 3;
    t.engine.statistics.handsPlayed.Add(7);
    SaveGame(t, false);
    GameEngine spare;
    LoadSpare(t, spare);
    EXPECT_EQ(spare.settings.gameName, "Deuces Wild");
    EXPECT_EQ(spare.settings.bet, 3);
    EXPECT_EQ(spare.statistics.handsPlayed.total, 7);
    EXPECT_EQ(spare.payTable, t.engine.payTable);
}

}  // namespace
