#include "cli/TableChoice.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "cli/Texts.h"
#include "core/cards/CardText.h"
#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"
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

Failure NoSuchTable(ProfileFile& file, const std::string& mainPath, const ChosenTable& chosen) {
    std::vector<std::string> tables;
    for (const int index : TableChain(file, chosen.game.name, mainPath)) {
        tables.push_back(std::to_string(index));
    }
    const std::string& name = chosen.game.name;
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

void LoadTable(ProfileFile& file, const std::string& mainPath, ChosenTable& chosen) {
    const auto& [id, name, offered] = chosen.game;
    chosen.payTable = LoadPayTable(file, id, name, chosen.index, mainPath, "");
    chosen.deck = BuildCardTable(DeckOf(chosen.payTable));
}

}  // namespace

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

std::string DataFolder(const std::optional<std::string>& named) {
    return named ? *named : FindDataFolder(ReadDataEnvironment());
}

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

std::optional<Failure> ChooseTable(const Options& options, ChosenTable& chosen) {
    std::string mainPath;
    if (auto failure = FindMainFile(options.dataFolder, mainPath)) return failure;
    ProfileFile file;
    const auto games = CatalogueGames(file, mainPath);
    if (auto failure = ChooseGame(options.game, games, chosen.game)) return failure;
    chosen.index = options.table;
    if (!TableExists(file, chosen.game.name, chosen.index, mainPath)) {
        return NoSuchTable(file, mainPath, chosen);
    }
    LoadTable(file, mainPath, chosen);
    return ChooseBet(options, chosen);
}

std::optional<Failure> ChooseTableOfEveryGame(const Options& options,
                                              std::vector<ChosenTable>& chosen) {
    std::string mainPath;
    if (auto failure = FindMainFile(options.dataFolder, mainPath)) return failure;
    ProfileFile file;
    for (const CatalogueGame& game : CatalogueGames(file, mainPath)) {
        if (!TableExists(file, game.name, options.table, mainPath)) continue;
        ChosenTable& table = chosen.emplace_back();
        table.game = game;
        table.index = options.table;
        LoadTable(file, mainPath, table);
        if (auto failure = ChooseBet(options, table)) return failure;
    }
    if (!chosen.empty()) return std::nullopt;
    return Failure{kFailed, "no game has a table " + std::to_string(options.table) + " in " +
                                QuotedPath(mainPath)};
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
