#include "core/strategy/Holds.h"

#include <algorithm>

#include "core/eval/HandEvaluator.h"

namespace {

// The parts of a look. Natural cards are counted as the digits of one number, a rank each, wild
// cards and jokers, wild or not, in fields of three bits. Behind these come flags, and what is
// discarded; all five cards discard nothing and have their line there.
constexpr HoldLook kDigit = kHandSize + 1;
constexpr int kWildShift = 34;
constexpr int kJokerShift = 37;
constexpr int kBlankBit = 40;
constexpr int kSuitedBit = 41;
constexpr int kOneEyedBit = 42;
constexpr int kSuitedWildBit = 43;
constexpr int kFlushPenaltiesShift = 44;
constexpr int kStraightPenaltyBit = 47;
constexpr int kDiscardedSuitsShift = 48;
constexpr int kDiscardsShift = 51;
constexpr int kLineShift = kDiscardsShift;  // holds the line and one
// More suits than there are: the number of open straights stands in place of the discards.
constexpr HoldLook kPenaltiesOnly = 7;
constexpr HoldLook kOne = 1;
constexpr HoldLook kAllRanks = (1U << kRanks) - 1;

constexpr std::uint8_t kJackKind = 10;
constexpr std::array<std::uint8_t, kHandSize> kRoyalKinds = {0, 9, 10, 11, 12};
constexpr unsigned kAllSuits = 0xF;
constexpr unsigned kAllStraights = (1U << kStraights) - 1;

constexpr auto kOneOfRank = [] {
    std::array<HoldLook, kRanks> one{};
    HoldLook next = 1;
    for (HoldLook& digit : one) {
        digit = next;
        next *= kDigit;
    }
    return one;
}();
constexpr HoldLook kAllCounts = (kOne << kWildShift) - 1;
static_assert(kOneOfRank.back() * kDigit <= kAllCounts);

int FieldOf(HoldLook look, int shift) { return static_cast<int>(look >> shift & 7); }

// The straights that hold a rank, by rank, and the ranks of sets of straights.
constexpr auto kStraightsOfRank = [] {
    std::array<unsigned, kRanks> straights{};
    for (unsigned rank = 0; rank < kRanks; ++rank) {
        for (int number = 0; number < kStraights; ++number) {
            if ((StraightRanks(number) >> rank & 1) != 0) straights[rank] |= 1U << number;
        }
    }
    return straights;
}();
constexpr auto kRanksOfStraights = [] {
    std::array<RankSet, kAllStraights + 1> ranks{};
    for (unsigned set = 0; set <= kAllStraights; ++set) {
        for (int number = 0; number < kStraights; ++number) {
            if ((set >> number & 1) != 0) ranks[set] |= StraightRanks(number);
        }
    }
    return ranks;
}();

std::optional<PatHand> PatHandOf(HandRank rank) {
    switch (rank) {
        case HandRank::kRoyalFlush:
            return PatHand::kRoyalFlush;
        case HandRank::kWildRoyalFlush:
            return PatHand::kWildRoyalFlush;
        case HandRank::kFiveWilds:
            return PatHand::kFiveWilds;
        case HandRank::kFourWilds:
            return PatHand::kFourWilds;
        case HandRank::kFiveOfAKind:
        case HandRank::kBonusFiveOfAKind:
        case HandRank::kFiveOfAKindWithOneWild:
            return PatHand::kFiveOfAKind;
        case HandRank::kStraightFlush:
            return PatHand::kStraightFlush;
        case HandRank::kFourOfAKind:
        case HandRank::kBonusFourOfAKind:
            return PatHand::kFourOfAKind;
        case HandRank::kFullHouse:
            return PatHand::kFullHouse;
        case HandRank::kFlush:
            return PatHand::kFlush;
        case HandRank::kStraight:
            return PatHand::kStraight;
        case HandRank::kThreeOfAKind:
            return PatHand::kThreeOfAKind;
        case HandRank::kTwoPair:
            return PatHand::kTwoPair;
        case HandRank::kOnePair:
            return PatHand::kPair;
        case HandRank::kAllRedOrBlack:
            return PatHand::kOneColour;
        default:
            return std::nullopt;
    }
}

// What the subsets of a hand have in common with those that lack their last card.
struct SubsetSums {
    HoldLook counts = 0;
    std::array<std::uint8_t, kSuits> ofSuit{};  // natural cards
    unsigned wildSuits = 0;                     // of wild cards that have one
    unsigned suits = kAllSuits;                 // that all natural cards have
    unsigned straights = kAllStraights;         // that hold all natural ranks
    RankSet ranks = 0;                          // natural
    int naturals = 0;
    unsigned suitsSeen = 0;  // of natural cards
    bool blank = false;
};

SubsetSums With(SubsetSums sums, const Terms& terms, SetCard card) {
    const int rank = terms.RankOf(card);
    if (terms.IsWild(card)) {
        const bool joker = terms.IsJoker(card);
        sums.counts += (kOne << kWildShift) + (joker ? kOne << kJokerShift : 0);
        if (!joker) sums.wildSuits |= 1U << card.suit;
    } else if (rank < 0) {
        sums.counts += kOne << kJokerShift;
        sums.blank = true;
    } else {
        const int suit = terms.SuitOf(card);
        const unsigned suitBit = suit < 0 ? 0 : 1U << suit;
        sums.counts += kOneOfRank[static_cast<std::size_t>(rank)];
        if (suit >= 0) ++sums.ofSuit[static_cast<std::size_t>(suit)];
        sums.suits &= suitBit;
        sums.suitsSeen |= suitBit;
        sums.straights &= kStraightsOfRank[static_cast<std::size_t>(rank)];
        sums.ranks |= static_cast<RankSet>(1 << rank);
        ++sums.naturals;
    }
    return sums;
}

// How many of the cards out have the one suit of those in; 1 for some when that will do.
HoldLook FlushPenalties(const SubsetSums& in, const SubsetSums& out, LookAt at) {
    const HoldLook penalties = out.ofSuit[static_cast<std::size_t>(std::countr_zero(in.suits))];
    return at == LookAt::kDiscardsToo ? penalties : std::min(penalties, kOne);
}

// How many of the straights no rank of these stands in.
int CountOpen(unsigned straights, RankSet discards) {
    unsigned closed = 0;
    for (unsigned rest = discards; rest != 0; rest &= rest - 1) {
        closed |= kStraightsOfRank[static_cast<std::size_t>(std::countr_zero(rest))];
    }
    return std::popcount(straights & ~closed);
}

HoldLook Flag(bool set, int bit) { return set ? kOne << bit : 0; }

}  // namespace

