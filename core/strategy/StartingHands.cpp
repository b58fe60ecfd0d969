#include "core/strategy/StartingHands.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <map>
#include <numeric>

#include "core/analysis/AceOrder.h"
#include "core/analysis/Combinations.h"
#include "core/analysis/HoldAnalysis.h"

namespace {

constexpr std::uint8_t kAceKind = 0;
constexpr std::int64_t kOrders = 120;          // of five cards
constexpr std::int64_t kInOrder = 2;           // of these lay four aces in order
constexpr std::size_t kLongestSecondDraw = 3;  // cards: two aces are held

std::size_t SizeOf(std::size_t subset) { return static_cast<std::size_t>(std::popcount(subset)); }
std::size_t DrawnFor(std::size_t held) { return kHandSize - SizeOf(held); }

std::int64_t DrawsOf(int deckSize, std::size_t drawn) {
    return drawn == 0 ? 1 : Combinations(deckSize - kHandSize, static_cast<int>(drawn));
}

// Parts of a coin that make every mean whole.
std::int64_t PartsFor(const PayTable& table) {
    std::int64_t parts = 1;
    for (std::size_t drawn = 1; drawn <= kHandSize; ++drawn) {
        const std::int64_t draws = DrawsOf(table.deckSize, drawn);
        parts = std::lcm(parts, draws);
        if (table.type == GameType::kDoubleDraw && drawn <= kLongestSecondDraw) {
            parts = std::lcm(parts, draws * draws);
        }
    }
    // The mean is over the orders of the hand and over those of the draw.
    return AceLine(table) < 0 ? parts : parts * kOrders * kOrders;
}

bool FitsInWholeNumbers(const PayTable& table) {
    const std::int64_t most = std::numeric_limits<std::int64_t>::max() / 4 / PartsFor(table);
    for (std::size_t line = 0; line < table.lines.size(); ++line) {
        if (LineUnitPay(table, static_cast<int>(line), kFullBet) > most) return false;
    }
    return true;
}

// Sorts renamed cards, so that alike assignments come out equal.
std::array<std::uint8_t, kHandSize> Renamed(const std::array<std::uint8_t, kHandSize>& kinds,
                                            const std::array<std::uint8_t, kHandSize>& suits,
                                            const SuitRenaming& renaming) {
    std::array<std::uint8_t, kHandSize> renamed{};
    for (std::size_t i = 0; i < kHandSize; ++i) {
        const std::uint8_t suit = kinds[i] == kExtraKind ? std::uint8_t{0} : renaming[suits[i]];
        std::size_t at = i;
        for (; at > 0 && kinds[at - 1] == kinds[i] && renamed[at - 1] > suit; --at) {
            renamed[at] = renamed[at - 1];
        }
        renamed[at] = suit;
    }
    return renamed;
}

bool IsAceWithPlace(SetCard card) { return card.kind == kAceKind; }

}  // namespace

std::string StartingHands::WhyNot(const PayTable& table) {
    if (table.type == GameType::kPickEm) {
        return "is played by piles: its one choice compares two cards, and no list of holds says "
               "it";
    }
    if (table.gameId == kSneakPeakGameId) {
        return "shows the first draw card, which changes the worth of every hold";
    }
    if (table.type == GameType::kDoubleDraw && AceLine(table) >= 0) {
        return "has a second draw beside a line that asks for an order of the cards";
    }
    if (!FitsInWholeNumbers(table)) return "pays more on a line than can be reckoned exactly";
    return "";
}

StartingHands::StartingHands(const LineTables& tables, const PayTable& table)
    : tables(tables),
      table(table),
      group(InterchangeableSuits(table)),
      extras(table.type == GameType::kFiveAces ? 1 : table.jokers),
      aceLine(AceLine(table)),
      ordered(table.type == GameType::kAcesBonus),
      parts(PartsFor(table)),
      count(Combinations(table.deckSize, kHandSize)) {
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        pays[i] = LineUnitPay(table, static_cast<int>(i), kFullBet);
    }
    for (std::size_t drawn = 0; drawn <= kHandSize; ++drawn) {
        partsOfDraw[drawn] = parts / DrawsOf(table.deckSize, drawn);
    }
    const auto worthOf = [this](const LineCounts& counts) {
        return std::inner_product(counts.begin(), counts.end(), pays.begin(), std::int64_t{0});
    };
    LineCounts counts{};
    tables.Read<0>(0, counts);
    worth[0] = {worthOf(counts)};
    for (int size = 1; size <= kMaxSetSize; ++size) {
        auto& worths = worth[static_cast<std::size_t>(size)];
        for (std::uint32_t number = 0; number < tables.Classes(size).Count(); ++number) {
            tables.ReadClass(size, number, counts);
            worths.push_back(worthOf(counts));
        }
    }
}

