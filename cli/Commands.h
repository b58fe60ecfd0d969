// What a sub-command is, and those there are.
#pragma once
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "cli/Options.h"

namespace cli {

inline constexpr std::string_view kProgramName = "tolvane-cli";

// Exit statuses.
inline constexpr int kFailed = 1;    // what was asked for is not there
inline constexpr int kWrongUse = 2;  // the command line or the cards are wrong

// How a command tells that it cannot do what it was asked: one line that names the offending text
// and how to mend it.
struct Failure {
    int status = kFailed;
    std::string message;
};

struct Command {
    std::string name;
    std::string summary;  // one line of the help
    // Tells the parser of the arguments and options beyond those that every command has.
    void (*addArguments)(CLI::App& parser, Options& options) = nullptr;
    // Adds what goes to standard output, which is printed beside a failure too; no failure when
    // done.
    std::optional<Failure> (*run)(const Options& options, std::string& output) = nullptr;
};

struct Answer {
    int status = 0;
    std::string output;   // for standard output
    std::string problem;  // one line for standard error; empty when all is well
};

// Reads the command line and runs the sub-command that it names. Beyond the given commands there
// are help, --help and --version. Without a command the help is printed too, but that is wrong use.
Answer AnswerCommandLine(std::span<const Command> commands, int argc, const char* const* argv);

Command GamesCommand();     // the catalogue
Command ClassifyCommand();  // the pay line that five cards are paid on
Command HandCommand();      // what each of the 32 ways to hold a hand is worth
Command AnalyzeCommand();   // the exact return of a whole game, or of every game
Command StrategyCommand();  // a chart of the best play, and what it costs
Command CompareCommand();   // two games side by side
Command MeterCommand();     // a growing jackpot
Command SessionCommand();   // what so many hands bring
Command RuinCommand();      // the money that it takes to play for ever
Command AutoplayCommand();  // hands dealt by a generator and played with their best holds

}  // namespace cli
