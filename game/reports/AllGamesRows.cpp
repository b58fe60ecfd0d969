#include "game/reports/AllGamesRows.h"

#include <algorithm>
#include <cmath>

#include "core/paytable/GameCatalogue.h"
#include "core/store/AnalysisCache.h"
#include "core/text/Amount.h"
#include "game/reports/ReportCells.h"
#include "game/reports/ReportHead.h"

namespace {

constexpr std::int64_t kTablesOfGame = 1000;  // more than any game has
constexpr std::size_t kDateColumn = 7;

std::string KindOf(const TableOfGame& place) {
    const auto games = BuiltInGames();
    const auto found = std::ranges::find(games, place.gameId, &BuiltInGame::id);
    if (found == games.end()) return "your own";
    return found->offered ? "in the menu" : "not in the menu";
}

std::string WhyNoFigures(AnalysisStanding standing, const AnalysisStamp& stamp) {
    using enum AnalysisStanding;
    switch (standing) {
        case kStopped:
            return "stopped at " + std::to_string(stamp.stoppedAt.value_or(0)) + " %";
        case kOtherPays:
            return "of other pays";
        case kUnknownPays:
            return "perhaps of other pays";
        case kNone:
        case kWhole:
            break;
    }
    return "not analyzed yet";
}

std::vector<ReportColumn> Columns() {
    return {
        {"Game", "", false, ""},
        {"Table", "", true, "The number of the pay table among those of its game"},
        {"Return", "%", true, "What comes back of each coin bet, with the best play at five coins"},
        {"Variance", "", true, "How far the results of a hand spread, for each coin bet"},
        {"Deviation", "", true, "The standard deviation of a hand, for each coin bet"},
        {"Hit rate", "%", true, "Of all hands those that pay anything, with the best play"},
        {"Top line", "1 in", true, "How many hands it takes for one on the first line"},
        {"Analyzed", "", true, "When the figures were computed, or why there are none"},
        {"Kind", "", false, "Where the game is found"},
    };
}

void AddFigures(const StoredAnalysis& analysis, GameType type, std::vector<ReportCell>& cells) {
    cells.push_back(NumberCell("%.4f", analysis.payoutPercent));
    if (type == GameType::kDoubleDraw) {
        // The rest is counted after the first draw and is not what a player meets.
        cells.resize(kDateColumn);
        cells.push_back(DateCell(analysis.stamp.date.value_or(0)));
        return;
    }
    cells.push_back(NumberCell("%.4f", analysis.variance));
    cells.push_back(NumberCell("%.4f", std::sqrt(analysis.variance)));
    const double misses = analysis.Probability(analysis.nothing);
    cells.push_back(NumberCell("%.2f", analysis.denominator > 0 ? (1 - misses) * 100 : 0));
    const double top = analysis.lines.empty() ? 0 : analysis.Probability(analysis.lines.front());
    cells.push_back(OddsCell(top));
    cells.push_back(DateCell(analysis.stamp.date.value_or(0)));
}

ReportRow RowOf(const ListedTable& table, const ProfileOnDisk& cache) {
    const auto& [gameId, gameName, tableIndex] = table.place;
    ReportRow row{table.Id(), {TextCell(gameName), NumberCell("%.0f", tableIndex)}, {}};
    const std::string section = TableSection(gameName, tableIndex);
    const bool can = CanAnalyzeGame(table.table);
    const auto analysis = ReadAnalysis(cache, section, table.table.lines.size());
    const auto standing =
        analysis ? StandingOf(analysis->stamp, table.table) : AnalysisStanding::kNone;
    if (can && standing == AnalysisStanding::kWhole) {
        AddFigures(*analysis, table.table.type, row.cells);
    } else {
        row.cells.resize(kDateColumn);
        const std::string reason =
            can ? WhyNoFigures(standing, analysis ? analysis->stamp : AnalysisStamp{})
                : "not available";
        row.cells.push_back(TextCell(reason));
        if (can) {
            row.mark = RowMark::kBad;
            row.remark = reason;
        }
    }
    row.cells.push_back(TextCell(KindOf(table.place)));
    return row;
}

void AddTables(const ProfileOnDisk& main, int gameId, const std::string& name,
               std::vector<ListedTable>& tables) {
    for (const int index : TableChain(main, name)) {
        const TableOfGame place{gameId, name, index};
        tables.push_back({place, LoadPayTable(main, place, "")});
    }
}

}  // namespace

std::int64_t ListedTable::Id() const { return place.gameId * kTablesOfGame + place.tableIndex; }

std::vector<ListedTable> ListTables(const ProfileOnDisk& main) {
    std::vector<ListedTable> tables;
    for (const BuiltInGame& game : BuiltInGames()) {
        AddTables(main, game.id, std::string(game.name), tables);
    }
    for (const UserGame& game : UserGames(main)) {
        if (game.id >= kFirstUserGameId) AddTables(main, game.id, game.name, tables);
    }
    return tables;
}

bool IsMissing(const ListedTable& table, const ProfileOnDisk& cache) {
    const std::string section = TableSection(table.place.gameName, table.place.tableIndex);
    return CanAnalyzeGame(table.table) &&
           StandingOf(cache, section, table.table) != AnalysisStanding::kWhole;
}

ReportTable AllGamesTable(const std::vector<ListedTable>& tables, const ProfileOnDisk& cache,
                          std::int64_t time) {
    ReportTable report;
    report.title = "All Games";
    report.columns = Columns();
    for (const ListedTable& table : tables) report.rows.push_back(RowOf(table, cache));
    const auto missing = std::ranges::count(report.rows, RowMark::kBad, &ReportRow::mark);
    const auto count = std::ssize(report.rows);
    report.head = {{"Tables", FormatCount(count)},
                   {"Not analyzed", FormatCount(missing)},
                   {"Bet", BetText(kFullBet)},
                   {"Coin", "any, the figures are for each coin bet"},
                   DateFact(time)};
    const bool drawnAgain = std::ranges::any_of(tables, [](const ListedTable& listed) {
        return listed.table.type == GameType::kDoubleDraw;
    });
    if (drawnAgain) {
        report.head.push_back(
            {"Double-draw games", "the return alone; the other figures end at the first draw"});
    }
    return report;
}
