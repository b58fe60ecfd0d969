#include "core/analysis/LineTables.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::int8_t kNotYet = -2;
constexpr unsigned kJokerBit = 1U << 4;
constexpr unsigned kStarsBit = 1U << 5;
constexpr std::size_t kSuitsAgree = 7;  // the bits of ViewNumber that suits decide
constexpr unsigned kRedBits = 0b1010;   // hearts and diamonds
constexpr unsigned kBlackBits = 0b0101;

bool IsRed(std::size_t suit) { return suit % 2 == 1; }

bool KeepsWildCards(const SuitRenaming& renaming, const DeckDescription& deck) {
    for (int rank = 1; rank <= 13; ++rank) {
        for (int suit = 0; suit < kSuits; ++suit) {
            const int renamed = renaming[static_cast<std::size_t>(suit)];
            if (IsWildCard(deck, rank, suit + 1) != IsWildCard(deck, rank, renamed + 1))
                return false;
        }
    }
    return true;
}

// Whether cards of one colour stay so. Red and black may change places as a whole.
bool KeepsColours(const SuitRenaming& renaming) {
    const auto stays = [&renaming](std::size_t suit) {
        return IsRed(suit) == IsRed(renaming[suit]);
    };
    return stays(0) == stays(1) && stays(1) == stays(2) && stays(2) == stays(3);
}

// A copy of the table without the lines that a set cannot be paid on.
PayTable WithoutPassedOver(const PayTable& table, std::vector<int>& lineNumbers) {
    PayTable kept = table;
    kept.lines.clear();
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        const HandRank rank = table.lines[i].rank;
        if (rank == HandRank::kFiveCardCharlie || rank == HandRank::kFourAcesInOrder) continue;
        kept.lines.push_back(table.lines[i]);
        lineNumbers.push_back(static_cast<int>(i));
    }
    return kept;
}

std::uint32_t KeyOf(const SortedCards& cards, int size) {
    std::uint32_t key = 0;
    for (int i = 0; i < size; ++i) key += SetKey::Add(i, cards[static_cast<std::size_t>(i)]);
    return key;
}

// The sorted set with one card more, put into its place.
SortedCards WithCard(std::span<const SetCard> cards, SetCard card) {
    SortedCards larger{};
    std::ranges::copy(cards, larger.begin());
    InsertCard(larger, cards.size(), card);
    return larger;
}

}  // namespace

SuitGroup InterchangeableSuits(const PayTable& table) {
    const DeckDescription deck = DeckOf(table);
    const bool coloursCount = HasLine(table, HandRank::kAllRedOrBlack);
    SuitGroup group;
    SuitRenaming renaming{0, 1, 2, 3};
    do {
        if (KeepsWildCards(renaming, deck) && (!coloursCount || KeepsColours(renaming))) {
            group.push_back(renaming);
        }
    } while (std::ranges::next_permutation(renaming).found);
    return group;
}

// The evaluator's side of the work: cards in, line number of the whole table out.
struct LineTables::Building {
    const LineTables& tables;
    std::vector<int> lineNumbers;
    PayTable lines;

    Building(const LineTables& tables, const PayTable& table)
        : tables(tables), lines(WithoutPassedOver(table, lineNumbers)) {}

    EvaluatedHand Deal(std::span<const SetCard> cards) const {
        EvaluatedHand dealt;
        for (std::size_t i = 0; i < cards.size(); ++i) {
            dealt.hand[i] = tables.ToFace(cards[i]);
            dealt.wild[i] = tables.IsWild(cards[i]);
        }
        return dealt;
    }

    int Classify(EvaluatedHand& evaluated) const {
        SaveFeatures(evaluated);
        const int line = ClassifyHand(evaluated, lines, 1).line;
        return line < 0 ? -1 : lineNumbers[static_cast<std::size_t>(line)];
    }

    int LineOf(std::span<const SetCard> five) const {
        EvaluatedHand evaluated = Deal(five);
        ComputeFeatures(evaluated, lines);
        return Classify(evaluated);
    }

