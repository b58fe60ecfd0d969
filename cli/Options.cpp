#include "cli/Options.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <limits>

#include "cli/Texts.h"
#include "core/odds/DealLaw.h"
#include "core/odds/SessionLaw.h"
#include "core/strategy/Search.h"

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

// Each reads the text of an option, or says what is wrong with it as a sentence goes on behind it.
int ReadWhole(const std::string& text, std::string& problem) {
    if (const auto number = ReadNumber<int>(text)) return *number;
    const bool digits = text.find_first_not_of("0123456789") == std::string::npos && !text.empty();
    problem = digits ? " is too large" : " is not a whole number";
    return 0;
}

// A number from the least to the most one; otherwise the problem says what to write.
template <typename Number>
Number ReadInRange(const std::string& text, Number least, Number most, const std::string& wanted,
                   std::string& problem) {
    const auto number = ReadNumber<Number>(text);
    if (number && *number >= least && *number <= most) return *number;
    problem = wanted;
    return most;
}

// The least number above 0.
constexpr double kAboveNothing = std::numeric_limits<double>::denorm_min();

double ReadCoin(const std::string& text, std::string& problem) {
    return ReadInRange(text, kAboveNothing, kMaxCoin,
                       " is not a coin: write dollars, such as 0.25, above 0 and at most " +
                           std::to_string(static_cast<int>(kMaxCoin)),
                       problem);
}

std::int32_t ReadHands(const std::string& text, std::string& problem) {
    return ReadInRange<std::int32_t>(text, 1, std::numeric_limits<std::int32_t>::max(),
                                     ": write how many hands to play, from 1 to 2147483647",
                                     problem);
}

std::uint32_t ReadSeed(const std::string& text, std::string& problem) {
    return ReadInRange<std::uint32_t>(text, 0, std::numeric_limits<std::uint32_t>::max(),
                                      ": write a whole number from 0 to 4294967295", problem);
}

int ReadLines(const std::string& text, std::string& problem) {
    constexpr int most = SearchWish::kMostRows;
    return ReadInRange(
        text, 1, most,
        ": write how many lines the chart may have, from 1 to " + std::to_string(most), problem);
}

double ReadLoss(const std::string& text, std::string& problem) {
    return ReadInRange(text, 0.0, 100.0,
                       ": write what the chart may lose in percent of the bet, such as 0.01",
                       problem);
}

// One below the largest number, so that a coin more can be paid.
int ReadMeter(const std::string& text, std::string& problem) {
    constexpr int most = std::numeric_limits<int>::max() - 1;
    return ReadInRange(text, 0, most,
                       ": write a whole number of coins from 0 to " + std::to_string(most),
                       problem);
}

double ReadRise(const std::string& text, std::string& problem) {
    return ReadInRange(text, kAboveNothing, 100.0,
                       ": write what the meter grows by in percent of what is played, such as 1",
                       problem);
}

std::int64_t ReadSessionHands(const std::string& text, std::string& problem) {
    constexpr std::int64_t most = SessionWish::kMostHands;
    return ReadInRange<std::int64_t>(
        text, 0, most, ": write how many hands the session has, from 0 to " + std::to_string(most),
        problem);
}

int ReadLinesAtOnce(const std::string& text, std::string& problem) {
    return ReadInRange(
        text, 1, kMostLinesAtOnce,
        ": write how many lines are drawn at once, from 1 to " + std::to_string(kMostLinesAtOnce),
        problem);
}

double ReadMoney(const std::string& text, std::string& problem) {
    return ReadInRange(text, 0.0, 1e12, ": write dollars, such as 200, from 0 to 1000000000000",
                       problem);
}

double ReadCashBack(const std::string& text, std::string& problem) {
    return ReadInRange(text, 0.0, 100.0,
                       ": write percent of what is played, such as 0.25, from 0 to 100", problem);
}

double ReadRisk(const std::string& text, std::string& problem) {
    return ReadInRange(text, kAboveNothing, 1.0,
                       ": write the chance of ruin, such as 0.05, above 0 and at most 1", problem);
}

template <typename Read, typename Value>
CLI::Option* AddValue(CLI::App& parser, const std::string& name, const std::string& type, Read read,
                      Value& value, const std::string& help) {
    const auto take = [name, read, &value](const std::string& text) {
        std::string problem;
        value = read(text, problem);
        // The parser catches it.
        if (!problem.empty()) throw CLI::ValidationError(name + " " + Quoted(text) + problem);
    };
    return parser.add_option_function<std::string>(name, take, help)->type_name(type);
}

void AddResultFile(CLI::App& parser, const std::string& name, std::optional<std::string>& path,
                   const std::string& help) {
    const auto read = [name](const std::string& text, std::string& problem) {
        if (text.starts_with("--")) problem = " is no file: put its name behind " + name;
        return text;
    };
    AddValue(parser, name, "FILE", read, path, help);
}

// May be given several times, with one value each.
void AddList(CLI::App& parser, const std::string& name, const std::string& type,
             std::vector<std::string>& values, const std::string& help) {
    parser.add_option(name, values, help)
        ->type_name(type)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void AddLinesAtOnce(CLI::App& parser, Options& options) {
    AddValue(parser, "--lines", "L", ReadLinesAtOnce, options.linesAtOnce,
             "So many hands are drawn from each one dealt, with a bet on each (default 1)");
}

CLI::Option* AddOptionalGame(CLI::App& parser, Options& options) {
    AddList(parser, "--pay", "LINE=N", options.pays,
            "Let the line pay N a coin, or SINGLE:FULL as a table stores them; LINE is its\n"
            "description or its number from 0; may be given several times");
    return parser.add_option("GAME", options.game, "A name in any letter case, or an id")
        ->type_name("");
}

}  // namespace

