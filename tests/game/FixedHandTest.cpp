#include "game/flows/FixedHand.h"

#include <gtest/gtest.h>

#include "core/store/ErrorLog.h"
#include "game/commands/MachineCommands.h"
#include "tests/game/FakePorts.h"

namespace {

struct FixedHandTest : testing::Test, CreditTable {
    void Assign(const std::string& cards) {
        answers = {cards};
        AssignFixedHand(seat);
    }

    void Log(std::string_view cards) {
        ErrorLogEntry entry;
        std::ranges::copy(Cards(engine.payTable, cards, kHandSize), entry.hand.begin());
        AppendError(machine.files.Game(), StatsSection(engine), entry, engine.statistics.nextError);
    }
};

TEST_F(FixedHandTest, TheChosenHandIsDealtAgainAndAgainAndNeverPaid) {
    Assign("AS KS QS JS TS");
    TakeLog();
    DealDraw(seat);
    EXPECT_EQ(machine.HandText(), "AS KS QS JS TS ") << "Casino mode judges nothing";
    const std::string again = TakeLog();
    EXPECT_TRUE(again.starts_with("line 0 plain\n")) << again;
    EXPECT_NE(again.find("card 0 back\n"), std::string::npos) << "at any speed";
    EXPECT_EQ(engine.settings.credits, 100);
    TakeLog();
    Assign("cancel");
    EXPECT_EQ(TakeLog(), "ask fixed hand\n") << "nothing is dealt";
}

TEST_F(FixedHandTest, ALoggedHandIsDealtAsTheFixedOneInAnyMode) {
    Log("AS KS QS JS TS");
    Log("2S 3S 4S 5S 7S");
    for (const auto mode : {PlayMode::kCasino, PlayMode::kErrorLog}) {
        engine.settings.mode = mode;
        DealLoggedHand(seat, 1);
        EXPECT_EQ(machine.HandText(), "2S 3S 4S 5S 7S ");
        EXPECT_TRUE(engine.fixedHand && !engine.handOver);
        engine.handOver = engine.readyToDeal = true;
    }
    EXPECT_EQ(engine.settings.credits, 100);
}

// In Warning mode both hands would be errors: nothing is held.
TEST_F(FixedHandTest, ALoggedHandCostsNoOpenHandItsBetAndIsNoError) {
    Log("AS KS QS JS TS");
    engine.settings.mode = PlayMode::kWarning;
    machine.Stack("JS JD TC 9H 2S");
    DealDraw(seat);
    TakeLog();
    DealLoggedHand(seat, 0);
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(machine.HandText(), "JS JD TC 9H 2S ");
    EXPECT_TRUE(PaidHandIsOpen(engine)) << "to be drawn to";
    answers = {"yes"};
    DealDraw(seat);
    EXPECT_EQ(engine.statistics.playErrors.total, 1);
    DealLoggedHand(seat, 0);
    DealLoggedHand(seat, 0);
    EXPECT_EQ(machine.HandText(), "AS KS QS JS TS ");
    EXPECT_EQ(engine.statistics.playErrors.total, 1) << "nobody has played it";
}

TEST_F(FixedHandTest, ADrawCardThatTheHandWasGivenIsReplaced) {
    machine.Play("Sneak Peak Poker", 351);
    engine.fixedHand = true;
    engine.statistics.setCards = {0, 1, 2, 3, 20};
    engine.statistics.setDraws[0] = 20;
    DealDraw(seat);
    EXPECT_NE(engine.drawCards[0], 20);
    EXPECT_NE(engine.drawCards[0], kNoCard);
    EXPECT_GT(engine.analysis.bestReturn, 0);
}

TEST_F(FixedHandTest, ARefusedErrorKeepsTheHandWithItsHolds) {
    machine.Play("Sneak Peak Poker", 351);
    engine.settings.mode = PlayMode::kWarning;
    Assign("JS JD TC 9H 2S");
    answers = {"no", "yes"};
    Draw(0b00001);
    EXPECT_EQ(HeldMask(engine), 0b00001);
    DealDraw(seat);
    EXPECT_EQ(HeldMask(engine), 0);
    EXPECT_EQ(engine.statistics.playErrors.total, 1);
    EXPECT_NE(TakeLog().find("first draw none\n"), std::string::npos);
}

TEST_F(FixedHandTest, LoggedErrorsAreReplayedInOrderAndFromTheFirstAgain) {
    for (const auto cards : {"JS JD TC 9H 2S", "QS QD TC 9H 2S", "KS KD TC 9H 2S"}) Log(cards);
    ChooseMode(seat, PlayMode::kErrorLog);
    std::string dealt;
    for (int i = 0; i < 4; ++i) {
        DealDraw(seat);
        dealt += machine.HandText().substr(0, 3);
        machine.Hold(engine.analysis.best);
    }
    EXPECT_EQ(dealt, "JS QS KS JS ");

    answers = {"no"};
    Draw(0);
    EXPECT_TRUE(answers.empty());
    EXPECT_EQ(machine.Counted(), "") << "practice is not logged";
    EXPECT_EQ(engine.statistics.bestReturns, DollarSum{});
}

TEST_F(FixedHandTest, AnEmptyLogIsSaidAndNothingIsDealt) {
    ChooseMode(seat, PlayMode::kErrorLog);
    DealDraw(seat);
    EXPECT_EQ(log.back(), "told Play Error Log: No errors in log");
    EXPECT_TRUE(engine.handOver);
}

TEST_F(FixedHandTest, PickEmDealsTheFixedHandAgainAfterAPile) {
    machine.Play("Pick Em Poker", 350);
    engine.settings.mode = PlayMode::kWarning;
    Assign("KS KD KC 9H 2S");
    answers = {"no"};
    ChoosePile(seat, Pile::kRight);
    DealDraw(seat);  // judges nothing, or it would ask
    TakeLog();
    ChoosePile(seat, Pile::kLeft);
    const std::string again = TakeLog();
    EXPECT_TRUE(again.starts_with("hold button 3 pressed\nline 6 plain\n")) << again;
    EXPECT_TRUE(again.ends_with("message HOLD/DRAW\nhold button 3 shown\n")) << again;
    EXPECT_EQ(engine.settings.credits, 100);
}

TEST_F(FixedHandTest, ErrorLogModeWithTheFixedHandOffPlaysForCredits) {
    engine.settings.mode = PlayMode::kErrorLog;
    engine.fixedHand = false;
    DealDraw(seat);
    DealDraw(seat);
    EXPECT_EQ(engine.statistics.handsPlayed.total, 1);
}

}  // namespace
