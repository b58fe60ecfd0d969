#include "cli/Commands.h"

#include <nlohmann/json.hpp>

#include "cli/CsvTable.h"
#include "cli/TableChoice.h"
#include "cli/TextTable.h"
#include "cli/Texts.h"
#include "core/paytable/GameCatalogue.h"
#include "core/paytable/PayTable.h"
#include "core/profile/ProfileFile.h"

namespace cli {
namespace {

struct GameTables {
    CatalogueGame game;
    std::vector<int> tables;
};

std::string GamesAsJson(const std::vector<GameTables>& games) {
    auto list = nlohmann::ordered_json::array();
    for (const auto& [game, tables] : games) {
        list.push_back(
            {{"id", game.id}, {"name", game.name}, {"tables", tables}, {"offered", game.offered}});
    }
    return JsonText(list);
}

std::string GamesAsText(const std::vector<GameTables>& games) {
    TextTable text({{"id", true}, {"name"}, {"tables", true}, {"in the menu"}});
    for (const auto& [game, tables] : games) {
        text.AddRow({std::to_string(game.id), game.name, std::to_string(tables.size())},
                    {game.offered ? "yes" : "no"});
    }
    return text.Text();
}

std::string GamesAsCsv(const std::vector<GameTables>& games) {
    CsvTable table({"id", "name", "tables", "offered"});
    for (const auto& [game, tables] : games) {
        table.AddRow({game.id, game.name, tables.size(), game.offered ? "true" : "false"});
    }
    return table.Text();
}

std::optional<Failure> RunGames(const Options& options, std::string& output) {
    Catalogue catalogue;
    if (auto failure = OpenCatalogue(options, catalogue)) return failure;
    std::vector<GameTables> games;
    for (auto& game : catalogue.games) {
        auto tables = TableChain(catalogue.Main(), game.name);
        // A slot that the player has made no game in yet.
        if (tables.empty() && game.id >= kFirstUserGameId) continue;
        games.push_back({std::move(game), std::move(tables)});
    }
    if (options.csv) {
        output += GamesAsCsv(games);
    } else {
        output += options.json ? GamesAsJson(games) : GamesAsText(games);
    }
    return std::nullopt;
}

}  // namespace

Command GamesCommand() {
    return {"games", "The catalogue: id, name, tables, whether the Games menu offers it", AddCsv,
            RunGames};
}

}  // namespace cli
