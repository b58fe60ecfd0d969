#include "game/reports/ExpectedPlay.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/analysis/GameAnalysis.h"
#include "core/analysis/LineTableCache.h"
#include "core/odds/Binomial.h"
#include "game/reports/Chance.h"
#include "tests/Sanitized.h"
#include "tests/core/TestGames.h"

namespace {

ExpectedPlay Expected(const PayTable& table) {
    LineTableCache tables;
    return AnalyzePlay(table, tables, [] { return true; }).value_or(ExpectedPlay());
}

// Every hand of the deck is dealt and every draw of its best hold counted for itself, for the pays
// of the bet as they stand.
HandLaw DealtLaw(const PayTable& table, int bet) {
    const LineTables tables(table);
    const CardTable deck = BuildCardTable(DeckOf(table));
    HoldAnalysis analysis;
    HandLaw law;
    double hands = 0;
    double squares = 0;
    ForEachChoice(deck, kHandSize, [&](const std::vector<CardCode>& cards) {
        AnalyzeHand(tables, table, {FacesOf(deck, cards), {}}, bet, 1, analysis);
        const HoldResult& hold = analysis.holds[static_cast<std::size_t>(analysis.best)];
        const auto draws = static_cast<double>(hold.totalHands);
        hands += 1;
        law.anyLine += hold.WinRate();
        for (std::size_t line = 0; line < table.lines.size(); ++line) {
            const double share = static_cast<double>(hold.lineCounts[line]) / draws;
            const double coins = LineUnitPay(table, static_cast<int>(line), bet);
            law.lines[line] += share;
            law.meanReturn += share * coins / bet;
            squares += share * coins * coins / (bet * bet);
        }
    });
    for (double* sum : {&law.anyLine, &law.meanReturn, &squares}) *sum /= hands;
    for (double& line : law.lines) line /= hands;
    law.variance = squares - law.meanReturn * law.meanReturn;
    return law;
}

void ExpectSame(const HandLaw& law, const HandLaw& dealt) {
    EXPECT_NEAR(law.anyLine, dealt.anyLine, 1e-9);
    EXPECT_NEAR(law.meanReturn, dealt.meanReturn, 1e-9);
    EXPECT_NEAR(law.variance, dealt.variance, dealt.variance * 1e-8);
    for (std::size_t i = 0; i < kMaxPayLines; ++i) EXPECT_NEAR(law.lines[i], dealt.lines[i], 1e-10);
}

TEST(ExpectedPlayTest, TheLawIsThatOfEveryHandDealtAtTheFullBetAndBelow) {
    if (kSanitized) GTEST_SKIP() << "takes minutes under sanitizers";
    PayTable table = JacksOrBetter();
    table.lines[0].maxPayout = 9003;  // no whole number of coins for each one bet
    const ExpectedPlay expected = Expected(table);
    ExpectSame(expected.At(5), DealtLaw(table, 5));
    ExpectSame(expected.At(2), DealtLaw(table, 2));
    EXPECT_GT(expected.fullBet.lines[0], expected.otherBets.lines[0] * 1.05) << "other holds";
}

// What the lines bring together is what the hands return, in second draws and ordered ones too.
TEST(ExpectedPlayTest, TheLinesAddUpToTheReturnOfTheGame) {
    for (const PayTable& table : {DoubleDraw(), PickEm(), AcesBonus(), FiveAces(), OneEyedJacks(),
                                  JokerPoker(2), DeucesWild()}) {
        const GameTotals totals = AnalyzeGame(LineTables(table), table, 1, {});
        const ExpectedPlay expected = Expected(table);
        EXPECT_NEAR(expected.fullBet.meanReturn * 100, totals.payoutPercent, 1e-7) << table.gameId;
        EXPECT_NEAR(expected.fullBet.anyLine + totals.summaryNothing / totals.denominator, 1,
                    table.type == GameType::kDoubleDraw ? 0.02 : 1e-9)
            << table.gameId;
        EXPECT_LE(expected.otherBets.meanReturn, expected.fullBet.meanReturn) << table.gameId;
    }
    EXPECT_EQ(Expected(SneakPeak()).fullBet.anyLine, 0) << "it cannot be analysed";
    LineTableCache tables;
    EXPECT_FALSE(AnalyzePlay(JacksOrBetter(), tables, [] { return false; })) << "stopped";
}

TEST(ExpectedPlayTest, HandsOfDifferentBetsAddUpAsIndependentOnesDo) {
    ExpectedPlay expected;
    expected.fullBet = {{}, 0.5, 0.9, 16};
    expected.otherBets = {{}, 0.5, 0.8, 9};
    CreditHistory history;
    history.Record(1, 0, 0.25, 5);   // $1.25
    history.Record(2, 0, 1, 2);      // $2
    history.Record(2, -9, 1, 2);     // the same hand: a double up
    history.Record(3, -9, 0.25, 4);  // $1
    ASSERT_EQ(history.WagersUntil().size(), 3U);
    const ExpectedGain gain = GainOf(history.WagersUntil().back(), expected);
    EXPECT_NEAR(gain.mean, -0.125 - 0.6, 1e-12);
    EXPECT_NEAR(gain.deviation * gain.deviation, 16 * 1.5625 + 9 * 5, 1e-12);
    const ExpectedGain first = GainOf(history.WagersUntil().front(), expected);
    EXPECT_NEAR(first.deviation, 5, 1e-12);
}

TEST(ChanceTest, TheTailsAreThoseOfHandsPlayedOneByOne) {
    constexpr std::size_t kHands = 1500;
    for (const double probability : {0.0007, 0.4, 0.97}) {
        std::vector<double> seen(kHands + 1);  // the chance of so many, hand after hand
        seen[0] = 1;
        for (std::size_t hand = 1; hand <= kHands; ++hand) {
            for (std::size_t i = hand; i > 0; --i) {
                seen[i] = seen[i] * (1 - probability) + seen[i - 1] * probability;
            }
            seen[0] *= 1 - probability;
        }
        double atMost = 0;
        for (std::size_t i = 0; i <= kHands; i += 1) {
            atMost += seen[i];
            const auto count = static_cast<std::int64_t>(i);
            ASSERT_NEAR(ChanceOfAtMost(count, kHands, probability), atMost, atMost * 1e-9 + 1e-290)
                << i;
            ASSERT_NEAR(ChanceOfAtLeast(count, kHands, probability), 1 - atMost + seen[i], 1e-9);
        }
    }
    EXPECT_NEAR(ChanceOfAtLeast(1, 2'000'000'000, 1e-9), 1 - std::exp(-2.0), 1e-8);
    EXPECT_NEAR(ChanceOfAtMost(1'000'000'000, 2'000'000'001, 0.5), 0.5, 1e-11);
}

TEST(ChanceTest, HowRareACountIsIsSaidInPlayers) {
    EXPECT_EQ(RarityOf(0, 5, 0.5217).words, "1 in 40 players sees so few");  // 0.4783^5
    EXPECT_EQ(RarityOf(2, 100, 0.001).words, "1 in 216 players sees so many");
    EXPECT_EQ(RarityOf(3, 40'000, 1e-7).words, "1 in 94,000,000 players sees so many");
    EXPECT_EQ(RarityOf(0, 40'000, 1 / 40'390.55).words, "as expected");
    EXPECT_EQ(RarityOf(500, 1000, 0.001).words,
              "less than 1 in 1,000,000,000 players sees so many");
    EXPECT_EQ(RarityOf(7, 7, 0).words, "less than 1 in 1,000,000,000 players sees so many");
    EXPECT_EQ(RarityOf(5, 5, 1).words, "as expected");
    for (const auto& [seen, hands] : {std::pair{5, 0}, {-1, 9}, {10, 9}, {0, -5}}) {
        EXPECT_EQ(RarityOf(seen, hands, 0.1).words, "") << "no such play";
    }
}

}  // namespace
