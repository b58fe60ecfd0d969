#include "cli/GameReport.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "cli/CsvTable.h"
#include "cli/TextTable.h"
#include "cli/Texts.h"
#include "core/text/Amount.h"
#include "core/text/Numbers.h"
#include "game/reports/Quotient.h"

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kLongestDescription = 24;
constexpr std::size_t kLongestName = 40;
constexpr double kLongestBar = 15;

std::string Whole(double value) { return FormatDecimals("%.0f", value); }

std::string Percent(std::string_view format, double value) {
    return FormatDouble(format, value) + "%";
}

std::string Odds(double probability) {
    return probability == 0 ? "never" : "1:" + FormatDecimals("%.2f", 1 / probability);
}

std::vector<std::string> Bar(double share, double longest) {
    return {std::string(
        static_cast<std::size_t>(std::lround(Quotient(share, longest) * kLongestBar)), '#')};
}

std::string KeyFigures(const GameReport& report) {
    const GameTotals& totals = report.totals;
    std::string text = "Return    " + Percent("%.6f", totals.payoutPercent) + ": $" +
                       FormatDecimals("%.2f", totals.er) + " for $" +
                       FormatDecimals("%.2f", totals.cost) + ", every starting hand played once\n";
    text += "Variance  " + FormatDecimals("%.6f", totals.variance) +
            " for each coin; standard deviation " +
            FormatDecimals("%.4f", std::sqrt(totals.variance)) + "\n";
    text += "Analysed  " + Whole(totals.initHandsTotal) + " starting hands by " +
            Whole(static_cast<double>(totals.representatives)) + " representatives in " +
            FormatDouble("%.3f", report.seconds) + " s\n";
    if (totals.cancelled) {
        const double share = Quotient(totals.initHandsTotal * kFullBet * report.coin, totals.cost);
        text += "Cancelled after " + Percent("%.2f", share * 100) +
                " of the hands: all figures are theirs, but for the wager, that on all.\n";
    }
    return text + "\n";
}

std::string Legend(const PayTable& table) {
    if (table.type != GameType::kDoubleDraw) return "";
    return "The lines are counted after the first draw; only the return of the game above counts\n"
           "the second draws in.\n";
}

std::string LineTable(const GameReport& report) {
    const GameTotals& totals = report.totals;
    const PayTable& table = report.chosen.payTable;
    TextTable text({{"line"},
                    {"pays", true},
                    {"odds", true},
                    {"probability", true},
                    {"return", true},
                    {"variance", true},
                    {"of the return"}});
    double longest = 0;
    double all = 0;
    for (std::size_t line = 0; line < table.lines.size(); ++line) {
        longest = std::max(longest, LinePercentReturn(totals, table, line));
        all += LinePercentReturn(totals, table, line);
    }
    const auto add = [&](const std::string& name, int pay, double summary, double percent,
                         double variance) {
        const double probability = Quotient(summary, totals.denominator);
        text.AddRow({Shortened(name, kLongestDescription), Whole(pay), Odds(probability),
                     Percent("%.5f", probability * 100), Percent("%.3f", percent),
                     FormatDecimals("%.4f", variance)},
                    Bar(percent, longest));
    };
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        const PayLine& line = table.lines[i];
        add(line.description, LineCoinPay(line), totals.summary[i],
            LinePercentReturn(totals, table, i), totals.lineVariance[i]);
    }
    add("NOTHING", 0, totals.summaryNothing, 0, totals.nothingVariance);
    text.AddRow(
        {"total", "", "", "", Percent("%.3f", all), FormatDecimals("%.4f", totals.variance)}, {""});
    return text.Text() + Legend(table) + "\n";
}

