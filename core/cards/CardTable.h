// The card table of a game: which cards its deck holds, in which slot, and which of them are wild.
// A card is dealt, shown and stored as the number of its slot, so a code means something only
// together with the table it was made from.
#pragma once
#include <array>
#include <cstdint>
#include <string>

// 0..56 a card of the deck, kCardBack the card back, kNoCard an empty position.
using CardCode = std::int32_t;

inline constexpr CardCode kNoCard = -1;
inline constexpr CardCode kCardBack = 57;
inline constexpr int kCardSlots = 58;
inline constexpr int kMaxJokers = 5;
inline constexpr int kMaxWildRanks = 5;
inline constexpr int kNoWildRank = -1;

// Suits of a card; 0 is the suit of jokers and of the card back.
enum Suit : int { kNoSuit = 0, kSpades = 1, kHearts = 2, kClubs = 3, kDiamonds = 4, kStars = 5 };

// What a deck is made of: all that the card table needs to know of a pay table.
struct DeckDescription {
    int deckSize = 52;              // slots that are dealt: 52 + jokers, or 53 with the fifth ace
    int jokers = 0;                 // 0..5
    bool fifthAce = false;          // holds the "Ace of Stars"
    bool oneEyedJacksWild = false;  // the jacks of spades and hearts are wild
    bool usesWilds = false;         // clear: no card is wild, jokers included
    std::array<int, kMaxWildRanks> wildRanks{-1, -1, -1, -1, -1};  // 1..13 up to the first -1

    bool operator==(const DeckDescription&) const = default;
};

// What is printed on a card.
struct CardFace {
    int rank = -1;  // 1 ace .. 13 king, 0 a joker, -1 no card
    int suit = kNoSuit;

    bool IsEmpty() const { return rank < 0; }
    bool IsJoker() const { return rank == 0; }

    bool operator==(const CardFace&) const = default;
};

// A slot of the card table; the card back has the face of a joker.
struct CardInfo : CardFace {
    bool wild = false;
    std::string name;  // "Queen of Diamonds", "Joker 2", "Ace of Stars", "Card Back"
};

struct CardTable {
    std::array<CardInfo, kCardSlots> cards;  // 0 .. deckSize-1 are dealt; kCardBack is the back
    int deckSize = 0;
    // Slots of the four aces, each followed by 2..king of its suit. They belong to the card table's
    // data for whoever walks a suit of it; the program itself finds its cards by FindCard.
    CardCode spadesStart = 0;
    CardCode heartsStart = 0;
    CardCode clubsStart = 0;
    CardCode diamondsStart = 0;
    CardCode starsSlot = kNoCard;  // kNoCard without the fifth ace
};

// Fills the slots in the fixed order: Joker 4, spades, Joker 1, hearts, Joker 2, Ace of Stars,
// clubs, Joker 3, diamonds, Joker 5, each joker only when the deck has it. A joker count outside
// 0..5 is taken as the nearest of them, and a deck size that the slots do not fill as the number
// filled.
CardTable BuildCardTable(const DeckDescription& deck);

// Whether a card is wild in the deck's game, by what is printed on it: jokers, single jacks, wild
// ranks.
bool IsWildCard(const DeckDescription& deck, int rank, int suit);

// The face of a card of the deck; no card for any other code.
CardFace FaceOf(const CardTable& table, CardCode code);

// The first dealt card of that rank and suit; kNoCard when there is none.
CardCode FindCard(const CardTable& table, int rank, int suit);
