#include "core/cards/Deck.h"

#include <algorithm>
#include <chrono>
#include <numeric>

namespace {

constexpr int kPassesWhenBuilt = 10;
constexpr std::int32_t kPassesPerSeed = 200'000'000;

}  // namespace

std::int64_t SystemSeconds() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::seconds>(now).count();
}

void Deck::Build(const DeckDescription& deck) {
    table = BuildCardTable(deck);
    std::iota(order.begin(), order.end(), 0);
    SeedFromClock();
    Shuffle(kPassesWhenBuilt);
    dealtFrom = false;
}

void Deck::SeedFromClock() {
    random.RandomInit(static_cast<std::uint32_t>(clock()));
    shufflePasses = 0;
}

void Deck::Shuffle(int passes) {
    if (shufflePasses >= kPassesPerSeed) SeedFromClock();
    for (int pass = 0; pass < passes; ++pass) {
        for (std::size_t i = 0; i + 1 < static_cast<std::size_t>(table.deckSize); ++i) {
            const auto j = static_cast<std::size_t>(random.IRandom(0, table.deckSize - 1));
            std::swap(order[i], order[j]);
        }
        ++shufflePasses;
    }
}

void Deck::DrawTop(std::size_t count) {
    const auto cards = static_cast<std::size_t>(table.deckSize);
    for (std::size_t i = 0; i < std::min(count, cards); ++i) {
        const auto j = random.IRandom(static_cast<int>(i), table.deckSize - 1);
        std::swap(order[i], order[static_cast<std::size_t>(j)]);
    }
    dealtFrom = false;
}

std::span<const CardCode> Deck::TakeTop(std::size_t count) {
    dealtFrom = true;
    return std::span(order).first(std::min(count, static_cast<std::size_t>(table.deckSize)));
}

CardCode Deck::DrawRandomCard(std::span<const CardCode> excluded) {
    for (;;) {
        const auto place = static_cast<std::size_t>(random.IRandom(0, table.deckSize - 1));
        const CardCode card = order[place];
        if (std::ranges::find(excluded, card) == excluded.end()) return card;
    }
}