    int LineOfHeld(std::span<const SetCard> held) const {
        EvaluatedHand evaluated = Deal(held);
        const HoldMask firstOnes = kStandPat << (kHandSize - static_cast<int>(held.size()));
        ComputePartialFeatures(evaluated, lines, firstOnes & kStandPat, lines.usesWilds);
        return Classify(evaluated);
    }
};

LineTables::LineTables(const PayTable& table) {
    DescribeDeck(table);
    SetMeaning meaning{extras, InterchangeableSuits(table), {}, {}};
    meaning.suitsOf = [this](std::span<const SetCard> cards) { return SuitState(cards); };
    for (std::uint8_t kind = 0; kind < kMaxKinds; ++kind) meaning.marks[kind] = WildSuits(kind);
    firstRow[1] = 1;
    for (std::size_t size = 1; size <= kMaxSetSize; ++size) {
        classes.emplace_back(static_cast<int>(size), meaning);
        firstRow[size + 1] = firstRow[size] + classes.back().Count();
    }

    const Building building(*this, table);
    CountFours(building);
    CountFromLarger<3>(threes);
    CountFromLarger<2>(twos);
    CountFromLarger<1>(ones);
    Rows<std::uint32_t> all;
    CountFromLarger<0>(all);
    allHands = all.front();
    if (table.type == GameType::kDoubleDraw) ClassifyHeld(building);
}

// Takes down what is known of each card before any hand is classified: whether it is wild, and what
// it adds to the view of a hand. A rank that is wild in all suits, or in none, shows in the ranks
// of a hand already; only wild cards of a rank that is partly wild are counted by themselves.
void LineTables::DescribeDeck(const PayTable& table) {
    const DeckDescription deck = DeckOf(table);
    coloursCount = HasLine(table, HandRank::kAllRedOrBlack);
    deckSize = deck.deckSize;
    extras = deck.fifthAce ? 1 : deck.jokers;
    extraFace = deck.fifthAce ? CardFace{1, kStars} : CardFace{0, kNoSuit};
    kindCount = extras > 0 ? kMaxKinds : kMaxKinds - 1;
    for (std::size_t kind = 0; kind < kMaxKinds; ++kind) {
        const bool extra = kind == kExtraKind;
        const unsigned extraBit = deck.fifthAce ? kStarsBit : kJokerBit;
        for (std::size_t suit = 0; suit < kSuits; ++suit) {
            const int rank = extra ? extraFace.rank : static_cast<int>(kind) + 1;
            wild[kind][suit] = IsWildCard(deck, rank, static_cast<int>(suit) + 1);
        }
        const auto wilds = std::ranges::count(wild[kind], true);
        partlyWild[kind] = wilds > 0 && wilds < kSuits;
        for (std::size_t suit = 0; suit < kSuits; ++suit) {
            SuitView& view = views[kind][suit];
            view.suits = extra ? extraBit : 1U << suit;
            view.naturalSuits = wild[kind][suit] ? 0 : view.suits;
            view.wildByFace = wild[kind][suit] && partlyWild[kind] ? 1 : 0;
        }
    }
}

// Numbers what a view tells: whether all cards have one suit, whether the natural ones have,
// whether all have one colour where a line asks for that, and the wild cards of ranks that are
// partly wild, of which there are at most two. Views of the same number are paid alike.
std::size_t LineTables::ViewNumber(const SuitView& view) const {
    const auto atMostOne = [](unsigned bits) { return (bits & (bits - 1)) == 0; };
    const bool flush = atMostOne(view.suits);
    const bool naturalFlush = atMostOne(view.naturalSuits);
    // Red and black are alike to the one line that looks at colours, and to the renamings of suits.
    const bool oneColour = (view.suits & ~kRedBits) == 0 || (view.suits & ~kBlackBits) == 0;
    return view.wildByFace * 8 + (coloursCount && oneColour ? 4 : 0) + (naturalFlush ? 2 : 0) +
           (flush ? 1 : 0);
}

