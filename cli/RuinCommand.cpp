#include <cmath>
#include <nlohmann/json.hpp>

#include "cli/ChosenDeal.h"
#include "cli/Commands.h"
#include "cli/CsvTable.h"
#include "cli/TableChoice.h"
#include "cli/Terminal.h"
#include "cli/TextTable.h"
#include "cli/Texts.h"
#include "core/odds/Ruin.h"
#include "core/text/Amount.h"
#include "game/reports/BankrollTexts.h"
#include "game/reports/LawBars.h"

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

struct RuinReport {
    ChosenTable chosen;
    double coin = 1;  // dollars
    int linesAtOnce = 1;
    LongRun run;
    double cashBack = 0;             // 0..1 of what is played
    std::optional<double> bankroll;  // bets; infinite where none will do
    std::optional<double> risk;

    double BetDollars() const { return chosen.bet * coin; }
};

// What is unknown or infinite is null.
Json Number(std::optional<double> value) { return value ? Json(*value) : Json(); }

std::optional<double> InDollars(const RuinReport& report, std::optional<double> bets) {
    return bets ? std::optional(*bets * report.BetDollars()) : std::nullopt;
}

std::string AsJson(const RuinReport& report) {
    const LongRun& run = report.run;
    Json json = {{"game", report.chosen.place.gameName},
                 {"table", report.chosen.place.tableIndex},
                 {"bet", report.chosen.bet},
                 {"coin", report.coin},
                 {"linesAtOnce", report.linesAtOnce},
                 {"edge", run.edge},
                 {"bankroll", Number(report.bankroll)},
                 {"bankrollDollars", Number(InDollars(report, report.bankroll))},
                 {"risk", Number(report.risk)},
                 {"kelly", run.kelly},
                 {"kellyBankroll", run.KellyBankroll()},
                 {"bankrolls", Json::array()}};
    for (const double risk : kUsualRisks) {
        const double bets = run.BankrollFor(risk);
        json["bankrolls"].push_back(
            {{"risk", risk}, {"bankroll", bets}, {"bankrollDollars", bets * report.BetDollars()}});
    }
    AddPayChanges(report.chosen, json);
    return JsonText(json);
}

// An empty cell where no bankroll will do.
std::string AsCsv(const RuinReport& report) {
    CsvTable table({"risk", "bankroll", "bankrollDollars"});
    const auto add = [&](double risk, double bets) {
        if (std::isfinite(bets)) return table.AddRow({risk, bets, bets * report.BetDollars()});
        table.AddRow({risk, "", ""});
    };
    if (report.bankroll && report.risk) add(*report.risk, *report.bankroll);
    for (const double risk : kUsualRisks) add(risk, report.run.BankrollFor(risk));
    return table.Text();
}

std::string Percent(double share) { return FormatDecimals("%.1f", share * 100) + "%"; }

std::string AsText(const RuinReport& report) {
    const ChosenTable& chosen = report.chosen;
    const LongRun& run = report.run;
    std::string text =
        Heading(chosen, chosen.bet, report.coin) +
        (report.linesAtOnce > 1 ? ", " + std::to_string(report.linesAtOnce) + " lines at once"
                                : std::string()) +
        "\n\n" +
        SentencesOnLines(RuinInWords(run, report.cashBack, report.bankroll, report.BetDollars())) +
        "\n";
    if (!run.RuinIsCertain()) {
        TextTable table({{"risk", true}, {"bets", true}, {"dollars", true}, {""}});
        const auto add = [&](double risk, double bets) {
            table.AddRow({Percent(risk), FormatDecimals("%.1f", bets),
                          BetsInDollars(bets, report.BetDollars())},
                         {});
        };
        if (report.bankroll && report.risk) {
            add(*report.risk, *report.bankroll);
            table.AddRow({"", "", ""}, {});
        }
        for (const double risk : kUsualRisks) add(risk, run.BankrollFor(risk));
        text += "\n" + table.Text();
    }
    const std::string leftOut = LeftOutInWords(chosen.payTable);
    return leftOut.empty() ? text : text + "\n" + leftOut + "\n";
}

void AddArguments(CLI::App& parser, Options& options) {
    AddGame(parser, options);
    AddCsv(parser, options);
    AddRuin(parser, options);
    AddNote(parser,
            "Every hand is played with its best hold, for ever; nothing is doubled up. Money is in "
            "bets unless it\nsays dollars.");
}

std::optional<Failure> RunRuin(const Options& options, std::string& output) {
    if (options.bankroll && options.risk) {
        return Failure{kWrongUse, "--bankroll beside --risk: give one, the other is the answer"};
    }
    RuinReport report;
    report.coin = options.coin;
    report.linesAtOnce = options.linesAtOnce;
    if (auto failure = ChooseTable(options, report.chosen)) return failure;
    const ChosenTable& chosen = report.chosen;
    const Interrupt interrupt;
    DealLaw deal;
    if (auto failure = FindDeal(options, chosen, interrupt, deal)) return failure;
    report.cashBack = options.cashBack / 100;
    report.run = FindLongRun(deal.gains, report.cashBack);
    if (options.bankroll) {
        report.bankroll = *options.bankroll / report.BetDollars();
        report.risk = report.run.RiskOf(*report.bankroll);
    } else if (options.risk) {
        report.risk = options.risk;
        report.bankroll = report.run.BankrollFor(*options.risk);
    }
    if (options.csv) {
        output += AsCsv(report);
    } else {
        output += options.json ? AsJson(report) : AsText(report);
    }
    return std::nullopt;
}

}  // namespace

Command RuinCommand() {
    return {"ruin", "The money it takes to play for ever, and the risk of any bankroll",
            AddArguments, RunRuin};
}

}  // namespace cli
