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

}  // namespace

std::optional<Failure> ChooseTable(const Options& options, ChosenTable& chosen) {
    std::string mainPath;
    if (auto failure = FindMainFile(options.dataFolder, mainPath)) return failure;
    ProfileFile file;
    const auto games = CatalogueGames(file, mainPath);
    if (auto failure = ChooseGame(options.game, games, chosen.game)) return failure;
    chosen.index = options.table;
    const std::string& name = chosen.game.name;
    if (!TableExists(file, name, chosen.index, mainPath)) {
        return NoSuchTable(file, mainPath, chosen);
    }
    chosen.payTable = LoadPayTable(file, chosen.game.id, name, chosen.index, mainPath, "");
    chosen.deck = BuildCardTable(DeckOf(chosen.payTable));
    return ChooseBet(options, chosen);
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
