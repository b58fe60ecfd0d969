#include "game/reports/ReportHead.h"

#include <array>
#include <ctime>

#include "core/text/Amount.h"
#include "game/engine/GameEngine.h"

std::vector<ReportFact> GameFacts(const GameEngine& engine) {
    const MachineSettings& settings = engine.settings;
    const TableOfGame table = CurrentTable(settings);
    const std::string coins = settings.bet == 1 ? " coin" : " coins";
    return {{"Game", table.gameName},
            {"Table", std::to_string(table.tableIndex)},
            {"Bet", std::to_string(settings.bet) + coins},
            {"Coin", FormatDollars("%.2f", settings.coin)}};
}

ReportFact DateFact(std::int64_t time) {
    const std::time_t seconds = time;
    std::tm parts{};
    std::array<char, 32> text{};
    if (!localtime_r(&seconds, &parts)) return {"Date", "?"};
    const auto length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts);
    return {"Date", std::string(text.data(), length)};
}

std::string HeadLines(const std::string& title, std::span<const ReportFact> facts) {
    std::string lines = title + '\n';
    for (const ReportFact& fact : facts) lines += fact.label + ": " + fact.value + '\n';
    return lines;
}
