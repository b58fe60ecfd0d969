#include "core/analysis/AceOrder.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace {

bool HasPlace(CardFace face) {
    return face.rank == 1 && face.suit >= kSpades && face.suit <= kDiamonds;
}

LineCounts OneDraw(int line) {
    LineCounts draws{};
    draws[LaneOf(line)] = 1;
    return draws;
}

}  // namespace

int AceLine(const PayTable& table) {
    const auto line = std::ranges::find(table.lines, HandRank::kFourAcesInOrder, &PayLine::rank);
    return line == table.lines.end() ? -1 : static_cast<int>(line - table.lines.begin());
}

int AcesWithPlaces(const Hand& hand) {
    return static_cast<int>(std::ranges::count_if(hand, HasPlace));
}

std::optional<AceChance> AceChanceFrom(const Hand& hand, int first) {
    AceChance chance;
    chance.besidePosition = first == 0 ? kHandSize - 1 : 0;
    for (int position = 0; position < kHandSize; ++position) {
        const CardFace face = hand[static_cast<std::size_t>(position)];
        if (!HasPlace(face)) continue;
        if (position != face.suit - kSpades + first) return std::nullopt;
        chance.aces |= PositionBit(position);
    }
    return chance;
}

bool AcesLieInOrder(const Hand& hand, HoldMask held) {
    for (const int first : {0, 1}) {
        const auto chance = AceChanceFrom(hand, first);
        if (chance && std::popcount(static_cast<unsigned>(chance->aces & held)) == kAcesInOrder)
            return true;
    }
    return false;
}

int LineBesideAces(const LineTables& tables, CardFace fifth) {
    SortedCards cards;
    for (std::uint8_t suit = 0; suit < kAcesInOrder; ++suit) InsertCard(cards, suit, {0, suit});
    InsertCard(cards, kAcesInOrder, tables.ToSetCard(fifth));
    return tables.LineOfFive(cards);
}

LineCounts CountsBesideAces(const LineTables& tables) {
    std::uint32_t key = 0;
    for (std::uint8_t suit = 0; suit < kAcesInOrder; ++suit) key += SetKey::Add(suit, {0, suit});
    LineCounts counts;
    tables.Read<kAcesInOrder>(key, counts);
    return counts;
}

LineCounts UnseenBesideAces(const LineTables& tables, const Hand& hand) {
    LineCounts counts = CountsBesideAces(tables);
    for (const CardFace face : hand) {
        if (!HasPlace(face)) --counts[LaneOf(LineBesideAces(tables, face))];
    }
    return counts;
}

void MoveToAceLine(int aceLine, const LineCounts& draws, LineCounts& counts) {
    const auto to = static_cast<std::size_t>(aceLine);
    for (std::size_t lane = to + 1; lane < kLanes; ++lane) {
        counts[lane] -= draws[lane];
        counts[to] += draws[lane];
    }
}

void OrderDraws(const LineTables& tables, const Hand& hand, int aceLine, HoldCounts& counts) {
    for (std::size_t mask = 0; mask < kHolds; ++mask) {
        const auto drawn = static_cast<std::size_t>(kHandSize - std::popcount(mask));
        for (auto& count : counts[mask]) count *= kDrawOrders[drawn];
    }
    for (const int first : {0, 1}) {
        const auto chance = AceChanceFrom(hand, first);
        if (!chance || aceLine < 0) continue;
        const CardFace beside = hand[static_cast<std::size_t>(chance->besidePosition)];
        const HoldMask withBeside = chance->aces | PositionBit(chance->besidePosition);
        MoveToAceLine(aceLine, UnseenBesideAces(tables, hand),
                      counts[static_cast<std::size_t>(chance->aces)]);
        MoveToAceLine(aceLine, OneDraw(LineBesideAces(tables, beside)),
                      counts[static_cast<std::size_t>(withBeside)]);
    }
}

void PayAcesInOrder(const Hand& hand, int aceLine, LineCounts& standPat) {
    if (aceLine < 0 || !AcesLieInOrder(hand, kStandPat)) return;
    MoveToAceLine(aceLine, LineCounts(standPat), standPat);
}
