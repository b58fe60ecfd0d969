#include "cli/HandReport.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <nlohmann/json.hpp>

#include "cli/CsvTable.h"
#include "cli/TextTable.h"
#include "cli/Texts.h"
#include "core/text/Numbers.h"

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kDrawnAgain = "*";

const HoldResult& HoldOf(const HandReport& report, HoldMask mask) {
    return report.analysis.holds[static_cast<std::size_t>(mask)];
}

bool IsPickEm(const HandReport& report) { return report.chosen.payTable.type == GameType::kPickEm; }

bool KnowsFirstDraw(const HandReport& report) { return report.cards.size() > kHandSize; }

bool IsDoubleDraw(const HandReport& report) {
    return report.chosen.payTable.type == GameType::kDoubleDraw;
}

std::vector<HoldMask> BestFirst(const HandReport& report) {
    std::vector<HoldMask> masks;
    for (HoldMask mask = 0; mask <= kStandPat; ++mask) {
        if (HoldOf(report, mask).totalHands > 0) masks.push_back(mask);
    }
    std::ranges::stable_sort(masks, [&report](HoldMask a, HoldMask b) {
        const HoldMask best = report.analysis.best;
        if (a == best || b == best) return a == best && b != best;
        return HoldOf(report, a).expectedReturn > HoldOf(report, b).expectedReturn;
    });
    return masks;
}

// "AS KS __ JS __"; "**" where the known draw card comes to lie.
std::string HeldText(const HandReport& report, HoldMask mask) {
    std::string text;
    for (int position = 0; position < kHandSize; ++position) {
        // In Pick 'Em the other pile's top card, given as the fourth, lies in the fifth place.
        const int given = IsPickEm(report) && position == kHandSize - 1 ? 3 : position;
        const bool known = HoldOf(report, mask).knownCardPosition == position;
        std::string card = known ? "**" : "__";
        if (Holds(mask, position)) card = report.cards[static_cast<std::size_t>(given)];
        card.resize(2, ' ');
        text += (position > 0 ? " " : "") + card;
    }
    return text;
}

std::string ShortName(const PayTable& table, std::size_t line) {
    const PayLine& payLine = table.lines[line];
    if (!payLine.shortDescription.empty()) return payLine.shortDescription;
    if (!payLine.description.empty()) return payLine.description;
    return "line " + std::to_string(line);
}

std::vector<std::size_t> BestPayingFirst(const PayTable& table, int bet) {
    std::vector<std::size_t> lines(table.lines.size());
    for (std::size_t line = 0; line < lines.size(); ++line) lines[line] = line;
    std::ranges::stable_sort(lines, [&](std::size_t a, std::size_t b) {
        return LineUnitPay(table, static_cast<int>(a), bet) >
               LineUnitPay(table, static_cast<int>(b), bet);
    });
    return lines;
}

// The second draw follows the first one when that made this line of matching ranks.
bool IsDrawnAgain(const HandReport& report, HoldMask mask, std::size_t line) {
    if (!IsDoubleDraw(report)) return false;
    const auto& again = report.analysis.drawAgain[static_cast<std::size_t>(mask)];
    const int number = static_cast<int>(line);
    return again.drawAgainLine >= 0 && number >= again.drawAgainLine && number <= again.heldLine &&
           RankInfo(report.chosen.payTable.lines[line].rank).pairs != 0;
}

std::vector<std::string> LinesToCome(const HandReport& report, HoldMask mask) {
    const ChosenTable& chosen = report.chosen;
    std::vector<std::string> items;
    for (const std::size_t line : BestPayingFirst(chosen.payTable, chosen.bet)) {
        const auto count = HoldOf(report, mask).lineCounts[line];
        if (count == 0) continue;
        items.push_back(ShortName(chosen.payTable, line) +
                        (IsDrawnAgain(report, mask, line) ? kDrawnAgain : "") + " " +
                        std::to_string(count));
    }
    if (items.empty()) items.emplace_back("none");
    return items;
}

std::string CardsText(const HandReport& report) {
    std::string text;
    for (std::size_t i = 0; i < report.cards.size(); ++i) {
        if (IsPickEm(report) && i >= 2) text += i == 2 ? "and the piles " : "or ";
        if (KnowsFirstDraw(report) && i == kHandSize) text += "then ";
        text += report.cards[i] + " ";
    }
    text.pop_back();
    return text;
}

std::string Legend(const HandReport& report) {
    if (KnowsFirstDraw(report)) return "\n** where " + report.cards.back() + " comes to lie\n";
    if (IsDoubleDraw(report)) {
        return "\n* after a first draw to this line, draw again; the return counts it in\n";
    }
    return "";
}

// What is written of a JSON object, without the brace and the line end behind it.
std::string Opened(const Json& json) {
    std::string text = JsonText(json);
    text.resize(text.rfind('}'));
    return text;
}

void Append(std::string_view name, std::int64_t number, std::string& output) {
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    output += name;
    output.append(digits.data(), end);
}

