// The rows of a strategy chart: what a person sees of the cards to hold, from a closed set of
// words. docs/strategy.md says what each of them means; here is what they ask of a hold.
#pragma once
#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

// Ranks in their order: 0 the deuce .. 12 the ace. A set of them has a bit for each.
using RankSet = std::uint16_t;
inline constexpr int kRanks = 13;
inline constexpr int kAceRank = kRanks - 1;
inline constexpr int kTenRank = 8;
inline constexpr int kWildRank = 13;  // in a list of ranks to hold, any wild card

// Hands that the pay table pays as dealt, best known first.
enum class PatHand : std::uint8_t {
    kRoyalFlush,
    kWildRoyalFlush,
    kFiveWilds,
    kFourWilds,
    kFiveOfAKind,
    kStraightFlush,
    kFourOfAKind,
    kFullHouse,
    kFlush,
    kStraight,
    kThreeOfAKind,
    kTwoPair,
    kPair,
    kOneColour,
};
inline constexpr std::size_t kPatHands = 14;

enum class Base : std::uint8_t {
    kPat,            // a paid hand, all five cards
    kOfAKind,        // count cards of one rank, wild cards among them
    kOfAKindAndOne,  // the same and one card besides
    kTwoPair,        // four cards
    kToRoyalFlush,   // count cards
    kToStraightFlush,
    kToFlush,
    kToStraight,
    kHighCards,  // count cards that pay as a pair, all of different ranks
    kRanks,      // the cards of the ranks, in any suits
    kWildCards,  // count wild cards and nothing else
    kNothing,    // discard everything
};

enum class Height : std::uint8_t { kAny, kHigh, kLow };  // of a pair
enum class Suiting : std::uint8_t {
    kAny,
    kSuited,
    kUnsuited,
    kOneEyed,  // suited, in a suit whose jack is wild where other jacks are not
    kTwoEyed,  // suited, in another suit
};
enum class Condition : std::uint8_t { kAny, kAbsent, kPresent };

// How many there are to be, the ends included.
struct Amount {
    static constexpr std::int8_t kNoEnd = 99;
    std::int8_t least = 0;
    std::int8_t most = kNoEnd;

    bool IsAny() const { return least == 0 && most == kNoEnd; }
    bool Holds(int count) const { return count >= least && count <= most; }
    bool operator==(const Amount&) const = default;
};

// A span of ranks, the ends included.
struct RankSpan {
    static constexpr std::int8_t kNotAsked = -1;
    std::int8_t low = kNotAsked;
    std::int8_t high = kNotAsked;

    bool IsAny() const { return low == kNotAsked; }
    bool Holds(int rank) const { return rank >= low && rank <= high; }
    bool operator==(const RankSpan&) const = default;
};

struct Row {
    Base base = Base::kNothing;
    std::int8_t count = 0;
    PatHand pat = PatHand::kRoyalFlush;
    bool orBetter = false;                             // pat hands only
    Height height = Height::kAny;                      // pairs only
    std::array<std::int8_t, 4> ranks{-1, -1, -1, -1};  // falling, wild ones last

    Suiting suiting = Suiting::kAny;
    Amount straights;
    Amount gaps;
    Amount highCards;
    Amount straightsAndHighCards;
    Amount wildCards;
    Amount jokers;
    Condition suitedWild = Condition::kAny;
    RankSpan of;      // the rank that most of the cards have
    RankSpan kicker;  // the highest rank beside it
    RankSpan all;     // every rank
    RankSet with = 0;
    RankSet without = 0;

    Condition flushPenalty = Condition::kAny;
    Condition straightPenalty = Condition::kAny;
    Amount openStraights;
    Amount flushPenalties;
    Amount suitsDiscarded;
    Amount highDiscards;
    RankSet discarding = 0;
    RankSet notDiscarding = 0;

    bool AsksOfDiscards() const {
        return flushPenalty != Condition::kAny || straightPenalty != Condition::kAny ||
               !openStraights.IsAny() || !flushPenalties.IsAny() || !suitsDiscarded.IsAny() ||
               !highDiscards.IsAny() || discarding != 0 || notDiscarding != 0;
    }
    bool operator==(const Row&) const = default;
};

using Chart = std::vector<Row>;  // tried from the first on
