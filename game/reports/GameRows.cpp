#include "game/reports/GameRows.h"

#include <cmath>
#include <string_view>

#include "core/store/AnalysisCache.h"
#include "core/text/Amount.h"
#include "game/engine/GameEngine.h"
#include "game/reports/GameReport.h"
#include "game/reports/Quotient.h"
#include "game/reports/ReportCells.h"
#include "game/reports/ReportHead.h"

namespace {

std::vector<ReportColumn> Columns() {
    std::vector<ReportColumn> columns = {
        {"Line", "", false, ""},
        {"Pays", "coins", true, "For each coin bet, at five coins where that is more"},
        {"Probability", "%", true, "Of all hands those that end on the line, with the best play"},
        {"Odds", "1 in", true, "How many hands it takes for one on the line"},
        {"Return", "%", true, "What the line brings of each coin bet, at five coins"},
        {"Share", "%", true, "Of the return of all lines"},
        {"Variance", "", true, "What the line adds to the variance of the game"},
    };
    for (std::size_t drawn = 0; drawn < kDraws; ++drawn) {
        const std::string number = std::to_string(drawn);
        columns.push_back({"Draw " + number, "%", true,
                           "Of all hands those that end on the line after drawing " + number +
                               (drawn == 1 ? " card" : " cards")});
    }
    return columns;
}

// What decides the cells of a row, beside its stored figures.
struct Line {
    std::string description;
    int pays = 0;       // coins for each coin bet
    int maxPayout = 0;  // coins for the full bet
};

class Rows {
  public:
    // Where the figures are of the pays of the table, the returns can be told to more places than
    // are stored.
    Rows(const StoredAnalysis& analysis, bool samePays) : analysis(analysis), samePays(samePays) {}

    double Percent(const Line& line, const StoredLine& stored) const {
        if (!samePays) return stored.percentReturn;
        return analysis.Probability(stored) * line.maxPayout / kFullBet * 100;
    }

    std::vector<ReportCell> Cells(const Line& line, const StoredLine& stored, double all) const {
        const double probability = analysis.Probability(stored);
        const double percent = Percent(line, stored);
        std::vector<ReportCell> cells = {
            TextCell(line.description),
            NumberCell("%.0f", line.pays),
            NumberCell("%.5f", probability * 100),
            OddsCell(probability),
            NumberCell("%.4f", percent),
            NumberCell("%.2f", Quotient(percent, all) * 100),
            NumberCell("%.4f", stored.variance),
        };
        for (std::size_t drawn = 0; drawn < kDraws; ++drawn) {
            cells.push_back(NumberCell("%.5f", analysis.Probability(stored, drawn) * 100));
        }
        return cells;
    }

  private:
    const StoredAnalysis& analysis;
    const bool samePays;
};

std::vector<Line> LinesOf(const PayTable& table) {
    std::vector<Line> lines;
    for (const PayLine& line : table.lines) {
        lines.push_back({line.description, LineCoinPay(line), line.maxPayout});
    }
    lines.push_back({"NOTHING", 0, 0});
    return lines;
}

void AddFigures(const StoredAnalysis& analysis, const PayTable& table, ReportTable& report) {
    const auto add = [&](const char* label, const std::string& value) {
        report.head.push_back({label, value});
    };
    add("Return", FormatDecimals("%.4f", analysis.payoutPercent) + " %");
    add("Variance", FormatDecimals("%.4f", analysis.variance));
    add("Standard deviation", FormatDecimals("%.4f", std::sqrt(analysis.variance)));
    const double misses = analysis.Probability(analysis.nothing);
    if (analysis.denominator > 0) {
        add("Hit rate", FormatDecimals("%.2f", (1 - misses) * 100) + " %");
    }
    if (analysis.stamp.date) add("Analyzed", DateCell(*analysis.stamp.date).text);
    if (table.type == GameType::kDoubleDraw) {
        add("Lines", "counted after the first draw; only the return of the game counts the second");
    }
}

void AddRows(const StoredAnalysis& analysis, const PayTable& table, ReportTable& report) {
    const auto lines = LinesOf(table);
    const auto standing = StandingOf(analysis.stamp, table);
    const Rows rows(analysis,
                    standing == AnalysisStanding::kWhole || standing == AnalysisStanding::kStopped);
    std::vector<StoredLine> stored = analysis.lines;
    stored.push_back(analysis.nothing);
    double all = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) all += rows.Percent(lines[i], stored[i]);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        report.rows.push_back(
            {static_cast<std::int64_t>(i), rows.Cells(lines[i], stored[i], all), {}});
    }
}

void AddPaysAlone(const PayTable& table, ReportTable& report) {
    report.warning = "Not analyzed yet: Run Analysis computes the figures";
    std::int64_t number = 0;
    for (const Line& line : LinesOf(table)) {
        ReportRow row{number++, {TextCell(line.description), NumberCell("%.0f", line.pays)}};
        row.cells.resize(report.columns.size());
        report.rows.push_back(std::move(row));
    }
}

}  // namespace

ReportTable GameTable(const GameEngine& engine, const ProfileOnDisk& cache) {
    const PayTable& table = engine.payTable;
    const auto analysis = ReadAnalysis(cache, StatsSection(engine), table.lines.size());
    ReportTable report;
    report.title = "Game Analysis";
    report.columns = Columns();
    report.warning = AnalysisWarning(engine, cache);
    report.head = GameFacts(CurrentTable(engine.settings), kFullBet,
                            analysis ? analysis->coin : engine.settings.coin);
    if (!analysis) {
        AddPaysAlone(table, report);
        return report;
    }
    AddFigures(*analysis, table, report);
    AddRows(*analysis, table, report);
    return report;
}
