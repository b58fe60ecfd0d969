// What the command line of a sub-command says, and the parts of the parser that read it.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace cli {

struct Options {
    std::optional<std::string> dataFolder;
    int table = 0;
    double coin = 1;         // dollars, above 0
    std::optional<int> bet;  // coins, as given: whether the table takes them is another question
    std::string game;        // a name or an id
    std::string cards;
    std::vector<std::string> pays;           // in place of the table's own, as given: "FLUSH=5"
    std::optional<std::string> summaryPath;  // a file, or a folder for files of the usual names
    std::optional<std::string> detailPath;   // the same
    std::int64_t hands = 0;                  // to play, at least 1; of a session, from 0 on
    std::optional<std::uint32_t> seed;       // of the generator; otherwise the clock's
    std::optional<int> lines;                // of a strategy chart, at least 1
    int linesAtOnce = 1;                     // 1..kMostLinesAtOnce
    std::optional<double> bankroll;          // dollars, from 0 on; goal and risk likewise
    std::optional<double> goal;              // dollars
    std::optional<double> risk;              // of ruin, above 0 and at most 1
    double cashBack = 0;                     // percent of what is played, 0..100
    std::optional<double> loss;              // of a chart, percent of the bet, from 0 on
    std::optional<std::string> cardPath;     // the file for a chart's text
    std::optional<std::string> checkPath;    // a chart to grade
    std::string payOption = "--pay";         // that the pays were given by
    std::string secondGame;                  // of a comparison, as the first one
    int secondTable = 0;
    std::vector<std::string> secondPays;
    std::vector<std::string> meterLines;  // of growing jackpots
    std::vector<int> meters;              // where they stand, in coins for the full bet, from 0 on
    double rise = 1;                      // of a meter, percent of what is played, above 0
    bool turningPoints = false;           // list all of them
    bool sensitivity = false;             // what one coin more on each line is worth
    bool json = false;
    bool csv = false;
    bool best = false;         // of a hand, print the best hold only
    bool allGames = false;     // instead of a game
    bool cache = false;        // write the analysis cache
    bool noPenalties = false;  // a chart's rows ask nothing of the discards
};

// What the help says below the options.
void AddNote(CLI::App& parser, const std::string& note);

// The options of every command.
void AddCommonOptions(CLI::App& parser, Options& options);

// What is printed can also be a table for a spreadsheet.
void AddCsv(CLI::App& parser, Options& options);

// With the pays that take the place of the table's own.
void AddGame(CLI::App& parser, Options& options);
void AddGameOrAll(CLI::App& parser, Options& options);
void AddCards(CLI::App& parser, Options& options, const std::string& help);
void AddBest(CLI::App& parser, Options& options);
void AddBet(CLI::App& parser, Options& options);
void AddHandsAndSeed(CLI::App& parser, Options& options);
void AddResultFiles(CLI::App& parser, Options& options);
void AddSensitivity(CLI::App& parser, Options& options);
void AddTwoGames(CLI::App& parser, Options& options);
void AddMeter(CLI::App& parser, Options& options);
void AddChart(CLI::App& parser, Options& options);
void AddSession(CLI::App& parser, Options& options);
void AddRuin(CLI::App& parser, Options& options);

}  // namespace cli