// What a set's suits mean to the hands that hold it. Of two sets of the same kinds for which it is
// the same, every further card makes the same of both: while all cards, or all natural ones, or all
// colours are one, the suits say which cards go on with that, and once nothing is, none matters.
std::uint32_t LineTables::SuitState(std::span<const SetCard> cards) const {
    SuitView view;
    for (const SetCard card : cards) view = view + CardView(card);
    constexpr std::uint32_t none = 1U << 12;
    const std::uint32_t suits = view.suits | view.naturalSuits << 6;
    const bool matters = (ViewNumber(view) & kSuitsAgree) != 0;
    return view.wildByFace << 13 | (matters ? suits : none);
}

// Counts, for each class of four cards, the lines of all fifth cards there are. The evaluator is
// asked only the first time that a line is met.
void LineTables::CountFours(const Building& building) {
    lineOfFive.assign(MultisetCount(kHandSize, kindCount) * kViews, kNotYet);
    fours.resize(classes[3].Count());
    classes[3].ForEachClass([&](std::uint32_t number, std::span<const SetCard> cards) {
        SuitView view;
        for (const SetCard card : cards) view = view + CardView(card);
        std::array<std::size_t, kSuits> withNatural{};  // the views, by the suit of the fifth card
        for (std::size_t suit = 0; suit < kSuits; ++suit) {
            withNatural[suit] = ViewNumber(view + SuitView{1U << suit, 1U << suit, 0});
        }
        const bool suitsMatter =
            std::ranges::adjacent_find(withNatural, std::not_equal_to()) != withNatural.end();
        auto& row = fours[number];
        const auto add = [&](SetCard card, int copies, std::uint32_t key) {
            const bool natural = card.kind != kExtraKind && !IsWild(card);
            const std::size_t with =
                natural ? withNatural[card.suit] : ViewNumber(view + CardView(card));
            auto& line = lineOfFive[SetKey::Kinds(key) * kViews + with];
            if (line == kNotYet) {
                line = static_cast<std::int8_t>(building.LineOf(WithCard(cards, card)));
            }
            row[LaneOf(line)] = static_cast<std::uint8_t>(row[LaneOf(line)] + copies);
        };
        if (suitsMatter) {
            ForEachFurtherCard(cards, add);
        } else {
            ForEachFurtherCard<true>(cards, add);
        }
    });
}

// Adds up the rows of the sets that are one card larger. A hand that holds the set is met once for
// every card of it outside the set, so the sum is divided by their number.
template <int Size, typename Count>
void LineTables::CountFromLarger(Rows<Count>& rows) const {
    const auto countSet = [this, &rows](std::uint32_t number, std::span<const SetCard> cards) {
        LineCounts sum{};
        ForEachFurtherCard(cards, [&](SetCard, int copies, std::uint32_t key) {
            LineCounts larger;
            Read<Size + 1>(key, larger);
            for (std::size_t lane = 0; lane < kLanes; ++lane) {
                sum[lane] += larger[lane] * static_cast<std::uint32_t>(copies);
            }
        });
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            rows[number][lane] = static_cast<Count>(sum[lane] / (kHandSize - Size));
        }
    };
    if constexpr (Size == 0) {
        rows.resize(1);
        countSet(0, {});
    } else {
        rows.resize(classes[Size - 1].Count());
        classes[Size - 1].ForEachClass(countSet);
    }
}

