#include "core/strategy/Grade.h"

#include "core/strategy/RowText.h"
#include "tests/core/strategy/SecondGrade.h"

namespace {

ChartGrade Graded(const PayTable& table, const std::string& text) {
    const ReadChart chart = ParseChart(text);
    EXPECT_TRUE(chart.valid) << chart.problem.line << ":" << chart.problem.word << " "
                             << chart.problem.found << "; " << chart.problem.expected;
    const LineTables tables(table);
    return GradeChart(StartingHands(tables, table), Terms(tables, table), chart.rows);
}

// Both sides sum in whole numbers, so that nothing less than the last one will do.
void ExpectSameGrade(const PayTable& table, const std::string& text) {
    const ChartGrade grade = Graded(table, text);
    const second::Grade slow = second::GradeSlowly(table, text);
    ASSERT_EQ(grade.partsOfCoin, slow.parts);
    EXPECT_EQ(grade.hands, slow.hands);
    EXPECT_TRUE(grade.best == slow.best);
    EXPECT_TRUE(grade.worst == slow.worst) << PercentText(grade.worst, grade.Bet(), 9);
    EXPECT_TRUE(grade.bestReading == slow.bestReading);
    EXPECT_EQ(grade.ambiguousHands, slow.ambiguous);
    ASSERT_EQ(grade.rows.size() + 1, slow.handsOfRow.size());
    EXPECT_EQ(grade.rest.hands, slow.handsOfRow.back());
    for (std::size_t row = 0; row < grade.rows.size(); ++row) {
        EXPECT_EQ(grade.rows[row].hands, slow.handsOfRow[row]) << "row " << row + 1;
        EXPECT_TRUE(grade.rows[row].loss == slow.lossOfRow[row]) << "row " << row + 1;
    }
}

// The known intermediate chart of jacks or better, as people write it.
constexpr const char* kJacks = R"(
pat full house or better
4 to a royal flush
pat straight or better
three of a kind
4 to a straight flush
two pair
high pair
3 to a royal flush
4 to a flush
low pair
4 to a straight, 2 straights
3 to a straight flush, 3+ straights and high cards
2 high cards, suited
4 to a straight, 3+ high cards
3 to a straight flush, 2+ straights and high cards
2 high cards, without A     # the one with an ace comes too late for K Q
2 high cards
J T suited
1 high card
3 to a straight flush
discard everything
)";

// Every word there is, with no sense but to be read the same twice.
constexpr const char* kAllWords = R"(
pat four of a kind, of 5-A, kicker 2-4
pat royal flush
pat straight flush
three of a kind and a kicker, of T-A, kicker 2
pat full house, of A
4 to a royal flush, discarding 9
pat flush or better, ranks 5-K
4 to a straight flush, no straight penalty
three of a kind, of 2-9
pair and a kicker, with A, of K
pat three of a kind, 0 wild cards
two pair, without A, kicker 7-T
3 to a royal flush, no flush penalty, 0-1 high cards discarded
high pair, straight penalty
pair, discarding A K
3 to a straight flush, 1 high card, 2+ straights
K Q J suited
4 to a straight, unsuited, 1-2 straights and high cards, 0 gaps
3 to a straight, 1 open straight
3 to a straight, 1 gap
low pair, not discarding T 9
3 to a flush, 2+ flush penalties
3 to a flush, flush penalty
2 high cards, 0-2 open straights
2 high cards, suited, 1 straight or high card
2 to a straight, ranks 9-J, no straight penalty, 2-3 suits discarded
1 high card, 1 high card discarded
)";

constexpr const char* kWild = R"(
pat four wild cards or better
four of a kind, 1-2 wild cards
3 wild cards
pat five of a kind, of A
4 to a royal flush, 1+ wild cards
pat straight or better, 0-2 wild cards
W W T
W A K suited
three of a kind, 1+ jokers
4 to a straight flush, ranks 4-A, 0 jokers
2 wild cards
pair, 1 wild card
3 to a straight flush, 1 wild card, 3+ straights
4 to a flush
pat three of a kind or better
1 wild card
pair, 0 wild cards
4 to a straight, 2+ straights
3 to a royal flush
2 to a royal flush, without A, 1 flush penalty, 1 suit discarded
W 5, suited wild card
W 6, two-eyed suit
W 7, 2+ open straights
3 to a straight flush, one-eyed suit
)";

// Few rows, since two suits that are unlike the others leave five times as many hands.
constexpr const char* kShort = R"(
4 to a royal flush, 0 wild cards
4 to a straight flush, suited wild card
W T, two-eyed suit
three of a kind, 1+ wild cards
3 to a royal flush, no suited wild card
3 to a flush, flush penalty
3 to a straight flush, one-eyed suit
T
)";

TEST(GradeTest, JacksOrBetterReturnsWhatASlowReaderFinds) {
    ExpectSameGrade(JacksOrBetter(), kJacks);
}

TEST(GradeTest, TheOptimumOfJacksOrBetterIsThePublishedOne) {
    const ChartGrade grade = Graded(JacksOrBetter(), kJacks);
    EXPECT_EQ(PercentText(grade.best, grade.Bet(), 6), "99.543904");
    EXPECT_EQ(grade.hands, 2'598'960);
    EXPECT_EQ(grade.rest.hands, 0);
}

struct OddChart {
    const char* name;
    const char* text;
    PayTable (*table)();
};

void PrintTo(const OddChart& chart, std::ostream* out) { *out << chart.name; }

class OddCharts : public testing::TestWithParam<OddChart> {};

TEST_P(OddCharts, AreGradedAsASlowReaderGradesThem) {
    ExpectSameGrade(GetParam().table(), GetParam().text);
}

constexpr OddChart kDeucesAndJoker{"deuces and joker", kWild, &DeucesAndJoker};

// All hands of a deck take the slow reader seconds; under the sanitizers one chart has to do.
#if defined(__SANITIZE_ADDRESS__)
INSTANTIATE_TEST_SUITE_P(Words, OddCharts, testing::Values(kDeucesAndJoker));
#else
INSTANTIATE_TEST_SUITE_P(
    Words, OddCharts,
    testing::Values(OddChart{"kickers", kAllWords, &DoubleDoubleBonus},
                    OddChart{"five aces", kAllWords, &FiveAces}, kDeucesAndJoker,
                    OddChart{"one-eyed jacks", kShort, &OneEyedJacks},
                    OddChart{"two jokers", kWild, [] { return JokerPoker(2); }}));
#endif

}  // namespace
