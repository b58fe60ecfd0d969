#include "game/reports/HandRows.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/cards/CardText.h"
#include "game/engine/BestPlay.h"
#include "game/engine/GameEngine.h"
#include "game/reports/HandReport.h"
#include "game/reports/HoldLine.h"
#include "game/reports/ReportCells.h"
#include "game/reports/ReportHead.h"

namespace {

// The cards that stay, each in its place; in Pick 'Em the pile that is chosen with the two others.
HandCards HeldCards(const GameEngine& engine, HoldMask hold) {
    HandCards held = kNoCards;
    if (IsPickEm(engine)) {
        std::copy_n(engine.dealtCopy.begin(), 2, held.begin());
        if (hold == kLeftPile) held[3] = engine.dealtCopy[2];
        if (hold == kRightPile) held[4] = engine.drawCards[0];
        return held;
    }
    for (std::size_t i = 0; i < held.size(); ++i) {
        if (Holds(hold, i)) held[i] = engine.dealtCopy[i];
    }
    return held;
}

// "AS KS __ __ __" beside the faces.
ReportCell HoldCell(const GameEngine& engine, HoldMask hold) {
    ReportCell cell;
    for (const CardCode code : HeldCards(engine, hold)) {
        cell.text += (cell.text.empty() ? "" : " ") + CardText(engine.deck.table, code);
        cell.cards.push_back(FaceOf(engine.deck.table, code));
    }
    return cell;
}

// "7D at 3", where the known draw card comes to lie.
ReportCell KnownCardCell(const GameEngine& engine, HoldMask hold) {
    const int place = ResultOf(engine, hold).knownCardPosition;
    if (place < 0) return {};
    return {.text = CardText(engine.deck.table, engine.drawCards[0]) + " at " +
                    std::to_string(place + 1)};
}

ReportCell LineCell(const HoldLine& line, LineFigure figure) {
    ReportCell cell;
    switch (figure) {
        case LineFigure::kProbability:
            cell = NumberCell("%.4f", line.Probability() * 100);
            break;
        case LineFigure::kHands:
            cell = CountCell(line.Draws());
            break;
        case LineFigure::kOdds:
            if (line.Draws() == 0) return {.text = "never"};
            cell = NumberCell("%.2f", line.Odds());
            break;
        case LineFigure::kShareOfReturn:
            cell = NumberCell("%.2f", line.Share());
            break;
    }
    if (line.IsDrawnAgain()) cell.text.insert(0, "*");
    return cell;
}

const char* UnitOf(LineFigure figure) {
    switch (figure) {
        case LineFigure::kProbability:
            return "%";
        case LineFigure::kHands:
            return "draws";
        case LineFigure::kOdds:
            return "1 in";
        case LineFigure::kShareOfReturn:
            break;
    }
    return "% of return";
}

std::vector<ReportColumn> Columns(const GameEngine& engine, LineFigure figure) {
    std::vector<ReportColumn> columns = {
        {.title = "Hold", .tip = "The cards that stay"},
        {.title = "Rank", .number = true, .tip = "= marks holds of equal worth"}};
    if (IsSneakPeak(engine)) {
        columns.push_back({.title = "First Draw", .tip = "Where the known draw card comes to lie"});
    }
    columns.insert(
        columns.end(),
        {{.title = "Return", .unit = "$", .number = true, .tip = "What the hold brings on average"},
         {.title = "Cost", .unit = "$", .number = true, .tip = "What it brings less than the best"},
         {.title = "Cost",
          .unit = "% of bet",
          .number = true,
          .tip = "The same in percent of the bet"},
         {.title = "Win Rate", .unit = "%", .number = true, .tip = "Draws that win"},
         {.title = "Draws", .number = true, .tip = "Different draws"}});
    const auto& lines = engine.payTable.lines;
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
        columns.push_back({.title = line->shortDescription,
                           .unit = UnitOf(figure),
                           .number = true,
                           .tip = line->description});
    }
    return columns;
}

ReportRow RowOf(const GameEngine& engine, HoldMask hold, LineFigure figure) {
    const HoldResult& result = ResultOf(engine, hold);
    const double cost = engine.analysis.bestReturn - result.expectedReturn;
    const double bet = engine.settings.bet * engine.settings.coin;
    ReportRow row{.id = hold, .cells = {HoldCell(engine, hold), {}}};
    if (IsSneakPeak(engine)) row.cells.push_back(KnownCardCell(engine, hold));
    row.cells.push_back(NumberCell("%.4f", result.expectedReturn));
    row.cells.push_back(NumberCell("%.4f", cost));
    row.cells.push_back(bet > 0 ? NumberCell("%.2f", cost / bet * 100) : ReportCell{});
    row.cells.push_back(NumberCell("%.2f", result.WinRate() * 100));
    row.cells.push_back(CountCell(result.totalHands));
    for (std::size_t line = engine.payTable.lines.size(); line-- > 0;) {
        row.cells.push_back(LineCell({engine, hold, line}, figure));
    }
    return row;
}

// The rows stand by falling return.
void RankRows(const GameEngine& engine, std::vector<ReportRow>& rows) {
    const auto worth = [&](std::size_t row) {
        return ResultOf(engine, static_cast<HoldMask>(rows[row].id)).expectedReturn;
    };
    for (std::size_t first = 0, end = 0; first < rows.size(); first = end) {
        for (end = first + 1; end < rows.size(); ++end) {
            if (worth(first) != worth(end)) break;
        }
        for (std::size_t i = first; i < end; ++i) {
            const auto rank = static_cast<double>(first + 1);
            rows[i].cells[1] = {.text = std::to_string(first + 1) + (end > first + 1 ? "=" : ""),
                                .value = rank};
            const bool best = IsBestPlay(engine, static_cast<HoldMask>(rows[i].id));
            if (best) rows[i].mark = RowMark::kBest;
        }
    }
}

void MarkPlayersHold(const GameEngine& engine, std::vector<ReportRow>& rows) {
    const auto held = PlayersHold(engine);
    const auto own =
        std::ranges::find_if(rows, [&](const ReportRow& row) { return held && row.id == *held; });
    if (own == rows.end()) return;
    const bool best = own->mark == RowMark::kBest;
    own->remark = best ? "best, and your hold" : "your hold";
    if (!best) own->mark = RowMark::kChosen;
}

}  // namespace

ReportTable HandTable(const GameEngine& spare, LineFigure figure, std::int64_t time) {
    ReportTable table{.title = "Hand Analysis", .head = GameFacts(spare)};
    table.head.push_back({"Cards", HandInWords(spare)});
    table.head.push_back(DateFact(time));
    table.columns = Columns(spare, figure);
    if (!IsAnalyzed(spare)) {
        table.warning = "This hand is not complete: change it to see its holds.";
        return table;
    }
    for (const HoldMask hold : HoldsByReturn(spare)) {
        table.rows.push_back(RowOf(spare, hold, figure));
    }
    RankRows(spare, table.rows);
    MarkPlayersHold(spare, table.rows);
    return table;
}
