#include "game/reports/HandReport.h"

#include <algorithm>

#include "tests/game/TestMachine.h"

namespace {

using enum HandDisplay;

// A player's machine, and a spare one to which its hand is lent.
struct HandReportTest : testing::Test, TestMachine {
    // Deals these cards, with the tops of the piles or the card that Sneak Peak shows.
    void Lend(std::string_view cards) {
        LoadSpare();
        const std::size_t seen = (cards.size() + 1) / 3;
        const std::size_t inHand = IsPickEm(engine) ? 3 : kHandSize;
        const auto codes = Cards(engine.payTable, cards, seen);
        std::copy_n(codes.begin(), inHand, engine.statistics.setCards.begin());
        if (seen > inHand) engine.statistics.setDraws[0] = codes.back();
        engine.fixedHand = engine.readyToDeal = true;
        DealOrDraw();
        LendHand(engine, spare);
    }
    void LoadSpare() {
        spare.settings = engine.settings;
        LoadGame(spare, files, tables);
    }
    void Bet(int coins, double coin) {
        engine.settings.bet = coins;
        engine.settings.coin = coin;
    }
    std::string Report(HandDisplay display) const { return HandReport(spare, display); }
    std::string AllReports() const {
        return Report(kHands) + Report(kOdds) + Report(kShareOfReturn);
    }

    GameEngine spare;
};

// The stored texts come from dealing every draw one by one, by another program than this one, and
// were compared with the rules of the report by eye.
std::string Stored(const std::string& name) {
    return TestData("../game/golden/hand-" + name + ".txt");
}

TEST_F(HandReportTest, DrawsAreShownAsTheirNumberTheirOddsOrTheirShareOfTheReturn) {
    Lend("AS KS QS JS 9S");
    EXPECT_EQ(Report(kHands), Stored("hands"));
    Lend("8C 8D 8H 5S 5D");
    EXPECT_EQ(Report(kOdds), Stored("odds"));
    Bet(3, 0.25);
    Lend("JC JD 7S 4H 2C");
    EXPECT_EQ(Report(kShareOfReturn), Stored("share"));
}

TEST_F(HandReportTest, PickEmShowsItsTwoPilesOnly) {
    Play("Pick Em Poker", 350);
    Lend("7S 8S JH 9S");
    EXPECT_EQ(AllReports(), Stored("pick-em"));
}

TEST_F(HandReportTest, SneakPeakMarksWhereTheKnownCardComesToLie) {
    Play("Sneak Peak Poker", 351);
    Lend("AS AH KD 7C 2S 7D");
    EXPECT_EQ(Report(kHands), Stored("sneak-peak"));
}

TEST_F(HandReportTest, DoubleDrawStarsTheLinesThatAreDrawnAgain) {
    Play("Dbl Draw Bonus", 318);
    Bet(5, 0.5);
    Lend("AS AH KS 9C 9D");
    EXPECT_EQ(AllReports(), Stored("double-draw"));
}

// A full house without one of its eights is worth the same whichever goes. A stable sort would show
// the masks 15, 23, 27.
TEST_F(HandReportTest, EqualReturnsStandAsTheExchangesLeaveThem) {
    Lend("8C 8D 8H 5S 5D");
    const auto order = HoldsByReturn(spare);
    ASSERT_EQ(order.size(), kHolds);
    const auto of = [&](HoldMask hold) {
        return spare.analysis.holds[static_cast<std::size_t>(hold)].expectedReturn;
    };
    EXPECT_TRUE(std::ranges::is_sorted(order, std::greater(), of));
    EXPECT_EQ(std::vector(order.begin() + 4, order.begin() + 7), std::vector({23, 27, 15}));
}

TEST_F(HandReportTest, TheHandLentIsTheOneDealtEvenAfterTheDraw) {
    Bet(2, 0.05);
    Lend("AS KD TC 9H 2S");
    Draw(0);
    const HandCards dealt = engine.dealtCopy;
    ASSERT_NE(engine.hand, dealt);
    spare.statistics.setCards = {5, 6, 7, 8, 9};
    spare.fixedHand = true;
    EXPECT_TRUE(TakeFixedHand(spare));
    LendHand(engine, spare);
    EXPECT_EQ(spare.hand, dealt);
    EXPECT_FALSE(spare.fixedHand) << "autoplay would deal it for ever";
}

TEST_F(HandReportTest, AnIncompleteHandIsNotTakenAndOneNeverCompletedSaysSo) {
    Lend("AS KD TC 9H 2S");
    spare.statistics.setCards[4] = kNoCard;
    EXPECT_FALSE(TakeFixedHand(spare));
    LoadSpare();
    engine.dealtCopy = {0, 1, 2, 3, kNoCard};
    LendHand(engine, spare);
    EXPECT_TRUE(
        HandReport(spare, kOdds)
            .ends_with("\r\n\r\nThis hand is not complete: change it to see its holds.\r\n"));
    EXPECT_TRUE(HoldsByReturn(spare).empty());
}

TEST_F(HandReportTest, ADrawCardThatIsPutIntoTheHandIsNoLongerTheKnownOne) {
    Play("Sneak Peak Poker", 351);
    Lend("AS AH KD 7C 2S 7D");
    spare.statistics.setCards[4] = spare.statistics.setDraws[0];
    EXPECT_TRUE(TakeFixedHand(spare));
    EXPECT_EQ(spare.drawCards[0], spare.statistics.setDraws[1]);
    EXPECT_TRUE(IsAnalyzed(spare));
}

}  // namespace
