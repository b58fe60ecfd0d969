// The table of a hand's holds, and the hand as it is typed.
#include "game/reports/HandRows.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/cards/CardText.h"
#include "core/store/ErrorLog.h"
#include "game/engine/Dealing.h"
#include "game/reports/HandReport.h"
#include "tests/game/TestMachine.h"

namespace {

using enum LineFigure;

struct HandRowsTest : testing::Test, TestMachine {
    // Deals the hand, of which the cards are held then, to the player.
    void Lend(std::string_view cards, HoldMask held = 0) {
        spare.settings = engine.settings;
        LoadGame(spare, files, tables);
        if (!engine.handOver) Draw(0);
        Deal(cards);
        HoldCards(engine, held);
        LendHand(engine, spare);
    }
    ReportTable Table(LineFigure figure = kProbability) const {
        return HandTable(spare, figure, 0);
    }
    // "Hold|Rank|Return", the first of the columns of a row.
    static std::string Cells(const ReportTable& table, std::size_t row, std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) {
            text += (i == 0 ? "" : "|") + table.rows.at(row).cells.at(i).text;
        }
        return text;
    }
    double SumOfLines(const ReportTable& table, std::size_t row) const {
        const auto& cells = table.rows[row].cells;
        double sum = 0;
        for (std::size_t i = cells.size() - spare.payTable.lines.size(); i < cells.size(); ++i) {
            sum += cells[i].value.value_or(0);
        }
        return sum;
    }
    std::string Typed(std::string_view text) {
        const std::string problem = TakeTypedHand(spare, text);
        return problem.empty() ? HandInWords(spare) : problem;
    }

    GameEngine spare;
};

// Of the 47 cards one makes the royal for 4000, one the straight flush for 250, seven the flush for
// 30, six a straight for 20, and twelve a pair for 5: 4330 / 47.
TEST_F(HandRowsTest, ARowSaysWhatAHoldIsWorthAndWhatItCosts) {
    Lend("AS KS QS JS 9S", kStandPat);
    const ReportTable table = Table();
    ASSERT_EQ(table.rows.size(), kHolds);
    EXPECT_EQ(Cells(table, 0, 7), "AS KS QS JS __|1|92.1277|0.0000|0.00|48.94|47");
    EXPECT_EQ(table.rows[0].id, 30);
    EXPECT_TRUE(table.rows[0].cells[0].cards[4].IsEmpty());
    EXPECT_EQ(table.rows[0].cells.back().text, "2.1277");
    EXPECT_EQ(Table(kOdds).rows[0].cells.back().text, "47.00");
    EXPECT_EQ(Table(kShareOfReturn).rows[0].cells.back().text, "92.38");
    EXPECT_EQ(table.rows[0].mark, RowMark::kBest);
    EXPECT_EQ(Cells(table, 1, 5), "AS KS QS JS 9S|2|30.0000|62.1277|1,242.55");
    EXPECT_EQ(table.rows[1].mark, RowMark::kChosen);
    EXPECT_EQ(table.rows[1].remark, "your hold");
    EXPECT_EQ(table.head[4].value, "AS KS QS JS 9S");
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        EXPECT_NEAR(SumOfLines(table, row), *table.rows[row].cells[5].value, 1e-9) << row;
        const ReportTable counts = Table(kHands);
        EXPECT_NEAR(SumOfLines(counts, row) / *counts.rows[row].cells[6].value * 100,
                    *table.rows[row].cells[5].value, 1e-9);
        EXPECT_NEAR(SumOfLines(Table(kShareOfReturn), row), 100, 1e-9) << row;
    }
    EXPECT_EQ(Table(kOdds).rows[1].cells.back().text, "never");
    Lend("AS KS QS JS 9S", 30);
    EXPECT_EQ(Table().rows[0].remark, "best, and your hold");
    Draw(30);
    LendHand(engine, spare);
    EXPECT_EQ(Table().rows[0].remark, "best, and your hold") << "in the draw";
    EXPECT_EQ(Typed("AS KS QS JS 9S"), "AS KS QS JS 9S");
    EXPECT_EQ(Table().rows[0].remark, "") << "nobody has played it";
    ErrorLogEntry entry{.hand = spare.dealtCopy, .player = kStandPat};
    EXPECT_TRUE(LendLoggedHand(entry, spare));
    EXPECT_EQ(Table().rows[1].remark, "your hold");
    entry.hand[4] = kNoCard;
    EXPECT_FALSE(LendLoggedHand(entry, spare));
}

