#include "cli/TableChoice.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

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

Failure NoSuchTable(Catalogue& catalogue, const ChosenTable& chosen) {
    auto& [file, mainPath, games] = catalogue;
    const std::string& name = chosen.game.name;
    std::vector<std::string> tables;
    for (const int index : TableChain({file, mainPath}, name)) {
        tables.push_back(std::to_string(index));
    }
    if (tables.empty())
        return {kFailed, Quoted(name) + " has no pay table in " + QuotedPath(mainPath)};
    return {kFailed, Quoted(name) + " has no table " + std::to_string(chosen.index) + ": take " +
                         Alternatives(tables)};
}

std::optional<Failure> ChooseBet(const Options& options, ChosenTable& chosen) {
    const int maxBet = chosen.payTable.maxBet;
    chosen.bet = options.bet.value_or(std::min(kFullBet, maxBet));
    if (chosen.bet >= 1 && chosen.bet <= maxBet) return std::nullopt;
    return Failure{kWrongUse, "--bet " + std::to_string(chosen.bet) + ": " +
                                  Quoted(chosen.game.name) + " takes 1 to " +
                                  std::to_string(maxBet) + " coins"};
}

// False when the game has no table of that index.
bool LoadTable(Catalogue& catalogue, ChosenTable& chosen) {
    auto& [file, mainPath, games] = catalogue;
    const auto& [id, name, offered] = chosen.game;
    if (!TableExists({file, mainPath}, name, chosen.index)) return false;
    chosen.payTable = LoadPayTable({file, mainPath}, {id, name, chosen.index}, "");
    chosen.deck = BuildCardTable(DeckOf(chosen.payTable));
    return true;
}

}  // namespace

std::string DataFolder(const std::optional<std::string>& named) {
    return named ? *named : FindDataFolder(ReadDataEnvironment());
}

std::optional<Failure> OpenCatalogue(const Options& options, Catalogue& catalogue) {
    auto& [file, mainPath, games] = catalogue;
    if (auto failure = FindMainFile(options.dataFolder, mainPath)) return failure;
    for (const BuiltInGame& game : BuiltInGames()) {
        games.push_back({game.id, std::string(game.name), game.offered});
    }
    for (const UserGame& game : UserGames({file, mainPath})) {
        games.push_back({game.id, game.name, true});
    }
    return std::nullopt;
}

std::optional<Failure> ChooseTable(const Options& options, ChosenTable& chosen) {
    Catalogue catalogue;
    if (auto failure = OpenCatalogue(options, catalogue)) return failure;
    if (auto failure = ChooseGame(options.game, catalogue.games, chosen.game)) return failure;
    chosen.index = options.table;
    if (!LoadTable(catalogue, chosen)) return NoSuchTable(catalogue, chosen);
    return ChooseBet(options, chosen);
}

std::optional<Failure> ChooseTableOfEveryGame(const Options& options,
                                              std::vector<ChosenTable>& chosen) {
    Catalogue catalogue;
    if (auto failure = OpenCatalogue(options, catalogue)) return failure;
    for (const CatalogueGame& game : catalogue.games) {
        ChosenTable table;
        table.game = game;
        table.index = options.table;
        if (!LoadTable(catalogue, table)) continue;
        if (auto failure = ChooseBet(options, table)) return failure;
        chosen.push_back(std::move(table));
    }
    if (!chosen.empty()) return std::nullopt;
    return Failure{kFailed, "no game has a table " + std::to_string(options.table) + " in " +
                                QuotedPath(catalogue.mainPath)};
}

std::string Heading(const ChosenTable& chosen, int bet, double coin) {
    return chosen.game.name + " (" + std::to_string(chosen.game.id) + "), table " +
           std::to_string(chosen.index) + ", bet " + std::to_string(bet) + " x " + Dollars(coin);
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