Terms::Terms(const LineTables& tables, const PayTable& table)
    : tables(tables), fifthAce(table.type == GameType::kFiveAces) {
    lastLines.fill(-1);
    bool pairPaid = false;
    for (std::size_t line = 0; line < table.lines.size(); ++line) {
        lineHands[line] = PatHandOf(table.lines[line].rank);
        if (!lineHands[line]) continue;
        lastLines[static_cast<std::size_t>(*lineHands[line])] = static_cast<int>(line);
        pairPaid = pairPaid || (*lineHands[line] == PatHand::kPair &&
                                LineUnitPay(table, static_cast<int>(line), kFullBet) > 0);
    }
    for (int rank = 0; rank < kRanks && pairPaid; ++rank) {
        const int printed = rank == kAceRank ? 1 : rank + 2;
        if (::IsHigh(printed, table)) highRanks |= static_cast<RankSet>(1 << rank);
    }
    for (std::uint8_t suit = 0; suit < kSuits; ++suit) {
        if (IsWild({kJackKind, suit})) oneEyedSuits |= 1U << suit;
    }
    if (oneEyedSuits == kAllSuits) oneEyedSuits = 0;
    const bool royalWilds = std::ranges::any_of(kRoyalKinds, [this](std::uint8_t kind) {
        return IsWild({kind, 0}) || IsWild({kind, 1}) || IsWild({kind, 2}) || IsWild({kind, 3});
    });
    wildsKeepSuits = std::ranges::any_of(table.lines, [royalWilds](const PayLine& line) {
        return !line.wildsOK &&
               ((royalWilds && line.rank == HandRank::kRoyalFlush) ||
                line.rank == HandRank::kStraightFlush || line.rank == HandRank::kFlush);
    });
}

