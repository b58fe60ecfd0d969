#include "core/analysis/SuitPatterns.h"

#include <algorithm>
#include <map>
#include <optional>

#include "core/analysis/LineTables.h"

namespace {

constexpr std::uint8_t kFifthSuit = 5;
constexpr std::size_t kAllRenamings = 24;  // of four suits

// What makes assignments rows of their own, beside a renaming of the suits.
enum class Grouping {
    kByRenaming,        // nothing does
    kOneSuitInHalves,   // five cards of one suit are two rows, of suits 1 and 2, and of 3 and 4
    kAceOfSpadesApart,  // where the order of the aces pays, hands with the ace of spades are rows
                        // of their own
    kPairSuitsApart,    // the two suits of the first pair are told apart
    kOneRow,            // all are one row: no flush can come of the best hold
    kFifthSuitOneRow,   // the hands that hold the fifth ace are one row for the same reason
};

// The cards of a table: positions with the same letter have the same rank. 'W' a joker, '_' empty,
// 'A' aces; small letters stand for other ranks.
struct TableRule {
    const char* cards;
    int pairs;
    int jokers;
    std::optional<int> aces;  // in the hand; any number without it
    GameType type;            // the only one that the table is for; kStandard: all of them
    Grouping grouping = Grouping::kByRenaming;
    std::array<bool, 6> pairedPositions{};  // those of HandShape, in Pick 'Em with a pair
};

constexpr GameType kAnyType = GameType::kStandard;
using enum Grouping;

std::array<bool, 6> Paired(std::initializer_list<std::size_t> which) {
    std::array<bool, 6> paired{};
    for (const std::size_t pair : which) paired[pair] = true;
    return paired;
}

// The rules are tried from the top, and the first that fits a hand has its table: so those of a
// single type stand before those for all.
const std::array<TableRule, SuitPatternTables::kTables>& Rules() {
    using enum GameType;
    static const std::array<TableRule, SuitPatternTables::kTables> rules = {{
        {"Wabcd", 0, 1, {}, kAnyType},
        {"WWabc", 0, 2, {}, kAnyType},
        {"WWWab", 0, 3, {}, kAnyType},
        {"WWWWa", 0, 4, {}, kAnyType},
        {"WWWWW", 0, 5, {}, kAnyType},
        {"Aabcd", 0, 0, 1, kFiveAces},
        {"Aabcd", 0, 0, 1, kAcesBonus, kAceOfSpadesApart},
        {"ab_cd", 0, 0, {}, kPickEm},
        {"abcde", 0, 0, {}, kAnyType, kOneSuitInHalves},
        {"Waabc", 1, 1, {}, kAnyType, kPairSuitsApart},
        {"WWaab", 1, 2, {}, kAnyType},
        {"WWWaa", 1, 3, {}, kAnyType},
        {"AAabc", 1, 0, 2, kFiveAces},
        {"aaAbc", 1, 0, 1, kFiveAces},
        {"AAabc", 1, 0, 2, kAcesBonus, kAceOfSpadesApart},
        {"aa_bc", 1, 0, {}, kPickEm, kPairSuitsApart, Paired({0})},
        {"ab_ac", 1, 0, {}, kPickEm, kPairSuitsApart, Paired({1})},
        {"ab_ca", 1, 0, {}, kPickEm, kPairSuitsApart, Paired({2})},
        {"ba_ac", 1, 0, {}, kPickEm, kPairSuitsApart, Paired({3})},
        {"ba_ca", 1, 0, {}, kPickEm, kPairSuitsApart, Paired({4})},
        {"bc_aa", 1, 0, {}, kPickEm, kPairSuitsApart, Paired({5})},
        {"aabcd", 1, 0, {}, kAnyType},
        {"Waabb", 2, 1, {}, kAnyType, kPairSuitsApart},
        {"AAaab", 2, 0, 2, kFiveAces},
        {"aabbA", 2, 0, 1, kFiveAces, kFifthSuitOneRow},
        {"AAaab", 2, 0, 2, kAcesBonus, kAceOfSpadesApart},
        {"aa_bb", 2, 0, {}, kPickEm, kPairSuitsApart, Paired({0, 5})},
        {"ab_ab", 2, 0, {}, kPickEm, kPairSuitsApart, Paired({1, 4})},
        {"aabbc", 2, 0, {}, kAnyType},
        {"Waaab", 3, 1, {}, kAnyType, kOneRow},
        {"WWaaa", 3, 2, {}, kAnyType},
        {"AAAab", 3, 0, 3, kFiveAces},
        {"aaaAb", 3, 0, 1, kFiveAces},
        {"AAAab", 3, 0, 3, kAcesBonus, kAceOfSpadesApart},
        {"aa_ab", 3, 0, {}, kPickEm, kOneRow, Paired({0, 1, 3})},
        {"aa_ba", 3, 0, {}, kPickEm, kOneRow, Paired({0, 2, 4})},
        {"ba_aa", 3, 0, {}, kPickEm, kOneRow},
        {"aaabc", 3, 0, {}, kAnyType},
        {"AAAaa", 4, 0, 3, kFiveAces},
        {"aaaAA", 4, 0, 2, kFiveAces},
        {"AAAaa", 4, 0, 3, kAcesBonus, kAceOfSpadesApart},
        {"aaabb", 4, 0, {}, kAnyType},
        {"AAAAa", 6, 0, 4, kFiveAces, kFifthSuitOneRow},
        {"aaaaA", 6, 0, 1, kFiveAces, kOneRow},
        {"Waaaa", 6, 1, {}, kAnyType},
        {"aa_aa", 6, 0, {}, kPickEm},
        {"AAAAa", 6, 0, 4, kAcesBonus, kAceOfSpadesApart},
        {"aaaab", 6, 0, {}, kAnyType},
        {"AAAAA", 10, 0, 5, kFiveAces},
    }};
    return rules;
}

SuitGroup AllRenamings() {
    SuitGroup group;
    SuitRenaming renaming{0, 1, 2, 3};
    do {
        group.push_back(renaming);
    } while (std::ranges::next_permutation(renaming).found);
    return group;
}

bool IsOrdinary(std::uint8_t suit) { return suit >= 1 && suit <= kSuits; }

// Builds the table of a rule from all suit assignments of its cards.
class TableBuilder {
  public:
    TableBuilder(const TableRule& rule, const SuitGroup& interchangeable)
        : rule(rule), interchangeable(interchangeable) {
        for (std::size_t i = 0; i < kHandSize; ++i) {
            if (IsCard(i) && SameRankBefore(i)) ranksDiffer = false;
        }
    }

