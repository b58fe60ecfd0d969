#include "core/strategy/Search.h"

#include <cstdlib>
#include <random>

#include "core/strategy/RowText.h"
#include "core/strategy/Words.h"
#include "tests/core/strategy/SecondGrade.h"

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

// A table with what a search needs of it.
struct Game {
    explicit Game(PayTable wanted)
        : table(std::move(wanted)), tables(table), hands(tables, table), terms(tables, table) {}

    SearchResult Find(const SearchWish& wish, const Progress& progress = {}) const {
        return FindChart(hands, terms, table, wish, progress);
    }
    // A search is asked to go on some hundred times; stopped early, it has a chart all the same.
    SearchResult FindFast(const SearchWish& wish) const {
        int asked = 0;
        return Find(wish, [&asked](double) { return ++asked < 70; });
    }
    ChartGrade Grade(const Chart& chart) const { return GradeChart(hands, terms, chart); }
    double Loss(const Chart& chart) const {
        const ChartGrade grade = Grade(chart);
        return Percent(grade.Loss(), grade.Bet());
    }

    PayTable table;
    LineTables tables;
    StartingHands hands;
    Terms terms;
};

PayTable WithoutLines() {
    PayTable table = JacksOrBetter();
    table.lines.clear();
    return table;
}
PayTable OneLineOnly() {
    PayTable table = JacksOrBetter();
    table.lines = {Natural(kFlush, 6)};
    return table;
}
PayTable OddWilds() {
    PayTable table = DeucesWild();
    table.wildRanks = {2, 3, 11, 12, 1};
    return table;
}
PayTable NaturalJokers() {
    PayTable table = JacksOrBetter();
    table.jokers = 2;
    table.deckSize = 54;
    return table;
}

TEST(SearchTest, TheStandardChartOfJacksOrBetterIsShort) {
    if (kSanitized) GTEST_SKIP() << "takes minutes";
    const Game game(JacksOrBetter());
    std::vector<double> told;
    const SearchResult found = game.Find(kStandardChart, [&told](double done) {
        told.push_back(done);
        return true;
    });
    EXPECT_TRUE(std::ranges::is_sorted(told));
    EXPECT_GT(told[15], 0.05) << "while half of the hands are read";
    EXPECT_GT(told.back(), 0.8);
    EXPECT_LT(told.back(), 1);
    EXPECT_LE(found.chart.size(), 22U);
    const ChartGrade grade = game.Grade(found.chart);
    EXPECT_EQ(PercentText(grade.worst, grade.Bet(), 6), "99.536052");
    EXPECT_EQ(found.chart.back(), Row());
    for (const Row& row : found.chart) EXPECT_FALSE(row.AsksOfDiscards()) << RowText(row);
    for (const RowGrade& row : grade.rows) EXPECT_GT(row.hands, 0);
    for (std::size_t size = 1; size < found.bySize.size(); ++size) {
        const auto& [rows, loss] = found.bySize[size];
        if (rows.empty()) continue;
        EXPECT_EQ(rows.size(), size);
        EXPECT_NEAR(game.Loss(rows), loss, 1e-5) << size;
    }
}

TEST(SearchTest, AChartOfJacksOrBetterWithConditionsLosesNothing) {
    if (kSanitized) GTEST_SKIP() << "takes minutes";
    const Game game(JacksOrBetter());
    std::vector<SearchResult::Found> better;
    const SearchResult found = FindChart(game.hands, game.terms, game.table, {45, 0, true}, {},
                                         [&](const auto& chart) { better.push_back(chart); });
    EXPECT_LE(found.chart.size(), 45U);
    EXPECT_TRUE(game.Grade(found.chart).Loss() == 0) << ChartText(found.chart);
    EXPECT_EQ(better.back().rows, found.chart);
    EXPECT_GE(better.size(), 2U);
}

