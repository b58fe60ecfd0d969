#include "core/cards/CardTable.h"

#include <algorithm>

namespace {

constexpr std::array<const char*, 14> kRankWords = {"",  "Ace", "2", "3",  "4",    "5",     "6",
                                                    "7", "8",   "9", "10", "Jack", "Queen", "King"};
constexpr std::array<const char*, 5> kSuitWords = {"", "Spades", "Hearts", "Clubs", "Diamonds"};
constexpr int kJack = 11;

// Puts cards into one slot after the other.
class SlotFiller {
  public:
    explicit SlotFiller(CardTable& table) : table(table) {}

    CardCode Add(int rank, int suit, std::string name) {
        auto& card = table.cards[static_cast<std::size_t>(next)];
        card = {{rank, suit}, false, std::move(name)};
        return next++;
    }

    void AddJoker(int number) { Add(0, kNoSuit, "Joker " + std::to_string(number)); }

    CardCode AddSuit(int suit) {
        const CardCode start = next;
        for (std::size_t rank = 1; rank <= 13; ++rank) {
            Add(static_cast<int>(rank), suit,
                std::string(kRankWords[rank]) + " of " +
                    kSuitWords[static_cast<std::size_t>(suit)]);
        }
        return start;
    }

    int Count() const { return next; }

  private:
    CardTable& table;
    CardCode next = 0;
};

}  // namespace

CardTable BuildCardTable(const DeckDescription& deck) {
    CardTable table;
    SlotFiller slots(table);
    const int jokers = std::clamp(deck.jokers, 0, kMaxJokers);

    if (jokers >= 4) slots.AddJoker(4);
    table.spadesStart = slots.AddSuit(kSpades);
    if (jokers >= 1) slots.AddJoker(1);
    table.heartsStart = slots.AddSuit(kHearts);
    if (jokers >= 2) slots.AddJoker(2);
    if (deck.fifthAce) table.starsSlot = slots.Add(1, kStars, "Ace of Stars");
    table.clubsStart = slots.AddSuit(kClubs);
    if (jokers >= 3) slots.AddJoker(3);
    table.diamondsStart = slots.AddSuit(kDiamonds);
    // With the fifth ace and five jokers the 58th card would lie where the back is.
    if (jokers == 5 && slots.Count() < kCardBack) slots.AddJoker(5);

    table.deckSize = std::clamp(deck.deckSize, 0, slots.Count());
    table.cards[kCardBack] = {{0, kNoSuit}, false, "Card Back"};
    for (int slot = 0; slot < table.deckSize; ++slot) {
        auto& card = table.cards[static_cast<std::size_t>(slot)];
        card.wild = IsWildCard(deck, card.rank, card.suit);
    }
    return table;
}

bool IsWildCard(const DeckDescription& deck, int rank, int suit) {
    if (!deck.usesWilds) return false;
    if (rank == 0) return true;
    const bool oneEyed = rank == kJack && (suit == kSpades || suit == kHearts);
    if (deck.oneEyedJacksWild && oneEyed) return true;
    const auto end = std::ranges::find(deck.wildRanks, -1);
    return std::find(deck.wildRanks.begin(), end, rank) != end;
}

CardFace FaceOf(const CardTable& table, CardCode code) {
    if (code < 0 || code >= table.deckSize) return {};
    return table.cards[static_cast<std::size_t>(code)];
}

CardCode FindCard(const CardTable& table, int rank, int suit) {
    for (CardCode slot = 0; slot < table.deckSize; ++slot) {
        const auto& card = table.cards[static_cast<std::size_t>(slot)];
        if (card.rank == rank && card.suit == suit) return slot;
    }
    return kNoCard;
}
