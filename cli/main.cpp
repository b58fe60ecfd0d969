// The analyser on the command line. It reads pay tables, and writes nothing but its answer and the
// files that it is told to write.
#include <array>
#include <iostream>

#include "cli/Commands.h"
#include "cli/Terminal.h"

int main(int argc, char** argv) {
    const std::array commands = {
        cli::GamesCommand(),    cli::ClassifyCommand(), cli::HandCommand(),  cli::AnalyzeCommand(),
        cli::StrategyCommand(), cli::CompareCommand(),  cli::MeterCommand(), cli::SessionCommand(),
        cli::RuinCommand(),     cli::AutoplayCommand()};
    cli::Answer answer = cli::AnswerCommandLine(commands, argc, argv);
    std::cout << answer.output << std::flush;
    if (!std::cout && answer.status == 0) {
        answer.status = cli::kFailed;
        answer.problem = "the answer could not be written: is the disk full, or the reader gone?";
    }
    if (!answer.problem.empty()) cli::Tell(answer.problem);
    return answer.status;
}