// Whole dollars have their point, as in all JSON of the program.
void AppendNumber(std::string_view name, double number, std::string& output) {
    const std::string text = NumberText(number);
    output += name;
    output += text;
    if (text.find_first_of(".en") == std::string::npos) output += ".0";
}

void AppendCards(const HandReport& report, std::string& output) {
    output += "[";
    for (const std::string& card : report.cards) {
        output += &card == &report.cards.front() ? "\"" : ",\"";
        output += card;
        output += "\"";
    }
    output += "]";
}

void AppendHold(const HandReport& report, HoldMask mask, std::string& output) {
    const HoldResult& hold = HoldOf(report, mask);
    Append("{\"mask\":", mask, output);
    Append(",\"drawn\":", hold.cardsDrawn, output);
    AppendNumber(",\"return\":", hold.expectedReturn, output);
    Append(",\"total\":", hold.totalHands, output);
    Append(",\"nothing\":", hold.nothing, output);
    output += ",\"lines\":[";
    for (std::size_t line = 0; line < report.chosen.payTable.lines.size(); ++line) {
        Append(line == 0 ? "" : ",", hold.lineCounts[line], output);
    }
    output += "]";
    if (IsDoubleDraw(report)) {
        const auto& again = report.analysis.drawAgain[static_cast<std::size_t>(mask)];
        Append(",\"drawAgainLine\":", again.drawAgainLine, output);
    }
    if (KnowsFirstDraw(report)) Append(",\"knownCardPosition\":", hold.knownCardPosition, output);
    output += "}";
}

}  // namespace

std::string HandAsText(const HandReport& report) {
    TextTable text({{" "},
                    {"hold"},
                    {"return $", true},
                    {"win rate", true},
                    {"draws", true},
                    {"lines that can come"}});
    for (const HoldMask mask : BestFirst(report)) {
        const HoldResult& hold = HoldOf(report, mask);
        text.AddRow(
            {mask == report.analysis.best ? ">" : "", HeldText(report, mask),
             FormatDouble("%.4f", hold.expectedReturn),
             FormatDouble("%.2f", hold.WinRate() * 100) + "%", std::to_string(hold.totalHands)},
            LinesToCome(report, mask));
    }
    return Heading(report.chosen, report.chosen.bet, report.coin) + "\n" + CardsText(report) +
           "\n\n" + text.Text() + Legend(report);
}

std::string HandAsCsv(const HandReport& report) {
    std::vector<CsvCell> cells = {"mask", "hold", "return", "winRate", "drawn", "total", "nothing"};
    const auto& lines = report.chosen.payTable.lines;
    for (const PayLine& line : lines) cells.emplace_back(line.description);
    CsvTable table(cells);
    for (const HoldMask mask : BestFirst(report)) {
        const HoldResult& hold = HoldOf(report, mask);
        cells = {mask,           HeldText(report, mask), hold.expectedReturn,
                 hold.WinRate(), hold.cardsDrawn,        hold.totalHands,
                 hold.nothing};
        for (std::size_t i = 0; i < lines.size(); ++i) cells.emplace_back(hold.lineCounts[i]);
        table.AddRow(cells);
    }
    return table.Text();
}

HandJson::HandJson(const ChosenTable& chosen, double coin) {
    beforeCards = Opened({{"game", chosen.place.gameName},
                          {"gameId", chosen.place.gameId},
                          {"table", chosen.place.tableIndex},
                          {"bet", chosen.bet},
                          {"coin", coin}});
    beforeCards += ",\"cards\":";
    Json json = {{"lines", Json::array()}};
    for (const PayLine& line : chosen.payTable.lines) json["lines"].push_back(line.description);
    AddPayChanges(chosen, json);
    behindCards = "," + Opened(json).substr(1);
}

void HandJson::Append(const HandReport& report, std::string& output) const {
    output += beforeCards;
    AppendCards(report, output);
    output += behindCards;
    cli::Append(",\"best\":", report.analysis.best, output);
    AppendNumber(",\"bestReturn\":", report.analysis.bestReturn, output);
    output += ",\"holds\":[";
    for (HoldMask mask = 0; mask <= kStandPat; ++mask) {
        if (mask > 0) output += ",";
        AppendHold(report, mask, output);
    }
    output += "]}\n";
}

void HandJson::AppendBest(const HandReport& report, std::string& output) {
    const double best = report.analysis.bestReturn;
    double second = -1;
    for (HoldMask mask = 0; mask <= kStandPat; ++mask) {
        const HoldResult& hold = HoldOf(report, mask);
        if (mask == report.analysis.best || hold.totalHands == 0) continue;
        second = std::max(second, hold.expectedReturn);
    }
    cli::Append("{\"mask\":", report.analysis.best, output);
    output += ",\"cards\":";
    AppendCards(report, output);
    AppendNumber(",\"return\":", best, output);
    AppendNumber(",\"gap\":", best - second, output);
    output += "}\n";
}

}  // namespace cli
