#include <nlohmann/json.hpp>

#include "cli/ChosenDeal.h"
#include "cli/Commands.h"
#include "cli/CsvTable.h"
#include "cli/TableChoice.h"
#include "cli/Terminal.h"
#include "cli/TextTable.h"
#include "cli/Texts.h"
#include "core/odds/LineChances.h"
#include "core/text/Amount.h"
#include "game/reports/BankrollTexts.h"
#include "game/reports/LawBars.h"

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

struct SessionReport {
    ChosenTable chosen;
    double coin = 1;  // dollars
    int linesAtOnce = 1;
    SessionWish wish;
    SessionLaw law;
    LineChances lines;

    double BetDollars() const { return chosen.bet * coin; }
};

std::string AsJson(const SessionReport& report) {
    const SessionLaw& law = report.law;
    Json json = {{"game", report.chosen.place.gameName},
                 {"table", report.chosen.place.tableIndex},
                 {"bet", report.chosen.bet},
                 {"coin", report.coin},
                 {"linesAtOnce", report.linesAtOnce},
                 {"hands", report.wish.hands},
                 {"expected", law.expected},
                 {"deviation", law.deviation},
                 {"ahead", law.ahead},
                 {"even", law.even},
                 {"broke", law.broke},
                 {"goal", law.goal},
                 {"quantiles", Json::object()},
                 {"linesAreOfAllDeals", report.lines.areOfAllDeals},
                 {"lines", Json::array()}};
    for (const int percent : kUsualPercents) {
        json["quantiles"][std::to_string(percent)] = law.Quantile(percent / 100.0);
    }
    const auto& lines = report.chosen.payTable.lines;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        json["lines"].push_back(
            {{"description", lines[i].description}, {"atLeastOne", report.lines.atLeastOnce[i]}});
    }
    AddPayChanges(report.chosen, json);
    return JsonText(json);
}

std::string AsCsv(const SessionReport& report) {
    const SessionLaw& law = report.law;
    CsvTable table({"kind", "name", "value"});
    table.AddRow({"session", "hands", report.wish.hands});
    table.AddRow({"session", "expected", law.expected});
    table.AddRow({"session", "deviation", law.deviation});
    table.AddRow({"session", "ahead", law.ahead});
    table.AddRow({"session", "even", law.even});
    table.AddRow({"session", "broke", law.broke});
    table.AddRow({"session", "goal", law.goal});
    for (const int percent : kUsualPercents) {
        table.AddRow({"quantile", percent, law.Quantile(percent / 100.0)});
    }
    const auto& lines = report.chosen.payTable.lines;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        table.AddRow({report.lines.areOfAllDeals ? "atLeastOneOfAllDeals" : "atLeastOne",
                      lines[i].description, report.lines.atLeastOnce[i]});
    }
    return table.Text();
}

std::string Percent(double share) { return FormatDecimals("%.3f", share * 100) + "%"; }

std::string ChancesText(const SessionReport& report) {
    const SessionLaw& law = report.law;
    TextTable table({{"session ends"}, {"chance", true}, {""}});
    table.AddRow({"ahead", Percent(law.ahead)}, {});
    table.AddRow({"even", Percent(law.even)}, {});
    table.AddRow({"behind", Percent(law.ShareBelow(0))}, {});
    if (report.wish.bankroll) table.AddRow({"broke", Percent(law.broke)}, {});
    if (report.wish.goal) table.AddRow({"at the goal", Percent(law.goal)}, {});
    return table.Text();
}

std::string ResultsText(const SessionReport& report) {
    TextTable table({{"sessions", true}, {"bets at most", true}, {"dollars", true}, {""}});
    const auto add = [&](const std::string& name, double bets) {
        table.AddRow(
            {name, FormatDecimals("%.2f", bets + 0.0), BetsInDollars(bets, report.BetDollars())},
            {});
    };
    for (const int percent : kUsualPercents) {
        add(std::to_string(percent) + "%", report.law.Quantile(percent / 100.0));
    }
    add("on average", report.law.expected);
    return table.Text();
}

