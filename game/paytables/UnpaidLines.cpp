#include "game/paytables/UnpaidLines.h"

#include <algorithm>
#include <optional>
#include <set>

#include "core/analysis/AceOrder.h"

namespace {

LineCounts HandsOfLines(const LineTables& tables) {
    LineCounts counts{};
    tables.Read<0>(0, counts);
    return counts;
}

// Of all hands, those that the line would be paid if it stood first are missed by the lines that
// take them now.
UnpaidLine TakersOf(const PayTable& table, const LineCounts& hands, int line) {
    PayTable first = table;
    std::rotate(first.lines.begin(), first.lines.begin() + line, first.lines.begin() + line + 1);
    const LineCounts left = HandsOfLines(LineTables(first));
    UnpaidLine unpaid{line, {}};
    for (int above = 0; above < line; ++above) {
        const auto lane = static_cast<std::size_t>(above);
        if (left[lane + 1] < hands[lane]) unpaid.takers.push_back(above);
    }
    return unpaid;
}

// Four aces in order are asked for by their places, which the tables do not have: they are paid
// unless a line above takes the aces beside every fifth card.
std::optional<UnpaidLine> AceLineUnlessPaid(const LineTables& tables, int line, int aceLine) {
    if (line != aceLine) return UnpaidLine{line, {aceLine}};
    std::set<int> takers;
    for (int rank = 0; rank <= 13; ++rank) {
        for (int suit = kNoSuit; suit <= kStars; ++suit) {
            const CardFace card{rank, suit};
            const bool isOfTheFour = rank == 1 && suit != kStars;
            if (isOfTheFour || !tables.Contains(card)) continue;
            const int taker = LineBesideAces(tables, card);
            if (taker < 0 || taker > line) return std::nullopt;
            takers.insert(taker);
        }
    }
    return UnpaidLine{line, {takers.begin(), takers.end()}};
}

}  // namespace

std::vector<UnpaidLine> FindUnpaidLines(const PayTable& table, const LineTables& tables,
                                        const std::function<bool()>& goesOn) {
    std::vector<UnpaidLine> unpaid;
    const LineCounts hands = HandsOfLines(tables);
    for (int line = 0; line < static_cast<int>(table.lines.size()); ++line) {
        const HandRank rank = table.lines[static_cast<std::size_t>(line)].rank;
        if (rank == HandRank::kFiveCardCharlie || hands[static_cast<std::size_t>(line)] > 0)
            continue;
        if (!goesOn()) break;
        if (rank == HandRank::kFourAcesInOrder) {
            const auto found = AceLineUnlessPaid(tables, line, AceLine(table));
            if (found) unpaid.push_back(*found);
        } else {
            unpaid.push_back(TakersOf(table, hands, line));
        }
    }
    return unpaid;
}

std::string UnpaidText(const UnpaidLine& line) {
    if (line.takers.empty()) return "Never paid: no hand of this deck makes it.";
    std::string numbers;
    for (std::size_t i = 0; i < line.takers.size(); ++i) {
        if (i > 0) numbers += i + 1 == line.takers.size() ? " and " : ", ";
        numbers += std::to_string(line.takers[i] + 1);
    }
    return line.takers.size() == 1 ? "Never paid: line " + numbers + " takes all its hands."
                                   : "Never paid: lines " + numbers + " take all its hands.";
}
