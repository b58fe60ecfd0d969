#include "game/engine/FixedHandEditor.h"

#include <algorithm>

#include "game/engine/GameEngine.h"

namespace {

bool IsPlace(int place) { return place >= 0 && place < kPlaces; }

// In slot order; the jokers of a hand take the first ones, each another.
CardCode FindJoker(const CardTable& table, std::ptrdiff_t number) {
    for (CardCode slot = 0; slot < table.deckSize; ++slot) {
        if (table.cards[static_cast<std::size_t>(slot)].rank == 0 && number-- == 0) return slot;
    }
    return kNoCard;
}

}  // namespace

FixedHandEditor::FixedHandEditor(GameEngine& engine) : engine(engine) { LastDealt(); }

bool FixedHandEditor::HasStars() const { return engine.deck.table.starsSlot != kNoCard; }
bool FixedHandEditor::IsPickEm() const { return ::IsPickEm(engine); }
int FixedHandEditor::JokerCount() const {
    return std::clamp(engine.payTable.jokers, 0, kMaxJokers);
}

bool FixedHandEditor::HasPlace(int place) const {
    return IsPlace(place) && !(IsPickEm() && place == kPickEmGap);
}

CardFace FixedHandEditor::At(int place) const {
    return IsPlace(place) ? places[static_cast<std::size_t>(place)] : CardFace{};
}

CardFace FixedHandEditor::DrawCard(int position) const {
    return IsPlace(position) ? draws[static_cast<std::size_t>(position)] : CardFace{};
}

bool FixedHandEditor::IsFree(int suit, int rank) const {
    if (suit < kSpades || suit > kStars || rank < 1 || rank > kCardRanks) return false;
    if (suit == kStars && (rank != 1 || !HasStars())) return false;
    return !used[static_cast<std::size_t>(suit - 1)][static_cast<std::size_t>(rank - 1)];
}

bool FixedHandEditor::IsJokerFree(int joker) const {
    return joker >= 0 && joker < JokerCount() && !jokersUsed[static_cast<std::size_t>(joker)];
}

void FixedHandEditor::ClickCard(int suit, int rank) {
    if (!IsFree(suit, rank)) return;
    ReturnCurrent();
    used[static_cast<std::size_t>(suit - 1)][static_cast<std::size_t>(rank - 1)] = true;
    Fill({rank, suit});
}

void FixedHandEditor::ClickJoker() {
    const auto end = jokersUsed.begin() + JokerCount();
    if (std::find(jokersUsed.begin(), end, false) == end) return;
    ReturnCurrent();
    *std::find(jokersUsed.begin(), end, false) = true;
    Fill({0, kNoSuit});
}

void FixedHandEditor::ClickPlace(int place) {
    if (!HasPlace(place)) return;
    current = place;
    ReturnCurrent();
}

void FixedHandEditor::Clear() {
    places = {};
    used = {};
    jokersUsed = {};
    current = 0;
}

void FixedHandEditor::LastDealt() {
    Clear();
    const HandCards& replacements = engine.statistics.setDraws;
    for (int place = 0; place < kPlaces; ++place) {
        if (HasPlace(place)) Put(place, CodeInEngine(place));
    }
    draws = FacesOf(engine.deck.table, replacements);
}

void FixedHandEditor::Apply() const {
    for (int place = 0; place < kPlaces; ++place) {
        if (HasPlace(place)) CodeInEngine(place) = CodeAt(static_cast<std::size_t>(place));
    }
    engine.fixedHand = true;
}

CardCode& FixedHandEditor::CodeInEngine(int place) const {
    if (IsPickEm() && place == kPlaces - 1) return engine.statistics.setDraws[0];
    const int card = IsPickEm() && place > kPickEmGap ? place - 1 : place;
    return engine.statistics.setCards[static_cast<std::size_t>(card)];
}

CardCode FixedHandEditor::CodeAt(std::size_t place) const {
    const CardFace& card = places[place];
    const CardTable& table = engine.deck.table;
    if (card.IsEmpty()) return kNoCard;
    if (!card.IsJoker()) return FindCard(table, card.rank, card.suit);
    const auto* end = places.begin() + place;
    return FindJoker(table, std::count_if(places.begin(), end,
                                          [](const CardFace& before) { return before.IsJoker(); }));
}

void FixedHandEditor::Put(int place, CardCode code) {
    const CardFace card = FaceOf(engine.deck.table, code);
    if (card.IsEmpty()) return;
    current = place;
    if (card.IsJoker()) {
        ClickJoker();
    } else {
        ClickCard(card.suit, card.rank);
    }
}

void FixedHandEditor::Fill(CardFace card) {
    places[static_cast<std::size_t>(current)] = card;
    Advance();
}

void FixedHandEditor::ReturnCurrent() {
    CardFace& card = places[static_cast<std::size_t>(current)];
    if (card.IsJoker()) {
        *std::ranges::find(jokersUsed, true) = false;
    } else if (!card.IsEmpty()) {
        used[static_cast<std::size_t>(card.suit - 1)][static_cast<std::size_t>(card.rank - 1)] =
            false;
    }
    card = {};
}

void FixedHandEditor::Advance() {
    for (int step = 1; step < kPlaces; ++step) {
        const int next = (current + step) % kPlaces;
        if (HasPlace(next) && At(next).IsEmpty()) {
            current = next;
            return;
        }
    }
}
