
#include "cli/Commands.h"
#include "cli/CompareReport.h"
#include "cli/TableChoice.h"
#include "cli/Terminal.h"
#include "cli/Texts.h"

namespace cli {
namespace {

void AddArguments(CLI::App& parser, Options& options) {
    AddTwoGames(parser, options);
    AddCsv(parser, options);
}

// The second game is chosen as the first one is.
std::optional<Failure> ChooseSecond(const Options& options, ChosenTable& chosen) {
    Options second = options;
    second.game = options.secondGame;
    second.table = options.secondTable;
    second.pays = options.secondPays;
    second.payOption = "--pay2";
    return ChooseTable(second, chosen);
}

std::optional<Failure> RunCompare(const Options& options, std::string& output) {
    CompareReport report;
    report.coin = options.coin;
    if (auto failure = ChooseTable(options, report.a)) return failure;
    if (auto failure = ChooseSecond(options, report.b)) return failure;
    for (const ChosenTable* chosen : {&report.a, &report.b}) {
        if (CanAnalyzeGame(chosen->payTable)) continue;
        return Failure{kFailed, "game analysis is not available for " +
                                    Quoted(chosen->place.gameName) +
                                    ", so that it cannot be compared"};
    }
    {
        const Interrupt interrupt;
        ProgressBar bar("Comparing...", "");
        report.comparison = CompareGames(report.a.payTable, report.b.payTable, [&](double done) {
            bar.Show(done, 1);
            return !interrupt.Wanted();
        });
    }
    if (report.comparison.cancelled) return Failure{kFailed, "cancelled: nothing was compared"};
    if (options.csv) {
        output += CompareAsCsv(report);
    } else {
        output += options.json ? CompareAsJson(report) : CompareAsText(report);
    }
    return std::nullopt;
}

}  // namespace

Command CompareCommand() {
    return {"compare", "Two games: what they return, and what is played differently", AddArguments,
            RunCompare};
}

}  // namespace cli