int Terms::RankOf(SetCard card) const {
    if (card.kind == kExtraKind) return fifthAce ? kAceRank : -1;
    return card.kind == 0 ? kAceRank : card.kind - 1;
}

void LookAtHand(const Terms& terms, const StartingHand& hand, LookAt at, HandLooks& looks) {
    std::array<SubsetSums, kSubsets> sums;
    for (std::size_t subset = 1; subset < kSubsets; ++subset) {
        const auto last = static_cast<std::size_t>(std::bit_width(subset)) - 1;
        sums[subset] = With(sums[subset ^ (std::size_t{1} << last)], terms, hand.cards[last]);
    }
    for (std::size_t held = 0; held < kSubsets; ++held) {
        const SubsetSums& in = sums[held];
        const bool suited = in.ranks != 0 && in.suits != 0;
        HoldLook look = in.counts | Flag(in.blank, kBlankBit) | Flag(suited, kSuitedBit);
        look |= Flag(suited && (in.suits & terms.OneEyedSuits()) != 0, kOneEyedBit);
        if (terms.WildsKeepSuits() || at == LookAt::kDiscardsToo) {
            look |= Flag(suited && (in.suits & in.wildSuits) != 0, kSuitedWildBit);
        }
        if (held == kAllCards) look |= static_cast<HoldLook>(hand.line + 1) << kLineShift;
        if (at != LookAt::kHeldCards && held != kAllCards) {
            const SubsetSums& out = sums[held ^ kAllCards];
            const RankSet wanted = kRanksOfStraights[in.straights] & ~in.ranks;
            if (suited) look |= FlushPenalties(in, out, at) << kFlushPenaltiesShift;
            look |= Flag(in.ranks != 0 && (wanted & out.ranks) != 0, kStraightPenaltyBit);
            if (at == LookAt::kDiscardsToo) {
                look |= static_cast<HoldLook>(out.ranks) << kDiscardsShift;
                look |= static_cast<HoldLook>(std::popcount(out.suitsSeen)) << kDiscardedSuitsShift;
            } else {
                // A rank that is held twice has no straights, nor has a hold of no natural card.
                const auto others = static_cast<RankSet>(out.ranks & ~in.ranks);
                const bool any = in.ranks != 0 && in.naturals == std::popcount(in.ranks);
                const int open = any ? CountOpen(in.straights, others) : 0;
                look |= static_cast<HoldLook>(open) << kDiscardsShift;
                look |= kPenaltiesOnly << kDiscardedSuitsShift;
            }
        }
        looks[held] = look;
    }
}

// The ranks missing between the lowest and the highest; the ace is the lower or the higher end,
// whichever leaves less.
static int GapsIn(RankSet ranks) {
    const auto inside = [](unsigned set) {
        return static_cast<int>(std::bit_width(set)) - std::countr_zero(set) - std::popcount(set);
    };
    const unsigned low = (ranks >> kAceRank & 1) | (ranks & ((1U << kAceRank) - 1)) << 1;
    return std::min(inside(ranks), inside(low | (ranks >> kAceRank & 1U)));
}