    std::vector<SuitPattern> Build() {
        Assign(0, {});
        return std::move(rows);
    }

  private:
    char Letter(std::size_t position) const { return rule.cards[position]; }
    bool IsCard(std::size_t position) const {  // with a suit of its own
        return Letter(position) != 'W' && Letter(position) != '_';
    }

    // The last position before this one that has the same rank.
    std::optional<std::size_t> SameRankBefore(std::size_t position) const {
        for (std::size_t before = position; before-- > 0;) {
            if (Letter(before) == Letter(position)) return before;
        }
        return std::nullopt;
    }

    // Goes through the suits of this position and of all behind it, and adds every assignment once:
    // the suits of equal ranks rise.
    void Assign(std::size_t position, PositionSuits suits) {
        if (position == kHandSize) return Add(suits);
        if (!IsCard(position)) return Assign(position + 1, suits);
        const bool fifthAce = Letter(position) == 'A' && rule.type == GameType::kFiveAces;
        const auto before = SameRankBefore(position);
        const int lowest = before ? suits[*before] + 1 : 1;
        for (int suit = lowest; suit <= (fifthAce ? kFifthSuit : kSuits); ++suit) {
            suits[position] = static_cast<std::uint8_t>(suit);
            Assign(position + 1, suits);
        }
    }