// What one coin more on each line is worth; empty when that was not asked for.
std::string SensitivityTable(const GameReport& report) {
    if (report.sensitivities.empty()) return "";
    TextTable text({{"one coin more on"}, {"is worth", true}, {"with the play as it is"}});
    for (std::size_t i = 0; i < report.sensitivities.size(); ++i) {
        const LineSensitivity& sensitivity = report.sensitivities[i];
        text.AddRow({Shortened(report.chosen.payTable.lines[i].description, kLongestDescription),
                     sensitivity.known ? Percent("%.6f", sensitivity.gain) : "-"},
                    {sensitivity.slope ? Percent("%.6f", *sensitivity.slope) : "-"});
    }
    return text.Text() + "\n";
}

// How the starting hands are played best.
std::string DrawTable(const GameReport& report) {
    const GameTotals& totals = report.totals;
    TextTable text(
        {{"cards drawn"}, {"starting hands", true}, {"of all", true}, {"win rate", true}, {""}});
    const double longest = *std::ranges::max_element(totals.initHands);
    const auto add = [&](const std::string& drawn, double hands, double final, double nothing,
                         const std::vector<std::string>& bar) {
        const std::string wins =
            final == 0 ? "-" : Percent("%.2f", (final - nothing) / final * 100);
        text.AddRow({drawn, Whole(hands),
                     Percent("%.3f", Quotient(hands, totals.initHandsTotal) * 100), wins},
                    bar);
    };
    for (std::size_t drawn = 0; drawn < kDraws; ++drawn) {
        add(std::to_string(drawn), totals.initHands[drawn], totals.finalHands[drawn],
            totals.nothing[drawn], Bar(totals.initHands[drawn], longest));
    }
    add("any", totals.initHandsTotal, totals.denominator, totals.summaryNothing, {""});
    return text.Text();
}

// A count is whole unless hands have fractions of a weight, and is printed so; what the last bits
// of a sum have gathered by rounding is not part of it.
Json Count(double value) {
    constexpr double kExact = 9007199254740992;  // 2^53
    constexpr double kRounding = 16 * std::numeric_limits<double>::epsilon();
    const double whole = std::round(value);
    if (std::abs(whole) >= kExact || std::abs(value - whole) > std::abs(value) * kRounding) {
        return value;
    }
    return static_cast<std::int64_t>(whole);
}

template <typename Counts>
Json CountList(const Counts& counts) {
    Json list = Json::array();
    for (const double count : counts) list.push_back(Count(count));
    return list;
}

Json LineAsJson(const GameReport& report, std::size_t number) {
    const GameTotals& totals = report.totals;
    const PayLine& line = report.chosen.payTable.lines[number];
    Json final = Json::array();
    for (const auto& ofDraw : totals.final) final.push_back(Count(ofDraw[number]));
    Json json = {{"description", line.description},
                 {"payout", LineCoinPay(line)},
                 {"final", final},
                 {"total", Count(totals.total[number])},
                 {"summary", Count(totals.summary[number])},
                 {"percentReturn", LinePercentReturn(totals, report.chosen.payTable, number)},
                 {"variance", totals.lineVariance[number]}};
    if (!report.sensitivities.empty()) {
        const LineSensitivity& sensitivity = report.sensitivities[number];
        json["oneCoinMore"] = sensitivity.known ? Json(sensitivity.gain) : Json(nullptr);
        json["slope"] = sensitivity.slope ? Json(*sensitivity.slope) : Json(nullptr);
    }
    return json;
}

Json ReportAsJson(const GameReport& report) {
    const ChosenTable& chosen = report.chosen;
    const GameTotals& totals = report.totals;
    Json json = {{"game", chosen.place.gameName},
                 {"gameId", chosen.place.gameId},
                 {"table", chosen.place.tableIndex},
                 {"bet", kFullBet},
                 {"coin", report.coin},
                 {"er", totals.er},
                 {"cost", totals.cost},
                 {"payoutPercent", totals.payoutPercent},
                 {"variance", totals.variance},
                 {"initHands", CountList(totals.initHands)},
                 {"initHandsTotal", Count(totals.initHandsTotal)},
                 {"representatives", totals.representatives},
                 {"denominator", Count(totals.denominator)},
                 {"lines", Json::array()}};
    AddPayChanges(chosen, json);
    for (std::size_t line = 0; line < chosen.payTable.lines.size(); ++line) {
        json["lines"].push_back(LineAsJson(report, line));
    }
    json["nothing"] = {{"final", CountList(totals.nothing)},
                       {"total", Count(totals.nothingTotal)},
                       {"summary", Count(totals.summaryNothing)},
                       {"variance", totals.nothingVariance}};
    json["seconds"] = report.seconds;
    return json;
}

}  // namespace