TEST(SearchTest, TheSameTableGivesTheSameChart) {
    const SearchWish wish{12, -1, true};
    const Game game(JacksOrBetter());
    const Chart chart = game.FindFast(wish).chart;
    EXPECT_EQ(chart.size(), 12U);
    EXPECT_LT(game.Loss(chart), 0.6);
    EXPECT_EQ(ChartText(Game(JacksOrBetter()).FindFast(wish).chart), ChartText(chart));
}

class OddTables : public testing::TestWithParam<PayTable (*)()> {};

TEST_P(OddTables, HaveChartsThatDecideEveryHand) {
    const Game game(GetParam()());
    const SearchResult found = game.FindFast({8, -1, false});
    const ChartGrade grade = game.Grade(found.chart);
    EXPECT_EQ(grade.hands, Combinations(game.table.deckSize, kHandSize));
    EXPECT_EQ(grade.rest.hands, 0);
    EXPECT_TRUE(grade.worst <= grade.bestReading && grade.bestReading <= grade.best);
}

INSTANTIATE_TEST_SUITE_P(All, OddTables,
                         testing::Values(
                             &WithoutLines, &OneLineOnly, &OddWilds, &NaturalJokers, &AcesBonus,
                             &DoubleDraw, +[] { return JokerPoker(5); }));

TEST(SearchTest, TheBestPlayIsThatOfTheWholeGame) {
    for (const PayTable& table :
         {AcesBonus(), DoubleDraw(), WithLine(JacksOrBetter(), Natural(kFourAcesInOrder, 800))}) {
        const Game game(table);
        const ChartGrade grade = game.Grade({Row()});
        const GameTotals totals = AnalyzeGame(game.tables, game.table, 1, {});
        EXPECT_NEAR(Percent(grade.best, grade.Bet()), totals.payoutPercent, 1e-8);
    }
}

// Five cards drawn for five are any five of the deck in any order, so four aces with one of the 48
// others beside them come in order in 2 of 120 orders.
TEST(SearchTest, AcesInOrderAreWorthTheirMeanOverAllOrders) {
    PayTable table = AcesBonus();
    table.lines = {Natural(kFourAcesInOrder, 800)};
    const Game game(table);
    const ChartGrade grade = game.Grade({Row()});
    EXPECT_NEAR(Percent(grade.worst, grade.Bet()), 100.0 * 800 * 48 / 60 / 2'598'960, 1e-12);
}

TEST(SearchTest, ACancelledSearchHasAValidChart) {
    const Game game(JacksOrBetter());
    for (const int last : {0, 1, 40, 60}) {
        int asked = 0;
        const SearchResult found = game.Find(kStandardChart, [&](double done) {
            EXPECT_GE(done, 0);
            EXPECT_LE(done, 1);
            return ++asked <= last;
        });
        EXPECT_TRUE(found.cancelled);
        ASSERT_FALSE(found.chart.empty());
        EXPECT_EQ(game.Grade(found.chart).rest.hands, 0);
        EXPECT_LT(game.Loss(found.chart), last == 60 ? 0.1 : 100);
    }
}

// A search looks at less of the discards than a grade does, and must see the same in it.
TEST(SearchTest, PenaltiesAreSeenAsTheDiscardsShowThem) {
    const Game game(JokerPoker(2));
    const ReadChart asked = ParseChart(
        "T, 3+ open straights\nT W, 2+ open straights\npair, 0 open straights\n"
        "2 to a flush, 1-2 open straights\n4 to a straight, 1+ open straights\n"
        "3 to a flush, flush penalty\npair, straight penalty\nJ T, no straight penalty\n"
        "discard everything, 0 open straights");
    ASSERT_TRUE(asked.valid);
    std::vector<int> fits(asked.rows.size());
    int visited = 0;
    game.hands.ForEach([&](const StartingHand& hand) {
        if (++visited % 7 != 0) return true;
        HandLooks few{}, all{};
        LookAtHand(game.terms, hand, LookAt::kPenaltiesToo, few);
        LookAtHand(game.terms, hand, LookAt::kDiscardsToo, all);
        for (std::size_t held = 0; held < kSubsets; ++held) {
            const HoldTraits a = TraitsOf(game.terms, few[held]);
            const HoldTraits b = TraitsOf(game.terms, all[held]);
            for (std::size_t i = 0; i < fits.size(); ++i) {
                const bool fit = Fits(asked.rows[i], b, game.terms);
                fits[i] += fit ? 1 : 0;
                if (Fits(asked.rows[i], a, game.terms) != fit) {
                    ADD_FAILURE() << RowText(asked.rows[i]);
                    return false;
                }
            }
        }
        return true;
    });
    for (std::size_t i = 0; i < fits.size(); ++i) {
        EXPECT_GT(fits[i], 0) << i;
        EXPECT_TRUE(asked.rows[i].AsksOfDiscards()) << i;
    }
}