    // The assignment with its suits renamed, those of equal ranks in rising order again.
    PositionSuits Renamed(const PositionSuits& suits, const SuitRenaming& renaming) const {
        PositionSuits renamed{};
        for (std::size_t i = 0; i < kHandSize; ++i) {
            std::uint8_t suit = suits[i];
            if (IsOrdinary(suit)) suit = static_cast<std::uint8_t>(renaming[suit - 1U] + 1);
            std::size_t at = i;
            if (suit != 0) {
                for (auto before = SameRankBefore(at); before && renamed[*before] > suit;
                     before = SameRankBefore(at)) {
                    renamed[at] = renamed[*before];
                    at = *before;
                }
            }
            renamed[at] = suit;
        }
        return renamed;
    }

    // The least of what all renamings make of an assignment to different ranks: each suit has the
    // lowest number left when it first appears.
    static PositionSuits InOrderOfAppearance(PositionSuits suits) {
        std::array<std::uint8_t, kFifthSuit + 1> numberOf{};
        std::uint8_t last = 0;
        for (std::uint8_t& suit : suits) {
            if (!IsOrdinary(suit)) continue;
            if (numberOf[suit] == 0) numberOf[suit] = ++last;
            suit = numberOf[suit];
        }
        return suits;
    }

    // The least of what the renamings make of an assignment: the same for all that they make into
    // each other, so it stands for them.
    PositionSuits LeastOf(const PositionSuits& suits, const SuitGroup& group) const {
        if (ranksDiffer && group.size() == kAllRenamings) return InOrderOfAppearance(suits);
        PositionSuits least = suits;
        for (const auto& renaming : group) least = std::min(least, Renamed(suits, renaming));
        return least;
    }

    // The suits of the first two cards of equal rank.
    std::array<std::uint8_t, 2> PairSuits(const PositionSuits& suits) const {
        std::size_t second = 0;
        while (Letter(second) != 'a' || !SameRankBefore(second)) ++second;
        return {suits[*SameRankBefore(second)], suits[second]};
    }

    // The key where the suits of the first pair are told apart: they become 1 and 2. Of two single
    // cards in the two other suits it matters which has the lower one, and the number, 0 or 1, says
    // so.
    std::pair<PositionSuits, int> PairApart(const PositionSuits& suits) const {
        const auto pair = PairSuits(suits);
        std::optional<PositionSuits> least;
        for (const auto& renaming : AllRenamings()) {
            if (renaming[pair[0] - 1U] != 0 || renaming[pair[1] - 1U] != 1) continue;
            const PositionSuits renamed = Renamed(suits, renaming);
            least = least ? std::min(*least, renamed) : renamed;
        }
        std::vector<std::uint8_t> others;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            const bool single = Letter(i) == 'b' || Letter(i) == 'c';
            if (single && std::ranges::find(pair, suits[i]) == pair.end())
                others.push_back(suits[i]);
        }
        const bool twoPair = rule.pairs == 2;
        return {*least, !twoPair && others.size() == 2 && others[0] > others[1] ? 1 : 0};
    }

    // Assignments with the same key share a row.
    std::pair<PositionSuits, int> RowKey(const PositionSuits& suits) const {
        static const SuitGroup all = AllRenamings();
        const bool fifthAce = std::ranges::find(suits, kFifthSuit) != suits.end();
        const bool oneSuit = std::ranges::count(suits, suits[0]) == kHandSize;
        // Where all four aces are there, the card beside them decides.
        const bool spade = suits[rule.aces == 4 ? 4 : 0] == kSpades;
        switch (rule.grouping) {
            case kByRenaming:
                return {LeastOf(suits, all), 0};
            case kOneSuitInHalves:
                return {LeastOf(suits, all), oneSuit && suits[0] > 2 ? 1 : 0};
            case kAceOfSpadesApart:
                return {LeastOf(suits, all), spade ? 1 : 0};
            case kPairSuitsApart:
                return PairApart(suits);
            case kFifthSuitOneRow:
                if (!fifthAce) return {LeastOf(suits, all), 0};
                [[fallthrough]];
            case kOneRow:
                return {PositionSuits{}, 0};
        }
        return {};
    }

