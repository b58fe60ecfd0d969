#include <filesystem>
#include <system_error>

#include "cli/Commands.h"
#include "cli/ResultFiles.h"
#include "cli/StrategyReport.h"
#include "cli/TableChoice.h"
#include "cli/Terminal.h"
#include "cli/Texts.h"
#include "core/profile/AtomicFile.h"
#include "core/profile/OutputFile.h"
#include "core/strategy/RowText.h"
#include "core/strategy/Search.h"

namespace cli {
namespace {

std::optional<Failure> CheckOptions(const Options& options) {
    if (options.lines && options.loss) {
        return Failure{kWrongUse, "--lines beside --loss: take one of them"};
    }
    if (options.checkPath && (options.lines || options.loss || options.noPenalties)) {
        return Failure{kWrongUse,
                       "--check grades a chart that is there: leave --lines, --loss "
                       "and --no-penalties away"};
    }
    std::error_code error;
    if (options.cardPath && options.checkPath &&
        std::filesystem::equivalent(*options.cardPath, *options.checkPath, error)) {
        return Failure{kWrongUse, "--card " + QuotedPath(*options.cardPath) +
                                      " would replace the chart that --check reads: name another "
                                      "file"};
    }
    if (options.cardPath && IsOwnFile(*options.cardPath, options.dataFolder)) {
        return Failure{kWrongUse, "--card " + QuotedPath(*options.cardPath) +
                                      " would replace a file of the program's data: name another "
                                      "file"};
    }
    return std::nullopt;
}

std::optional<Failure> ReadChartFile(const std::string& path, Chart& chart) {
    const auto text = ReadWholeFile(path);
    if (!text) return Failure{kFailed, "the chart " + QuotedPath(path) + " cannot be read"};
    ReadChart read = ParseChart(*text);
    if (!read.valid) {
        const ChartProblem& problem = read.problem;
        return Failure{kWrongUse,
                       "line " + std::to_string(problem.line) + ", word " +
                           std::to_string(problem.word) + " of " + QuotedPath(path) + ": " +
                           (problem.found.empty() ? "the line ends" : Quoted(problem.found)) +
                           ", expected " + problem.expected};
    }
    chart = std::move(read.rows);
    return std::nullopt;
}

// The standard chart asks nothing of the discards; others may, unless told not to.
SearchWish WishOf(const Options& options) {
    SearchWish wish = kStandardChart;
    if (options.lines) wish = {static_cast<std::size_t>(*options.lines), -1};
    if (options.loss) wish = {SearchWish::kMostRows, *options.loss};
    wish.penalties = (options.lines || options.loss) && !options.noPenalties;
    return wish;
}

void AddArguments(CLI::App& parser, Options& options) {
    AddGame(parser, options);
    AddCsv(parser, options);
    AddChart(parser, options);
}

std::optional<Failure> RunStrategy(const Options& options, std::string& output) {
    if (auto failure = CheckOptions(options)) return failure;
    StrategyReport report;
    report.coin = options.coin;
    if (auto failure = ChooseTable(options, report.chosen)) return failure;
    const PayTable& table = report.chosen.payTable;
    const std::string whyNot = StartingHands::WhyNot(table);
    if (!whyNot.empty()) {
        return Failure{kFailed, "there is no strategy chart for " +
                                    Quoted(report.chosen.place.gameName) + ", which " + whyNot +
                                    ": \"tolvane-cli hand\" analyses its hands"};
    }
    report.checked = options.checkPath.has_value();
    if (report.checked) {
        if (auto failure = ReadChartFile(*options.checkPath, report.chart)) return failure;
    }

    const LineTables tables(table);
    const StartingHands hands(tables, table);
    const Terms terms(tables, table);
    bool cancelled = false;
    if (!report.checked) {
        const Interrupt interrupt;
        ProgressBar bar("Searching for a chart...", "");
        const auto progress = [&](double done) {
            bar.Show(done, 1);
            return !interrupt.Wanted();
        };
        SearchResult found = FindChart(hands, terms, table, WishOf(options), progress);
        report.chart = std::move(found.chart);
        cancelled = found.cancelled;
    }
    report.grade = GradeChart(hands, terms, report.chart);
    if (options.csv) {
        output += StrategyAsCsv(report);
    } else {
        output += options.json ? StrategyAsJson(report) : StrategyAsText(report);
    }
    if (options.cardPath &&
        !WriteOutputFile(
            *options.cardPath,
            StrategyCard(report, StudyChart(hands, terms, report.chart), *options.cardPath))) {
        return Failure{kFailed,
                       "the card could not be written to " + QuotedPath(*options.cardPath)};
    }
    if (cancelled) return Failure{kFailed, "cancelled: this is the best chart found so far"};
    return std::nullopt;
}

}  // namespace

Command StrategyCommand() {
    return {"strategy", "The best play as a short list of holds, and its exact price", AddArguments,
            RunStrategy};
}

}  // namespace cli
