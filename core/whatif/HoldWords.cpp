#include "core/whatif/HoldWords.h"

#include <algorithm>

#include "core/cards/Hand.h"
#include "core/strategy/RowText.h"

namespace {

constexpr RankSet kRoyalRanks = StraightRanks(kStraights - 1);

Row RowOf(Base base, int count) {
    Row row;
    row.base = base;
    row.count = static_cast<std::int8_t>(count);
    return row;
}

Amount Exactly(int count) {
    const auto number = static_cast<std::int8_t>(count);
    return {number, number};
}

// The wild cards are among what the words count, so they are named beside them.
Row Among(Row row, const HoldTraits& hold) {
    if (hold.wilds > 0) row.wildCards = Exactly(hold.wilds);
    return row;
}

// The cards themselves, the highest first and wild ones last.
Row Ranks(const HoldTraits& hold) {
    Row row = RowOf(Base::kRanks, 0);
    auto next = row.ranks.begin();
    for (int rank = kAceRank; rank >= 0; --rank) {
        for (int i = 0; i < hold.countOf[static_cast<std::size_t>(rank)]; ++i) {
            if (next != row.ranks.end()) *next++ = static_cast<std::int8_t>(rank);
        }
    }
    for (int i = 0; i < hold.wilds && next != row.ranks.end(); ++i) *next++ = kWildRank;
    return row;
}

// One natural rank, and wild cards.
Row OfAKind(const Terms& terms, const HoldTraits& hold) {
    if (hold.cards == 1) return Ranks(hold);
    Row row = RowOf(Base::kOfAKind, hold.cards);
    if (hold.cards == 2 && terms.HighRanks() != 0) {
        row.height = terms.IsHigh(hold.groupRank) ? Height::kHigh : Height::kLow;
    }
    return Among(row, hold);
}

Row Suited(const HoldTraits& hold) {
    Base base = Base::kToFlush;
    if (hold.straights > 0) base = Base::kToStraightFlush;
    if ((hold.ranks & ~kRoyalRanks) == 0) base = Base::kToRoyalFlush;
    if (hold.cards == 2 && hold.wilds == 0) {
        Row row = Ranks(hold);
        row.suiting = Suiting::kSuited;
        return row;
    }
    return Among(RowOf(base, hold.cards), hold);
}

Row Unsuited(const HoldTraits& hold) {
    if (hold.cards < 4 || hold.straights == 0) {
        Row row = Ranks(hold);
        row.suiting = Suiting::kUnsuited;
        return row;
    }
    Row row = RowOf(Base::kToStraight, hold.cards);
    row.straights = Exactly(hold.straights);
    return Among(row, hold);
}

// Equal ranks beside others.
Row Groups(const HoldTraits& hold) {
    const int group = hold.countOf[static_cast<std::size_t>(hold.groupRank)];
    const int beside = hold.naturals - group;
    const int kicker = hold.countOf[static_cast<std::size_t>(hold.kickerRank)];
    if (group == 2 && kicker == 2 && hold.wilds == 0) return RowOf(Base::kTwoPair, hold.cards);
    if (beside != 1 || group + hold.wilds < 2) return Ranks(hold);
    Row row = RowOf(Base::kOfAKindAndOne, group + hold.wilds);
    row.kicker = {static_cast<std::int8_t>(hold.kickerRank),
                  static_cast<std::int8_t>(hold.kickerRank)};
    return Among(row, hold);
}

}  // namespace

std::optional<Row> RowOfHold(const Terms& terms, const HoldTraits& hold) {
    if (hold.cards == kHandSize) {
        const auto pat = hold.line < 0 ? std::nullopt : terms.HandOf(hold.line);
        if (!pat) return std::nullopt;
        Row row = RowOf(Base::kPat, 0);
        row.pat = *pat;
        return row;
    }
    if (hold.blank) return std::nullopt;
    if (hold.cards == 0) return RowOf(Base::kNothing, 0);
    if (hold.naturals == 0) return RowOf(Base::kWildCards, hold.wilds);
    if (std::has_single_bit(hold.ranks)) return OfAKind(terms, hold);
    if (!hold.distinct) return Groups(hold);
    return hold.suited ? Suited(hold) : Unsuited(hold);
}

std::string HoldWords(const Terms& terms, HoldLook look) {
    const HoldTraits hold = TraitsOf(terms, look);
    const auto row = RowOfHold(terms, hold);
    if (row) return RowText(*row);
    return hold.cards == kHandSize ? "all five cards" : "cards with a joker";
}
