// What a row can ask of a hold, and whether it fits.
#pragma once
#include <array>
#include <bit>
#include <cstdint>
#include <optional>

#include "core/strategy/Row.h"
#include "core/strategy/StartingHands.h"

// Everything that rows look at, packed: holds with the same look fit the same rows.
using HoldLook = std::uint64_t;

// What rows need to know of a table.
class Terms {
  public:
    Terms(const LineTables& tables, const PayTable& table);

    // A rank is high when a pair of it is paid.
    bool IsHigh(int rank) const { return (highRanks >> rank & 1) != 0; }
    RankSet HighRanks() const { return highRanks; }

    // The kind of hand that a line pays; nothing for a kind that no row names.
    std::optional<PatHand> HandOf(int line) const {
        return lineHands[static_cast<std::size_t>(line)];
    }
    // The last line of the kind in table order; -1 when there is none.
    int LastLineOf(PatHand hand) const { return lastLines[static_cast<std::size_t>(hand)]; }

    bool IsWild(SetCard card) const { return tables.IsWild(card); }
    bool IsJoker(SetCard card) const { return card.kind == kExtraKind && !fifthAce; }
    // 0..12; of a joker -1.
    int RankOf(SetCard card) const;
    // 0..3; the fifth ace and jokers have none of these, -1.
    int SuitOf(SetCard card) const { return card.kind == kExtraKind ? -1 : card.suit; }
    // Suits as bits, whose jack is wild where others are not.
    unsigned OneEyedSuits() const { return oneEyedSuits; }
    // A line asks for a suit without wild cards, which wild ranks then have as well.
    bool WildsKeepSuits() const { return wildsKeepSuits; }

  private:
    const LineTables& tables;
    bool fifthAce;
    RankSet highRanks = 0;
    unsigned oneEyedSuits = 0;
    bool wildsKeepSuits = false;
    std::array<std::optional<PatHand>, kMaxPayLines> lineHands;
    std::array<int, kPatHands> lastLines;
};

// The looks of the 32 holds of a hand. What no row asks for is better left out of them, so that
// more holds look the same: what only some games need of the held cards as well.
using HandLooks = std::array<HoldLook, kSubsets>;
enum class LookAt : std::uint8_t { kHeldCards, kPenaltiesToo, kDiscardsToo };
void LookAtHand(const Terms& terms, const StartingHand& hand, LookAt at, HandLooks& looks);

// A look taken apart.
struct HoldTraits {
    int cards = 0;
    int wilds = 0;
    int jokers = 0;      // wild ones
    bool blank = false;  // holds a joker that is not wild, which no row but a pat one names
    int line = -1;       // of all five cards held
    RankSet ranks = 0;   // natural cards
    int naturals = 0;
    std::array<std::int8_t, kRanks> countOf{};  // natural cards by rank
    int groupRank = -1;       // the rank of most of them, among equals the highest; -1 without
    int kickerRank = -1;      // the highest besides; -1 without
    bool suited = false;      // the natural cards are of one suit, and there are some
    bool oneEyed = false;     // suited in a one-eyed suit
    bool suitedWild = false;  // suited, and a wild card held has the suit as well
    bool distinct = false;    // they are all of different ranks, and there are some
    int straights = 0;        // that hold all of them; 0 when ranks are equal
    int gaps = 0;             // ranks missing inside them; 0 without a straight
    int highCards = 0;

    int flushPenalties = 0;  // natural cards
    bool straightPenalty = false;
    int openStraights = 0;  // of those above, in which no discard stands
    RankSet discards = 0;   // natural cards
    int suitsDiscarded = 0;
    int highDiscards = 0;  // ranks
};
HoldTraits TraitsOf(const Terms& terms, HoldLook look);

bool Fits(const Row& row, const HoldTraits& hold, const Terms& terms);

// The ten straights as sets of ranks, from that of the ace low up.
inline constexpr int kStraights = 10;
constexpr RankSet StraightRanks(int number) {
    return static_cast<RankSet>(number == 0 ? 0x100F : 0x1F << (number - 1));
}
