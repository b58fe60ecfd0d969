#include "game/reports/StrategyRows.h"

#include <algorithm>
#include <cmath>

#include "core/cards/CardText.h"
#include "core/strategy/RowText.h"
#include "core/text/Amount.h"
#include "core/text/Numbers.h"
#include "core/text/Ranks.h"
#include "game/reports/ReportCells.h"

namespace {

constexpr double kHandsAnHour = 600;

struct CoinName {
    int cents;
    const char* name;
};
constexpr CoinName kCoinNames[] = {
    {5, "nickels"}, {25, "quarters"}, {50, "half dollars"}, {100, "dollars"}};

std::string CoinsText(double coin) {
    const auto cents = std::lround(coin * 100);
    for (const CoinName& known : kCoinNames) {
        if (known.cents == cents) return known.name;
    }
    return FormatDollars("%.2f", coin) + " coins";
}

std::string CardText(CardFace face) {
    std::string text(1, RankChar(face.rank));
    if (!face.IsJoker()) text += SuitChar(face.suit);
    return text;
}

// The cards of the mask; those that are not held leave no gap.
ReportCell CardsCell(const Hand& hand, HoldMask mask) {
    ReportCell cell;
    for (std::size_t i = 0; i < hand.size(); ++i) {
        if (!Holds(mask, i) || hand[i].IsEmpty()) continue;
        cell.text += (cell.text.empty() ? "" : " ") + CardText(hand[i]);
        cell.cards.push_back(hand[i]);
    }
    if (cell.text.empty() && !hand[0].IsEmpty()) cell.text = "nothing";
    return cell;
}

std::string LineName(const Chart& chart, std::size_t row) {
    if (row >= chart.size()) return "no line";
    return std::to_string(row + 1) + ". " + RowText(chart[row]);
}

// Several holds fit the row that decides, and the best of them is the best play.
bool IsOneRow(const Chart& chart, const ExceptionGroup& group) {
    return group.row == group.bestRow && group.row < chart.size();
}

ReportTable TableOf(const ShownChart& shown, const char* title) {
    ReportTable table;
    table.title = title;
    table.head = {{"Game", shown.place.gameName},
                  {"Table", std::to_string(shown.place.tableIndex)},
                  {"Chart", PriceText(PriceOf(shown.study), shown.coin)}};
    return table;
}

double PercentOf(const ChartGrade& grade, Worth worth) { return Percent(worth, grade.Bet()); }

double BetsOf(const ChartGrade& grade, std::int64_t parts) {
    return static_cast<double>(parts) / static_cast<double>(grade.partsOfCoin) / kFullBet;
}

ReportCell ShareCell(const ChartGrade& grade, std::int64_t hands) {
    return NumberCell("%.4f", Percent(hands, grade.hands));
}

const ReportColumn kCost = {"Cost", "bets", true, "What the chart's hold loses of the bet"};

void AddHand(const ChartGrade& grade, const ExceptionHand& hand, std::vector<ReportCell>& cells) {
    cells.push_back(CardsCell(hand.hand, kStandPat));
    cells.push_back(CardsCell(hand.hand, hand.chartHold));
    cells.push_back(CardsCell(hand.hand, hand.bestHold));
    cells.push_back(NumberCell("%.4f", BetsOf(grade, hand.cost)));
}

}  // namespace

ChartPrice PriceOf(const ChartStudy& study) {
    return {study.chart.size(), PercentOf(study.grade, study.grade.best),
            PercentOf(study.grade, study.grade.Loss())};
}

std::string PriceText(const ChartPrice& price, double coin) {
    std::string text = std::to_string(price.lines) + (price.lines == 1 ? " line: " : " lines: ") +
                       FormatDouble("%.4f", price.best - price.loss) + " %, " +
                       FormatDouble("%.4f", price.loss) + " % below the best play";
    if (coin > 0) {
        text += ", " + FormatDollars("%.2f", price.loss / 100 * kFullBet * coin * kHandsAnHour) +
                " an hour at " + CoinsText(coin) + " and " + FormatDouble("%.0f", kHandsAnHour) +
                " hands";
    }
    return text;
}

