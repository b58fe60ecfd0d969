#include "cli/Commands.h"

#include <cstddef>
#include <span>

#include "cli/HandReport.h"
#include "cli/LineStream.h"
#include "cli/TableChoice.h"

namespace cli {
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
    AddCsv(parser, options);
    AddCards(parser, options,
             "Five cards in one argument, such as \"AS KS QS JS 9H\";\n"
             "in a Pick 'Em game four: yours, the left pile's top, the right pile's top;\n"
             "in Sneak Peak Poker six: the hand, then the first draw card; - reads hands from\n"
             "standard input, one a line, and answers each with a line of JSON");
    AddBet(parser, options);
    AddBest(parser, options);
}

// Analyses hands of one table, one after the other.
class HandAnalyst {
  public:
    HandAnalyst(const ChosenTable& chosen, double coin)
        : tables(chosen.payTable), json(chosen, coin) {
        report.chosen = chosen;
        report.coin = coin;
    }

    // Nothing when the cards are right.
    std::optional<Failure> Analyze(const std::string& text) {
        const ChosenTable& chosen = report.chosen;
        const std::size_t wanted = CardsWanted(chosen.payTable);
        if (auto failure = ReadCards(text, chosen.deck, wanted, cards)) return failure;
        AnalyzeHand(tables, chosen.payTable, KnownCardsOf(chosen, cards), chosen.bet, report.coin,
                    report.analysis);
        report.cards = CardTexts(chosen.deck, cards);
        return std::nullopt;
    }

    void Append(const Options& options, std::string& output) const {
        if (options.best) {
            HandJson::AppendBest(report, output);
        } else if (options.csv) {
            output += HandAsCsv(report);
        } else if (options.json || options.cards == kStandardInput) {
            json.Append(report, output);
        } else {
            output += HandAsText(report);
        }
    }

  private:
    LineTables tables;
    HandJson json;
    HandReport report;
    std::vector<CardCode> cards;
};

std::optional<Failure> RunHand(const Options& options, std::string& output) {
    const bool stream = options.cards == kStandardInput;
    if (options.csv && (stream || options.best)) {
        return Failure{kWrongUse, "--csv beside " + std::string(options.best ? "--best" : "-") +
                                      ", which is answered in JSON: leave one of them away"};
    }
    ChosenTable chosen;
    if (auto failure = ChooseTable(options, chosen)) return failure;
    HandAnalyst analyst(chosen, options.coin);
    if (stream) {
        return AnswerLines([&](const std::string& cards, std::string& answer) {
            const auto failure = analyst.Analyze(cards);
            if (!failure) analyst.Append(options, answer);
            return failure ? failure->message : "";
        });
    }
    if (auto failure = analyst.Analyze(options.cards)) return failure;
    analyst.Append(options, output);
    return std::nullopt;
}

}  // namespace

Command HandCommand() {
    return {"hand", "The 32 holds of a hand, best first", AddArguments, RunHand};
}

}  // namespace cli
