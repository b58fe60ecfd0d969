#include "cli/MeterReport.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "cli/CsvTable.h"
#include "cli/TextTable.h"
#include "cli/Texts.h"
#include "core/text/Amount.h"
#include "core/text/Numbers.h"

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

const std::string& NameOf(const ChosenTable& chosen, const MeterReport& meter) {
    return chosen.payTable.lines[meter.line].description;
}

std::string Coins(double coins) {
    return FormatDecimals(coins == std::floor(coins) ? "%.0f" : "%.2f", coins);
}

std::string EvenText(const MeterReport& meter) {
    if (!meter.breakEven) return "The game is even at no meter.\n";
    if (*meter.breakEven <= 0) return "The game is even without the line.\n";
    std::string text = "The game is even at " + Coins(*meter.breakEven) + " coins, " +
                       FormatDecimals("%.2f", *meter.breakEven / kFullBet) + " bets";
    if (const auto hands = meter.HandsToBreakEven(); hands && *hands > 0) {
        text += ": " + FormatCount(*hands) + " hands from here, as the meter grows by " +
                NumberText(meter.rise) + "% of what is played";
    }
    return text + ".\n";
}

std::string TurnsText(const MeterReport& meter) {
    if (meter.turningPoints.empty()) return "No hand is played otherwise up to there.\n";
    TextTable table({{"from", true},
                     {"instead of"},
                     {"hold"},
                     {"hands", true},
                     {"ignored, costs", true},
                     {"example"}});
    for (const TurningPoint& point : meter.turningPoints) {
        const double cost = CostOfIgnoring(point, meter.CostsAt());
        table.AddRow({Coins(point.coins), point.from, point.to, std::to_string(point.hands),
                      FormatDouble("%.6f", cost) + "%"},
                     {FaceTexts(point.example)});
    }
    return "What to ignore a turning point costs is said for a meter of " + Coins(meter.CostsAt()) +
           " coins.\n\n" + table.Text();
}

std::string MeterText(const ChosenTable& chosen, const MeterReport& meter, bool turningPoints) {
    std::string text = Printable(NameOf(chosen, meter)) + " at " + Coins(meter.coins) +
                       " coins: the game returns " + FormatDouble("%.6f", meter.percent) + "%\n" +
                       EvenText(meter);
    if (turningPoints) {
        text += "\nTurning points from " + Coins(meter.start) + " to " + Coins(meter.Last()) +
                " coins. " + TurnsText(meter);
    } else if (!meter.turningPoints.empty()) {
        text += "The play changes first at " + Coins(meter.turningPoints.front().coins) +
                " coins; --turning-points lists all changes.\n";
    }
    return text;
}

Json TurnsAsJson(const MeterReport& meter) {
    Json list = Json::array();
    for (const TurningPoint& point : meter.turningPoints) {
        list.push_back({{"coins", point.coins},
                        {"from", point.from},
                        {"to", point.to},
                        {"hands", point.hands},
                        {"example", FaceTexts(point.example)},
                        {"cost", CostOfIgnoring(point, meter.CostsAt())}});
    }
    return list;
}

Json MeterAsJson(const ChosenTable& chosen, const MeterReport& meter) {
    const auto orNull = [](const auto& number) { return number ? Json(*number) : Json(nullptr); };
    Json json = {{"line", meter.line},
                 {"description", NameOf(chosen, meter)},
                 {"coins", meter.coins},
                 {"return", meter.percent},
                 {"breakEven", orNull(meter.breakEven)},
                 {"handsToBreakEven", orNull(meter.HandsToBreakEven())},
                 {"start", meter.start},
                 {"costsAt", meter.CostsAt()},
                 {"game", chosen.place.gameName},
                 {"gameId", chosen.place.gameId},
                 {"table", chosen.place.tableIndex}};
    AddPayChanges(chosen, json);
    json["turningPoints"] = meter.whyNoTurns.empty() ? TurnsAsJson(meter) : Json(nullptr);
    return json;
}

}  // namespace

double MeterReport::Last() const { return LastMeter(start, coins); }

std::optional<std::int64_t> MeterReport::HandsToBreakEven() const {
    if (!breakEven) return std::nullopt;
    const double coinsByHand = rise / 100 * kFullBet;
    const double hands = std::ceil(std::max(0.0, *breakEven - coins) / coinsByHand);
    if (hands >= 9e18) return std::nullopt;  // it grows by next to nothing
    return static_cast<std::int64_t>(hands);
}

std::string MetersAsText(const ChosenTable& chosen, double coin,
                         std::span<const MeterReport> meters, bool turningPoints) {
    std::string text = Heading(chosen, kFullBet, coin) + "\n";
    for (const MeterReport& meter : meters) {
        text += "\n" + MeterText(chosen, meter, turningPoints);
    }
    return text;
}

std::string MetersAsJson(const ChosenTable& chosen, std::span<const MeterReport> meters) {
    if (meters.size() == 1) return JsonText(MeterAsJson(chosen, meters.front()));
    Json list = Json::array();
    for (const MeterReport& meter : meters) list.push_back(MeterAsJson(chosen, meter));
    return JsonText(list);
}

std::string MetersAsCsv(const ChosenTable& chosen, std::span<const MeterReport> meters) {
    const auto cell = [](const auto& known) { return known ? CsvCell(*known) : CsvCell(); };
    if (!meters.empty() && !meters.front().whyNoTurns.empty()) {
        CsvTable table({"line", "description", "coins", "return", "breakEven", "handsToBreakEven"});
        for (const MeterReport& meter : meters) {
            table.AddRow({meter.line, NameOf(chosen, meter), meter.coins, meter.percent,
                          cell(meter.breakEven), cell(meter.HandsToBreakEven())});
        }
        return table.Text();
    }
    CsvTable table({"line", "description", "coins", "from", "to", "hands", "cost", "example"});
    for (const MeterReport& meter : meters) {
        for (const TurningPoint& point : meter.turningPoints) {
            table.AddRow({meter.line, NameOf(chosen, meter), point.coins, point.from, point.to,
                          point.hands, CostOfIgnoring(point, meter.CostsAt()),
                          FaceTexts(point.example)});
        }
    }
    return table.Text();
}

}  // namespace cli