    // Counts an assignment in its row and variant, either of which may be new.
    void Add(const PositionSuits& suits) {
        const auto key = RowKey(suits);
        const auto [entry, isNew] = rowOf.try_emplace(key, rows.size());
        if (isNew) rows.emplace_back();
        SuitPattern& row = rows[entry->second];
        const PositionSuits least =
            interchangeable.size() == kAllRenamings && rule.grouping == kByRenaming
                ? key.first
                : LeastOf(suits, interchangeable);
        const auto [variant, isNewVariant] =
            variantOf.try_emplace({entry->second, least}, row.variants.size());
        if (isNewVariant) row.variants.push_back({suits, 0});
        ++row.variants[variant->second].count;
    }

    const TableRule& rule;
    const SuitGroup& interchangeable;
    bool ranksDiffer = true;
    std::vector<SuitPattern> rows;
    std::map<std::pair<PositionSuits, int>, std::size_t> rowOf;
    std::map<std::pair<std::size_t, PositionSuits>, std::size_t> variantOf;
};

bool IsFor(const TableRule& rule, GameType type) {
    return rule.type == kAnyType || rule.type == type;
}

bool Fits(const TableRule& rule, const HandShape& shape, GameType type) {
    const bool anyPositions = std::ranges::none_of(rule.pairedPositions, std::identity());
    return rule.pairs == shape.pairs && rule.jokers == shape.jokers &&
           (!rule.aces || *rule.aces == shape.aces) && IsFor(rule, type) &&
           (anyPositions || rule.pairedPositions == shape.pairedPositions);
}

}  // namespace

HandShape ShapeOf(const std::array<int, kHandSize>& ranks, GameType type) {
    const bool pickEm = type == GameType::kPickEm;
    HandShape shape;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if (pickEm && i == 2) continue;
        if (ranks[i] == 0) ++shape.jokers;
        if (ranks[i] == 1) ++shape.aces;
        for (std::size_t j = i + 1; j < kHandSize; ++j) {
            if (!(pickEm && j == 2) && ranks[i] != 0 && ranks[i] == ranks[j]) ++shape.pairs;
        }
    }
    for (std::size_t pair = 0; pickEm && pair < kPickEmPairs.size(); ++pair) {
        const auto [first, second] = kPickEmPairs[pair];
        shape.pairedPositions[pair] =
            ranks[static_cast<std::size_t>(first)] == ranks[static_cast<std::size_t>(second)];
    }
    return shape;
}

void ArrangeForPatterns(std::array<int, kHandSize>& ranks) {
    std::array<int, 14> count{};
    for (const int rank : ranks) ++count[static_cast<std::size_t>(rank)];
    const auto before = [&count](int a, int b) {
        if ((a == 0) != (b == 0)) return a == 0;
        const int countA = count[static_cast<std::size_t>(a)];
        const int countB = count[static_cast<std::size_t>(b)];
        return countA != countB ? countA > countB : a < b;
    };
    std::ranges::sort(ranks, before);
}

SuitPatternTables::SuitPatternTables(const PayTable& table) : type(table.type) {
    const SuitGroup interchangeable = InterchangeableSuits(table);
    for (std::size_t i = 0; i < kTables; ++i) {
        const TableRule& rule = Rules()[i];
        if (rule.jokers > table.jokers || !IsFor(rule, type)) continue;
        tables[i] = TableBuilder(rule, interchangeable).Build();
        used.push_back(i);
    }
}

std::span<const SuitPattern> SuitPatternTables::Select(const HandShape& shape) const {
    for (const std::size_t i : used) {
        if (Fits(Rules()[i], shape, type)) return tables[i];
    }
    return {};
}
