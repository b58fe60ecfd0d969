#include "game/FixedHand.h"

#include <gtest/gtest.h>

#include "core/analysis/ErrorLog.h"
#include "game/HandFlow.h"
#include "tests/game/FakePorts.h"

namespace {

struct PracticeTable : TestTable {
    explicit PracticeTable(const std::string& game = "Jacks or Better", int gameId = 300)
        : TestTable(game, gameId) {
        ports.logsOwned = true;
        engine.settings.showDollar = false;
        engine.settings.speed = Speed::kFast;
    }

    void Log(std::string_view cards) {
        ErrorLogEntry entry;
        std::ranges::copy(Cards(engine.payTable, cards, kHandSize), entry.hand.begin());
        AppendError(machine.file, machine.files.gamePath, StatsSection(engine), entry,
                    engine.statistics.nextError);
    }

    void HoldBest() { machine.Hold(engine.analysis.best); }
};

constexpr std::string_view kRoyal = "AS KS QS JS TS";

TEST(FixedHandTest, TheChosenHandIsDealtAgainAndAgainAndNeverPaid) {
    PracticeTable t;
    t.answers = {std::string(kRoyal)};
    AssignFixedHand(t);
    EXPECT_EQ(
        t.TakeSteps(),
        R"(ask fixed hand, credits 100, message GOOD LUCK!, held 0 off, held 1 off, held 2 off, held 3 off,
held 4 off, pause 1
card 0 AS, pause 1
card 1 KS, pause 1
card 2 QS, pause 1
card 3 JS, pause 1
card 4 TS, pause 1
line 0 won 4000, beep exclamation, pause 600
line 0 won, cell dark 4000, pause 600
line 0 won 4000, beep exclamation, pause 600
line 0 won, cell dark 4000, pause 600
line 0 won 4000, beep exclamation, pause 600
line 0 won, cell dark 4000, pause 600
line 0 won 4000, beep exclamation, pause 600
line 0 won, cell dark 4000, pause 600
line 0 won 4000, beep exclamation, pause 600
line 0 won, cell dark 4000, pause 600
line 0 won 4000, message HOLD/DRAW
)");
    DealDraw(t);
    EXPECT_EQ(
        t.TakeSteps(),
        R"(line 0 plain 4000, credits 100, message GOOD LUCK!, held 0 off, card 0 back, held 1 off,
card 1 back, held 2 off, card 2 back, held 3 off, card 3 back, held 4 off, card 4 back, pause 1
card 0 AS, pause 1
card 1 KS, pause 1
card 2 QS, pause 1
card 3 JS, pause 1
card 4 TS, pause 1
line 0 won 4000, beep exclamation, pause 600
line 0 won, cell dark 4000, pause 600
line 0 won 4000, beep exclamation, pause 600
line 0 won, cell dark 4000, pause 600
line 0 won 4000, beep exclamation, pause 600
line 0 won, cell dark 4000, pause 600
line 0 won 4000, beep exclamation, pause 600
line 0 won, cell dark 4000, pause 600
line 0 won 4000, beep exclamation, pause 600
line 0 won, cell dark 4000, pause 600
line 0 won 4000, message HOLD/DRAW
)") << "Casino mode judges nothing";
    EXPECT_EQ(t.engine.settings.credits, 100);
    EXPECT_EQ(t.engine.statistics.handsPlayed, Counter{});
    EXPECT_EQ(t.engine.statistics.creditsPlayed, Counter{});
    EXPECT_FALSE(t.engine.handOver);

    t.answers = {"cancel"};
    AssignFixedHand(t);
    EXPECT_EQ(t.TakeLog(), "ask fixed hand\n") << "nothing is dealt";
}

TEST(FixedHandTest, WhatIsLeftOpenDiffersFromDealToDeal) {
    PracticeTable t;
    t.engine.fixedHand = true;
    t.engine.statistics.setCards = {0, kNoCard, kNoCard, kNoCard, kNoCard};
    DealDraw(t);
    const HandCards first = t.engine.hand;
    DealDraw(t);
    EXPECT_EQ(t.engine.hand[0], 0);
    EXPECT_NE(t.engine.hand, first);
}

TEST(FixedHandTest, ADrawCardThatTheHandWasGivenIsReplaced) {
    PracticeTable t("Sneak Peak Poker", 351);
    t.engine.fixedHand = true;
    t.engine.statistics.setCards = {0, 1, 2, 3, 20};
    t.engine.statistics.setDraws[0] = 20;
    DealDraw(t);
    EXPECT_NE(t.engine.drawCards[0], 20);
    EXPECT_NE(t.engine.drawCards[0], kNoCard);
    EXPECT_GT(t.engine.analysis.bestReturn, 0);
}

TEST(FixedHandTest, ARefusedErrorKeepsTheHandWithItsHolds) {
    PracticeTable t("Sneak Peak Poker", 351);
    t.engine.settings.mode = PlayMode::kWarning;
    t.answers = {"JS JD TC 9H 2S"};
    AssignFixedHand(t);
    ToggleHold(t, 4);
    t.TakeLog();
    t.answers = {"no", "yes"};
    DealDraw(t);
    EXPECT_EQ(t.TakeLog(), "ask JJ___ is the best play for this hand. Continue?\n");
    EXPECT_EQ(HeldMask(t.engine), 0b00001);
    DealDraw(t);
    EXPECT_EQ(HeldMask(t.engine), 0);
    EXPECT_EQ(t.engine.statistics.playErrors.total, 1);
    const std::string log = t.TakeLog();
    EXPECT_NE(log.find("first draw none\n"), std::string::npos) << log;
}

TEST(FixedHandTest, AutoHoldMarksTheFixedHand) {
    PracticeTable t;
    t.engine.settings.mode = PlayMode::kAutoHold;
    t.answers = {"JS JD TC 9H 2S"};
    AssignFixedHand(t);
    EXPECT_EQ(HeldMask(t.engine), 0b11000);
    DealDraw(t);
    EXPECT_TRUE(t.answers.empty()) << "no question";
    EXPECT_EQ(HeldMask(t.engine), 0b11000);
}

TEST(FixedHandTest, LoggedErrorsAreReplayedInOrderAndFromTheFirstAgain) {
    PracticeTable t;
    for (const auto cards : {"JS JD TC 9H 2S", "QS QD TC 9H 2S", "KS KD TC 9H 2S"}) t.Log(cards);
    ChoosePlayMode(t.engine, PlayMode::kErrorLog);
    std::string dealt;
    for (int i = 0; i < 4; ++i) {
        DealDraw(t);
        dealt += t.machine.HandText().substr(0, 3);
        t.HoldBest();
    }
    EXPECT_EQ(dealt, "JS QS KS JS ");

    t.machine.Hold(0);
    t.TakeLog();
    t.answers = {"no"};
    DealDraw(t);
    EXPECT_EQ(t.TakeLog(), "ask JJ___ is the best play for this hand. Continue?\n");
    EXPECT_EQ(t.engine.statistics.playErrors.total, 0) << "practice is not logged";
}

TEST(FixedHandTest, AnEmptyLogIsSaidAndNothingIsDealt) {
    PracticeTable t;
    ChoosePlayMode(t.engine, PlayMode::kErrorLog);
    DealDraw(t);
    EXPECT_EQ(t.TakeLog(), "told Play Error Log: No errors in log\n");
    EXPECT_TRUE(t.engine.handOver);
}

TEST(FixedHandTest, PickEmDealsTheFixedHandAgainAfterAPile) {
    PracticeTable t("Pick Em Poker", 350);
    t.engine.settings.mode = PlayMode::kWarning;
    t.answers = {"KS KD KC 9H 2S"};
    AssignFixedHand(t);
    EXPECT_EQ(
        t.TakeSteps(),
        R"(ask fixed hand, credits 100, message GOOD LUCK!, card 0 none, card 1 none, card 2 none,
card 3 none, card 4 none, pause 1
pile 3 one back, pause 1
pile 4 one back, pause 1
pile 3 stack, pause 1
pile 4 stack, pause 1
card 0 KS, pause 1
card 1 KD, pause 1
pile top 3 KC, pause 1
pile top 4 6S, pause 1
line 6 won 25, beep, message HOLD/DRAW
)");
    t.answers = {"no"};
    ChoosePile(t, Pile::kRight);
    EXPECT_EQ(t.TakeSteps(),
              R"(hold button 4 pressed, ask KK_K_ is the best play for this hand. Continue?,
hold button 4 released
)");
    ChoosePile(t, Pile::kLeft);
    EXPECT_EQ(
        t.TakeSteps(),
        R"(hold button 3 pressed, line 6 plain 25, credits 100, message GOOD LUCK!, card 0 none,
card 1 none, card 2 none, card 3 none, card 4 none, pause 1
pile 3 one back, pause 1
pile 4 one back, pause 1
pile 3 stack, pause 1
pile 4 stack, pause 1
card 0 KS, pause 1
card 1 KD, pause 1
pile top 3 KC, pause 1
pile top 4 6S, pause 1
line 6 won 25, beep, message HOLD/DRAW, hold button 3 released
)");
    EXPECT_EQ(t.engine.settings.credits, 100);
}

TEST(FixedHandTest, PickEmReplaysLoggedHands) {
    PracticeTable t("Pick Em Poker", 350);
    t.Log("KS KD KC 9H 2S");
    t.Log("QS QD QC 9H 2S");
    ChoosePlayMode(t.engine, PlayMode::kErrorLog);
    DealDraw(t);
    EXPECT_EQ(t.machine.HandText().substr(0, 5), "KS KD");
    ChoosePile(t, Pile::kLeft);
    EXPECT_EQ(t.machine.HandText().substr(0, 5), "QS QD");
}

TEST(FixedHandTest, ErrorLogModeWithTheFixedHandOffPlaysForCredits) {
    PracticeTable t;
    t.engine.settings.mode = PlayMode::kErrorLog;
    t.engine.fixedHand = false;
    DealDraw(t);
    DealDraw(t);
    EXPECT_EQ(t.engine.statistics.handsPlayed.total, 1);
    EXPECT_EQ(t.engine.statistics.creditsPlayed.total, 5);
}

}  // namespace