HoldTraits TraitsOf(const Terms& terms, HoldLook look) {
    HoldTraits hold;
    hold.wilds = FieldOf(look, kWildShift);
    hold.jokers = FieldOf(look, kJokerShift);
    hold.blank = (look >> kBlankBit & 1) != 0;
    hold.suited = (look >> kSuitedBit & 1) != 0;
    hold.oneEyed = (look >> kOneEyedBit & 1) != 0;
    hold.suitedWild = (look >> kSuitedWildBit & 1) != 0;
    hold.flushPenalties = FieldOf(look, kFlushPenaltiesShift);
    hold.straightPenalty = (look >> kStraightPenaltyBit & 1) != 0;
    unsigned straights = kAllStraights;
    int most = 0;
    HoldLook counts = look & kAllCounts;
    for (int rank = 0; rank < kRanks; ++rank) {
        const auto count = static_cast<int>(counts % kDigit);
        counts /= kDigit;
        if (count == 0) continue;
        const auto at = static_cast<std::size_t>(rank);
        hold.countOf[at] = static_cast<std::int8_t>(count);
        hold.naturals += count;
        hold.ranks |= static_cast<RankSet>(1 << rank);
        straights &= kStraightsOfRank[at];
        if (terms.IsHigh(rank)) hold.highCards += count;
        if (count >= most) {
            most = count;
            hold.groupRank = rank;
        }
    }
    for (int rank = kRanks - 1; rank >= 0 && hold.kickerRank < 0; --rank) {
        if (rank != hold.groupRank && (hold.ranks >> rank & 1) != 0) hold.kickerRank = rank;
    }
    hold.cards = hold.naturals + hold.wilds + (hold.blank ? hold.jokers : 0);
    const bool penaltiesOnly =
        static_cast<HoldLook>(FieldOf(look, kDiscardedSuitsShift)) == kPenaltiesOnly;
    if (hold.cards == kHandSize) {
        hold.line = static_cast<int>(look >> kLineShift & kAllRanks) - 1;
    } else if (penaltiesOnly) {
        hold.openStraights = FieldOf(look, kDiscardsShift);
    } else {
        hold.suitsDiscarded = FieldOf(look, kDiscardedSuitsShift);
        hold.discards = static_cast<RankSet>(look >> kDiscardsShift & kAllRanks);
        hold.highDiscards = std::popcount(static_cast<unsigned>(hold.discards & terms.HighRanks()));
    }
    hold.distinct = most == 1;
    hold.straights = hold.distinct ? std::popcount(straights) : 0;
    if (hold.straights > 0) hold.gaps = GapsIn(hold.ranks);
    if (hold.straights > 0 && hold.cards < kHandSize && !penaltiesOnly) {
        const auto others = static_cast<RankSet>(hold.discards & ~hold.ranks);
        hold.openStraights = CountOpen(straights, others);
    }
    return hold;
}

