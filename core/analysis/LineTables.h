// For every set of at most four cards of a deck: how many five-card hands that hold it are paid on
// each line of a pay table. The draws of a hold follow from these counts alone, by inclusion and
// exclusion over the discarded cards, so that no draw is ever dealt and no rule of the evaluator is
// written twice.
//
// The tables are built in three steps:
// 1. The evaluator classifies one hand of every multiset of ranks for each way in which its suits
//    can matter to it (its suit view): it compares suits with each other (a flush of all cards, a
//    flush of the natural ones) and looks at the colours of the five, nothing else. These few
//    thousand lines are lineOfFive, and building takes milliseconds for any deck.
// 2. For each class of four cards every fifth card is added, and the line of the five is looked up
//    and counted: that is the row of the four.
// 3. The row of a smaller set is the sum of the rows of the sets that are one card larger. A hand
//    is met there once for each of its cards outside the set, so the sum is divided by their
//    number.
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "core/analysis/CardSets.h"
#include "core/cards/Hand.h"
#include "core/eval/HandEvaluator.h"
#include "core/paytable/PayTable.h"

// One count per pay line in table order, then, in the last lane, the hands that pay nothing.
inline constexpr std::size_t kLanes = kMaxPayLines + 1;
inline constexpr std::size_t kNothingLane = kLanes - 1;
using LineCounts = std::array<std::uint32_t, kLanes>;

inline constexpr std::size_t kDraws = kHandSize + 1;  // 0..5 cards drawn

// line: -1 for no win.
inline std::size_t LaneOf(int line) {
    return line < 0 ? kNothingLane : static_cast<std::size_t>(line);
}

// The renamings of the suits under which the deck and the lines of a pay table stay the same: all
// 24, unless single jacks are wild or a line depends on colour.
SuitGroup InterchangeableSuits(const PayTable& table);

// Two kinds of line are passed over here, as if they were not in the table: 5 CARD CHARLIE, which
// no analysis counts, and 4 ACE$ BONUS, which asks for positions, and a set has none.
class LineTables {
  public:
    explicit LineTables(const PayTable& table);

    int DeckSize() const { return deckSize; }

    // False when the deck does not hold such a card.
    bool Contains(CardFace face) const;

    // Cards of the deck only; jokers come back as jokers, whichever they were.
    SetCard ToSetCard(CardFace face) const;
    CardFace ToFace(SetCard card) const;

    bool IsWild(SetCard card) const { return wild[card.kind][card.suit]; }
    std::uint8_t WildSuits(std::uint8_t kind) const;  // those in which it is wild, as bits

    // The hands that hold a set of Size cards (0..4), by the set's key.
    template <int Size>
    void Read(std::uint32_t key, LineCounts& counts) const;

    // The classes of the sets of 1..4 cards, and the hands by class; the empty set is its only
    // class.
    const SetClasses& Classes(int size) const {
        return classes[static_cast<std::size_t>(size - 1)];
    }
    template <int Size>
    void ReadClass(std::uint32_t number, LineCounts& counts) const;
    void ReadClass(int size, std::uint32_t number, LineCounts& counts) const;

    // The counts of a class are a row. Where rows of all sizes are numbered through, those of a
    // size, 0..5, start here; sets of five cards have one for each lane.
    std::size_t FirstRow(int size) const { return firstRow[static_cast<std::size_t>(size)]; }
    std::size_t RowCount(int size) const { return FirstRow(size + 1) - FirstRow(size); }

    // The line that five cards are paid on; -1 for no win.
    int LineOfFive(const SortedCards& cards) const;

    // Five cards of the same kinds are paid by their view alone: what the evaluator can tell of
    // their suits and wild cards. The lines by view, given the kinds' part of the cards' SetKey; a
    // view that no such cards have has any line.
    static constexpr std::size_t kViews = 24;
    std::size_t ViewOf(const SortedCards& cards) const;
    std::span<const std::int8_t, kViews> LinesOfKinds(std::uint32_t kinds) const {
        return std::span<const std::int8_t, kViews>(&lineOfFive[kinds * kViews], kViews);
    }

