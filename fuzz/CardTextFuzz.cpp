// The first byte chooses a deck and how many cards are asked for, the rest is their text. Cards
// that were read are distinct cards of the deck and read back from their own texts; a text that was
// not read has its problem said in one line.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/cards/CardText.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

DeckDescription DeckFrom(unsigned choice) {
    DeckDescription deck;
    deck.jokers = static_cast<int>(choice % 6);
    deck.fifthAce = choice / 6 % 2 == 1;
    deck.deckSize = 52 + deck.jokers + (deck.fifthAce ? 1 : 0);
    return deck;
}

void CheckRead(const ParsedCards& parsed, const CardTable& table, std::size_t count) {
    Require(parsed.cards.size() == count);
    auto sorted = parsed.cards;
    std::ranges::sort(sorted);
    Require(std::ranges::adjacent_find(sorted) == sorted.end());
    Require(sorted.front() >= 0 && sorted.back() < table.deckSize);
    std::string text;
    for (const CardCode card : parsed.cards) text += CardText(table, card) + " ";
    Require(ParseCards(text, table, count).cards == parsed.cards);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const CardTable table = BuildCardTable(DeckFrom(data[0]));
    const std::size_t count = 4 + data[0] / 12 % 3;
    const std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);
    const ParsedCards parsed = ParseCards(text, table, count);
    if (parsed.problem.empty()) {
        CheckRead(parsed, table, count);
    } else {
        Require(parsed.cards.empty());
        Require(parsed.problem.find('\n') == std::string::npos);
    }
    return 0;
}
