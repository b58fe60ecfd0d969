#include "cli/TableChoice.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "cli/Pays.h"
#include "cli/Terminal.h"
#include "cli/Texts.h"
#include "core/cards/CardText.h"
#include "core/paytable/GameCatalogue.h"
#include "core/store/DataFiles.h"
#include "core/text/Numbers.h"

namespace fs = std::filesystem;

namespace cli {
namespace {

constexpr const char* kMainFileName = "Tolvane.ini";

bool IsThere(const fs::path& file) {
    std::error_code error;
    return fs::status(file, error).type() != fs::file_type::not_found;
}

bool CanRead(const fs::path& file) {
    std::error_code error;
    return fs::is_regular_file(file, error) && std::ifstream(file).good();
}

std::optional<Failure> FindMainFile(const std::optional<std::string>& dataFolder,
                                    std::string& path) {
    const DataEnvironment environment = ReadDataEnvironment();
    const fs::path folder = dataFolder ? *dataFolder : FindDataFolder(environment);
    const fs::path shippedFolder =
        dataFolder ? folder : fs::path(environment.programFile).parent_path();
    for (const fs::path& file : {folder / kMainFileName, shippedFolder / kShippedMainProfile}) {
        if (file.parent_path().empty() || !IsThere(file)) continue;
        path = file;
        if (CanRead(file)) return std::nullopt;
        return Failure{kFailed, QuotedPath(path) +
                                    " cannot be read: make it readable, or name another folder "
                                    "with --data"};
    }
    const std::string shippedPlace = dataFolder ? "there" : "beside the program";
    return Failure{kFailed, "neither Tolvane.ini in " + QuotedPath(folder.string()) +
                                " nor Tolvane.114 " + shippedPlace +
                                ": name the folder that holds one of them with --data"};
}

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

// The end when there is none.
auto FindGame(std::string_view text, const std::vector<CatalogueGame>& games) {
    const auto byId =
        IsNumber(text) ? std::ranges::find(games, ParseInt(text), &CatalogueGame::id) : games.end();
    if (byId != games.end()) return byId;
    return std::ranges::find_if(
        games, [text](const CatalogueGame& game) { return SameText(game.name, text); });
}

Failure NoSuchTable(Catalogue& catalogue, const TableOfGame& place) {
    std::vector<std::string> tables;
    for (const int index : TableChain(catalogue.Main(), place.gameName)) {
        tables.push_back(std::to_string(index));
    }
    const std::string game = Quoted(place.gameName);
    if (tables.empty())
        return {kFailed, game + " has no pay table in " + QuotedPath(catalogue.mainPath)};
    return {kFailed, game + " has no table " + std::to_string(place.tableIndex) + ": take " +
                         Alternatives(tables)};
}

std::optional<Failure> ChooseBet(const Options& options, ChosenTable& chosen) {
    const int maxBet = chosen.payTable.maxBet;
    chosen.bet = options.bet.value_or(std::min(kFullBet, maxBet));
    if (chosen.bet >= 1 && chosen.bet <= maxBet) return std::nullopt;
    return Failure{kWrongUse, "--bet " + std::to_string(chosen.bet) + ": " +
                                  Quoted(chosen.place.gameName) + " takes 1 to " +
                                  std::to_string(maxBet) + " coins"};
}

// False when the game has no table of that index.
bool LoadTable(Catalogue& catalogue, const CatalogueGame& game, int index, ChosenTable& chosen) {
    chosen.place = {game.id, game.name, index};
    if (!TableExists(catalogue.Main(), game.name, index)) return false;
    chosen.payTable = LoadPayTable(catalogue.Main(), chosen.place, "");
    chosen.deck = BuildCardTable(DeckOf(chosen.payTable));
    return true;
}

std::optional<Failure> GivePays(const Options& options, std::span<ChosenTable> tables) {
    std::vector<std::string> notes;
    auto failure = ChangePays(options.pays, options.payOption, tables, notes);
    if (!failure) std::ranges::for_each(notes, Tell);
    return failure;
}

}  // namespace

std::string DataFolder(const std::optional<std::string>& named) {
    return named ? *named : FindDataFolder(ReadDataEnvironment());
}

std::optional<Failure> OpenCatalogue(const Options& options, Catalogue& catalogue) {
    if (auto failure = FindMainFile(options.dataFolder, catalogue.mainPath)) return failure;
    auto& games = catalogue.games;
    for (const BuiltInGame& game : BuiltInGames()) {
        games.push_back({game.id, std::string(game.name), game.offered});
    }
    for (const UserGame& game : UserGames(catalogue.Main())) {
        games.push_back({game.id, game.name, true});
    }
    return std::nullopt;
}

std::optional<Failure> ChooseTable(const Options& options, ChosenTable& chosen) {
    Catalogue catalogue;
    if (auto failure = OpenCatalogue(options, catalogue)) return failure;
    const auto game = FindGame(options.game, catalogue.games);
    if (game == catalogue.games.end()) return UnknownGame(options.game, catalogue.games);
    if (!LoadTable(catalogue, *game, options.table, chosen)) {
        return NoSuchTable(catalogue, chosen.place);
    }
    if (auto failure = GivePays(options, {&chosen, 1})) return failure;
    return ChooseBet(options, chosen);
}

std::optional<Failure> ChooseTableOfEveryGame(const Options& options,
                                              std::vector<ChosenTable>& chosen) {
    Catalogue catalogue;
    if (auto failure = OpenCatalogue(options, catalogue)) return failure;
    for (const CatalogueGame& game : catalogue.games) {
        ChosenTable table;
        if (!LoadTable(catalogue, game, options.table, table)) continue;
        if (auto failure = ChooseBet(options, table)) return failure;
        chosen.push_back(std::move(table));
    }
    if (!chosen.empty()) return GivePays(options, chosen);
    return Failure{kFailed, "no game has a table " + std::to_string(options.table) + " in " +
                                QuotedPath(catalogue.mainPath)};
}

std::optional<Failure> ReadCards(const std::string& text, const CardTable& deck, std::size_t count,
                                 std::vector<CardCode>& cards) {
    ParsedCards parsed = ParseCards(text, deck, count);
    if (!parsed.problem.empty()) return Failure{kWrongUse, parsed.problem};
    cards = std::move(parsed.cards);
    return std::nullopt;
}

std::vector<std::string> CardTexts(const CardTable& deck, const std::vector<CardCode>& cards) {
    std::vector<std::string> texts;
    texts.reserve(cards.size());
    for (const CardCode card : cards) texts.push_back(CardText(deck, card));
    return texts;
}

}  // namespace cli