// All ways to give suits to five kinds in rising order, those alike together.
std::vector<StartingHands::SuitClass> StartingHands::ClassesOf(const Kinds& kinds) const {
    std::map<std::array<std::uint8_t, kHandSize>, std::int64_t> counts;
    constexpr unsigned codes = 1U << (2 * kHandSize);
    for (unsigned code = 0; code < codes; ++code) {
        std::array<std::uint8_t, kHandSize> suits{};
        bool valid = true;
        for (std::size_t i = 0; i < kHandSize && valid; ++i) {
            suits[i] = code >> (2 * i) & 3;
            const bool extra = kinds[i] == kExtraKind;
            if (extra) valid = suits[i] == 0;
            if (!extra && i > 0 && kinds[i] == kinds[i - 1]) valid = suits[i] > suits[i - 1];
        }
        if (!valid) continue;
        auto least = suits;
        for (const SuitRenaming& renaming : group) {
            least = std::min(least, Renamed(kinds, suits, renaming));
        }
        ++counts[least];
    }
    const auto jokers = static_cast<int>(std::ranges::count(kinds, kExtraKind));
    const std::int64_t choices = jokers == 0 ? 1 : Combinations(extras, jokers);
    std::vector<SuitClass> classes;
    classes.reserve(counts.size());
    for (const auto& [suits, hands] : counts) classes.push_back({suits, hands * choices});
    return classes;
}

bool StartingHands::ForEach(const Visitor& visit) const {
    // Which suits are alike depends only on which kinds are equal.
    std::map<std::array<bool, std::size_t{2} * kHandSize>, std::vector<SuitClass>> known;
    const int kindCount = extras > 0 ? kMaxKinds : kMaxKinds - 1;
    Kinds kinds{};
    StartingHand hand;
    for (;;) {
        const auto jokers = static_cast<int>(std::ranges::count(kinds, kExtraKind));
        const bool fiveAlike = kinds[0] == kinds[4] && kinds[0] != kExtraKind;
        if (!fiveAlike && jokers <= extras) {
            std::array<bool, std::size_t{2} * kHandSize> pattern{};
            for (std::size_t i = 0; i < kHandSize; ++i) {
                pattern[i] = i > 0 && kinds[i] == kinds[i - 1];
                pattern[kHandSize + i] = kinds[i] == kExtraKind;
            }
            auto [entry, isNew] = known.try_emplace(pattern);
            if (isNew) entry->second = ClassesOf(kinds);
            for (const SuitClass& suits : entry->second) {
                for (std::size_t i = 0; i < kHandSize; ++i) {
                    hand.cards[i] = {kinds[i], suits.suits[i]};
                }
                hand.weight = suits.count;
                ComputeValues(hand);
                if (!visit(hand)) return false;
            }
        }
        // The next multiset in rising order: the last kind that may grow does.
        std::size_t at = kHandSize;
        while (at > 0 && kinds[at - 1] == kindCount - 1) --at;
        if (at == 0) return true;
        std::fill(kinds.begin() + static_cast<std::ptrdiff_t>(at) - 1, kinds.end(),
                  static_cast<std::uint8_t>(kinds[at - 1] + 1));
    }
}

// Inclusion and exclusion, as everywhere: what the hands that hold a hold's cards are worth, less
// what those are that hold one of the discards besides.
void StartingHands::ComputeValues(StartingHand& hand) const {
    std::array<std::uint32_t, kSubsets> keys{};
    auto& values = hand.values;
    values[0] = worth[0][0];
    for (std::size_t subset = 1; subset < kAllCards; ++subset) {
        const auto last = static_cast<std::size_t>(std::bit_width(subset)) - 1;
        const std::size_t others = subset ^ (std::size_t{1} << last);
        const std::size_t size = SizeOf(subset);
        keys[subset] = keys[others] + SetKey::Add(static_cast<int>(size) - 1, hand.cards[last]);
        values[subset] = worth[size][tables.Classes(static_cast<int>(size)).ClassOf(keys[subset])];
    }
    hand.line = tables.LineOfFive(hand.cards);
    values[kAllCards] = pays[LaneOf(hand.line)];
    for (std::size_t bit = 1; bit < kSubsets; bit *= 2) {
        for (std::size_t subset = 0; subset < kSubsets; ++subset) {
            if ((subset & bit) == 0) values[subset] -= values[subset | bit];
        }
    }
    for (std::size_t held = 0; held < kSubsets; ++held) values[held] *= partsOfDraw[DrawnFor(held)];
    if (table.type == GameType::kDoubleDraw) ComputeSecondDraws(hand);
    hand.best = aceLine >= 0 ? BestOverOrders(hand) : std::ranges::max(values);
    if (aceLine >= 0) AddAcesInOrder(hand);
}

