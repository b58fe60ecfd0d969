#include "cli/HandCommand.h"

#include <span>

#include "cli/HandReport.h"

namespace {

std::size_t CardsWanted(const PayTable& table) {
    if (table.type == GameType::kPickEm) return 4;
    return table.gameId == kSneakPeakGameId ? 6 : kHandSize;
}

// The last card is the first one drawn where that is known.
KnownCards KnownCardsOf(const ChosenTable& chosen, const std::vector<CardCode>& cards) {
    if (cards.size() == kHandSize) return {FacesOf(chosen.deck, cards), {}};
    return {FacesOf(chosen.deck, std::span(cards).first(cards.size() - 1)),
            FaceOf(chosen.deck, cards.back())};
}

void AddArguments(CLI::App& parser, Options& options) {
    AddGame(parser, options);
    AddCards(parser, options,
             "Five cards in one argument, such as \"AS KS QS JS 9H\";\n"
             "in a Pick 'Em game four: yours, the left pile's top, the right pile's top;\n"
             "in Sneak Peak Poker six: the hand, then the first draw card");
    AddBet(parser, options);
}

std::optional<Failure> RunHand(const Options& options, std::string& output) {
    HandReport report;
    report.coin = options.coin;
    ChosenTable& chosen = report.chosen;
    if (auto failure = ChooseTable(options, chosen)) return failure;
    std::vector<CardCode> cards;
    const std::size_t wanted = CardsWanted(chosen.payTable);
    if (auto failure = ReadCards(options.cards, chosen.deck, wanted, cards)) return failure;

    const LineTables tables(chosen.payTable);
    AnalyzeHand(tables, chosen.payTable, KnownCardsOf(chosen, cards), chosen.bet, options.coin,
                report.analysis);
    report.cards = CardTexts(chosen.deck, cards);
    output += options.json ? HandAsJson(report) : HandAsText(report);
    return std::nullopt;
}

}  // namespace

Command HandCommand() {
    return {"hand", "The 32 holds of a hand, best first", AddArguments, RunHand};
}