std::string LinesText(const SessionReport& report) {
    TextTable table({{"line"}, {"at least once", true}, {""}});
    const auto& lines = report.chosen.payTable.lines;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        table.AddRow({lines[i].description, Percent(report.lines.atLeastOnce[i])}, {});
    }
    return table.Text();
}

// "1,000 hands", "1 deal of 3 lines".
std::string HandsText(const SessionReport& report) {
    const bool many = report.linesAtOnce > 1;
    const std::string text = FormatCount(report.wish.hands) + (many ? " deal" : " hand") +
                             (report.wish.hands == 1 ? "" : "s");
    return many ? text + " of " + std::to_string(report.linesAtOnce) + " lines" : text;
}

std::string AsText(const SessionReport& report) {
    const ChosenTable& chosen = report.chosen;
    const double played =
        static_cast<double>(report.wish.hands) * report.linesAtOnce * report.BetDollars();
    std::string text =
        Heading(chosen, chosen.bet, report.coin) + "\n\n" + HandsText(report) + ", " +
        FormatDollars("%.2f", played) + " to be played\n" +
        SentencesOnLines(SessionInWords(report.law, report.wish, report.BetDollars())) + "\n\n";
    text += ChancesText(report) + "\n" + ResultsText(report) + "\n" + LinesText(report);
    if (report.lines.areOfAllDeals) {
        text += "\nThe lines are those of all the deals, whether the money lasts or not.\n";
    }
    const std::string leftOut = LeftOutInWords(chosen.payTable);
    return leftOut.empty() ? text : text + "\n" + leftOut + "\n";
}

void AddArguments(CLI::App& parser, Options& options) {
    AddGame(parser, options);
    AddCsv(parser, options);
    AddSession(parser, options);
    AddNote(
        parser,
        "Every hand is played with its best hold; nothing is doubled up. Results are in bets of "
        "one line\nunless they say dollars.");
}

SessionWish WishOf(const Options& options, double betDollars) {
    SessionWish wish;
    wish.hands = options.hands;
    if (options.bankroll) wish.bankroll = *options.bankroll / betDollars;
    if (options.goal) wish.goal = *options.goal / betDollars;
    wish.cashBack = options.cashBack / 100;
    return wish;
}

std::optional<Failure> RunSession(const Options& options, std::string& output) {
    if (options.goal && !options.bankroll) {
        return Failure{kWrongUse,
                       "--goal counts all the money: say with --bankroll how much is brought"};
    }
    SessionReport report;
    report.coin = options.coin;
    report.linesAtOnce = options.linesAtOnce;
    if (auto failure = ChooseTable(options, report.chosen)) return failure;
    const ChosenTable& chosen = report.chosen;
    const Interrupt interrupt;
    DealLaw deal;
    if (auto failure = FindDeal(options, chosen, interrupt, deal)) return failure;
    const auto goesOn = [&interrupt] { return !interrupt.Wanted(); };
    report.wish = WishOf(options, report.BetDollars());
    SessionAnswer answer = FindSessionLaw(deal.gains, report.wish, goesOn);
    if (interrupt.Wanted()) return Failure{kFailed, "cancelled"};
    if (!answer.law) return Failure{kFailed, "no answer: " + answer.whyNot};
    report.law = std::move(*answer.law);
    const auto lines = FindLineChances(deal, report.wish, goesOn);
    if (!lines) return Failure{kFailed, "cancelled"};
    report.lines = *lines;
    if (options.csv) {
        output += AsCsv(report);
    } else {
        output += options.json ? AsJson(report) : AsText(report);
    }
    return std::nullopt;
}

}  // namespace

Command SessionCommand() {
    return {"session", "What so many hands bring: ahead, broke, at the goal, every result",
            AddArguments, RunSession};
}

}  // namespace cli