namespace {

bool FitsPat(const Row& row, const HoldTraits& hold, const Terms& terms) {
    if (hold.line < 0) return false;
    if (row.orBetter) return hold.line <= terms.LastLineOf(row.pat);
    return terms.HandOf(hold.line) == row.pat;
}

bool IsOfAKind(const HoldTraits& hold, int count) {
    return hold.cards == count && hold.naturals > 0 && std::has_single_bit(hold.ranks);
}

// All cards but one of one rank, or wild; the one is neither.
bool IsOfAKindAndOne(const HoldTraits& hold, int count) {
    if (hold.cards != count + 1 || hold.kickerRank < 0) return false;
    const auto group = static_cast<std::size_t>(hold.groupRank);
    return hold.countOf[group] == hold.naturals - 1;
}

bool IsTwoPair(const HoldTraits& hold) {
    return hold.cards == 4 && hold.naturals == 4 && hold.kickerRank >= 0 &&
           hold.countOf[static_cast<std::size_t>(hold.groupRank)] == 2 &&
           hold.countOf[static_cast<std::size_t>(hold.kickerRank)] == 2;
}

bool AreRanks(const HoldTraits& hold, const Row& row) {
    int cards = 0;
    int wilds = 0;
    std::array<std::int8_t, kRanks> wanted{};
    for (const std::int8_t rank : row.ranks) {
        if (rank < 0) continue;
        ++cards;
        if (rank == kWildRank) {
            ++wilds;
        } else {
            ++wanted[static_cast<std::uint8_t>(rank)];
        }
    }
    return hold.cards == cards && hold.wilds == wilds && hold.countOf == wanted;
}

bool FitsBase(const Row& row, const HoldTraits& hold, const Terms& terms) {
    constexpr RankSet royalRanks = StraightRanks(kStraights - 1);
    const std::int8_t count = row.count;
    switch (row.base) {
        case Base::kPat:
            return FitsPat(row, hold, terms);
        case Base::kOfAKind:
            return IsOfAKind(hold, count);
        case Base::kOfAKindAndOne:
            return IsOfAKindAndOne(hold, count);
        case Base::kTwoPair:
            return IsTwoPair(hold);
        case Base::kToRoyalFlush:
            return hold.cards == count && hold.suited && (hold.ranks & ~royalRanks) == 0;
        case Base::kToStraightFlush:
            return hold.cards == count && hold.suited && hold.straights > 0;
        case Base::kToFlush:
            return hold.cards == count && hold.suited;
        case Base::kToStraight:
            return hold.cards == count && hold.straights > 0;
        case Base::kHighCards:
            return hold.cards == count && hold.distinct && hold.highCards == count;
        case Base::kRanks:
            return AreRanks(hold, row);
        case Base::kWildCards:
            return hold.cards == count && hold.wilds == count;
        case Base::kNothing:
            return hold.cards == 0;
    }
    return false;
}

bool FitsHeight(Height height, const HoldTraits& hold, const Terms& terms) {
    return height == Height::kAny || (height == Height::kHigh) == terms.IsHigh(hold.groupRank);
}

bool FitsSuiting(Suiting suiting, const HoldTraits& hold) {
    switch (suiting) {
        case Suiting::kAny:
            return true;
        case Suiting::kSuited:
            return hold.suited;
        case Suiting::kUnsuited:
            return !hold.suited;
        case Suiting::kOneEyed:
            return hold.oneEyed;
        case Suiting::kTwoEyed:
            return hold.suited && !hold.oneEyed;
    }
    return false;
}

bool FitsSpan(const RankSpan& span, int rank) { return span.IsAny() || span.Holds(rank); }

bool FitsRanks(const Row& row, const HoldTraits& hold) {
    if (!FitsSpan(row.of, hold.groupRank) || !FitsSpan(row.kicker, hold.kickerRank)) return false;
    if ((hold.ranks & row.with) != row.with || (hold.ranks & row.without) != 0) return false;
    for (int rank = 0; rank < kRanks && !row.all.IsAny(); ++rank) {
        if ((hold.ranks >> rank & 1) != 0 && !row.all.Holds(rank)) return false;
    }
    return true;
}

bool FitsCondition(Condition condition, bool present) {
    return condition == Condition::kAny || (condition == Condition::kPresent) == present;
}

bool FitsDiscards(const Row& row, const HoldTraits& hold) {
    return FitsCondition(row.flushPenalty, hold.flushPenalties > 0) &&
           row.flushPenalties.Holds(hold.flushPenalties) &&
           row.suitsDiscarded.Holds(hold.suitsDiscarded) &&
           FitsCondition(row.straightPenalty, hold.straightPenalty) &&
           row.openStraights.Holds(hold.openStraights) &&
           row.highDiscards.Holds(hold.highDiscards) &&
           (hold.discards & row.discarding) == row.discarding &&
           (hold.discards & row.notDiscarding) == 0;
}

}  // namespace

bool Fits(const Row& row, const HoldTraits& hold, const Terms& terms) {
    if (hold.blank && row.base != Base::kPat) return false;
    return FitsBase(row, hold, terms) && FitsSuiting(row.suiting, hold) &&
           FitsHeight(row.height, hold, terms) && row.straights.Holds(hold.straights) &&
           row.gaps.Holds(hold.gaps) && row.highCards.Holds(hold.highCards) &&
           row.straightsAndHighCards.Holds(hold.straights + hold.highCards) &&
           row.wildCards.Holds(hold.wilds) && row.jokers.Holds(hold.jokers) &&
           FitsCondition(row.suitedWild, hold.suitedWild) && FitsRanks(row, hold) &&
           FitsDiscards(row, hold);
}
