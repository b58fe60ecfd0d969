// The deck of the active game: its card table, and the order in which its cards are dealt. The
// order is kept shuffled by one pass after the other while nothing else happens; a deal takes the
// cards from its top, and none is made twice from the same order.
#pragma once
#include <array>
#include <cstdint>
#include <span>

#include "core/cards/CardTable.h"
#include "core/cards/Random.h"

// The time of the wall clock, in whole seconds since 1970.
std::int64_t SystemSeconds();

struct Deck {
    CardTable table;
    std::array<CardCode, kCardSlots> order{};  // 0 .. deckSize-1 are the cards
    CombinedRandom random;
    std::int32_t shufflePasses = 0;           // since the last seeding
    bool dealtFrom = false;                   // since the top was last drawn or the deck built
    std::int64_t (*clock)() = SystemSeconds;  // what seeds the generator

    // Makes a fresh card table, seeds the generator from the clock and shuffles ten passes.
    void Build(const DeckDescription& deck);

    void SeedFromClock();

    // Each pass exchanges every position but the last with one drawn from the whole deck. That
    // alone is not even; it is the many passes that make it so. After 200,000,000 passes the
    // generator is seeded anew.
    void Shuffle(int passes);

    // Draws the first cards of the order anew, each from all that are left: every choice of them,
    // in every order, is equally likely.
    void DrawTop(std::size_t count);

    // The first cards of the order, at most all, as they lie. They have been dealt then, and a few
    // passes do not make up for it: after one, a card comes again 0.4 to 1.3 times as often as it
    // should. So a hand dealt from such an order draws its cards first.
    std::span<const CardCode> TakeTop(std::size_t count);

    // A card that is none of the excluded ones. At most kMaxExcluded of them may be given: the
    // smallest deck has 52 cards, so there always is another.
    static constexpr std::size_t kMaxExcluded = 10;
    CardCode DrawRandomCard(std::span<const CardCode> excluded);
};