// Calls visit(card, copies, key) for every card of the deck outside the sorted set, with the key of
// the set that it makes; jokers, which are alike, come as one card and their number. Where suits do
// not matter, so do cards of a kind that are wild together or not at all, with any suit in the key.
template <bool kKindsTogether, typename Visitor>
void LineTables::ForEachFurtherCard(std::span<const SetCard> cards, Visitor visit) const {
    // A card that takes a place moves those behind it by one.
    std::array<std::uint32_t, SetKey::kPlaces> before{};
    std::array<std::uint32_t, SetKey::kPlaces> behind{};
    for (std::size_t i = 0; i < cards.size(); ++i) {
        const auto place = static_cast<int>(i);
        before[i + 1] = before[i] + SetKey::Add(place, cards[i]);
        for (std::size_t at = 0; at <= i; ++at) behind[at] += SetKey::Add(place + 1, cards[i]);
    }
    std::size_t place = 0;
    const auto keyWith = [&](SetCard card) {
        return before[place] + SetKey::Add(static_cast<int>(place), card) + behind[place];
    };
    for (std::uint8_t kind = 0; kind < kExtraKind; ++kind) {
        if (kKindsTogether && !partlyWild[kind]) {
            int free = kSuits;
            for (; place < cards.size() && cards[place].kind == kind; ++place) --free;
            if (free > 0) visit(SetCard{kind, 0}, free, keyWith({kind, 0}));
            continue;
        }
        for (std::uint8_t suit = 0; suit < kSuits; ++suit) {
            const SetCard card{kind, suit};
            if (place < cards.size() && cards[place] == card) {
                ++place;
            } else {
                visit(card, 1, keyWith(card));
            }
        }
    }
    const SetCard extra{kExtraKind, 0};
    const int left = extras - static_cast<int>(cards.size() - place);
    if (left > 0) visit(extra, left, keyWith(extra));
}

// Asks the evaluator for the lines that held cards make by themselves.
void LineTables::ClassifyHeld(const Building& building) {
    for (const SetClasses& sets : classes) {
        auto& lines = heldLines.emplace_back(sets.Count());
        sets.ForEachClass([&](std::uint32_t number, std::span<const SetCard> cards) {
            lines[number] = static_cast<std::int8_t>(building.LineOfHeld(cards));
        });
    }
}

std::uint8_t LineTables::WildSuits(std::uint8_t kind) const {
    unsigned suits = 0;
    for (std::size_t suit = 0; suit < kSuits; ++suit) suits |= wild[kind][suit] ? 1U << suit : 0U;
    return static_cast<std::uint8_t>(suits);
}

bool LineTables::Contains(CardFace face) const {
    if (extras > 0 && face == extraFace) return true;
    return face.rank >= 1 && face.rank <= 13 && face.suit >= kSpades && face.suit <= kDiamonds;
}

SetCard LineTables::ToSetCard(CardFace face) const {
    if (face == extraFace) return {kExtraKind, 0};
    return {static_cast<std::uint8_t>(face.rank - 1), static_cast<std::uint8_t>(face.suit - 1)};
}

CardFace LineTables::ToFace(SetCard card) const {
    return card.kind == kExtraKind ? extraFace : CardFace{card.kind + 1, card.suit + 1};
}

std::size_t LineTables::ViewOf(const SortedCards& cards) const {
    SuitView view;
    for (const SetCard card : cards) view = view + CardView(card);
    return ViewNumber(view);
}

int LineTables::LineOfFive(const SortedCards& cards) const {
    return LinesOfKinds(SetKey::Kinds(KeyOf(cards, kHandSize)))[ViewOf(cards)];
}

int LineTables::LineOfHeld(std::span<const SetCard> cards) const {
    if (heldLines.empty() || cards.empty() || cards.size() > kMaxSetSize) return -1;
    std::uint32_t key = 0;
    for (std::size_t i = 0; i < cards.size(); ++i)
        key += SetKey::Add(static_cast<int>(i), cards[i]);
    return heldLines[cards.size() - 1][classes[cards.size() - 1].ClassOf(key)];
}

std::size_t LineTables::Bytes() const {
    std::size_t bytes = sizeof(*this) + lineOfFive.size() + ones.size() * sizeof(ones[0]) +
                        twos.size() * sizeof(twos[0]) + threes.size() * sizeof(threes[0]) +
                        fours.size() * sizeof(fours[0]);
    for (const auto& sets : classes) bytes += sets.Bytes();
    for (const auto& lines : heldLines) bytes += lines.size();
    return bytes;
}
