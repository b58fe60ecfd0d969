#include "cli/ChosenTable.h"

#include <algorithm>
#include <cstdint>
#include <nlohmann/json.hpp>

#include "cli/Texts.h"

namespace cli {

std::string Heading(const ChosenTable& chosen, int bet, double coin) {
    const auto& [gameId, gameName, tableIndex] = chosen.place;
    return gameName + " (" + std::to_string(gameId) + "), table " + std::to_string(tableIndex) +
           ", bet " + std::to_string(bet) + " x " + Dollars(coin) + PayChangesText(chosen);
}

std::string PayText(const PayTable& table, std::size_t number) {
    const PayLine& line = table.lines[number];
    const bool plain = std::int64_t{line.payout} * kFullBet == line.maxPayout;
    const std::string name = Printable(line.description);
    return (name.empty() ? std::to_string(number) : name) + "=" + std::to_string(line.payout) +
           (plain ? "" : ":" + std::to_string(line.maxPayout));
}

std::string PayChangesText(const ChosenTable& chosen) {
    std::vector<std::string> texts;
    for (const std::size_t line : chosen.payChanges) {
        texts.push_back(PayText(chosen.payTable, line));
    }
    return texts.empty() ? "" : ", with " + Listed(texts);
}

std::string PayChangesHeading(std::span<const ChosenTable* const> tables) {
    std::vector<std::string> texts;
    for (const ChosenTable* chosen : tables) {
        for (const std::size_t line : chosen->payChanges) {
            const std::string text = PayText(chosen->payTable, line);
            if (std::ranges::find(texts, text) == texts.end()) texts.push_back(text);
        }
    }
    return texts.empty() ? "" : "Where there is such a line: " + Listed(texts) + "\n\n";
}

void AddPayChanges(const ChosenTable& chosen, nlohmann::ordered_json& json) {
    if (chosen.payChanges.empty()) return;
    json["pays"] = nlohmann::ordered_json::array();
    for (const std::size_t number : chosen.payChanges) {
        const PayLine& line = chosen.payTable.lines[number];
        json["pays"].push_back({{"line", number},
                                {"description", line.description},
                                {"payout", line.payout},
                                {"maxPayout", line.maxPayout}});
    }
}

}  // namespace cli