TEST_F(HandRowsTest, HoldsOfEqualWorthHaveTheSameRank) {
    Lend("8C 8D 8H 5S 5D");
    const ReportTable table = Table();
    std::string ranks;
    for (std::size_t row = 0; row < 9; ++row) ranks += table.rows[row].cells[1].text + ' ';
    EXPECT_EQ(ranks, "1 2 3= 3= 5= 5= 5= 8 9= ");
    Lend("AS AH AD AC 9H");
    EXPECT_EQ(Table().rows[1].mark, RowMark::kBest) << "with the kicker or without";
    EXPECT_EQ(Table().rows[2].mark, RowMark::kNone);
}

TEST_F(HandRowsTest, GamesWithASecondRowKeepTheirParticulars) {
    Play("Pick Em Poker", 350);
    Lend("7S 8S JH 2D 3D 9S");
    EXPECT_EQ(HandInWords(spare), "7S 8S JH 9S");
    ReportTable table = Table();
    ASSERT_EQ(table.rows.size(), 2U);
    EXPECT_EQ(Cells(table, 0, 2), "7S 8S __ __ 9S|1");
    EXPECT_EQ(Cells(table, 1, 2), "7S 8S __ JH __|2");
    EXPECT_EQ(table.rows[1].mark, RowMark::kNone) << "nothing is held in this game";
    for (const auto& [drawn, row] : {std::pair(kStandPat, 1U), {kPlayersTwo, 0U}}) {
        Lend("7S 8S JH 2D 3D 9S");
        Draw(drawn);
        LendHand(engine, spare);
        EXPECT_TRUE(Table().rows[row].remark.ends_with("your hold")) << "the pile chosen";
    }
    ASSERT_TRUE(LendLoggedHand(
        {.hand = spare.dealtCopy, .draws = spare.drawCards, .player = kLeftPile}, spare));
    EXPECT_EQ(Table().rows[1].remark, "your hold");
    EXPECT_EQ(Typed("KC KD 2S KH"), "KC KD 2S KH");
    EXPECT_EQ(Cells(Table(), 0, 1), "KC KD __ __ KH");
    EXPECT_EQ(Typed("KC KD 2S"), "3 cards given where 4 are needed");
    Play("Sneak Peak Poker", 351);
    Lend("AS AH KD 7C 2S 7D");
    table = Table();
    EXPECT_EQ(table.columns[2].title, "First Draw");
    EXPECT_EQ(Cells(table, 0, 3), "AS AH __ 7C __|1|7D at 3");
    EXPECT_EQ(Typed("AS AH KD 7C 3S"), "AS AH KD 7C 3S 7D") << "the known card stays";
    EXPECT_EQ(Typed("AS AH KD 7D 3S 10c"), "AS AH KD 7D 3S TC");
    const HandCards draws = spare.drawCards;
    const CardCode second = draws[1];
    EXPECT_EQ(Typed("AS AH KD 7D 3S " + CardText(spare.deck.table, second)).substr(0, 14),
              "AS AH KD 7D 3S");
    EXPECT_EQ(std::ranges::count(spare.drawCards, second), 1);
    EXPECT_EQ(spare.drawCards[1], draws[0]) << "the two change places";
    EXPECT_EQ(Typed("2S AH"), "2 cards given where 6 are needed");
    Play("Dbl Draw Bonus", 318);
    Lend("AS AH KS 9C 9D");
    EXPECT_TRUE(Table().rows[0].cells.back().text.starts_with('*') ||
                Table(kHands).rows[0].cells[8].text.starts_with('*'));
}

TEST_F(HandRowsTest, AWrongTextChangesNothingAndSaysWhatIsWrong) {
    Lend("AS KS QS JS 9S", kStandPat);
    EXPECT_EQ(Typed("as ks qs js 9s 9s"), "\"9s\" is given twice: a deck holds each card once");
    EXPECT_TRUE(Typed("AS KS QS 1X 9S").starts_with("\"1X\" is not a card"));
    EXPECT_EQ(HandInWords(spare), "AS KS QS JS 9S");
    EXPECT_EQ(PlayersHold(spare), kStandPat);
    EXPECT_EQ(Typed(" 10s ks\tqs js AS "), "TS KS QS JS AS");
    EXPECT_EQ(Cells(Table(), 0, 3), "TS KS QS JS AS|1|4,000.0000");
    EXPECT_EQ(PlayersHold(spare), std::nullopt) << "this hand is not the one played";
    spare.statistics.setCards[0] = kNoCard;
    engine.dealtCopy[1] = kNoCard;
    LendHand(engine, spare);
    EXPECT_TRUE(Table().rows.empty());
    EXPECT_FALSE(Table().warning.empty());
}

}  // namespace
