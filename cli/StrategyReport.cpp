#include "cli/StrategyReport.h"

#include <algorithm>
#include <ctime>
#include <nlohmann/json.hpp>
#include <vector>

#include "cli/CsvTable.h"
#include "cli/TextTable.h"
#include "cli/Texts.h"
#include "core/cards/CardText.h"
#include "core/strategy/CardDrawing.h"
#include "core/strategy/MakeCard.h"
#include "core/strategy/RowText.h"
#include "core/text/Amount.h"
#include "core/text/Numbers.h"
#include "core/text/Ranks.h"

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kDecimals = 6;  // of returns and losses

std::string PercentOf(Worth part, const ChartGrade& grade) {
    return PercentText(part, grade.Bet(), kDecimals) + "%";
}

std::string Share(std::int64_t hands, const ChartGrade& grade) {
    return PercentText(hands, grade.hands, 4) + "%";
}

std::string LinesText(std::size_t lines) {
    return std::to_string(lines) + (lines == 1 ? " line" : " lines");
}

std::string Figures(const StrategyReport& report) {
    const ChartGrade& grade = report.grade;
    std::string text = LinesText(report.chart.size()) + ": " + PercentOf(grade.worst, grade) +
                       ", " + PercentOf(grade.Loss(), grade) + " below the best play, which is " +
                       PercentOf(grade.best, grade) + "\n";
    if (grade.ambiguousHands > 0) {
        text += "Where several holds fit, the worst counts: " + FormatCount(grade.ambiguousHands) +
                " of " + FormatCount(grade.hands) + " hands; at the best reading " +
                PercentOf(grade.bestReading, grade) + "\n";
    }
    return text;
}

std::string NeverReached(const StrategyReport& report) {
    std::string lines;
    for (std::size_t row = 0; row < report.grade.rows.size(); ++row) {
        if (report.grade.rows[row].hands > 0) continue;
        lines += (lines.empty() ? "" : ", ") + std::to_string(row + 1);
    }
    return lines.empty() ? "" : "\nNever reached: line " + lines + "\n";
}

// Two digits at least.
std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string Today() {
    const std::time_t now = std::time(nullptr);
    std::tm today{};
    if (localtime_r(&now, &today) == nullptr) return "";
    return std::to_string(today.tm_year + 1900) + "-" + TwoDigits(today.tm_mon + 1) + "-" +
           TwoDigits(today.tm_mday);
}

}  // namespace

std::string StrategyAsText(const StrategyReport& report) {
    const ChartGrade& grade = report.grade;
    TextTable table({{"line", true}, {"hold"}, {"hands", true}, {"loss", true}, {"example"}});
    const auto add = [&](const std::string& line, const std::string& text, const RowGrade& row) {
        table.AddRow({line, text, Share(row.hands, grade), PercentOf(row.loss, grade)},
                     {FaceTexts(row.example)});
    };
    for (std::size_t row = 0; row < report.chart.size(); ++row) {
        add(std::to_string(row + 1), RowText(report.chart[row]), grade.rows[row]);
    }
    if (grade.rest.hands > 0) add("", "(none: discards everything)", grade.rest);
    return Heading(report.chosen, kFullBet, report.coin) + "\n\n" + Figures(report) + "\n" +
           table.Text() + NeverReached(report);
}

std::string StrategyAsJson(const StrategyReport& report) {
    const ChartGrade& grade = report.grade;
    const auto percent = [&grade](Worth part) { return Percent(part, grade.Bet()); };
    Json json = {{"game", report.chosen.place.gameName},
                 {"table", report.chosen.place.tableIndex},
                 {"return", percent(grade.worst)},
                 {"best", percent(grade.best)},
                 {"loss", percent(grade.Loss())}};
    AddPayChanges(report.chosen, json);
    if (report.checked) {
        json["returnBestReading"] = percent(grade.bestReading);
        json["ambiguousHands"] = grade.ambiguousHands;
    }
    json["rows"] = Json::array();
    for (std::size_t row = 0; row < report.chart.size(); ++row) {
        json["rows"].push_back({{"text", RowText(report.chart[row])},
                                {"hands", grade.rows[row].hands},
                                {"loss", percent(grade.rows[row].loss)},
                                {"example", FaceTexts(grade.rows[row].example)}});
    }
    return JsonText(json);
}

std::string StrategyAsCsv(const StrategyReport& report) {
    const ChartGrade& grade = report.grade;
    CsvTable table({"line", "text", "hands", "loss", "example"});
    for (std::size_t row = 0; row < report.chart.size(); ++row) {
        const RowGrade& decided = grade.rows[row];
        table.AddRow({row + 1, RowText(report.chart[row]), decided.hands,
                      Percent(decided.loss, grade.Bet()), FaceTexts(decided.example)});
    }
    return table.Text();
}

std::string StrategyCard(const StrategyReport& report, const ChartStudy& study,
                         const std::string& path) {
    const ChartCard card = MakeCard(report.chosen.place, report.chosen.payTable, study, Today());
    const auto endsIn = [&path](std::string_view ending) {
        return path.size() > ending.size() &&
               SameText(std::string_view(path).substr(path.size() - ending.size()), ending);
    };
    if (endsIn(".svg")) return CardAsSvg(card);
    return endsIn(".pdf") ? CardAsPdf(card) : CardAsText(card);
}

}  // namespace cli
