#include "core/analysis/DrawAgain.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "core/analysis/AceOrder.h"

namespace {

// A hold's draws in whole numbers: with a bet's pays and at most three cards drawn, pays x draws x
// draws stay below 2^63.
struct Draws {
    std::array<std::int64_t, kMaxPayLines> pays{};
    std::array<std::int64_t, kMaxPayLines> counts{};
    std::array<bool, kMaxPayLines> qualifies{};  // lines whose hands may be drawn again
    std::int64_t total = 0;
    int heldLine = -1;
};

// One way to use the second draw: from which line on the first one is drawn again.
struct Candidate {
    int line = -1;
    std::int64_t drawnAgain = 0;  // first draws
    std::int64_t worth = 0;       // coins x total x total
};

bool Qualifies(const PayLine& line, std::int64_t count) {
    if (RankInfo(line.rank).pairs == 0 || count == 0) return false;
    return line.rank != HandRank::kBonusFourOfAKind ||
           std::ranges::find(line.bonusQuads, 1) != line.bonusQuads.end();
}

Draws DrawsOf(const HoldResult& hold, const PayTable& table, int bet, int heldLine) {
    Draws draws;
    draws.total = hold.totalHands;
    draws.heldLine = heldLine;
    for (std::size_t line = 0; line < table.lines.size(); ++line) {
        draws.pays[line] = LineUnitPay(table, static_cast<int>(line), bet);
        draws.counts[line] = hold.lineCounts[line];
        draws.qualifies[line] = static_cast<int>(line) <= heldLine &&
                                Qualifies(table.lines[line], hold.lineCounts[line]);
    }
    return draws;
}

// The best line to draw again from; the held cards' own when nothing is worth more than 0.
Candidate BestCandidate(const Draws& draws) {
    std::int64_t secondWorth = 0;  // coins x total
    std::int64_t drawnAgain = 0;   // from the line being looked at down to heldLine
    for (std::size_t line = 0; line < kMaxPayLines; ++line) {
        if (!draws.qualifies[line]) continue;
        secondWorth += draws.pays[line] * draws.counts[line];
        drawnAgain += draws.counts[line];
    }
    Candidate best{draws.heldLine, 0, 0};
    std::int64_t keptWorth = 0;  // coins x total of the better lines, which keep their first draw
    for (std::size_t line = 0; line < kMaxPayLines; ++line) {
        if (draws.qualifies[line]) {
            const std::int64_t worth = keptWorth * draws.total + drawnAgain * secondWorth;
            if (worth > best.worth) best = {static_cast<int>(line), drawnAgain, worth};
            drawnAgain -= draws.counts[line];
        }
        keptWorth += draws.pays[line] * draws.counts[line];
    }
    return best;
}

void FillResult(const Draws& draws, const Candidate& best, double coin, HoldResult& hold,
                DrawAgainResult& result) {
    const auto total = static_cast<double>(draws.total);
    hold.expectedReturn = static_cast<double>(best.worth) / (total * total) * coin;
    result.drawAgainLine = best.line;
    result.worth = best.worth;
    if (best.worth == 0) return;
    for (std::size_t line = 0; line < kMaxPayLines; ++line) {
        const double share = static_cast<double>(draws.counts[line]) / total;
        const double again = static_cast<double>(best.drawnAgain) / total;
        double& probability = result.probabilities[line];
        if (static_cast<int>(line) < best.line) probability += share;
        if (draws.qualifies[line]) probability += again * share;
        result.contributions[line] = probability * static_cast<double>(draws.pays[line]) * coin;
    }
}

// A wild ace counts as a wild card, not as an ace.
bool IsAce(const LineTables& tables, CardFace face) {
    return face.rank == 1 && !tables.IsWild(tables.ToSetCard(face));
}

// The line that the held cards make by themselves, the other positions being empty.
int LineOfHeld(const LineTables& tables, const PayTable& table, const Hand& hand, HoldMask mask) {
    SortedCards held;
    std::size_t count = 0;
    for (int position = 0; position < kHandSize; ++position) {
        if (!Holds(mask, position)) continue;
        InsertCard(held, count++, tables.ToSetCard(hand[static_cast<std::size_t>(position)]));
    }
    const int line =
        mask == kStandPat ? tables.LineOfFive(held) : tables.LineOfHeld({held.data(), count});
    const int aceLine = AceLine(table);
    const bool acesPayFirst = aceLine >= 0 && (line < 0 || aceLine < line);
    return acesPayFirst && AcesLieInOrder(hand, mask) ? aceLine : line;
}

}  // namespace

void AnalyzeSecondDraw(const LineTables& tables, const PayTable& table, const Hand& hand, int bet,
                       double coin, HoldAnalysis& analysis) {
    HoldMask aces = 0;
    for (int position = 0; position < kHandSize; ++position) {
        if (IsAce(tables, hand[static_cast<std::size_t>(position)])) aces |= PositionBit(position);
    }
    analysis.drawAgain.fill({});
    for (HoldMask mask = 0; mask <= kStandPat; ++mask) {
        DrawAgainResult& result = analysis.drawAgain[static_cast<std::size_t>(mask)];
        result.heldAces = std::popcount(static_cast<unsigned>(mask & aces));
        if (result.heldAces < 2) continue;
        result.heldLine = LineOfHeld(tables, table, hand, mask);
        if (mask == kStandPat) continue;
        HoldResult& hold = analysis.holds[static_cast<std::size_t>(mask)];
        const Draws draws = DrawsOf(hold, table, bet, result.heldLine);
        FillResult(draws, BestCandidate(draws), coin, hold, result);
    }
}