std::string GameAsText(const GameReport& report) {
    return Heading(report.chosen, kFullBet, report.coin) + "\n\n" + KeyFigures(report) +
           LineTable(report) + SensitivityTable(report) + DrawTable(report);
}

std::string GamesAsText(std::span<const GameReport> reports) {
    TextTable text({{"id", true},
                    {"name"},
                    {"return", true},
                    {"variance", true},
                    {"starting hands", true},
                    {"seconds"}});
    double seconds = 0;
    std::vector<const ChosenTable*> tables;
    for (const GameReport& report : reports) {
        tables.push_back(&report.chosen);
        const GameTotals& totals = report.totals;
        text.AddRow(
            {std::to_string(report.chosen.place.gameId),
             Shortened(report.chosen.place.gameName, kLongestName),
             Percent("%.4f", totals.payoutPercent), FormatDecimals("%.4f", totals.variance),
             Whole(totals.initHandsTotal)},
            {FormatDouble("%7.3f", report.seconds) + (totals.cancelled ? "  cancelled" : "")});
        seconds += report.seconds;
    }
    return PayChangesHeading(tables) + text.Text() + "\n" + std::to_string(reports.size()) +
           (reports.size() == 1 ? " game in " : " games in ") + FormatDouble("%.3f", seconds) +
           " s\n";
}

std::string GameAsJson(const GameReport& report) { return JsonText(ReportAsJson(report)); }

std::string GamesAsJson(std::span<const GameReport> reports) {
    Json list = Json::array();
    for (const GameReport& report : reports) list.push_back(ReportAsJson(report));
    return JsonText(list);
}

std::string GameAsCsv(const GameReport& report) {
    const GameTotals& totals = report.totals;
    const PayTable& table = report.chosen.payTable;
    std::vector<CsvCell> cells = {"line",        "description",   "payout",  "maxPayout",
                                  "probability", "percentReturn", "variance"};
    const bool sensitive = !report.sensitivities.empty();
    if (sensitive) cells.insert(cells.end(), {"oneCoinMore", "slope"});
    CsvTable csv(cells);
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        const PayLine& line = table.lines[i];
        cells = {i,
                 line.description,
                 line.payout,
                 line.maxPayout,
                 Quotient(totals.summary[i], totals.denominator),
                 LinePercentReturn(totals, table, i),
                 totals.lineVariance[i]};
        if (sensitive) {
            const LineSensitivity& more = report.sensitivities[i];
            cells.insert(cells.end(), {more.known ? CsvCell(more.gain) : CsvCell(),
                                       more.slope ? CsvCell(*more.slope) : CsvCell()});
        }
        csv.AddRow(cells);
    }
    cells = {-1,
             "NOTHING",
             0,
             0,
             Quotient(totals.summaryNothing, totals.denominator),
             0,
             totals.nothingVariance};
    if (sensitive) cells.resize(cells.size() + 2);
    csv.AddRow(cells);
    return csv.Text();
}

std::string GamesAsCsv(std::span<const GameReport> reports) {
    CsvTable csv({"id", "game", "table", "payoutPercent", "variance", "initHandsTotal", "seconds"});
    for (const GameReport& report : reports) {
        const GameTotals& totals = report.totals;
        csv.AddRow({report.chosen.place.gameId, report.chosen.place.gameName,
                    report.chosen.place.tableIndex, totals.payoutPercent, totals.variance,
                    totals.initHandsTotal, report.seconds});
    }
    return csv.Text();
}

}  // namespace cli
