// Grades charts hand by hand, as docs/strategy.md describes it, slowly and in plain steps.
#pragma once
#include <algorithm>
#include <array>
#include <map>
#include <numeric>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/analysis/Combinations.h"
#include "core/analysis/GameAnalysis.h"
#include "tests/core/strategy/SecondReader.h"

namespace second {

__extension__ using Wide = __int128;

// Sums over all starting hands, in coins of a five-coin bet times `parts`.
struct Grade {
    Wide best = 0, worst = 0, bestReading = 0;
    std::int64_t hands = 0, ambiguous = 0, parts = 1;
    std::vector<std::int64_t> handsOfRow;  // the last: no row
    std::vector<Wide> lossOfRow;
};

// The hands whose suits, as sets of ranks, come in falling order stand for all that a renaming of
// suits makes of them; where jacks of two suits are wild, only pairs of suits are renamed.
inline std::int64_t Renamings(const PayTable& table, const CardTable& deck,
                              const std::vector<CardCode>& codes) {
    std::array<int, 4> suits{};
    int jokers = 0;
    for (const CardCode code : codes) {
        const CardInfo& card = deck.cards[static_cast<std::size_t>(code)];
        if (card.IsJoker()) ++jokers;
        if (card.suit >= 1 && card.suit <= 4)
            suits[static_cast<std::size_t>(card.suit - 1)] |= 1 << card.rank;
    }
    // Of jokers, those of the lowest slots stand for the others.
    int seen = 0;
    for (CardCode code = 0; code < deck.deckSize; ++code) {
        if (!deck.cards[static_cast<std::size_t>(code)].IsJoker()) continue;
        const bool held = std::ranges::find(codes, code) != codes.end();
        if (held != (seen++ < jokers)) return 0;
    }
    std::int64_t ways = jokers == 0 ? 1 : Combinations(table.jokers, jokers);
    if (table.type == GameType::kOneEyedJacks) {
        if (suits[0] < suits[1] || suits[2] < suits[3]) return 0;
        return ways * (suits[0] > suits[1] ? 2 : 1) * (suits[2] > suits[3] ? 2 : 1);
    }
    if (!std::ranges::is_sorted(suits, std::greater<>())) return 0;
    std::int64_t orders = 0;
    std::ranges::sort(suits);
    do ++orders;
    while (std::ranges::next_permutation(suits).found);
    return ways * orders;
}

inline Grade GradeSlowly(const PayTable& table, const std::string& chart) {
    const Reader reader(table);
    const auto rows = reader.Read(chart);
    const CardTable deck = BuildCardTable(DeckOf(table));
    const LineTables tables(table);
    Grade grade;
    grade.handsOfRow.resize(rows.size() + 1);
    grade.lossOfRow.resize(rows.size() + 1);
    for (int drawn = 1; drawn <= 5; ++drawn)
        grade.parts = std::lcm(grade.parts, Combinations(deck.deckSize - 5, drawn));
    // The suits whose jack is wild, where other jacks are not.
    std::set<int> oneEyed;
    for (CardCode code = 0; code < deck.deckSize; ++code) {
        const CardInfo& card = deck.cards[static_cast<std::size_t>(code)];
        if (card.rank == 11 && card.wild) oneEyed.insert(card.suit);
    }
    if (oneEyed.size() == 4) oneEyed.clear();
    // What up to four cards are is known by them alone, unless a row asks of the others.
    const bool asksOfDiscards = chart.find("penalt") != std::string::npos ||
                                chart.find("open") != std::string::npos ||
                                chart.find("discarded") != std::string::npos ||
                                chart.find("discarding") != std::string::npos;
    std::unordered_map<std::uint64_t, std::size_t> known;
    const auto rowOf = [&](std::size_t mask, const std::vector<CardCode>& codes,
                           const HoldAnalysis& analysis) {
        std::uint64_t held = 0;
        for (std::size_t i = 0; i < 5; ++i)
            if (Holds(static_cast<int>(mask), static_cast<int>(i))) held |= 1ULL << codes[i];
        if (const auto found = known.find(held); found != known.end()) return found->second;
        Cards cards;
        for (std::size_t i = 0; i < 5; ++i) {
            const CardInfo& info = deck.cards[static_cast<std::size_t>(codes[i])];
            const int rank = info.IsJoker() ? -1 : info.rank == 1 ? 12 : info.rank - 2;
            (Holds(static_cast<int>(mask), static_cast<int>(i)) ? cards.held : cards.out)
                .push_back({rank, info.suit, info.wild});
        }
        for (std::size_t line = 0; mask == 31 && line < table.lines.size(); ++line) {
            if (analysis.holds[mask].lineCounts[line] == 0) continue;
            cards.lineNumber = static_cast<int>(line);
            cards.line = Reader::NameOf(table.lines[line].rank);
        }
        Describe(cards, oneEyed);
        std::size_t row = 0;
        while (row < rows.size() &&
               !std::ranges::all_of(rows[row], [&](const Test& test) { return test(cards); }))
            ++row;
        if (!asksOfDiscards && mask != 31) known[held] = row;
        return row;
    };
    HoldAnalysis analysis;
    ForEachChoice(deck, 5, [&](const std::vector<CardCode>& codes) {
        const std::int64_t weight = Renamings(table, deck, codes);
        if (weight == 0) return;
        AnalyzeHand(tables, table, {FacesOf(deck, codes), {}}, 5, 1, analysis);
        std::array<std::int64_t, 32> values{};
        std::vector<std::size_t> fitting;
        std::size_t row = rows.size();
        for (std::size_t mask = 0; mask < 32; ++mask) {
            const HoldResult& hold = analysis.holds[mask];
            for (std::size_t line = 0; line < table.lines.size(); ++line)
                values[mask] +=
                    hold.lineCounts[line] * LineUnitPay(table, static_cast<int>(line), 5);
            values[mask] *= grade.parts / hold.totalHands;
            const std::size_t first = rowOf(mask, codes, analysis);
            if (first > row || first == rows.size()) continue;
            if (first < row) fitting.clear();
            row = first;
            fitting.push_back(mask);
        }
        if (fitting.empty()) fitting.push_back(0);
        std::int64_t worst = values[fitting[0]], best = worst;
        for (const std::size_t mask : fitting) {
            worst = std::min(worst, values[mask]);
            best = std::max(best, values[mask]);
        }
        const std::int64_t most = std::ranges::max(values);
        grade.best += Wide{most} * weight;
        grade.worst += Wide{worst} * weight;
        grade.bestReading += Wide{best} * weight;
        grade.hands += weight;
        grade.ambiguous += worst < best ? weight : 0;
        grade.handsOfRow[row] += weight;
        grade.lossOfRow[row] += Wide{most - worst} * weight;
    });
    return grade;
}

}  // namespace second
