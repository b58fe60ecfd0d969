// Reads the command line and runs the sub-command that it names.
#pragma once
#include <span>
#include <string>

#include "cli/Command.h"

struct Answer {
    int status = 0;
    std::string output;   // for standard output
    std::string problem;  // one line for standard error; empty when all is well
};

// Beyond the given commands there are help, --help and --version. Without a command the help is
// printed too, but that is wrong use.
Answer AnswerCommandLine(std::span<const Command> commands, int argc, const char* const* argv);
