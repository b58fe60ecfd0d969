#include "game/reports/HandReport.h"

#include <algorithm>
#include <functional>

#include "tests/game/TestMachine.h"

namespace {

using enum HandDisplay;

// A player's machine with a hand dealt, and a spare one to which it has been lent.
struct Lent {
    Lent(const std::string& game, int gameId, std::string_view cards, int bet = 5, double coin = 1)
        : player(game, gameId) {
        spare.settings = player.engine.settings;
        LoadGame(spare, player.files, player.tables);
        player.engine.settings.bet = bet;
        player.engine.settings.coin = coin;
        const bool sixth = gameId == kSneakPeakGameId;
        const bool pickEm = player.engine.payTable.type == GameType::kPickEm;
        const std::size_t seen = pickEm ? 4 : sixth ? 6 : 5;
        const auto codes = Cards(player.engine.payTable, cards, seen);
        Statistics& fixed = player.engine.statistics;
        const std::size_t inHand = pickEm ? 3 : kHandSize;
        std::copy_n(codes.begin(), inHand, fixed.setCards.begin());
        if (seen > inHand) fixed.setDraws[0] = codes.back();
        player.engine.fixedHand = true;
        player.DealOrDraw();
        LendHand(player.engine, spare);
    }

    std::string Report(HandDisplay display) const { return HandReport(spare, display); }

