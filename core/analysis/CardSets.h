// Numbers for sets of one to four cards, the same number for sets of which the hands that hold them
// are paid alike: those that differ only by a renaming of interchangeable suits, and those whose
// suits no longer matter. 270,725 sets of four cards become 2,535 classes in an ordinary deck, and
// those of all sizes fit with their counts into the processor's fastest cache.
//
// A set is taken apart into its kinds (ranks, and the joker or fifth ace) and its suits. The kinds
// number a multiset; which suit assignments are alike depends only on which of the kinds are equal
// and what marks them, so one small table per pattern of these serves thousands of sets.
#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

inline constexpr int kSuits = 4;
inline constexpr int kExtraKind = 13;  // the joker, or the fifth ace; kinds 0..12 are ace..king
inline constexpr int kMaxKinds = 14;
inline constexpr int kMaxSetSize = 4;

// A card as sets are made of it. Cards of the extra kind have suit 0: they are not renamed, and the
// jokers of a deck are all alike.
struct SetCard {
    std::uint8_t kind = 0;
    std::uint8_t suit = 0;  // 0..3

    auto operator<=>(const SetCard&) const = default;
};

// Cards of one hand, sorted by kind and suit as far as they are filled.
using SortedCards = std::array<SetCard, 5>;

// Puts a card into its place among the first count cards.
inline void InsertCard(SortedCards& cards, std::size_t count, SetCard card) {
    for (; count > 0 && card < cards[count - 1]; --count) cards[count] = cards[count - 1];
    cards[count] = card;
}

// Renamings of the four suits under which a deck and its pay table stay the same; holds the
// identity.
using SuitRenaming = std::array<std::uint8_t, kSuits>;
using SuitGroup = std::vector<SuitRenaming>;

// What tells sets of the same kinds from each other.
struct SetMeaning {
    int extras = 0;   // cards of the extra kind in the deck, 0 when there is none
    SuitGroup group;  // under which sets are alike
    // Of two sets of the same kinds that a number is the same for, every further card makes the
    // same. It may depend on a kind only by its mark.
    std::function<std::uint32_t(std::span<const SetCard>)> suitsOf;
    std::array<std::uint8_t, kMaxKinds> marks{};
};

// How many multisets of the given size so many kinds make.
constexpr std::uint32_t MultisetCount(int size, int kinds) {
    std::uint64_t count = 1;  // C(kinds + size - 1, size)
    for (int i = 1; i <= size; ++i) {
        count = count * static_cast<std::uint64_t>(kinds - 1 + i) / static_cast<std::uint64_t>(i);
    }
    return static_cast<std::uint32_t>(kinds == 0 ? 0 : count);
}

// The key of a set is the sum of what its cards, sorted by kind and suit, add at the places 0, 1, 2
// ... of the set: in its low half the number of the multiset of kinds, above it two bits a card for
// the suits.
class SetKey {
  public:
    static constexpr int kPlaces = 5;

    static std::uint32_t Add(int place, SetCard card) {
        return kKindNumbers[static_cast<std::size_t>(place)][card.kind] +
               (static_cast<std::uint32_t>(card.suit) << (kSuitShift + 2 * place));
    }
    static std::uint32_t Kinds(std::uint32_t key) { return key & 0xFFFF; }
    static std::uint32_t Suits(std::uint32_t key) { return key >> kSuitShift; }

  private:
    static constexpr int kSuitShift = 16;

    // The combinatorial number system for multisets k1 <= k2 <= ...: the sum of C(kj + j - 1, j)
    // numbers them without a gap.
    static constexpr auto kKindNumbers = [] {
        std::array<std::array<std::uint32_t, kMaxKinds>, kPlaces> numbers{};
        for (std::size_t place = 0; place < numbers.size(); ++place) {
            for (std::size_t kind = 0; kind < kMaxKinds; ++kind) {
                numbers[place][kind] =
                    MultisetCount(static_cast<int>(place) + 1, static_cast<int>(kind));
            }
        }
        return numbers;
    }();
};

// The classes of the sets of one size, 1..4, in one deck.
class SetClasses {
  public:
    SetClasses(int size, const SetMeaning& meaning);

    std::uint32_t Count() const { return count; }
    std::size_t Bytes() const;

    // The classes of the sets of one multiset of kinds, the suits being looked up by SetKey::Suits.
    struct OfKinds {
        std::uint32_t first = 0;
        const std::uint8_t* bySuits = nullptr;

        std::uint32_t ClassOf(std::uint32_t suits) const { return first + bySuits[suits]; }
    };
    OfKinds Of(std::uint32_t kinds) const {
        return {multisets[kinds].firstClass, suitClasses.data() + multisets[kinds].suitTable};
    }

    // The class of a set of the deck's cards by its key.
    std::uint32_t ClassOf(std::uint32_t key) const {
        const Multiset& multiset = multisets[SetKey::Kinds(key)];
        return multiset.firstClass + suitClasses[multiset.suitTable + SetKey::Suits(key)];
    }

    // Calls visit(class, cards) with one set of every class, classes rising, cards sorted.
    template <typename Visitor>
    void ForEachClass(Visitor visit) const {
        for (const Representative& set : representatives) {
            visit(set.number, std::span<const SetCard>(set.cards.data(), setSize));
        }
    }

  private:
    struct Multiset {
        std::uint32_t firstClass = 0;
        std::uint32_t suitTable = 0;  // where its pattern's table starts in suitClasses
    };
    struct Representative {
        std::uint32_t number = 0;
        std::array<SetCard, kMaxSetSize> cards;
    };

    std::size_t setSize;
    std::uint32_t count = 0;
    std::vector<Multiset> multisets;
    std::vector<std::uint8_t> suitClasses;
    std::vector<Representative> representatives;
};
