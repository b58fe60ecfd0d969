#include "cli/Commands.h"

#include <nlohmann/json.hpp>

#include "cli/LineStream.h"
#include "cli/TableChoice.h"
#include "cli/Texts.h"
#include "core/eval/HandEvaluator.h"

namespace cli {
namespace {

std::string DescriptionOf(const Classification& result, const PayTable& table) {
    if (result.line < 0) return "";
    return table.lines[static_cast<std::size_t>(result.line)].description;
}

std::string ResultAsJson(const ChosenTable& chosen, const std::vector<std::string>& cards,
                         const Classification& result) {
    nlohmann::ordered_json json = {
        {"game", chosen.place.gameName}, {"cards", cards},
        {"line", result.line},           {"description", DescriptionOf(result, chosen.payTable)},
        {"pay", result.Pay()},
    };
    AddPayChanges(chosen, json);
    return JsonText(json);
}

std::string Coins(int count) { return std::to_string(count) + (count == 1 ? " coin" : " coins"); }

std::string ResultAsText(const ChosenTable& chosen, const std::vector<std::string>& cards,
                         const Classification& result, double coin) {
    std::string text;
    for (const std::string& card : cards) text += card + " ";
    if (result.line < 0) return text + "  no win" + PayChangesText(chosen) + "\n";
    text += "  " + DescriptionOf(result, chosen.payTable) + " pays " + Coins(result.Pay()) +
            " for a bet of " + std::to_string(chosen.bet) + ": " + Dollars(result.Pay() * coin);
    if (result.charlie) text += ", five times its pay for adding up to 21";
    return text + PayChangesText(chosen) + "\n";
}

std::optional<Failure> Classify(const ChosenTable& chosen, const std::string& text, bool json,
                                double coin, std::string& output) {
    std::vector<CardCode> cards;
    if (auto failure = ReadCards(text, chosen.deck, kHandSize, cards)) return failure;
    const auto result = EvaluateHand(FacesOf(chosen.deck, cards), chosen.payTable, chosen.bet);
    const auto texts = CardTexts(chosen.deck, cards);
    output +=
        json ? ResultAsJson(chosen, texts, result) : ResultAsText(chosen, texts, result, coin);
    return std::nullopt;
}

void AddArguments(CLI::App& parser, Options& options) {
    AddGame(parser, options);
    AddCards(parser, options,
             "Five cards in one argument, such as \"KS KH KD 9C 9S\"; - reads hands from\n"
             "standard input, one a line, and answers each with a line of JSON");
    AddBet(parser, options);
}

std::optional<Failure> RunClassify(const Options& options, std::string& output) {
    ChosenTable chosen;
    if (auto failure = ChooseTable(options, chosen)) return failure;
    if (options.cards == kStandardInput) {
        return AnswerLines([&](const std::string& text, std::string& answer) {
            const auto failure = Classify(chosen, text, true, options.coin, answer);
            return failure ? failure->message : "";
        });
    }
    return Classify(chosen, options.cards, options.json, options.coin, output);
}

}  // namespace

Command ClassifyCommand() {
    return {"classify", "The pay line that five cards are paid on", AddArguments, RunClassify};
}

}  // namespace cli
