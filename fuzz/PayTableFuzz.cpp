// The input is a main profile file with a table "a(0)" of an ordinary game or "s(0)" of Sneak Peak
// Poker. Beyond not crashing: what is loaded keeps to its ranges, the draws of a hold sum to its
// total, and the draws of standing pat and of one discard are those that dealing them out gives.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <numeric>
#include <string>
#include <string_view>

#include "core/analysis/HoldAnalysis.h"
#include "core/paytable/GameCatalogue.h"
#include "core/profile/ProfileFile.h"

namespace {

constexpr std::string_view kTableNames = "as";
constexpr int kHugeBet = std::numeric_limits<int>::max();

using Deal = std::array<CardCode, kHandSize + 1>;  // a hand and the next card

void Require(bool holds) {
    if (!holds) std::abort();
}

bool AreRanks(const std::vector<int>& ranks) {
    return ranks.size() <= kMaxLineRanks &&
           std::ranges::all_of(ranks, [](int rank) { return rank >= 1 && rank <= 13; });
}

void CheckRanges(const PayTable& table) {
    Require(table.jokers >= 0 && table.jokers <= kMaxJokers);
    Require(table.deckSize >= 52 && table.deckSize <= 52 + kMaxJokers);
    Require(table.maxBet >= 1);
    Require(table.lines.size() <= kMaxPayLines);
    for (const PayLine& line : table.lines) {
        Require(line.payout >= 0 && line.maxPayout >= 0);
        Require(line.description.size() <= 80 && line.shortDescription.size() <= 10);
        Require(AreRanks(line.bonusQuads) && AreRanks(line.trailers));
    }
}

// Deals that between them meet pairs, quads, flushes, straights, the jokers and the fifth ace.
Deal DealFrom(const CardTable& deck, int start, int step) {
    Deal deal{};
    std::size_t dealt = 0;
    for (int card = start; dealt < deal.size(); card = (card + step) % deck.deckSize) {
        while (std::find(deal.begin(), deal.begin() + static_cast<std::ptrdiff_t>(dealt), card) !=
               deal.begin() + static_cast<std::ptrdiff_t>(dealt)) {
            card = (card + 1) % deck.deckSize;
        }
        deal[dealt++] = card;
    }
    return deal;
}

int LineOf(const PayTable& table, const CardTable& deck, const Deal& deal, int bet) {
    const Classification result = EvaluateHand(FacesOf(deck, deal), table, bet);
    Require(result.line >= -1 && result.line < static_cast<int>(table.lines.size()));
    Require(result.linePay == LineUnitPay(table, result.line, bet));
    Require(result.Pay() >= result.linePay);
    return result.line;
}

std::array<std::int64_t, kMaxPayLines> DealLastCard(const PayTable& table, const CardTable& deck,
                                                    const Deal& deal, std::size_t position) {
    std::array<std::int64_t, kMaxPayLines> counts{};
    for (CardCode card = 0; card < deck.deckSize; ++card) {
        if (std::find(deal.begin(), deal.end() - 1, card) != deal.end() - 1) continue;
        Deal drawn = deal;
        drawn[position] = card;
        const int line = LineOf(table, deck, drawn, 1);
        if (line >= 0) ++counts[static_cast<std::size_t>(line)];
    }
    return counts;
}

// The analysis passes over 5 CARD CHARLIE, and over 4 ACE$ BONUS where order does not count.
bool IsCountedAsDealt(const PayTable& table) {
    return table.type != GameType::kPickEm && table.gameId != kSneakPeakGameId &&
           !HasLine(table, HandRank::kFiveCardCharlie) &&
           (table.type == GameType::kAcesBonus || !HasLine(table, HandRank::kFourAcesInOrder));
}

void CheckSums(const HoldAnalysis& analysis) {
    for (const HoldResult& hold : analysis.holds) {
        const auto& counts = hold.lineCounts;
        Require(std::accumulate(counts.begin(), counts.end(), hold.nothing) == hold.totalHands);
        Require(hold.nothing >= 0 && std::ranges::min(counts) >= 0);
        Require(std::isfinite(hold.expectedReturn) && hold.expectedReturn >= 0);
    }
    const auto best = static_cast<std::size_t>(analysis.best);
    Require(analysis.holds.at(best).expectedReturn == analysis.bestReturn);
    Require(analysis.holds.at(best).totalHands > 0);
}

void CheckAnalysis(const LineTables& tables, const PayTable& table, const CardTable& deck,
                   const Deal& deal) {
    const KnownCards cards = {FacesOf(deck, deal), FaceOf(deck, deal.back())};
    HoldAnalysis analysis;
    for (const int bet : {kHugeBet, kFullBet}) {
        AnalyzeHand(tables, table, cards, bet, 0.25, analysis);
        CheckSums(analysis);
    }
    if (!IsCountedAsDealt(table)) return;
    const int pat = LineOf(table, deck, deal, 1);
    if (pat >= 0) Require(analysis.holds[kStandPat].lineCounts[static_cast<std::size_t>(pat)] == 1);
    for (std::size_t position = 0; position < kHandSize; ++position) {
        const auto& hold =
            analysis.holds[static_cast<std::size_t>(kStandPat - PositionBit(position))];
        Require(hold.lineCounts == DealLastCard(table, deck, deal, position));
    }
}

void CheckTable(const PayTable& table) {
    CheckRanges(table);
    const CardTable deck = BuildCardTable(DeckOf(table));
    Require(deck.deckSize == table.deckSize);
    constexpr std::array<int, 6> kSteps = {1, 13, 14, 17, 7, 27};
    for (int start = 0; start < deck.deckSize; ++start) {
        for (const int step : kSteps) {
            for (const int bet : {1, kFullBet, kHugeBet}) {
                LineOf(table, deck, DealFrom(deck, start, step), bet);
            }
        }
    }
    if (table.lines.empty()) return;
    const LineTables tables(table);
    for (const int start : {0, 13, 26, 44}) {
        for (const int step : kSteps) {
            CheckAnalysis(tables, table, deck, DealFrom(deck, start, step));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string path = (std::filesystem::temp_directory_path() /
                                     ("tolvane-table-fuzz-" + std::to_string(getpid()) + ".ini"))
                                        .string();
    std::ofstream(path, std::ios::binary)
        << std::string_view(reinterpret_cast<const char*>(data), size);
    ProfileFile file;
    for (const char letter : kTableNames) {
        const std::string name(1, letter);
        const int gameId = letter == 's' ? kSneakPeakGameId : kFirstUserGameId;
        const PayTable table = LoadPayTable({file, path}, {gameId, name}, path);
        Require(TableExists({file, path}, name, 0) == !table.lines.empty());
        CheckTable(table);
        TableChain({file, path}, name);
    }
    Require(!file.IsDirty());
    std::filesystem::remove(path);
    return 0;
}