void StartingHands::ComputeSecondDraws(StartingHand& hand) const {
    const auto aces = std::ranges::count_if(hand.cards, [this](SetCard card) {
        return tables.ToFace(card).rank == 1 && !tables.IsWild(card);
    });
    if (aces < 2) return;
    KnownCards known;
    for (std::size_t i = 0; i < kHandSize; ++i) known.hand[i] = tables.ToFace(hand.cards[i]);
    HoldAnalysis analysis;
    AnalyzeHand(tables, table, known, kFullBet, 1, analysis);
    for (std::size_t held = 0; held < kAllCards; ++held) {
        HoldMask mask = 0;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            if ((held >> i & 1) != 0) mask |= PositionBit(i);
        }
        const DrawAgainResult& again = analysis.drawAgain[static_cast<std::size_t>(mask)];
        if (again.heldAces < 2) continue;
        const std::int64_t draws = DrawsOf(table.deckSize, DrawnFor(held));
        hand.values[held] = again.worth * (parts / (draws * draws));
    }
}

// What one draw gains that ends in these five, four of them the aces, when they lie in order.
std::int64_t StartingHands::GainBeside(const SortedCards& five) const {
    const int line = tables.LineOfFive(five);
    if (line >= 0 && line < aceLine) return 0;
    return pays[LaneOf(aceLine)] - pays[LaneOf(line)];
}

// The same for all draws of a hold together, each in one order; 0 when none can hold four aces.
std::int64_t StartingHands::AceGain(const StartingHand& hand, std::size_t held) const {
    SortedCards five{};
    for (std::uint8_t suit = 0; suit < kAcesInOrder; ++suit) five[suit] = {kAceKind, suit};
    std::size_t others = 0;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        const bool isHeld = (held >> i & 1) != 0;
        if (IsAceWithPlace(hand.cards[i])) {
            if (!isHeld) return 0;
        } else if (isHeld && others++ == 0) {
            five[kAcesInOrder] = hand.cards[i];
        }
    }
    if (others > 1) return 0;
    if (others == 1) return GainBeside(five);
    std::int64_t gain = 0;
    for (std::uint8_t kind = 1; kind < kMaxKinds; ++kind) {
        const bool extra = kind == kExtraKind;
        const std::uint8_t suits = extra ? 1 : kSuits;
        for (std::uint8_t suit = 0; suit < suits; ++suit) {
            five[kAcesInOrder] = {kind, suit};
            const auto inHand = std::ranges::count(hand.cards, five[kAcesInOrder]);
            const std::int64_t unseen = (extra ? extras : 1) - inHand;
            if (unseen > 0) gain += unseen * GainBeside(five);
        }
    }
    return gain;
}

// Over all orders of the hand and of the draw, the five cards at the end lie in every order as
// often.
void StartingHands::AddAcesInOrder(StartingHand& hand) const {
    for (std::size_t held = ordered ? 0 : kAllCards; held < kSubsets; ++held) {
        const std::int64_t gain = AceGain(hand, held);
        hand.values[held] += gain * kInOrder * (partsOfDraw[DrawnFor(held)] / kOrders);
    }
}

// The mean, over all orders of the hand, of its best hold's worth. The values are those without
// aces in order.
std::int64_t StartingHands::BestOverOrders(const StartingHand& hand) const {
    struct Chance {
        std::size_t held;
        std::int64_t gain;  // parts of a coin, when the cards lie as they have to
    };
    std::vector<Chance> chances;
    const std::int64_t plain = std::ranges::max(hand.values);
    for (std::size_t held = ordered ? 0 : kAllCards; held < kSubsets; ++held) {
        const std::size_t drawn = DrawnFor(held);
        const std::int64_t gain = AceGain(hand, held) * (partsOfDraw[drawn] / kDrawOrders[drawn]);
        if (hand.values[held] + kInOrder * gain > plain) chances.push_back({held, gain});
    }
    if (chances.empty()) return plain;
    std::array<std::size_t, kHandSize> position = {0, 1, 2, 3, 4};  // by card
    std::int64_t sum = 0;
    do {
        std::int64_t best = plain;
        for (const Chance& chance : chances) {
            std::int64_t value = hand.values[chance.held];
            for (const std::size_t first : {0U, 1U}) {
                bool inOrder = true;
                for (std::size_t i = 0; i < kHandSize; ++i) {
                    if ((chance.held >> i & 1) == 0) continue;
                    const std::size_t beside = first == 0 ? kHandSize - 1 : 0;
                    const SetCard card = hand.cards[i];
                    inOrder = inOrder &&
                              position[i] == (IsAceWithPlace(card) ? card.suit + first : beside);
                }
                if (inOrder) value += chance.gain;
            }
            best = std::max(best, value);
        }
        sum += best;
    } while (std::ranges::next_permutation(position).found);
    // Every worth is a multiple of the number of orders.
    return sum / kOrders;
}
