#include "cli/Commands.h"

#include <chrono>

#include "cli/GameReport.h"
#include "cli/ResultFiles.h"
#include "cli/TableChoice.h"
#include "cli/Terminal.h"
#include "cli/Texts.h"
#include "core/store/AnalysisFiles.h"

namespace cli {
namespace {

// The analyses of one command, each with its files.
class AnalyzeRun {
  public:
    explicit AnalyzeRun(const Options& options) : options(options), files(options) {}

    // No more games once one was cancelled.
    void Analyze(const std::vector<ChosenTable>& tables) {
        for (const ChosenTable& chosen : tables) {
            const std::string note = options.allGames ? " " + std::to_string(reports.size() + 1) +
                                                            " of " + std::to_string(tables.size())
                                                      : "";
            reports.push_back(Report(chosen, note));
            files.Write(reports.back(), problems);
            if (!reports.back().totals.cancelled) continue;
            problems.push_back("cancelled: only a part of the hands of " +
                               Quoted(chosen.place.gameName) + " was analysed");
            break;
        }
        files.Close(problems);
    }

    std::string Text() const {
        if (options.csv) {
            return options.allGames ? GamesAsCsv(reports) : GameAsCsv(reports.front());
        }
        if (options.allGames) return options.json ? GamesAsJson(reports) : GamesAsText(reports);
        return options.json ? GameAsJson(reports.front()) : GameAsText(reports.front());
    }

    // All but the last problem are told at once.
    std::optional<Failure> Result() const {
        if (problems.empty()) return std::nullopt;
        for (std::size_t i = 0; i + 1 < problems.size(); ++i) Tell(problems[i]);
        return Failure{kFailed, problems.back()};
    }

  private:
    GameReport Report(const ChosenTable& chosen, const std::string& note) {
        GameReport report{chosen, options.coin, {}, 0, {}};
        const auto path = files.DetailPath(chosen);
        std::optional<DetailFile> detail;
        if (path) detail.emplace(*path, chosen.payTable);

        ProgressBar bar("Analyzing game...", note);
        GameAnalysisWatcher watcher;
        watcher.progress = [this, &bar](double done, double all) {
            bar.Show(done, all);
            return !interrupt.Wanted();
        };
        if (detail) watcher.hand = [&detail](const PlayedHand& hand) { detail->Write(hand); };

        const auto start = std::chrono::steady_clock::now();
        const LineTables tables(chosen.payTable);
        report.totals = AnalyzeGame(tables, chosen.payTable, options.coin, watcher);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        report.seconds = time.count();
        if (options.sensitivity && !report.totals.cancelled) {
            report.sensitivities = LineSensitivities(tables, chosen.payTable, report.totals,
                                                     [this] { return !interrupt.Wanted(); });
            if (interrupt.Wanted()) problems.push_back("cancelled: not every line was reckoned");
        }
        if (detail && !detail->Close()) {
            problems.push_back("the detail lines could not be written to " + QuotedPath(*path));
        }
        return report;
    }

    const Options& options;
    Interrupt interrupt;
    ResultFiles files;
    std::vector<GameReport> reports;
    std::vector<std::string> problems;
};

void AddArguments(CLI::App& parser, Options& options) {
    AddGameOrAll(parser, options);
    AddCsv(parser, options);
    AddSensitivity(parser, options);
    AddResultFiles(parser, options);
}

std::optional<Failure> CheckWish(const Options& options) {
    if (options.allGames && !options.game.empty()) {
        return Failure{kWrongUse,
                       Quoted(options.game) + " beside --all: name one game, or take all of them"};
    }
    if (!options.allGames && options.game.empty()) {
        return Failure{kWrongUse, "GAME is required, or --all; see \"tolvane-cli help analyze\""};
    }
    if (options.allGames && options.sensitivity && !options.json) {
        return Failure{kWrongUse,
                       "--sensitivity beside --all needs --json: the table of all games has no "
                       "room for their lines"};
    }
    if (options.cache && !options.pays.empty()) {
        return Failure{kWrongUse,
                       "--cache beside --pay: the window program would take the figures for those "
                       "of its own pay table; leave one of them away"};
    }
    return std::nullopt;
}

std::optional<Failure> ChooseTables(const Options& options, std::vector<ChosenTable>& tables) {
    if (options.allGames) {
        if (auto failure = ChooseTableOfEveryGame(options, tables)) return failure;
        std::erase_if(tables, [](const ChosenTable& chosen) {
            if (CanAnalyzeGame(chosen.payTable)) return false;
            Tell(Quoted(chosen.place.gameName) +
                 " is passed over: game analysis is not available for it");
            return true;
        });
        return std::nullopt;
    }
    ChosenTable& chosen = tables.emplace_back();
    if (auto failure = ChooseTable(options, chosen)) return failure;
    if (CanAnalyzeGame(chosen.payTable)) return std::nullopt;
    return Failure{kFailed, "game analysis is not available for " + Quoted(chosen.place.gameName) +
                                ": \"tolvane-cli hand\" analyses its hands"};
}

std::optional<Failure> RunAnalyze(const Options& options, std::string& output) {
    if (auto failure = CheckWish(options)) return failure;
    const ResultFiles files(options);
    if (auto failure = files.Check()) return failure;
    std::vector<ChosenTable> tables;
    if (auto failure = ChooseTables(options, tables)) return failure;
    for (const ChosenTable& chosen : tables) {
        if (auto failure = files.CheckTargets(chosen)) return failure;
    }
    AnalyzeRun run(options);
    run.Analyze(tables);
    output += run.Text();
    return run.Result();
}

}  // namespace

Command AnalyzeCommand() {
    return {"analyze", "The whole game: return, payout %, variance, every line", AddArguments,
            RunAnalyze};
}

}  // namespace cli
