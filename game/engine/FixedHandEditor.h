// The fixed hand while it is composed: five places, and the cards and jokers of the deck that are
// not in them. The engine is read when the editor is made and by LastDealt, and changed by Apply
// alone. In Pick 'Em place 2 stays empty: place 3 is the third card of the hand, and place 4 the
// first replacement card, the top of the other pile.
#pragma once
#include <array>

#include "core/cards/Hand.h"

struct GameEngine;

inline constexpr int kPlaces = 5;
inline constexpr int kCardRanks = 13;
inline constexpr int kPickEmGap = 2;  // the place without a card

class FixedHandEditor {
  public:
    // Begins with LastDealt. The engine outlives the editor.
    explicit FixedHandEditor(GameEngine& engine);

    bool HasStars() const;  // the Ace of Stars is in the deck
    bool IsPickEm() const;
    int JokerCount() const;

    // 0..4; a place outside is empty.
    CardFace At(int place) const;
    int CurrentPlace() const { return current; }

    // Whether the card is in no place and may be clicked. False for what is not in the deck.
    bool IsFree(int suit, int rank) const;
    bool IsJokerFree(int joker) const;  // 0..JokerCount()-1

    // The replacement cards, which are only shown.
    CardFace DrawCard(int position) const;

    // A card that is free goes to the current place, the card there back to the deck; the next
    // empty place becomes the current one, around the end, and when there is none the current one
    // stays. A joker is the first that is free. What is not free changes nothing.
    void ClickCard(int suit, int rank);
    void ClickJoker();

    // The place becomes the current one, and its card goes back to the deck. Nothing for a place
    // that the game does not have.
    void ClickPlace(int place);

    void Clear();

    // The engine's fixed hand, which is the last one dealt when none was composed. A card that is
    // not in the deck, or in the hand twice, leaves its place empty.
    void LastDealt();

    // Gives the engine the hand, empty places as kNoCard, and has it dealt from now on.
    void Apply() const;

  private:
    CardCode& CodeInEngine(int place) const;
    CardCode CodeAt(std::size_t place) const;
    void Put(int place, CardCode code);
    void Fill(CardFace card);
    void ReturnCurrent();
    void Advance();
    bool HasPlace(int place) const;

    GameEngine& engine;
    Hand places;
    Hand draws;
    std::array<std::array<bool, kCardRanks>, kStars> used{};  // by suit - 1 and rank - 1
    std::array<bool, kMaxJokers> jokersUsed{};
    int current = 0;
};
