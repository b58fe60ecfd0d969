#include "core/strategy/ChartStudy.h"

#include <regex>
#include <set>

#include "core/strategy/CardDrawing.h"
#include "core/strategy/MakeCard.h"
#include "core/strategy/RowText.h"
#include "tests/core/TestGames.h"

namespace {

constexpr const char* kRows =
    "pat straight or better\n"
    "three of a kind\n"
    "two pair\n"
    "high pair\n"
    "4 to a flush\n"
    "pair\n";

ChartStudy Studied(const PayTable& table, const std::string& rows, const Progress& progress = {}) {
    const LineTables tables(table);
    const StartingHands hands(tables, table);
    return StudyChart(hands, Terms(tables, table), ParseChart(rows).rows, progress);
}

ChartCard CardOf(const std::string& title, const std::string& rows) {
    PayTable table = JacksOrBetter();
    return MakeCard({300, title, 0}, table, Studied(table, rows), "2026-11-23");
}

int CountOf(const std::string& text, const std::string& word) {
    int count = 0;
    for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) ++count;
    return count;
}

}  // namespace

// The exceptions are found hand by hand, the loss by the grade: they must agree to the last
// integer.
TEST(ChartStudyTest, TheExceptionsLoseTogetherWhatTheChartLoses) {
    const std::string wild = std::string("2 to a royal flush, suited wild card\n") + kRows;
    for (const auto& [table, rows] :
         {std::pair(JacksOrBetter(), std::string(kRows)), {DeucesWild(), wild}}) {
        const ChartStudy study = Studied(table, rows);
        EXPECT_FALSE(study.examples[0].hand[0].IsEmpty());
        Worth loss = 0;
        std::int64_t hands = 0;
        for (const ExceptionGroup& group : study.exceptions) {
            loss += group.loss;
            hands += group.hands;
            EXPECT_FALSE(group.dearest.empty());
            EXPECT_LE(group.dearest.size(), ChartStudy::kMostListed);
            EXPECT_TRUE(
                std::ranges::is_sorted(group.dearest, std::greater(), &ExceptionHand::cost));
        }
        EXPECT_TRUE(loss == study.grade.Loss());
        EXPECT_GT(hands, 0);
        EXPECT_LT(hands, study.grade.hands);
        EXPECT_TRUE(std::ranges::is_sorted(
            study.exceptions,
            [](const ExceptionGroup& a, const ExceptionGroup& b) { return a.loss > b.loss; }));
    }
}

TEST(ChartStudyTest, ExamplesHoldWhatTheirRowsSay) {
    const ChartStudy study = Studied(JacksOrBetter(), kRows);
    ASSERT_EQ(study.examples.size(), 6U);
    const auto held = [&](std::size_t row) {
        int cards = 0;
        for (std::size_t i = 0; i < kHandSize; ++i) cards += Holds(study.examples[row].held, i);
        return cards;
    };
    for (std::size_t row = 0; row < 6; ++row) {
        EXPECT_EQ(study.examples[row].hand, study.grade.rows[row].example)
            << "rightly played, where there is such a one";
    }
    EXPECT_EQ(held(0), 5);
    EXPECT_EQ(held(1), 3);
    EXPECT_EQ(held(2), 4);
    EXPECT_EQ(held(3), 2);
    std::set<int> suits;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if (Holds(study.examples[4].held, i)) suits.insert(study.examples[4].hand[i].suit);
    }
    EXPECT_EQ(suits.size(), 1U) << "four to a flush";
}

TEST(ChartStudyTest, AStudyIsCancelled) {
    EXPECT_TRUE(Studied(JacksOrBetter(), kRows, [](double) { return false; }).cancelled);
}

TEST(ChartCardTest, TheTextIsReadBackAsTheChart) {
    const ChartCard card = CardOf("Jacks\nor # Better", kRows);
    const ReadChart read = ParseChart(CardAsText(card));
    EXPECT_TRUE(read.valid);
    EXPECT_EQ(read.rows, ParseChart(kRows).rows);
    EXPECT_EQ(card.title, "Jacks or # Better, table 0");
}

// Every row is there, inside the card and beside no other, however many there are.
TEST(ChartCardTest, AllOfACardIsInsideIt) {
    std::string rows;
    for (int i = 0; i < 75; ++i) {
        const ChartCard card = [&] {
            rows += "4 to a straight, 2+ straights and high cards, with A K, without Q J T 9\n";
            return i == 5 || i == 74 ? CardOf("A <game> & \"more\"", rows) : ChartCard{};
        }();
        if (card.lines.empty()) continue;
        const std::string svg = CardAsSvg(card);
        EXPECT_EQ(CountOf(svg, ">4 to a"), i + 1);
        EXPECT_NE(svg.find("A &lt;game&gt; &amp; "), std::string::npos);
        const std::regex place("<text x=\"([0-9.]+)\" y=\"([0-9.]+)\"");
        for (std::sregex_iterator at(svg.begin(), svg.end(), place), end; at != end; ++at) {
            EXPECT_LT(std::stod((*at)[1]), kCardWidth);
            EXPECT_LT(std::stod((*at)[2]), kCardHeight);
        }
    }
}

TEST(ChartCardTest, ThePartsOfThePdfAreWhereItSaysTheyAre) {
    const std::string pdf = CardAsPdf(CardOf("Wei\xC3\x9F (\xE4\xB8\x80)", kRows));
    EXPECT_NE(pdf.find("(Wei\xDF \\(?\\), table 0) Tj"), std::string::npos);
    const std::regex place("(\\d{10}) 00000 n");
    int number = 0;
    for (std::sregex_iterator at(pdf.begin(), pdf.end(), place), end; at != end; ++at) {
        EXPECT_EQ(pdf.compare(std::stoul((*at)[1]), 7, std::to_string(++number) + " 0 obj"), 0);
    }
    EXPECT_EQ(number, 7);
    const auto begin = pdf.find("stream\n") + 7;
    EXPECT_EQ(std::stoul(pdf.substr(pdf.find("/Length ") + 8)), pdf.find("endstream") - begin);
}