ReportTable ChartTable(const ShownChart& shown) {
    const auto& [chart, grade, examples, exceptions, cancelled] = shown.study;
    ReportTable table = TableOf(shown, "Strategy");
    table.columns = {
        {"Line", "", true, "Hold what the first of these lines that fits your hand says"},
        {"Hold", "", false, "The cards to hold, in the words of the guide"},
        {"Example", "", false, "A hand that the line decides"},
        {"Hands", "%", true, "Of all hands those that the line decides"},
        {"Loss", "%", true, "What they lose against the best play, in percent of all bets"},
        {"Held", "", false, "What the line holds of the example"}};
    const auto add = [&](const RowGrade& row, ReportRow line, const HeldHand& example) {
        line.cells.push_back(CardsCell(example.hand, kStandPat));
        line.cells.push_back(ShareCell(grade, row.hands));
        line.cells.push_back(NumberCell("%.6f", PercentOf(grade, row.loss)));
        line.cells.push_back(CardsCell(example.hand, example.held));
        table.rows.push_back(std::move(line));
    };
    for (std::size_t i = 0; i < chart.size(); ++i) {
        const auto number = static_cast<std::int64_t>(i) + 1;
        ReportRow row{
            number,
            {NumberCell("%.0f", static_cast<double>(number)), TextCell(RowText(chart[i]))},
            {}};
        if (grade.rows[i].hands == 0) {
            row.mark = RowMark::kBad;
            row.remark = "never reached";
        }
        add(grade.rows[i], std::move(row), examples[i]);
    }
    if (grade.rest.hands > 0) {
        add(grade.rest, {0, {{}, TextCell("everything else is discarded")}, {}},
            {grade.rest.example, 0});
    }
    return table;
}

ReportTable ExceptionTable(const ShownChart& shown) {
    const auto& [chart, grade, examples, exceptions, cancelled] = shown.study;
    ReportTable table = TableOf(shown, "Exceptions of the chart");
    table.columns = {{"Chart", "", false, "The line that decides"},
                     {"Better", "", false, "The line of the best play"},
                     {"Hands", "%", true, "Of all hands those that are so played"},
                     {"Loss", "%", true, "What they lose together, in percent of all bets"},
                     {"Dearest", "", false, "The hand that loses most"},
                     {"Chart holds", "", false, ""},
                     {"Best hold", "", false, ""},
                     kCost};
    for (std::size_t i = 0; i < exceptions.size(); ++i) {
        const ExceptionGroup& group = exceptions[i];
        ReportRow row{
            static_cast<std::int64_t>(i),
            {TextCell(LineName(chart, group.row)),
             TextCell(IsOneRow(chart, group) ? "another hold of the line"
                                             : LineName(chart, group.bestRow)),
             ShareCell(grade, group.hands), NumberCell("%.6f", PercentOf(grade, group.loss))},
            {}};
        AddHand(grade, group.dearest.front(), row.cells);
        table.rows.push_back(std::move(row));
    }
    return table;
}

ReportTable ExceptionHandTable(const ShownChart& shown, std::size_t number) {
    const ChartStudy& study = shown.study;
    ReportTable table = TableOf(shown, "Exceptions of the chart");
    table.columns = {{"Hand", "", false, ""},
                     {"Chart holds", "", false, ""},
                     {"Best hold", "", false, ""},
                     kCost,
                     {"Hands", "", true, "So many are alike but for the names of the suits"}};
    if (number >= study.exceptions.size()) return table;
    const ExceptionGroup& group = study.exceptions[number];
    table.head.push_back({"Exception", GroupName(study.chart, group)});
    for (const ExceptionHand& hand : group.dearest) {
        ReportRow row{std::ssize(table.rows), {}, {}};
        AddHand(study.grade, hand, row.cells);
        row.cells.push_back({FormatCount(hand.hands), static_cast<double>(hand.hands)});
        table.rows.push_back(std::move(row));
    }
    if (group.dearest.size() == ChartStudy::kMostListed) {
        table.head.push_back({"Shown", "the dearest ones"});
    }
    return table;
}

std::string GroupName(const Chart& chart, const ExceptionGroup& group) {
    if (IsOneRow(chart, group)) return LineName(chart, group.row) + ", another hold of it";
    return LineName(chart, group.row) + ", better " + LineName(chart, group.bestRow);
}

std::string TypedText(const Hand& hand) {
    std::string text;
    for (const CardFace face : hand) {
        if (!face.IsEmpty()) text += (text.empty() ? "" : " ") + CardText(face);
    }
    return text;
}
