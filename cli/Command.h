// What a sub-command is, and how one tells that it cannot do what it was asked.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "cli/Options.h"

inline constexpr std::string_view kProgramName = "tolvane-cli";

// Exit statuses.
inline constexpr int kFailed = 1;    // what was asked for is not there
inline constexpr int kWrongUse = 2;  // the command line or the cards are wrong

// One line that names the offending text and how to mend it.
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
