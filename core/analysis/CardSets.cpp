#include "core/analysis/CardSets.h"

#include <algorithm>
#include <map>

namespace {

// What decides which suit assignments of a multiset of kinds are alike.
struct Pattern {
    int size = 0;
    int extras = 0;  // cards of the extra kind, the last ones of the set
    std::array<bool, kMaxSetSize> sameAsLast{};  // the kind is that of the card before
    std::array<std::uint8_t, kMaxSetSize> marks{};

    auto operator<=>(const Pattern&) const = default;
};

using Suits = std::array<std::uint8_t, kMaxSetSize>;

int CodeOf(const Suits& suits, int size) {
    int code = 0;
    for (int i = 0; i < size; ++i) code |= suits[static_cast<std::size_t>(i)] << (2 * i);
    return code;
}

// False when the code gives a kind one suit twice or out of order, or an extra card a suit.
bool SuitsOfCode(int code, const Pattern& pattern, Suits& suits) {
    for (int i = 0; i < pattern.size; ++i) {
        const auto at = static_cast<std::size_t>(i);
        suits[at] = static_cast<std::uint8_t>((code >> (2 * i)) & 3);
        const bool extra = i >= pattern.size - pattern.extras;
        if (extra ? suits[at] != 0 : pattern.sameAsLast[at] && suits[at] <= suits[at - 1]) {
            return false;
        }
    }
    return true;
}

int RenamedCode(const Suits& suits, const Pattern& pattern, const SuitRenaming& renaming) {
    Suits renamed{};
    const int natural = pattern.size - pattern.extras;
    for (int i = 0; i < natural; ++i) {
        auto at = static_cast<std::size_t>(i);
        const std::uint8_t suit = renaming[suits[at]];
        // Within a kind the suits stay sorted.
        for (; pattern.sameAsLast[at] && renamed[at - 1] > suit; --at)
            renamed[at] = renamed[at - 1];
        renamed[at] = suit;
    }
    return CodeOf(renamed, pattern.size);
}

using Kinds = std::array<std::uint8_t, kMaxSetSize>;
using Cards = std::array<SetCard, kMaxSetSize>;

Cards CardsOf(const Kinds& kinds, const Suits& suits) {
    Cards cards;
    for (std::size_t i = 0; i < cards.size(); ++i) cards[i] = {kinds[i], suits[i]};
    return cards;
}

struct PatternClasses {
    std::vector<std::uint8_t> classOfCode;  // by code; 0 for codes of no set
    std::vector<Suits> representatives;     // by class
};

// The classes of a pattern; the kinds are any that have it.
PatternClasses ClassesOf(const Pattern& pattern, const Kinds& kinds, const SetMeaning& meaning) {
    PatternClasses classes;
    std::vector<std::uint32_t> meanings;  // by class
    const int codes = 1 << (2 * pattern.size);
    classes.classOfCode.assign(static_cast<std::size_t>(codes), 0);
    Suits suits{};
    for (int code = 0; code < codes; ++code) {
        if (!SuitsOfCode(code, pattern, suits)) continue;
        int lowest = code;
        for (const auto& renaming : meaning.group) {
            lowest = std::min(lowest, RenamedCode(suits, pattern, renaming));
        }
        auto& number = classes.classOfCode[static_cast<std::size_t>(code)];
        if (lowest < code) {
            number = classes.classOfCode[static_cast<std::size_t>(lowest)];
            continue;
        }
        const Cards cards = CardsOf(kinds, suits);
        const std::uint32_t is =
            meaning.suitsOf({cards.data(), static_cast<std::size_t>(pattern.size)});
        const auto known = std::ranges::find(meanings, is);
        number = static_cast<std::uint8_t>(known - meanings.begin());
        if (known != meanings.end()) continue;
        meanings.push_back(is);
        classes.representatives.push_back(suits);
    }
    return classes;
}

Pattern PatternOf(const Kinds& kinds, int size, const SetMeaning& meaning) {
    Pattern pattern;
    pattern.size = size;
    for (int i = 0; i < size; ++i) {
        const auto at = static_cast<std::size_t>(i);
        pattern.marks[at] = meaning.marks[kinds[at]];
        if (kinds[at] == kExtraKind) {
            ++pattern.extras;
        } else {
            pattern.sameAsLast[at] = i > 0 && kinds[at] == kinds[at - 1];
        }
    }
    return pattern;
}

// The next multiset k1 <= k2 <= ... in the order of its number: the first kind that may grow does,
// and those before it start again.
bool NextKinds(Kinds& kinds, int size, int kindCount) {
    for (int i = 0; i < size; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const int limit = i + 1 < size ? kinds[at + 1] : kindCount - 1;
        if (kinds[at] < limit) {
            ++kinds[at];
            std::fill_n(kinds.begin(), i, std::uint8_t{0});
            return true;
        }
    }
    return false;
}

}  // namespace

SetClasses::SetClasses(int size, const SetMeaning& meaning)
    : setSize(static_cast<std::size_t>(size)) {
    struct KnownPattern {
        PatternClasses classes;
        std::uint32_t suitTable = 0;
    };
    std::map<Pattern, KnownPattern> known;
    const int kindCount = meaning.extras > 0 ? kMaxKinds : kMaxKinds - 1;
    multisets.reserve(MultisetCount(size, kindCount));

    Kinds kinds{};
    do {
        const Pattern pattern = PatternOf(kinds, size, meaning);
        auto [entry, isNew] = known.try_emplace(pattern);
        KnownPattern& found = entry->second;
        if (isNew) {
            found.classes = ClassesOf(pattern, kinds, meaning);
            found.suitTable = static_cast<std::uint32_t>(suitClasses.size());
            suitClasses.insert(suitClasses.end(), found.classes.classOfCode.begin(),
                               found.classes.classOfCode.end());
        }
        multisets.push_back({count, found.suitTable});
        if (pattern.extras > meaning.extras)
            continue;  // more jokers than the deck has: no such set
        for (const Suits& suits : found.classes.representatives) {
            representatives.push_back({count++, CardsOf(kinds, suits)});
        }
    } while (NextKinds(kinds, size, kindCount));
}

std::size_t SetClasses::Bytes() const {
    return multisets.size() * sizeof(Multiset) + suitClasses.size() +
           representatives.size() * sizeof(Representative);
}