    // The line that one to four cards, sorted, make by themselves, the other positions being empty;
    // -1 for none. Known for double-draw games only, otherwise always -1.
    int LineOfHeld(std::span<const SetCard> cards) const;

    // Memory of the tables in bytes.
    std::size_t Bytes() const;

  private:
    template <typename Count>
    using Rows = std::vector<std::array<Count, kLanes>>;

    // What the evaluator can tell of the suits and the wild cards of a hand whose ranks are known.
    // The view of a hand is the sum of the views of its cards.
    struct SuitView {
        unsigned suits = 0;         // bits: 0..3 the suits, 4 jokers, 5 the fifth suit
        unsigned naturalSuits = 0;  // the same of the cards that are not wild
        unsigned wildByFace = 0;    // wild cards of ranks that are only partly wild

        SuitView operator+(const SuitView& other) const {
            return {suits | other.suits, naturalSuits | other.naturalSuits,
                    wildByFace + other.wildByFace};
        }
    };

    // The evaluator's side of the work, which the constructor alone needs.
    struct Building;

    std::size_t ViewNumber(const SuitView& view) const;  // below kViews
    const SuitView& CardView(SetCard card) const { return views[card.kind][card.suit]; }
    void DescribeDeck(const PayTable& table);
    void CountFours(const Building& building);
    template <int Size, typename Count>
    void CountFromLarger(Rows<Count>& rows) const;
    void ClassifyHeld(const Building& building);
    std::uint32_t SuitState(std::span<const SetCard> cards) const;
    template <bool kKindsTogether = false, typename Visitor>
    void ForEachFurtherCard(std::span<const SetCard> cards, Visitor visit) const;

    int deckSize = 0;               // cards
    int kindCount = kMaxKinds - 1;  // kinds in the deck
    int extras = 0;                 // cards of the extra kind
    CardFace extraFace;
    bool coloursCount = false;  // a line asks for cards of one colour
    std::array<std::array<bool, kSuits>, kMaxKinds> wild{};
    std::array<bool, kMaxKinds> partlyWild{};  // in some suits, not in all
    std::array<std::array<SuitView, kSuits>, kMaxKinds> views{};

    std::vector<SetClasses> classes;  // by size - 1
    std::array<std::size_t, kHandSize + 1> firstRow{};
    std::vector<std::int8_t> lineOfFive;  // by multiset of kinds, then by view
    LineCounts allHands{};
    Rows<std::uint32_t> ones;  // rows by class
    Rows<std::uint32_t> twos;
    Rows<std::uint16_t> threes;
    Rows<std::uint8_t> fours;
    std::vector<std::vector<std::int8_t>> heldLines;  // by size - 1, then by class
};

template <int Size>
inline void LineTables::ReadClass(std::uint32_t number, LineCounts& counts) const {
    static_assert(Size >= 1 && Size <= kMaxSetSize);
    const auto widen = [&counts](const auto& row) {
        for (std::size_t lane = 0; lane < kLanes; ++lane) counts[lane] = row[lane];
    };
    if constexpr (Size == 1) widen(ones[number]);
    if constexpr (Size == 2) widen(twos[number]);
    if constexpr (Size == 3) widen(threes[number]);
    if constexpr (Size == 4) widen(fours[number]);
}

inline void LineTables::ReadClass(int size, std::uint32_t number, LineCounts& counts) const {
    switch (size) {
        case 0:
            counts = allHands;
            return;
        case 1:
            return ReadClass<1>(number, counts);
        case 2:
            return ReadClass<2>(number, counts);
        case 3:
            return ReadClass<3>(number, counts);
        default:
            return ReadClass<4>(number, counts);
    }
}

template <int Size>
inline void LineTables::Read(std::uint32_t key, LineCounts& counts) const {
    if constexpr (Size == 0) {
        counts = allHands;
    } else {
        ReadClass<Size>(classes[Size - 1].ClassOf(key), counts);
    }
}
