#include "game/commands/MachineCommands.h"

#include <gtest/gtest.h>

#include <climits>

#include "core/store/ErrorLog.h"
#include "game/commands/GameSelection.h"
#include "game/engine/Money.h"
#include "game/flows/DoubleUp.h"
#include "game/saving/SaveGame.h"
#include "game/seat/ShowScene.h"
#include "game/session/SpareEngine.h"
#include "tests/game/FakePorts.h"

namespace {

struct MachineCommandsTest : testing::Test, TestSeat {
    // Plays a hand that wins 45 credits, which are offered for a double up.
    void Win() {
        engine.settings.speed = Speed::kFast;
        Deal("JS JH JC 9H 9S");
        Draw(kStandPat);
        TakeLog();
    }
    std::string Stored(std::string_view section, std::string_view key) {
        return machine.file.GetString(section, key, "(none)", 80, machine.files.gamePath);
    }
};
struct SpareEngineTest : MachineCommandsTest {
    GameEngine spare;
};

TEST_F(MachineCommandsTest, CashOutPaysAndTheWinCannotBeRiskedAnyMore) {
    Win();
    ASSERT_TRUE(engine.doubleUpOffered);
    engine.settings.sounds = false;
    CashOut(seat);
    EXPECT_EQ(TakeLog(), "beep\ndouble up button gone\nmessage Paid $140.00\ncredits $0.00\n");
    StartDoubleUp(seat);
    EXPECT_FALSE(engine.doubleUpPick);
}

TEST_F(MachineCommandsTest, WhatIsAtStakeIsCollectedBeforeTheMoneyOrTheGameChanges) {
    const std::pair<std::function<void()>, int> commands[] = {
        {[&] { CashOut(seat); }, 0},
        {[&] { ChooseCoin(seat, 0.05); }, 185 * 20},
        {[&] { ChooseGame(seat, 350); }, 185}};
    for (const auto& [command, owned] : commands) {
        machine.Play("Jacks or Better", 300);
        engine.settings.coin = 1;
        engine.settings.credits = 100;
        Win();
        StartDoubleUp(seat);
        engine.bonusStake = 90;  // won once
        command();
        EXPECT_EQ(engine.settings.credits, owned);
        EXPECT_FALSE(engine.doubleUpPick || engine.doubleUpOffered);
    }
    EXPECT_EQ(Stored("Jacks or Better(0)", "DblUpCredits"), "90") << "of the last two";
}

TEST_F(MachineCommandsTest, AnotherCoinChangesPictureAndMeters) {
    ChooseCoin(seat, 0.25);
    EXPECT_EQ(seat.scene.coin, 0.25);
    EXPECT_EQ(seat.scene.bet, "$1.25");
    EXPECT_EQ(engine.settings.credits, 400);
    engine.settings.credits = 403;
    ChooseCoin(seat, 1);
    EXPECT_EQ(engine.settings.credits, 100) << "whole ones";
}

TEST_F(MachineCommandsTest, AnotherCoinDuringAHandIsThatOfItsAnalysisToo) {
    machine.Play("Dbl Draw Bonus", 318);
    machine.Deal("AS KS QS JS TS 2D");
    EXPECT_EQ(engine.analysis.holds[kStandPat].expectedReturn, 4000);
    ChooseCoin(seat, 0.05);
    EXPECT_NEAR(engine.analysis.holds[kStandPat].expectedReturn, 200, 1e-9);
    machine.Draw(0b11110);
    PrepareSecondDraw(engine);
    ChooseCoin(seat, 0.25);
    EXPECT_NEAR(engine.analysis.holds[kStandPat].expectedReturn, 1000, 1e-9)
        << "the second draw is judged by the hand dealt";
}

TEST_F(MachineCommandsTest, CreditsAsCashRewritesTheMessageOnlyForItsAmount) {
    ToggleShowDollar(seat);
    EXPECT_EQ(TakeLog(), "bet 5\ncredits 100\n") << "PRESS DEAL stays";
    Win();
    ToggleShowDollar(seat);
    EXPECT_EQ(TakeLog(), "bet $5.00\nmessage WON $45.00\ncredits $140.00\n");
    machine.Deal("JS JH TC 4D 2S");
    ShowGameOver(seat);
    EXPECT_EQ(MeterText(seat), "GAME OVER") << "the pair was never paid";
}

TEST_F(MachineCommandsTest, APlayModeEndsTheHandButErrorLogWaits) {
    Deal("JS JH JC 9H 9S");
    ChooseMode(seat, PlayMode::kErrorLog);
    EXPECT_TRUE(engine.fixedHand && engine.handInProgress);
    ChooseMode(seat, PlayMode::kCasino);
    EXPECT_EQ(seat.scene.message, "GAME OVER");
    EXPECT_FALSE(engine.fixedHand || engine.handInProgress);
}

TEST_F(MachineCommandsTest, FixedHandIsDealtAtOnceAndSwitchedOff) {
    engine.settings.speed = Speed::kFast;
    answers = {"AS KS QS JS TS"};
    ToggleFixedHand(seat);
    EXPECT_EQ(machine.HandText(), "AS KS QS JS TS ");
    ToggleFixedHand(seat);
    EXPECT_FALSE(engine.fixedHand);
    EXPECT_TRUE(engine.handOver) << "or the draw would be paid";
}

TEST_F(MachineCommandsTest, ABetTakesTheMarkOfTheLastLineAway) {
    Win();
    BetOne(seat);
    EXPECT_EQ(TakeLog(), "line 3 plain\nbet $1.00\n");
    BetOne(seat);
    BetMax(seat);
    EXPECT_EQ(TakeLog(), "bet $2.00\nbet $5.00\n");
    engine.settings.bet = 10;  // of another game
    BetOne(seat);
    EXPECT_EQ(engine.settings.bet, 1);
    DealDraw(seat);
    BetOne(seat);
    BetMax(seat);
    EXPECT_EQ(engine.settings.bet, 1) << "not while a hand is in play";
}

TEST_F(MachineCommandsTest, TheLogIsClearedWithItsCounts) {
    Statistics& statistics = engine.statistics;
    const std::string section = "Jacks or Better(0)";
    EXPECT_TRUE(TellIfErrorLogIsEmpty(seat));
    AppendError(machine.files.Game(), section, {}, statistics.nextError);
    statistics.playErrors.Add(1);
    statistics.errorCosts.Add(2.5);
    statistics.handsPlayed.Add(7);
    engine.replayIndex = 1;
    EXPECT_FALSE(TellIfErrorLogIsEmpty(seat));

    ResetStatisticsOnly(seat);
    EXPECT_EQ(statistics.handsPlayed, Counter{});
    EXPECT_NE(Stored(section, "Error0"), "") << "the entries stay";
    statistics.playErrors.Add(1);
    statistics.handsPlayed.Add(7);
    ForgetErrors(seat);
    EXPECT_EQ(Stored(section, "Error0"), "");
    EXPECT_EQ(Stored(section, "ErrCost"), "0.00");
    EXPECT_EQ(statistics.playErrors, Counter{});
    EXPECT_EQ(statistics.handsPlayed.total, 7);
    EXPECT_EQ(engine.replayIndex, 0);
}

TEST_F(MachineCommandsTest, OneEntryIsForgottenAndTheReplayStaysWithItsHand) {
    Statistics& statistics = engine.statistics;
    for (int i = 0; i < 3; ++i) {
        AppendError(machine.files.Game(), "Jacks or Better(0)", {}, statistics.nextError);
    }
    statistics.playErrors.Add(3);
    engine.replayIndex = 1;
    ForgetError(seat, 1);
    EXPECT_EQ(engine.replayIndex, 1) << "the next hand has taken its place";
    ForgetError(seat, 0);
    EXPECT_EQ(engine.replayIndex, 0);
    EXPECT_EQ(statistics.nextError, 1);
    EXPECT_EQ(Stored("Jacks or Better(0)", "NextError"), "1");
    EXPECT_EQ(statistics.playErrors.total, 3) << "the errors were made";
    engine.replayIndex = 5;
    ForgetError(seat, 3);
    EXPECT_EQ(engine.replayIndex, 5) << "there is no such entry";
}

TEST_F(MachineCommandsTest, DollarsBecomeCreditsAndBack) {
    engine.settings.credits = 0;
    engine.settings.coin = 0.05;
    EnterDollars(engine, 100);
    EXPECT_EQ(engine.settings.credits, 2000);
    EXPECT_EQ(engine.statistics.sessionDollarsIn, 100);
    for (const int refused : {0, -5, 1'000'000}) EnterDollars(engine, refused);
    EXPECT_EQ(engine.settings.credits, 2000);

    ChooseCoin(seat, 0.25);
    engine.settings.credits = 37;
    CashOut(seat);
    EXPECT_EQ(seat.scene.message, "Paid $9.25");
    EXPECT_EQ(engine.settings.creditsEntered, 91) << "whole dollars";
    engine.settings.credits = 4'940'000;
    CashOut(seat);
    EXPECT_EQ(seat.scene.message, "Paid $1,235,000.00");
    EXPECT_EQ(engine.settings.creditsEntered, 0) << "never below 0";
}

TEST_F(MachineCommandsTest, CreditsNeverWrap) {
    engine.settings.coin = 0.05;
    engine.settings.credits = INT_MAX - 5;
    engine.settings.creditsEntered = INT_MAX;
    EnterDollars(engine, kMostDollars);
    EXPECT_EQ(engine.settings.credits, INT_MAX);
    EXPECT_EQ(engine.settings.creditsEntered, INT_MAX);
    engine.settings.coin = 1;
    ChooseCoin(seat, 0.05);
    EXPECT_EQ(engine.settings.credits, INT_MAX);
}

TEST_F(MachineCommandsTest, AnotherGameKeepsTheMoneyAndBothGamesTheirStatistics) {
    SaveNewSession(seat);
    engine.statistics.handsPlayed.Add(7);
    engine.payTable.lines[8].totalWins = engine.payTable.lines[8].sessionWins = 5;
    engine.replayIndex = 4;
    ports.now += 3600;
    EXPECT_EQ(ChooseGame(seat, 330), GameChoice::kChosen);
    EXPECT_EQ(TakeLog(), "message GAME OVER\nrelayout\n");
    EXPECT_TRUE(engine.payTable.usesWilds);
    EXPECT_EQ(engine.settings.credits, 100);
    EXPECT_EQ(engine.replayIndex, 0);
    EXPECT_EQ(Stored("main", "GameID"), "330");
    EXPECT_EQ(Stored("Deuces Wild(0)", "HandsPlayed"), "0");
    EXPECT_EQ(engine.statistics.elapsedBase, 0) << "the hours of the other game stay with it";
    ChooseGame(seat, 300);
    EXPECT_EQ(engine.statistics.handsPlayed.total, 7);
    EXPECT_EQ(engine.statistics.elapsedBase, 1);
    EXPECT_EQ(engine.payTable.lines[8].totalWins, 5);
    EXPECT_EQ(engine.payTable.lines[8].sessionWins, 0);
}

TEST_F(MachineCommandsTest, GamesThatAreNotThereChangeNothing) {
    machine.files.mainPath =
        machine.folder.Write("own.ini",
                             "[User Games]\n2=9002,Empty\n7=9007,Practice\n"
                             "[Practice(0)]\nPayLines=1\nRank0=11\nPayout0=1\nMaxPayout0=5\n");
    const std::string before = machine.folder.Read("game.qdx");
    for (const int id : {0, -5, 399, 9001, 9011})
        EXPECT_EQ(ChooseGame(seat, id), GameChoice::kUnknown);
    EXPECT_EQ(ChooseGame(seat, 9002), GameChoice::kNoPayTable);
    EXPECT_EQ(machine.folder.Read("game.qdx"), before);
    EXPECT_EQ(engine.settings.gameName, "Jacks or Better");
    EXPECT_EQ(ChooseGame(seat, 9007), GameChoice::kChosen);
    EXPECT_EQ(engine.payTable.lines.size(), 1U);
}

TEST_F(SpareEngineTest, AutoplayLeavesThePlayersMachineAndFileAlone) {
    SaveGame(seat);
    engine.settings.bet = 2;
    const MachineSettings settings = engine.settings;
    const Statistics statistics = engine.statistics;
    const auto order = engine.deck.order;
    answers = {"-3", "200"};
    RunAutoplay(seat, spare);
    EXPECT_EQ(TakeLog(), "ask hands\nstatistics Jacks or Better, 0 hands\n");
    RunAutoplay(seat, spare);
    const std::string log = TakeLog();
    EXPECT_NE(log.find("99% (99)\nstatistics Jacks or Better, 200 hands\n"), std::string::npos);
    EXPECT_EQ(spare.statistics.creditsPlayed.session, 400) << "the bet on the meter";
    LoadSpare(seat, spare);
    Deck deck = engine.deck;
    deck.Shuffle(10);
    EXPECT_NE(spare.deck.order, deck.order) << "or it would foretell the player's cards";

    const std::string before = machine.folder.Read("game.qdx");
    EXPECT_TRUE(SaveGame(seat));
    EXPECT_EQ(machine.folder.Read("game.qdx"), before);
    EXPECT_EQ(engine.settings, settings);
    EXPECT_EQ(engine.statistics, statistics);
    EXPECT_EQ(engine.deck.order, order);
}

TEST_F(SpareEngineTest, AutoplayIsCancelledEvenWhereThePercentStandStill) {
    answers = {"1000000"};
    ports.progressSteps = 1;
    RunAutoplay(seat, spare);
    EXPECT_EQ(log.back(), "statistics Jacks or Better, 512 hands");
}

}  // namespace