TEST(SearchTest, OpenStraightsAreTriedBehindSingleLowCardsAlone) {
    const auto asks = [](const PayTable& table, const char* row, bool penalties) {
        const Game game(table);
        const auto words = Words(game.terms, table, {penalties}).For(ParseRow(row).row);
        return std::ranges::count(words, Ask::kOpenStraights, &Word::ask);
    };
    EXPECT_EQ(asks(JokerPoker(2), "T", true), 4);
    EXPECT_EQ(asks(JokerPoker(2), "T W", true), 4);
    EXPECT_EQ(asks(JokerPoker(2), "T", false), 0);
    EXPECT_EQ(asks(JokerPoker(2), "T 8", true), 0);
    EXPECT_EQ(asks(JacksOrBetter(), "K", true), 0);
}

TEST(SearchTest, TablesThatNoChartServesAreRefused) {
    EXPECT_NE(StartingHands::WhyNot(PickEm()), "");
    EXPECT_NE(StartingHands::WhyNot(SneakPeak()), "");
    EXPECT_EQ(StartingHands::WhyNot(JacksOrBetter()), "");
    PayTable rich = DoubleDraw();
    EXPECT_EQ(StartingHands::WhyNot(rich), "");
    rich.lines[0].maxPayout = 2'000'000'000;
    EXPECT_NE(StartingHands::WhyNot(rich), "") << "in whole numbers of 64 bits";
    rich.type = GameType::kStandard;
    EXPECT_EQ(StartingHands::WhyNot(rich), "");
}

// Any pays on a game that is drawn too.
PayTable RandomTable(std::mt19937& random) {
    constexpr PayTable (*games[])() = {&JacksOrBetter, &DoubleDoubleBonus,
                                       &DeucesWild,    &DeucesDeluxe,
                                       &FiveAces,      +[] { return JokerPoker(1); },
                                       &DeucesAndJoker};
    PayTable table = games[random() % std::size(games)]();
    table.minPair = 5 + static_cast<int>(random() % 11);
    for (PayLine& line : table.lines) {
        line.payout = static_cast<int>(static_cast<unsigned>(line.payout) * (random() % 4));
        line.maxPayout = line.payout * 5;
    }
    return table;
}

TEST(SearchTest, ASecondReaderConfirmsTheLossOfRandomTables) {
    std::mt19937 random(16);
    // More of them, as TOLVANE_RANDOM_TABLES=200 in the environment asks for, take minutes.
    const char* const wished = std::getenv("TOLVANE_RANDOM_TABLES");
    const int tables = wished != nullptr ? std::atoi(wished) : kSanitized ? 1 : 4;
    for (int i = 0; i < tables; ++i) {
        const Game game(RandomTable(random));
        const SearchResult found = game.FindFast({10, -1, i % 4 == 0});
        const ChartGrade grade = game.Grade(found.chart);
        const second::Grade slow = second::GradeSlowly(game.table, ChartText(found.chart));
        ASSERT_EQ(grade.partsOfCoin, slow.parts);
        EXPECT_TRUE(grade.best == slow.best && grade.worst == slow.worst) << ChartText(found.chart);
        EXPECT_NEAR(found.bySize[found.chart.size()].loss,
                    Percent(slow.best - slow.worst, grade.Bet()), 1e-4);
        EXPECT_EQ(grade.ambiguousHands, slow.ambiguous);
    }
}

}  // namespace
