// The pay tables that the program is shipped with, and what their page in docs/ says of them.
#include <fstream>
#include <map>
#include <sstream>

#include "core/analysis/GameAnalysis.h"
#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
#include "core/text/Numbers.h"
#include "tests/Sanitized.h"
#include "tests/core/TestGames.h"

namespace {

const std::string kShipped = TOLVANE_DATA_FOLDER "/Tolvane.ini";

TEST(ShippedTablesTest, EveryGameHasLinesThatFitTheWindow) {
    for (const BuiltInGame& game : BuiltInGames()) {
        const PayTable table = Shipped(game.id, game.name);
        EXPECT_FALSE(table.lines.empty()) << game.name;
        EXPECT_EQ(table.maxBet, kFullBet) << game.name;
        for (const PayLine& line : table.lines) {
            SCOPED_TRACE(std::string(game.name) + ": " + line.description);
            EXPECT_LE(line.description.size(), std::string_view("STRAIGHT FLUSH W/2").size());
            EXPECT_FALSE(line.shortDescription.empty());
            EXPECT_NE(line.rank, kUnknown);
            EXPECT_GT(line.payout, 0);
            EXPECT_GE(line.maxPayout, line.payout * kFullBet);
        }
    }
    ProfileFile file;
    EXPECT_NE(file.GetInt("main", "Ver", 0, kShipped), 0);
}

struct Documented {
    double percent = 0;
    double variance = 0;
    std::string published;
};

// The rows "| id | game | schedule | return | variance | published |" of the page.
std::map<int, Documented> DocumentedGames() {
    std::map<int, Documented> games;
    std::ifstream page(TOLVANE_DATA_FOLDER "/../docs/pay-tables.md");
    for (std::string row; std::getline(page, row);) {
        std::vector<std::string> cells;
        std::istringstream cellsOfRow(row);
        for (std::string cell; std::getline(cellsOfRow, cell, '|');) cells.push_back(cell);
        if (cells.size() < 7 || ParseInt(cells[1]) == 0) continue;
        games.try_emplace(ParseInt(cells[1]),
                          Documented{ParseDouble(cells[4]), ParseDouble(cells[5]), cells[6]});
    }
    return games;
}

TEST(ShippedTablesTest, EveryGameReturnsWhatItsPageSays) {
    const auto documented = DocumentedGames();
    EXPECT_EQ(documented.size(), BuiltInGames().size());
    for (const BuiltInGame& game : BuiltInGames()) {
        if (kSanitized && game.id % 15 != 0) continue;  // all of them take minutes
        const PayTable table = Shipped(game.id, game.name);
        if (!CanAnalyzeGame(table) || !documented.contains(game.id)) continue;
        const GameTotals totals = AnalyzeGame(LineTables(table), table, 1, {});
        const Documented& page = documented.at(game.id);
        EXPECT_NEAR(totals.payoutPercent, page.percent, 5.1e-5) << game.name;
        EXPECT_NEAR(totals.variance, page.variance, 5.1e-3) << game.name;
        const double published = ParseDouble(page.published);
        if (published > 0) {
            EXPECT_NEAR(totals.payoutPercent, published, 0.0101) << game.name;
        }
    }
}

}  // namespace
