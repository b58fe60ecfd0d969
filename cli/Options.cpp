#include "cli/Options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <functional>

#include "cli/Texts.h"

namespace cli {
namespace {

constexpr double kMaxCoin = 1'000'000;  // dollars; keeps every return far from overflow

// The whole text as a number; nothing when it is none or does not fit.
template <typename Number>
std::optional<Number> ReadNumber(const std::string& text) {
    Number number{};
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
    return number;
}

// The parser catches what is thrown here.
int WholeNumber(const std::string& option, const std::string& text) {
    if (const auto number = ReadNumber<int>(text)) return *number;
    const bool digits = text.find_first_not_of("0123456789") == std::string::npos && !text.empty();
    throw CLI::ValidationError(option + " " + Quoted(text) +
                               (digits ? " is too large" : " is not a whole number"));
}

double CoinValue(const std::string& text) {
    const auto coin = ReadNumber<double>(text);
    if (coin && *coin > 0 && *coin <= kMaxCoin) return *coin;
    throw CLI::ValidationError("--coin " + Quoted(text) +
                               " is not a coin: write dollars, such as 0.25, above 0 and at most " +
                               std::to_string(static_cast<int>(kMaxCoin)));
}

void AddNumber(CLI::App& parser, const std::string& name, const std::function<void(int)>& use,
               const std::string& help) {
    const auto read = [name, use](const std::string& text) { use(WholeNumber(name, text)); };
    parser.add_option_function<std::string>(name, read, help)->type_name("N");
}

CLI::Option* AddOptionalGame(CLI::App& parser, Options& options) {
    return parser.add_option("GAME", options.game, "A name in any letter case, or an id")
        ->type_name("");
}

void AddResultFile(CLI::App& parser, const std::string& name, std::optional<std::string>& path,
                   const std::string& help) {
    const auto read = [name, &path](const std::string& text) {
        if (text.starts_with("--")) {
            throw CLI::ValidationError(name + " " + Quoted(text) +
                                       " is no file: put its name behind " + name);
        }
        path = text;
    };
    parser.add_option_function<std::string>(name, read, help)->type_name("FILE");
}

}  // namespace

void AddCommonOptions(CLI::App& parser, Options& options) {
    parser
        .add_option("--data", options.dataFolder,
                    "The folder that holds Tolvane.ini, or the shipped Tolvane.114; otherwise\n"
                    "where the window program looks")
        ->type_name("DIR");
    AddNumber(
        parser, "--table", [&options](int index) { options.table = index; },
        "The game's pay table (default 0)");
    parser
        .add_option_function<std::string>(
            "--coin", [&options](const std::string& text) { options.coin = CoinValue(text); },
            "The coin's value in dollars (default 1.00)")
        ->type_name("V");
    parser.add_flag("--json", options.json, "Print JSON");
}

void AddGame(CLI::App& parser, Options& options) { AddOptionalGame(parser, options)->required(); }

void AddGameOrAll(CLI::App& parser, Options& options) {
    AddOptionalGame(parser, options);
    parser.add_flag("--all", options.allGames, "Every game of the catalogue, instead of GAME");
}

void AddCards(CLI::App& parser, Options& options, const std::string& help) {
    parser.add_option("CARDS", options.cards, help)->type_name("")->required();
}

void AddBet(CLI::App& parser, Options& options) {
    AddNumber(
        parser, "--bet", [&options](int coins) { options.bet = coins; },
        "The coins bet (default 5)");
}

void AddHandsAndSeed(CLI::App& parser, Options& options) {
    const auto readHands = [&options](const std::string& text) {
        const auto hands = ReadNumber<std::int32_t>(text);
        if (!hands || *hands < 1) {
            throw CLI::ValidationError("--hands " + Quoted(text) +
                                       ": write how many hands to play, from 1 to 2147483647");
        }
        options.hands = *hands;
    };
    const auto readSeed = [&options](const std::string& text) {
        options.seed = ReadNumber<std::uint32_t>(text);
        if (!options.seed) {
            throw CLI::ValidationError("--seed " + Quoted(text) +
                                       ": write a whole number from 0 to 4294967295");
        }
    };
    parser.add_option_function<std::string>("--hands", readHands, "How many hands to play")
        ->type_name("N")
        ->required();
    parser
        .add_option_function<std::string>(
            "--seed", readSeed, "The same seed gives the same hands; otherwise the clock's")
        ->type_name("N");
}

void AddResultFiles(CLI::App& parser, Options& options) {
    AddResultFile(parser, "--summary", options.summaryPath,
                  "Write the figures for a spreadsheet; in a folder, the file is named after\n"
                  "the game");
    AddResultFile(parser, "--detail", options.detailPath,
                  "Write every starting hand and its best play, likewise");
    parser.add_flag("--cache", options.cache,
                    "Keep the figures for the window program, in \"Game Analyses.ini\"");
}

}  // namespace cli
