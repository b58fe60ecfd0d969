#include "game/paytables/LiveAnalysis.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <set>

#include "tests/core/TestGames.h"

namespace {

using namespace std::chrono_literals;

TEST(LiveAnalysisTest, OnlyTheLastOfManyTablesIsReported) {
    std::promise<LiveResult> reported;  // once, or it ends the test
    LiveAnalysis analysis([&](const LiveResult& result) {
        if (result.breakEven) reported.set_value(result);
    });
    std::uint64_t last = 0;
    for (int i = 0; i < 20; ++i) {
        last = analysis.Start(i < 19 ? DoubleDoubleBonus() : JacksOrBetter(), JacksOrBetter());
        std::this_thread::sleep_for(2ms);
    }
    auto future = reported.get_future();
    ASSERT_EQ(future.wait_for(20s), std::future_status::ready);
    const LiveResult result = future.get();
    EXPECT_EQ(result.run, last);
    EXPECT_TRUE(analysis.IsLatest(result));
    EXPECT_EQ(LiveText(result), "Return 99.5439%  Variance 19.51") << "the published ones";
    // A royal flush comes once in 40,391 hands, and adds 800 bets to a return of 0.995439.
    EXPECT_NEAR(1 / result.lines[0].probability, 40391, 1);
    EXPECT_NEAR(result.lines[0].sharePercent, 800 * 100.0 / 40391 / 0.995439, 0.001);
    EXPECT_NEAR(result.lines[0].percentForCoin, 20 * result.lines[0].probability, 1e-12);
    ProfileFile file;
    const auto texts =
        ReadPayTableTexts({file, TOLVANE_DATA_FOLDER "/Tolvane.ini"}, "Jacks or Better", 0);
    // 976 bets for a royal flush is the published break-even point of the full-pay game, which
    // returns 98.37 % with a royal flush of 250.
    EXPECT_EQ(LiveDetailText(result, texts),
              "Return at one coin 98.3735%  0.00 % against stored  ROYAL FLUSH breaks even at "
              "4,880");
}

// Deals no draw and looks at no best hold: all hands, each paid by the evaluator.
std::set<int> LinesPaid(const PayTable& table) {
    const CardTable deck = BuildCardTable(DeckOf(table));
    std::set<int> paid;
    Hand hand;
    const auto deal = [&](const auto& self, std::size_t at, CardCode from) -> void {
        if (at == kHandSize) return void(paid.insert(EvaluateHand(hand, table, 5).line));
        for (CardCode card = from; card < deck.deckSize; ++card) {
            hand[at] = FaceOf(deck, card);
            self(self, at + 1, card + 1);
        }
    };
    deal(deal, 0, 0);
    return paid;
}

TEST(LiveAnalysisTest, ALineThatIsNeverPaidIsNamedWithThoseThatTakeItsHands) {
    PayTable jacks = JacksOrBetter();
    jacks.lines.push_back(Natural(kStraightFlush, 9));                // 9
    jacks.lines.push_back(Natural(kBonusFourOfAKind, 9, {{1}, {}}));  // 10
    jacks.lines.insert(jacks.lines.begin() + 6, Natural(kFlush, 3));  // 6, after 4
    jacks.lines.push_back(Natural(kFiveOfAKind, 9));                  // 12
    PayTable deuces = DeucesWild();
    deuces.lines.push_back(Natural(kRoyalFlush, 9));
    deuces.lines.push_back(Wild(kFiveOfAKind, 9));
    const std::pair<PayTable, std::vector<UnpaidLine>> cases[] = {
        {jacks, {{6, {0, 1, 4}}, {10, {0, 1}}, {11, {2}}, {12, {}}}},
        {deuces, {{10, {0}}, {11, {1, 3}}}},
    };
    for (const auto& [table, expected] : cases) {
        const auto found = FindUnpaidLines(table, LineTables(table), [] { return true; });
        EXPECT_EQ(found, expected);
        const auto paid = LinesPaid(table);
        for (int line = 0; line < static_cast<int>(table.lines.size()); ++line) {
            EXPECT_EQ(paid.contains(line), std::ranges::count(found, line, &UnpaidLine::line) == 0)
                << line;
        }
    }
    PayTable aces = WithLine(AcesBonus(), Natural(kFourOfAKind, 9));
    const auto found = FindUnpaidLines(aces, LineTables(aces), [] { return true; });
    const auto inOrder = std::ranges::find(aces.lines, kFourAcesInOrder, &PayLine::rank);
    const int line = static_cast<int>(inOrder - aces.lines.begin());
    EXPECT_EQ(std::ranges::count(found, UnpaidLine{line, {0}}), 1) << "all quads go to line 1";
    aces = AcesBonus();
    EXPECT_TRUE(FindUnpaidLines(aces, LineTables(aces), [] { return true; }).empty());
    EXPECT_EQ(UnpaidText({6, {1, 3, 4}}), "Never paid: lines 2, 4 and 5 take all its hands.");
}

TEST(LiveAnalysisTest, TheBreakEvenPayIsTheLeastThatReturnsAll) {
    for (const PayTable& game : {JacksOrBetter(), DeucesWild(), DeucesAndJoker()}) {
        PayTable table = game;
        const auto top = static_cast<std::size_t>(TopLine(table));
        const LineTables tables(table);
        int runs = 0;
        const auto returnAt = [&](int pay) -> std::optional<ReturnAtPay> {
            ++runs;
            table.lines[top].maxPayout = pay;
            const GameTotals totals = AnalyzeGame(tables, table, 1.0, {});
            return {{totals.payoutPercent, totals.summary[top] / totals.denominator * 20}};
        };
        const int pay = BreakEvenPay(game.lines[top].maxPayout, returnAt).value();
        EXPECT_LE(runs, 8);
        EXPECT_GE(returnAt(pay)->returnPercent, 100);
        EXPECT_LT(returnAt(pay - 1)->returnPercent, 100);
    }
    // A line that nobody plays for at first; a game that is too good; one that is out of reach; a
    // run that is cancelled.
    const auto slow = [](int pay) -> std::optional<ReturnAtPay> {
        return {{pay < 5000 ? 90 : 90 + (pay - 5000) * 0.001, pay < 5000 ? 0 : 0.001}};
    };
    EXPECT_EQ(BreakEvenPay(1, slow), 15000);
    EXPECT_EQ(BreakEvenPay(60000, slow), 15000);
    EXPECT_EQ(BreakEvenPay(50, [](int) { return ReturnAtPay{101, 0.1}; }), 0);
    // Slopes that say nothing.
    for (const int least : {1, 2, 7, 1'000'000}) {
        int runs = 0;
        const auto steep = [&](int pay) -> std::optional<ReturnAtPay> {
            ++runs;
            return {{pay < least ? 90.0 : 100.0, 1e6}};
        };
        EXPECT_EQ(BreakEvenPay(2'000'000, steep), least);
        EXPECT_EQ(BreakEvenPay(least + 1, steep), least);
        EXPECT_LT(runs, 200);
    }
    EXPECT_EQ(BreakEvenPay(50, [](int) { return ReturnAtPay{10, 0}; }), std::nullopt);
    EXPECT_EQ(BreakEvenPay(50, [](int) { return std::nullopt; }), std::nullopt);
}

// The slowest games of all, in the middle of building their tables or of playing their hands.
TEST(LiveAnalysisTest, CancellingAndEndingTakeNoTime) {
    for (const PayTable& table : {DeucesDeluxe(), OneEyedJacks(), AcesBonus(), PickEm()}) {
        for (const auto pause : {0ms, 5ms, 30ms}) {
            std::optional<LiveAnalysis> analysis(std::in_place, [](const LiveResult&) {});
            analysis->Start(table);
            std::this_thread::sleep_for(pause);
            analysis->Cancel();
            const auto start = std::chrono::steady_clock::now();
            analysis.reset();
            EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
        }
    }
}

TEST(LiveAnalysisTest, WhatIsMissingIsToldWithItsLine) {
    PayTableTexts texts;
    const auto told = [&texts] { return LiveText(*FindProblem(texts)); };
    ChooseRank(texts.lines[0], kOnePair);
    texts.lines[0].payout = texts.lines[0].maxPayout = "1";
    EXPECT_EQ(told(), "Minimum pair can not be blank if 1 Pair rank is selected");
    texts.minPair = "J";
    ChooseRank(texts.lines[1], kFlush);
    EXPECT_EQ(told(), "Line 2: Payout can not be blank and must be numeric");
}

}  // namespace
