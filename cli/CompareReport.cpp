#include "cli/CompareReport.h"

#include <nlohmann/json.hpp>

#include "cli/CsvTable.h"
#include "cli/TextTable.h"
#include "cli/Texts.h"
#include "core/strategy/Grade.h"
#include "core/text/Amount.h"
#include "core/text/Numbers.h"

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kLongestDescription = 24;
constexpr int kDecimals = 7;  // of what one class of hands costs

std::string Signed(std::string_view format, double value) {
    return (value < 0 ? "" : "+") + FormatDouble(format, value);
}

std::string Cost(Worth cost, const PlayComparison& play) {
    return PercentText(cost, play.Bet(), kDecimals) + "%";
}

std::string Figures(const std::string& name, const TableFigures& figures) {
    std::string text = name + ": returns " + FormatDouble("%.6f", figures.percent) +
                       "%, variance " + FormatDecimals("%.6f", figures.variance);
    if (figures.royalCycle > 0) {
        text += ", a royal flush in " + FormatDecimals("%.0f", figures.royalCycle) + " hands";
    }
    return text + "\n";
}

std::string PayCell(const std::optional<double>& pay) { return pay ? NumberText(*pay) : "-"; }

std::string LineTable(const GameComparison& comparison) {
    TextTable table({{"line"},
                     {"A pays", true},
                     {"B pays", true},
                     {"A %", true},
                     {"B %", true},
                     {"by frequency", true},
                     {"by pay"}});
    for (const LineDifference& line : comparison.lines) {
        table.AddRow({Shortened(line.description, kLongestDescription), PayCell(line.payA),
                      PayCell(line.payB), FormatDouble("%.4f", line.percentA),
                      FormatDouble("%.4f", line.percentB), Signed("%.4f", line.byFrequency)},
                     {Signed("%.4f", line.byPay)});
    }
    return table.Text();
}

std::string Share(std::int64_t hands, const PlayComparison& play) {
    return FormatCount(hands) + " of " + FormatCount(play.hands) + " (" +
           PercentText(hands, play.hands, 4) + "%)";
}

std::string PlayText(const PlayComparison& play) {
    std::string text =
        "A's best play returns " + PercentText(play.bestOnB - play.costOnB, play.Bet(), 6) +
        "% on B, which costs " + Cost(play.costOnB, play) + "\nB's best play returns " +
        PercentText(play.bestOnA - play.costOnA, play.Bet(), 6) + "% on A, which costs " +
        Cost(play.costOnA, play) + "\n";
    if (play.classes.empty()) return text + "No hand is played differently.\n";
    text += "Played differently: " + Share(play.differentHands, play) + "\n\n";
    TextTable table({{"A holds"}, {"B holds"}, {"hands", true}, {"costs on B", true}, {"example"}});
    for (const PlayDifference& found : play.classes) {
        table.AddRow({found.a, found.b, std::to_string(found.hands), Cost(found.costOnB, play)},
                     {FaceTexts(found.example)});
    }
    return text + table.Text();
}

Json FiguresAsJson(const ChosenTable& chosen, const TableFigures& figures) {
    Json json = {{"return", figures.percent},     {"variance", figures.variance},
                 {"royalCycle", nullptr},         {"game", chosen.place.gameName},
                 {"gameId", chosen.place.gameId}, {"table", chosen.place.tableIndex}};
    if (figures.royalCycle > 0) json["royalCycle"] = figures.royalCycle;
    AddPayChanges(chosen, json);
    return json;
}

Json PayJson(const std::optional<double>& pay) { return pay ? Json(*pay) : Json(nullptr); }

void AddPlay(const PlayComparison& play, Json& json) {
    const auto percent = [&play](Worth part) { return Percent(part, play.Bet()); };
    json["aOnB"] = percent(play.bestOnB - play.costOnB);
    json["bOnA"] = percent(play.bestOnA - play.costOnA);
    json["costAOnB"] = percent(play.costOnB);
    json["costBOnA"] = percent(play.costOnA);
    json["differentHands"] = play.differentHands;
    json["hands"] = play.hands;
    json["classes"] = Json::array();
    for (const PlayDifference& found : play.classes) {
        json["classes"].push_back({{"a", found.a},
                                   {"b", found.b},
                                   {"hands", found.hands},
                                   {"cost", percent(found.costOnB)},
                                   {"costOnA", percent(found.costOnA)},
                                   {"example", FaceTexts(found.example)}});
    }
}

}  // namespace

std::string CompareAsText(const CompareReport& report) {
    const GameComparison& comparison = report.comparison;
    const double difference = comparison.b.percent - comparison.a.percent;
    std::string text = "A  " + Heading(report.a, kFullBet, report.coin) + "\nB  " +
                       Heading(report.b, kFullBet, report.coin) + "\n\n" +
                       Figures("A", comparison.a) + Figures("B", comparison.b) + "B returns " +
                       Signed("%.6f", difference) + "%\n\n" + LineTable(comparison) + "\n";
    return text + (comparison.play ? PlayText(*comparison.play) : comparison.whyNoPlay + "\n");
}

std::string CompareAsJson(const CompareReport& report) {
    const GameComparison& comparison = report.comparison;
    Json json = {{"a", FiguresAsJson(report.a, comparison.a)},
                 {"b", FiguresAsJson(report.b, comparison.b)}};
    if (comparison.play) {
        AddPlay(*comparison.play, json);
    } else {
        json["whyNoPlay"] = comparison.whyNoPlay;
    }
    json["lines"] = Json::array();
    for (const LineDifference& line : comparison.lines) {
        json["lines"].push_back({{"description", line.description},
                                 {"payA", PayJson(line.payA)},
                                 {"payB", PayJson(line.payB)},
                                 {"probabilityA", line.probabilityA},
                                 {"probabilityB", line.probabilityB},
                                 {"percentReturnA", line.percentA},
                                 {"percentReturnB", line.percentB},
                                 {"byFrequency", line.byFrequency},
                                 {"byPay", line.byPay}});
    }
    return JsonText(json);
}

std::string CompareAsCsv(const CompareReport& report) {
    const GameComparison& comparison = report.comparison;
    if (comparison.play) {
        CsvTable table({"a", "b", "hands", "cost", "costOnA", "example"});
        const PlayComparison& play = *comparison.play;
        for (const PlayDifference& found : play.classes) {
            table.AddRow({found.a, found.b, found.hands, Percent(found.costOnB, play.Bet()),
                          Percent(found.costOnA, play.Bet()), FaceTexts(found.example)});
        }
        return table.Text();
    }
    CsvTable table({"description", "payA", "payB", "probabilityA", "probabilityB", "percentReturnA",
                    "percentReturnB", "byFrequency", "byPay"});
    const auto cell = [](const std::optional<double>& pay) {
        return pay ? CsvCell(*pay) : CsvCell();
    };
    for (const LineDifference& line : comparison.lines) {
        table.AddRow({line.description, cell(line.payA), cell(line.payB), line.probabilityA,
                      line.probabilityB, line.percentA, line.percentB, line.byFrequency,
                      line.byPay});
    }
    return table.Text();
}

}  // namespace cli
