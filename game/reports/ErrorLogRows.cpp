#include "game/reports/ErrorLogRows.h"

#include <algorithm>
#include <map>

#include "core/cards/CardText.h"
#include "game/engine/GameEngine.h"
#include "game/engine/PlayErrorText.h"
#include "game/reports/ErrorLogReport.h"
#include "game/reports/HandReport.h"
#include "game/reports/HoldKind.h"
#include "game/reports/Quotient.h"
#include "game/reports/ReportCells.h"
#include "game/reports/ReportHead.h"

namespace {

double CostOf(const ErrorLogEntry& error) { return error.bestReturn - error.playerReturn; }

std::string KindOf(const GameEngine& engine, const ErrorLogEntry& error) {
    return HoldKind(FacesOf(engine.deck.table, error.hand), error.best, engine.payTable);
}

// As the hand was seen: in Pick 'Em the top cards of the piles stand in the fourth and fifth place.
ReportCell Cards(const GameEngine& engine, const ErrorLogEntry& error) {
    const Hand faces = PlacesOf(engine, error.hand, error.draws[0]);
    ReportCell cell;
    for (const CardFace& face : faces) {
        const std::string card =
            CardText(engine.deck.table, FindCard(engine.deck.table, face.rank, face.suit));
        cell.text += (cell.text.empty() ? "" : " ") + card;
    }
    cell.cards.assign(faces.begin(), faces.end());
    return cell;
}

// The cards that are held, in their places. Where none is, the text says so.
ReportCell HoldCell(const GameEngine& engine, const ErrorLogEntry& error, HoldMask mask) {
    ReportCell cell = TextCell(HoldText(engine, error.hand, error.draws[0], mask));
    if (mask == 0) return cell;
    const Hand faces = PlacesOf(engine, error.hand, error.draws[0]);
    cell.cards.resize(kHandSize);
    for (std::size_t i = 0; i < kHandSize; ++i) {
        const bool held = IsPickEm(engine) ? cell.text[i] != '_' : Holds(mask, i);
        if (held) cell.cards[i] = faces[i];
    }
    return cell;
}

std::vector<ReportFact> Head(const GameEngine& engine, std::size_t errors, std::int64_t time) {
    auto facts = GameFacts(engine);
    facts.push_back(DateFact(time));
    facts.push_back({"Entries", std::to_string(errors)});
    return facts;
}

}  // namespace

std::vector<ErrorLogEntry> ReadErrors(const GameEngine& engine, const GameFiles& files) {
    std::vector<ErrorLogEntry> errors;
    for (int i = 0; HasLoggedError(engine, files, i); ++i) {
        errors.push_back(LoggedError(engine, files, i));
        errors.back().date = ReadErrorDate(files.Game(), StatsSection(engine), i);
    }
    return errors;
}

ReportTable ErrorTable(const GameEngine& engine, const std::vector<ErrorLogEntry>& errors,
                       std::int64_t time) {
    ReportTable report;
    report.title = "Error Log";
    report.head = Head(engine, errors.size(), time);
    report.columns = {
        {"Error", "", true, "Its number, the oldest first"},
        {"Date", "", true, "When it was made; errors of earlier releases have no date"},
        {"Cards", "", false, "The hand as it was dealt"},
        {"Best hold", "", false, "_ is a discard"},
        {"Your hold", "", false, "_ is a discard"},
        {"Cost", "$", true, "What the best hold returns more than yours, on average"},
        {"In coins", "", true, "The same in coins of today's worth"},
        {"Kind of hold", "", false, "What the best hold was"},
    };
    std::int64_t number = 0;
    for (const ErrorLogEntry& error : errors) {
        const double cost = CostOf(error);
        ReportRow row{number++, {}, {}};
        row.cells = {NumberCell("%.0f", static_cast<double>(number)),
                     DateCell(error.date),
                     Cards(engine, error),
                     HoldCell(engine, error, error.best),
                     HoldCell(engine, error, error.player),
                     NumberCell("%.4f", cost),
                     NumberCell("%.4f", Quotient(cost, engine.settings.coin)),
                     TextCell(KindOf(engine, error))};
        report.rows.push_back(std::move(row));
    }
    return report;
}

ReportTable OnlyKind(ReportTable errors, const std::string& kind) {
    std::erase_if(errors.rows, [&](const ReportRow& row) { return row.cells.back().text != kind; });
    errors.head.push_back({"Kind of hold", kind});
    return errors;
}

ReportTable ErrorKindTable(const GameEngine& engine, const std::vector<ErrorLogEntry>& errors,
                           std::int64_t time) {
    struct Total {
        std::string kind;
        int errors = 0;
        double cost = 0;
    };
    std::map<std::string, Total> totals;
    double all = 0;
    for (const ErrorLogEntry& error : errors) {
        const std::string kind = KindOf(engine, error);
        Total& total = totals[kind];
        total.kind = kind;
        ++total.errors;
        total.cost += CostOf(error);
        all += CostOf(error);
    }
    std::vector<Total> sorted;
    for (const auto& [kind, total] : totals) sorted.push_back(total);
    std::ranges::stable_sort(sorted, std::greater(), &Total::cost);
    ReportTable report;
    report.title = "Errors by Kind of Hold";
    report.head = Head(engine, errors.size(), time);
    report.columns = {{"Kind of hold", "", false, "What the best hold was"},
                      {"Errors", "", true, ""},
                      {"Cost", "$", true, "Of all these errors"},
                      {"In coins", "", true, "The same in coins of today's worth"},
                      {"Each", "$", true, "What one of them cost on average"},
                      {"Share", "%", true, "Of the cost of all errors in the log"}};
    for (const auto& [kind, count, cost] : sorted) {
        report.rows.push_back({std::ssize(report.rows),
                               {TextCell(kind), NumberCell("%.0f", count), NumberCell("%.4f", cost),
                                NumberCell("%.4f", Quotient(cost, engine.settings.coin)),
                                NumberCell("%.4f", Quotient(cost, count)),
                                NumberCell("%.2f", Quotient(cost, all) * 100)},
                               {}});
    }
    return report;
}