void AddNote(CLI::App& parser, const std::string& note) { parser.footer(note); }

void AddCommonOptions(CLI::App& parser, Options& options) {
    parser
        .add_option("--data", options.dataFolder,
                    "The folder that holds Tolvane.ini, or the shipped Tolvane.114; otherwise\n"
                    "where the window program looks")
        ->type_name("DIR");
    AddValue(parser, "--table", "N", ReadWhole, options.table, "The game's pay table (default 0)");
    AddValue(parser, "--coin", "V", ReadCoin, options.coin,
             "The coin's value in dollars (default 1.00)");
    parser.add_flag("--json", options.json, "Print JSON");
}

void AddCsv(CLI::App& parser, Options& options) {
    parser.add_flag("--csv", options.csv, "Print comma-separated values");
}

void AddGame(CLI::App& parser, Options& options) { AddOptionalGame(parser, options)->required(); }

void AddGameOrAll(CLI::App& parser, Options& options) {
    AddOptionalGame(parser, options);
    parser.add_flag("--all", options.allGames, "Every game of the catalogue, instead of GAME");
}

void AddCards(CLI::App& parser, Options& options, const std::string& help) {
    parser.add_option("CARDS", options.cards, help)->type_name("")->required();
}

void AddBest(CLI::App& parser, Options& options) {
    parser.add_flag("--best", options.best,
                    "Print JSON of the best hold only, with its gap to the second best");
}

void AddBet(CLI::App& parser, Options& options) {
    AddValue(parser, "--bet", "N", ReadWhole, options.bet, "The coins bet (default 5)");
}

void AddHandsAndSeed(CLI::App& parser, Options& options) {
    AddValue(parser, "--hands", "N", ReadHands, options.hands, "How many hands to play")
        ->required();
    AddValue(parser, "--seed", "N", ReadSeed, options.seed,
             "The same seed gives the same hands; otherwise the clock's");
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

void AddSensitivity(CLI::App& parser, Options& options) {
    parser.add_flag("--sensitivity", options.sensitivity,
                    "What one coin more on each line is worth, beside its probability");
}

void AddTwoGames(CLI::App& parser, Options& options) {
    AddGame(parser, options);
    parser.add_option("GAME2", options.secondGame, "The other game")->type_name("")->required();
    AddValue(parser, "--table2", "N", ReadWhole, options.secondTable,
             "The other game's pay table (default 0)");
    AddList(parser, "--pay2", "LINE=N", options.secondPays, "A pay of the other game");
}

void AddMeter(CLI::App& parser, Options& options) {
    AddList(parser, "--line", "LINE", options.meterLines,
            "The line that grows, by its description or its number from 0; may be given\n"
            "several times");
    parser.get_option("--line")->required();
    const auto take = [&options](const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            std::string problem;
            options.meters.push_back(ReadMeter(text, problem));
            // The parser catches it.
            if (!problem.empty()) throw CLI::ValidationError("--at " + Quoted(text) + problem);
        }
        return true;
    };
    parser
        .add_option("--at", take,
                    "Where the meter stands (default: what the table pays for the full bet)")
        ->type_name("COINS")
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    AddValue(parser, "--rise", "PERCENT", ReadRise, options.rise,
             "What the meter grows by, of what is played (default 1)");
    parser.add_flag("--turning-points", options.turningPoints,
                    "List the meters at which hands come to be played otherwise");
}

void AddChart(CLI::App& parser, Options& options) {
    AddValue(parser, "--lines", "N", ReadLines, options.lines,
             "The best chart of at most N lines, instead of the standard chart");
    AddValue(parser, "--loss", "PERCENT", ReadLoss, options.loss,
             "The shortest chart that loses at most so much of the bet");
    parser.add_flag("--no-penalties", options.noPenalties,
                    "Ask nothing of the cards discarded, as the standard chart does not");
    AddResultFile(parser, "--card", options.cardPath, "Write a card: .svg, .pdf or else text");
    AddResultFile(parser, "--check", options.checkPath,
                  "Grade the chart in the file instead of making one");
}

void AddSession(CLI::App& parser, Options& options) {
    AddValue(parser, "--hands", "N", ReadSessionHands, options.hands,
             "How many hands are dealt; of many lines, how many deals")
        ->required();
    AddValue(parser, "--bankroll", "B", ReadMoney, options.bankroll,
             "The dollars brought; who cannot bet any more is broke");
    AddValue(parser, "--goal", "G", ReadMoney, options.goal,
             "Stop when there are so many dollars, those brought included");
    AddValue(parser, "--cashback", "C", ReadCashBack, options.cashBack,
             "Percent of what is played, paid when the session has ended");
    AddLinesAtOnce(parser, options);
    AddBet(parser, options);
}

void AddRuin(CLI::App& parser, Options& options) {
    AddValue(parser, "--cashback", "C", ReadCashBack, options.cashBack,
             "Percent of what is played, paid with every hand");
    AddValue(parser, "--bankroll", "B", ReadMoney, options.bankroll,
             "What is the risk to lose so many dollars?");
    AddValue(parser, "--risk", "R", ReadRisk, options.risk,
             "What money takes the chance of ruin down to this, such as 0.05?");
    AddLinesAtOnce(parser, options);
    AddBet(parser, options);
}

}  // namespace cli