    TestMachine player;
    GameEngine spare;
};

Lent Jacks(std::string_view cards, int bet = 5, double coin = 1) {
    return Lent("Jacks or Better", 300, cards, bet, coin);
}

// The stored texts come from dealing every draw one by one, by another program than this one, and
// were compared with the rules of the report by eye.
std::string Stored(const std::string& name) {
    const std::ifstream file(TOLVANE_TEST_DATA "/../game/golden/hand-" + name + ".txt",
                             std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const auto end = text.find("\r\n", begin);
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 2;
    }
    return lines;
}

TEST(HandReportTest, DrawsAreShownAsTheirNumberTheirOddsOrTheirShareOfTheReturn) {
    EXPECT_EQ(Jacks("AS KS QS JS 9S").Report(kHands), Stored("hands"));
    EXPECT_EQ(Jacks("8C 8D 8H 5S 5D").Report(kOdds), Stored("odds"));
    EXPECT_EQ(Jacks("JC JD 7S 4H 2C", 3, 0.25).Report(kShareOfReturn), Stored("share"));
}

TEST(HandReportTest, PickEmShowsItsTwoPilesOnly) {
    const Lent lent("Pick Em Poker", 350, "7S 8S JH 9S");
    EXPECT_EQ(lent.Report(kHands) + lent.Report(kOdds) + lent.Report(kShareOfReturn),
              Stored("pick-em"));
}

TEST(HandReportTest, SneakPeakMarksWhereTheKnownCardComesToLie) {
    EXPECT_EQ(Lent("Sneak Peak Poker", 351, "AS AH KD 7C 2S 7D").Report(kHands),
              Stored("sneak-peak"));
}

TEST(HandReportTest, DoubleDrawStarsTheLinesThatAreDrawnAgain) {
    const Lent lent("Dbl Draw Bonus", 318, "AS AH KS 9C 9D", 5, 0.5);
    EXPECT_EQ(lent.Report(kHands) + lent.Report(kOdds) + lent.Report(kShareOfReturn),
              Stored("double-draw"));
}

TEST(HandReportTest, ADealtRoyalStandsFirstWithItsPayForFiveCoinsOnly) {
    const auto first = [](int bet, double coin) {
        return LinesOf(Jacks("TS AS KS JS QS", bet, coin).Report(kHands)).at(2);
    };
    EXPECT_TRUE(first(5, 1).starts_with("TAKJQ\t4,000.0000\t1\t1\t0\t0\t")) << first(5, 1);
    EXPECT_TRUE(first(4, 0.25).starts_with("TAKJQ\t250.0000 \t1\t1\t0\t0\t")) << first(4, 0.25);
}

// A full house without one of its eights is worth the same whichever goes. A stable sort would show
// the masks 15, 23, 27.
TEST(HandReportTest, EqualReturnsStandAsTheExchangesLeaveThem) {
    const Lent lent = Jacks("8C 8D 8H 5S 5D");
    const auto order = HoldsByReturn(lent.spare);
    ASSERT_EQ(order.size(), kHolds);
    const auto of = [&](HoldMask hold) {
        return lent.spare.analysis.holds[static_cast<std::size_t>(hold)].expectedReturn;
    };
    EXPECT_TRUE(std::ranges::is_sorted(order, std::greater(), of));
    EXPECT_EQ(std::vector(order.begin() + 4, order.begin() + 7), std::vector({23, 27, 15}));
}

TEST(HandReportTest, TheHandLentIsTheOneDealtEvenAfterTheDraw) {
    Lent lent = Jacks("AS KD TC 9H 2S", 2, 0.05);
    lent.player.Hold(0);
    lent.player.DealOrDraw();
    const HandCards dealt = lent.player.engine.dealtCopy;
    ASSERT_NE(lent.player.engine.hand, dealt);
    lent.spare.statistics.setCards = {5, 6, 7, 8, 9};
    lent.spare.fixedHand = true;
    EXPECT_TRUE(TakeFixedHand(lent.spare));
    LendHand(lent.player.engine, lent.spare);
    EXPECT_EQ(lent.spare.hand, dealt);
    EXPECT_EQ(lent.spare.settings.bet, 2);
    EXPECT_EQ(lent.spare.settings.coin, 0.05);
    EXPECT_FALSE(lent.spare.fixedHand) << "autoplay would deal it for ever";
}

TEST(HandReportTest, AnIncompleteHandIsNotTaken) {
    Lent lent = Jacks("AS KD TC 9H 2S");
    const std::string before = lent.Report(kHands);
    lent.spare.statistics.setCards[4] = kNoCard;
    EXPECT_FALSE(TakeFixedHand(lent.spare));
    EXPECT_EQ(lent.Report(kHands), before);

    Lent pickEm("Pick Em Poker", 350, "7S 8S JH 9S");
    Statistics& fixed = pickEm.spare.statistics;
    fixed.setCards[3] = fixed.setCards[4] = kNoCard;  // places that the game does not have
    EXPECT_TRUE(TakeFixedHand(pickEm.spare));
    fixed.setDraws[0] = kNoCard;
    EXPECT_FALSE(TakeFixedHand(pickEm.spare));
}

TEST(HandReportTest, AHandNeverCompletedSaysSo) {
    TestMachine player;
    GameEngine spare;
    LoadGame(spare, player.files, player.tables);
    player.engine.dealtCopy = {0, 1, 2, 3, kNoCard};
    LendHand(player.engine, spare);
    EXPECT_EQ(LinesOf(HandReport(spare, kOdds)).at(2),
              "This hand is not complete: change it to see its holds.");
    EXPECT_TRUE(HoldsByReturn(spare).empty());
}

TEST(HandReportTest, ADrawCardThatIsPutIntoTheHandIsNoLongerTheKnownOne) {
    Lent lent("Sneak Peak Poker", 351, "AS AH KD 7C 2S 7D");
    GameEngine& spare = lent.spare;
    spare.statistics.setCards[4] = spare.statistics.setDraws[0];
    EXPECT_TRUE(TakeFixedHand(spare));
    EXPECT_EQ(spare.drawCards[0], spare.statistics.setDraws[1]);
    EXPECT_TRUE(IsAnalyzed(spare));
}

TEST(HandReportTest, PlacesShowTheCardsWhereThePlayerLaysThem) {
    const Lent lent("Pick Em Poker", 350, "7S 8S JH 9C");
    const GameEngine& spare = lent.spare;
    const auto places = PlacesOf(spare, spare.hand, spare.drawCards[0]);
    EXPECT_EQ(places, (std::array<PlacedCard, kPlaces>{
                          {{7, kSpades}, {8, kSpades}, {}, {11, kHearts}, {9, kClubs}}}));
    EXPECT_EQ(CardAt(spare, 52), PlacedCard());
}

}  // namespace
