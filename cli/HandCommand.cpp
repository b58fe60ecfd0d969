#include "cli/Commands.h"

#include <algorithm>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <span>

#include "cli/CsvTable.h"
#include "cli/TableChoice.h"
#include "cli/TextTable.h"
#include "cli/Texts.h"
#include "core/analysis/HoldAnalysis.h"
#include "core/text/Numbers.h"

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kDrawnAgain = "*";

struct HandReport {
    ChosenTable chosen;
    double coin = 1;                 // dollars
    std::vector<std::string> cards;  // as given: five, in Pick 'Em four, in Sneak Peak Poker six
    HoldAnalysis analysis;
};

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

Json HoldAsJson(const HandReport& report, HoldMask mask) {
    const HoldResult& hold = HoldOf(report, mask);
    Json json = {{"mask", mask},
                 {"drawn", hold.cardsDrawn},
                 {"return", hold.expectedReturn},
                 {"total", hold.totalHands},
                 {"nothing", hold.nothing},
                 {"lines", std::span(hold.lineCounts).first(report.chosen.payTable.lines.size())}};
    if (IsDoubleDraw(report)) {
        json["drawAgainLine"] =
            report.analysis.drawAgain[static_cast<std::size_t>(mask)].drawAgainLine;
    }
    if (KnowsFirstDraw(report)) json["knownCardPosition"] = hold.knownCardPosition;
    return json;
}

// The holds that were evaluated, the best one first, then by falling return.
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

// All 32 by mask.
std::string HandAsJson(const HandReport& report) {
    const ChosenTable& chosen = report.chosen;
    Json json = {{"game", chosen.place.gameName},
                 {"gameId", chosen.place.gameId},
                 {"table", chosen.place.tableIndex},
                 {"bet", chosen.bet},
                 {"coin", report.coin},
                 {"cards", report.cards},
                 {"lines", Json::array()}};
    AddPayChanges(chosen, json);
    for (const PayLine& line : chosen.payTable.lines) json["lines"].push_back(line.description);
    json["best"] = report.analysis.best;
    json["bestReturn"] = report.analysis.bestReturn;
    json["holds"] = Json::array();
    for (HoldMask mask = 0; mask <= kStandPat; ++mask) {
        json["holds"].push_back(HoldAsJson(report, mask));
    }
    return JsonText(json);
}

// The holds that were evaluated, as in the text; the draws of each line have a column.
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

std::size_t CardsWanted(const PayTable& table) {
    if (table.type == GameType::kPickEm) return 4;
    return table.gameId == kSneakPeakGameId ? 6 : kHandSize;
}

// The last card is the first one drawn where that is known.
KnownCards KnownCardsOf(const ChosenTable& chosen, const std::vector<CardCode>& cards) {
    if (cards.size() == kHandSize) return {FacesOf(chosen.deck, cards), {}};
    return {FacesOf(chosen.deck, std::span(cards).first(cards.size() - 1)),
            FaceOf(chosen.deck, cards.back())};
}

void AddArguments(CLI::App& parser, Options& options) {
    AddGame(parser, options);
    AddCsv(parser, options);
    AddCards(parser, options,
             "Five cards in one argument, such as \"AS KS QS JS 9H\";\n"
             "in a Pick 'Em game four: yours, the left pile's top, the right pile's top;\n"
             "in Sneak Peak Poker six: the hand, then the first draw card");
    AddBet(parser, options);
}

std::optional<Failure> RunHand(const Options& options, std::string& output) {
    HandReport report;
    report.coin = options.coin;
    ChosenTable& chosen = report.chosen;
    if (auto failure = ChooseTable(options, chosen)) return failure;
    std::vector<CardCode> cards;
    const std::size_t wanted = CardsWanted(chosen.payTable);
    if (auto failure = ReadCards(options.cards, chosen.deck, wanted, cards)) return failure;

    const LineTables tables(chosen.payTable);
    AnalyzeHand(tables, chosen.payTable, KnownCardsOf(chosen, cards), chosen.bet, options.coin,
                report.analysis);
    report.cards = CardTexts(chosen.deck, cards);
    if (options.csv) {
        output += HandAsCsv(report);
    } else {
        output += options.json ? HandAsJson(report) : HandAsText(report);
    }
    return std::nullopt;
}

}  // namespace

Command HandCommand() {
    return {"hand", "The 32 holds of a hand, best first", AddArguments, RunHand};
}

}  // namespace cli
