#include "game/reports/BankrollTexts.h"

#include <gtest/gtest.h>

#include "game/reports/BankrollAnswer.h"
#include "game/reports/LawBars.h"
#include "game/reports/SessionBand.h"
#include "tests/core/TestGames.h"

namespace {

const std::function<bool()> kGoOn = [] { return true; };

// An even coin that wins or loses one bet.
const GainLaw kCoin{{{-1, 0.5}, {1, 0.5}}, 1, 1};

SessionLaw Session(const GainLaw& law, const SessionWish& wish) {
    return FindSessionLaw(law, wish).law.value_or(SessionLaw());
}

TEST(BankrollTextsTest, SharesAreSaidInPlayers) {
    EXPECT_EQ(ShareInWords(0), "none");
    EXPECT_EQ(ShareInWords(0.346), "35 of 100");
    EXPECT_EQ(ShareInWords(0.01), "1 of 100");
    EXPECT_EQ(ShareInWords(0.001008), "1 in 992");
    EXPECT_EQ(ShareInWords(1 / 1'234'567.0), "1 in 1,230,000");
    EXPECT_EQ(ShareInWords(0.999), "all but 1 in 1,000");
    EXPECT_EQ(ShareInWords(1), "all");
}

TEST(BankrollTextsTest, ASessionIsSaidWithItsEnds) {
    const SessionWish two{2};
    EXPECT_EQ(SessionInWords(Session(kCoin, two), two, 5),
              "25 of 100 such sessions end ahead; the middle one breaks even. On average a session "
              "costs nothing.");
    EXPECT_EQ(SessionInWords(Session(kCoin, {0}), {0}, 5),
              "No such session ends ahead; the middle one breaks even. On average a session costs "
              "nothing.");
    const SessionWish one{1, 1};
    EXPECT_NE(SessionInWords(Session(kCoin, one), one, 5).find("None are broke before the end."),
              std::string::npos)
        << "the money lasts for the one hand";
    // One of two is broke at once, one of four has three after two hands.
    const SessionWish money{2, 1, 3, 0.01};
    EXPECT_EQ(SessionInWords(Session(kCoin, money), money, 5),
              "50 of 100 such sessions end ahead; the middle one loses $4.95. 50 of 100 are broke "
              "before the end, and 25 of 100 reach the goal. On average a session brings $0.08.");
}

TEST(BankrollTextsTest, TheLongRunIsSaidInOneSentenceWhereRuinIsCertain) {
    const GainLaw poor{{{-1, 0.6}, {1, 0.4}}, 1, 1};
    EXPECT_EQ(RuinInWords(FindLongRun(poor, 0.05), 0.05, 10, 5),
              "Ruin is certain; cash back of 20.000 % would change that.");
    EXPECT_EQ(RuinInWords(FindLongRun(kCoin, 0), 0, {}, 5),
              "Ruin is certain; any cash back would change that.");
    const GainLaw worse{{{-1, 0.5022805}, {1, 0.4977195}}, 1, 1};
    EXPECT_EQ(RuinInWords(FindLongRun(worse, 0.00456), 0.00456, {}, 5),
              "Ruin is certain; cash back of 0.4561 % would change that.");
    EXPECT_EQ(RuinInWords(FindLongRun(worse, 0.004561), 0.004561, {}, 5),
              "Ruin is certain; any more cash back would change that.");
    const GainLaw nothing{{{-1, 1}}, 1, 1};
    EXPECT_EQ(RuinInWords(FindLongRun(nothing, 0), 0, {}, 5),
              "Ruin is certain; cash back of 100.000 % would change that.");
    EXPECT_EQ(RuinInWords(FindLongRun(nothing, 1), 1, {}, 5), "Nothing is ever won or lost.");
    EXPECT_EQ(SessionInWords(Session(nothing, {3}), {3}, 5),
              "No such session ends ahead; the middle one loses $15.00. On average a session costs "
              "$15.00.");
    const GainLaw rich{{{-1, 0.45}, {1, 0.55}}, 1, 1};
    EXPECT_EQ(RuinInWords(FindLongRun(rich, 0), 0, 10, 5),
              "Every bet wins 10.000 % on average. 13 of 100 who begin with $50.00 and never stop "
              "lose it all. To risk no more than one in a hundred takes $114.74. Money grows "
              "fastest when $50.00 stand behind this bet.");
    PayTable table;
    EXPECT_EQ(LeftOutInWords(table), "");
    table.spinBonus = table.redBlackBonus = true;
    EXPECT_EQ(LeftOutInWords(table),
              "The base game only: what Spin, Red or Black brings is left out.");
}

// 400 hands of 9/6 at the full bet: 2,000 coins played.
BankrollQuestion Played(std::int32_t won, std::int32_t played = 2000) {
    BankrollQuestion question;
    question.table = JacksOrBetter();
    question.coin = 0.25;
    question.session.hands = 100;
    question.statistics.handsPlayed.total = 400;
    question.creditsBet = played;
    question.statistics.creditsWon.total = won;
    question.statistics.errorCosts.total = 2.5;  // dollars: two bets
    question.table.lines[0].totalWins = 1;
    question.statistics.doubleUpCredits.total = 4000;
    return question;
}

TEST(LuckTest, ThoseWhoHaveLessAreCountedWithTheErrorsTakenOff) {
    BankrollReckoner reckoner;
    const auto answer = reckoner.Answer(Played(1950), kGoOn);
    ASSERT_TRUE(answer);
    const Luck& luck = answer->luck;
    EXPECT_TRUE(luck.oneBet);
    EXPECT_NEAR(luck.result, -8, 1e-12) << "ten bets lost, two of them by errors";
    EXPECT_NEAR(luck.less, luck.law.ShareUpTo(-9), 1e-12);
    EXPECT_GT(luck.less, 0.4);
    EXPECT_LT(luck.less, 0.6);
    const std::string words = LuckInWords(luck);
    EXPECT_EQ(
        words.find(
            "400 hands have brought back 97.50 % of what was bet, and errors have cost "
            "$2.50, which is taken off here, at today's coin. Of 100 players with your hands "),
        0U)
        << words;
    EXPECT_NE(words.find("It proves nothing"), std::string::npos);
    const ReportTable lines = LuckTable(luck, Played(1950).table);
    EXPECT_EQ(lines.rows.at(0).cells[1].text, "1");
    EXPECT_EQ(lines.rows[0].cells[2].text, "0.01");
    EXPECT_EQ(lines.rows[0].cells[4].text, "1 in 101 players sees so many");

    const auto mixed = reckoner.Answer(Played(1950, 1600), kGoOn);
    EXPECT_FALSE(mixed->luck.oneBet)
        << "hands of three and of five coins may have the mean of four";
    EXPECT_NE(LuckInWords(mixed->luck).find("approximate"), std::string::npos);
    EXPECT_TRUE(reckoner.Answer(Played(400, 400), kGoOn)->luck.oneBet) << "single coins alone";
    const Luck half = reckoner.Answer(Played(900, 1000), kGoOn)->luck;
    EXPECT_EQ(half.bet, 3) << "the nearest to two and a half";
    EXPECT_NEAR(half.result * half.mean * 0.25, -25 + 2.5, 1e-9) << "dollars";
    EXPECT_NE(LuckInWords(half).find("errors have cost $2.50,"), std::string::npos);

    EXPECT_FALSE(reckoner.Answer(Played(5), [] { return false; }));
    BankrollQuestion fresh = Played(0, 0);
    fresh.statistics = {};
    fresh.creditsBet = 0;
    EXPECT_EQ(LuckInWords(reckoner.Answer(fresh, kGoOn)->luck),
              "No hand of this game has been played in this file yet.");
    fresh.table = SneakPeak();
    EXPECT_EQ(reckoner.Answer(fresh, kGoOn)->whyNot, "There is no exact analysis of this game.");
}

TEST(LuckTest, ALawIsDrawnInBarsThatHoldAllOfIt) {
    const SessionLaw law = Session(kCoin, {10});
    const auto bars = BarsOf(law, 5, 60.0);
    ASSERT_EQ(bars.size(), 21U) << "from the lowest to one's own 12 bets, one each";
    EXPECT_DOUBLE_EQ(bars.front().from, -40) << "all ten lost is too rare to begin with";
    EXPECT_DOUBLE_EQ(bars[8].share, law.even);
    EXPECT_NEAR(bars[8].below, law.ShareBelow(0), 1e-15);
    EXPECT_NEAR(bars.back().below + bars.back().share, 1, 1e-12);
    EXPECT_EQ(BarsOf(Session({{{0, 1}}, 1, 1}, {10}), 5, {}).size(), 1U);
    EXPECT_TRUE(BarsOf({}, 5, {}).empty());
}

// At the end of a session of 1,000 hands the published quantiles; nothing where bets were mixed.
TEST(SessionBandTest, HandsOfOneBetHaveTheBandOfTheirLaw) {
    LineTableCache tables;
    const PayTable table = JacksOrBetter();
    const auto expected = AnalyzePlay(table, tables, kGoOn);
    ASSERT_TRUE(expected);
    CreditHistory history;
    EXPECT_TRUE(SessionBand(history, *expected, table, kGoOn).empty());
    for (int hand = 1; hand <= 1000; ++hand) history.Record(hand, 0, 0.25, 5);
    const auto band = SessionBand(history, *expected, table, kGoOn);
    ASSERT_EQ(band.size(), kMostBandPoints);
    EXPECT_EQ(band.back(), (BandPoint{1000, -120 * 1.25, 100 * 1.25}));
    EXPECT_TRUE(SessionBand(history, *expected, table, [] { return false; }).empty());
    history.Record(1001, 0, 1, 5);
    EXPECT_TRUE(SessionBand(history, *expected, table, kGoOn).empty()) << "another coin";
    history.Begin();
    for (int hand = 1; hand <= 3; ++hand) history.Record(hand, 0, 1, 2);
    EXPECT_EQ(SessionBand(history, *expected, table, kGoOn).back().low, -6);
    history.Record(4, 0, 1, 5);
    EXPECT_TRUE(SessionBand(history, *expected, table, kGoOn).empty());
}

}  // namespace
