#include "cli/GameChoice.h"

#include <algorithm>

#include "cli/NearestNames.h"
#include "cli/Texts.h"
#include "core/paytable/GameCatalogue.h"
#include "core/text/Numbers.h"

namespace {

bool IsNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

Failure UnknownGame(std::string_view text, const std::vector<CatalogueGame>& games) {
    if (IsNumber(text)) {
        return {kWrongUse, "no game has the id " + Quoted(text) +
                               ": built-in games have 300 to 356, your own 9001 to 9010, and "
                               "\"tolvane-cli games\" lists them"};
    }
    std::vector<std::string> names;
    names.reserve(games.size());
    for (const CatalogueGame& game : games) names.push_back(game.name);
    return {kWrongUse, "unknown game " + Quoted(text) + DidYouMean(text, names)};
}

}  // namespace

std::vector<CatalogueGame> CatalogueGames(ProfileFile& file, const std::string& mainPath) {
    std::vector<CatalogueGame> games;
    for (const BuiltInGame& game : BuiltInGames()) {
        games.push_back({game.id, std::string(game.name), game.offered});
    }
    for (const UserGame& game : UserGames(file, mainPath)) {
        games.push_back({game.id, game.name, true});
    }
    return games;
}

std::optional<Failure> ChooseGame(std::string_view text, const std::vector<CatalogueGame>& games,
                                  CatalogueGame& chosen) {
    auto found = games.end();
    if (IsNumber(text)) {
        found = std::ranges::find(games, ParseInt(text), &CatalogueGame::id);
    }
    if (found == games.end()) {
        found = std::ranges::find_if(
            games, [text](const CatalogueGame& game) { return SameText(game.name, text); });
    }
    if (found == games.end()) return UnknownGame(text, games);
    chosen = *found;
    return std::nullopt;
}
