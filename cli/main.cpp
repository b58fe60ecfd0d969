// The analyser on the command line. It reads pay tables, and writes nothing but its answer and the
// files that it is told to write.
#include <array>
#include <iostream>

#include "cli/AnalyzeCommand.h"
#include "cli/AutoplayCommand.h"
#include "cli/ClassifyCommand.h"
#include "cli/CommandLine.h"
#include "cli/GamesCommand.h"
#include "cli/HandCommand.h"
#include "cli/Notes.h"

int main(int argc, char** argv) {
    const std::array commands = {GamesCommand(), ClassifyCommand(), HandCommand(), AnalyzeCommand(),
                                 AutoplayCommand()};
    Answer answer = AnswerCommandLine(commands, argc, argv);
    std::cout << answer.output << std::flush;
    if (!std::cout && answer.status == 0) {
        answer.status = kFailed;
        answer.problem = "the answer could not be written: is the disk full, or the reader gone?";
    }
    if (!answer.problem.empty()) Tell(answer.problem);
    return answer.status;
}
