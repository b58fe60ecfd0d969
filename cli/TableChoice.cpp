#include "cli/TableChoice.h"

#include <algorithm>

#include "cli/DataFolder.h"
#include "cli/Texts.h"
#include "core/cards/CardText.h"
#include "core/profile/ProfileFile.h"

namespace {

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
