#include "game/reports/ReportHead.h"

#include "core/text/Amount.h"
#include "game/engine/GameEngine.h"
#include "game/reports/ReportCells.h"

std::string BetText(int bet) { return std::to_string(bet) + (bet == 1 ? " coin" : " coins"); }

std::vector<ReportFact> GameFacts(const GameEngine& engine) {
    const MachineSettings& settings = engine.settings;
    return GameFacts(CurrentTable(settings), settings.bet, settings.coin);
}

std::vector<ReportFact> GameFacts(const TableOfGame& table, int bet, double coin) {
    return {{"Game", table.gameName},
            {"Table", std::to_string(table.tableIndex)},
            {"Bet", BetText(bet)},
            {"Coin", FormatDollars("%.2f", coin)}};
}

ReportFact DateFact(std::int64_t time) { return {"Date", DateText(time)}; }

std::string HeadLines(const std::string& title, std::span<const ReportFact> facts) {
    std::string lines = title + '\n';
    for (const ReportFact& fact : facts) lines += fact.label + ": " + fact.value + '\n';
    return lines;
}
