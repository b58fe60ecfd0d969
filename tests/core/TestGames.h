// Pay tables and cards for the tests of core, in the words of the game.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/analysis/HoldAnalysis.h"
#include "core/cards/CardTable.h"
#include "core/cards/CardText.h"
#include "core/cards/Deck.h"
#include "core/eval/HandEvaluator.h"
#include "core/paytable/PayTable.h"

using enum HandRank;

struct LineTraits {
    std::vector<int> quads;
    std::vector<int> kickers;
};

inline PayLine Natural(HandRank rank, int payout, const LineTraits& traits = {}) {
    PayLine line;
    line.rank = rank;
    line.payout = payout;
    line.maxPayout = rank == kRoyalFlush ? 4000 : payout * 5;
    line.bonusQuads = traits.quads;
    line.trailers = traits.kickers;
    return line;
}

inline PayLine Wild(HandRank rank, int payout, const LineTraits& traits = {}) {
    PayLine line = Natural(rank, payout, traits);
    line.wildsOK = true;
    return line;
}

inline PayTable JacksOrBetter() {
    PayTable table;
    table.gameId = 300;
    table.minPair = 11;
    table.lines = {
        Natural(kRoyalFlush, 250), Natural(kStraightFlush, 50), Natural(kFourOfAKind, 25),
        Natural(kFullHouse, 9),    Natural(kFlush, 6),          Natural(kStraight, 4),
        Natural(kThreeOfAKind, 3), Natural(kTwoPair, 2),        Natural(kOnePair, 1)};
    return table;
}

inline PayTable WithLine(PayTable table, PayLine line, std::size_t at = 0) {
    table.lines.insert(table.lines.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
    return table;
}

// Kickers above the plain lines of the same quads.
inline PayTable DoubleDoubleBonus() {
    PayTable table = JacksOrBetter();
    table.lines[2] = Natural(kFourOfAKind, 50);
    table = WithLine(table, Natural(kBonusFourOfAKind, 80, {{2, 3, 4}, {}}), 2);
    table = WithLine(table, Natural(kBonusFourOfAKind, 160, {{1}, {}}), 2);
    table = WithLine(table, Natural(kBonusFourOfAKind, 160, {{2, 3, 4}, {1, 2, 3, 4}}), 2);
    return WithLine(table, Natural(kBonusFourOfAKind, 400, {{1}, {2, 3, 4}}), 2);
}

inline PayTable DeucesWild() {
    PayTable table;
    table.gameId = 330;
    table.usesWilds = true;
    table.wildRanks = {2, -1, -1, -1, -1};
    table.lines = {Natural(kRoyalFlush, 250), Wild(kFourWilds, 200),   Wild(kWildRoyalFlush, 25),
                   Wild(kFiveOfAKind, 15),    Wild(kStraightFlush, 9), Wild(kFourOfAKind, 5),
                   Wild(kFullHouse, 3),       Wild(kFlush, 2),         Wild(kStraight, 2),
                   Wild(kThreeOfAKind, 1)};
    return table;
}

// Natural lines of every shape among the wild ones, so that hands are looked at both ways.
inline PayTable DeucesDeluxe() {
    PayTable table = DeucesWild();
    table.lines = {Natural(kRoyalFlush, 250), Wild(kFourWilds, 200, {{2}, {1, 3}}),
                   Wild(kFourWilds, 100),     Natural(kStraightFlush, 50),
                   Wild(kWildRoyalFlush, 25), Wild(kFiveOfAKindWithOneWild, 18),
                   Natural(kFourOfAKind, 20), Wild(kBonusFiveOfAKind, 17, {{1, 3}, {}}),
                   Wild(kFiveOfAKind, 15),    Natural(kFullHouse, 10),
                   Wild(kStraightFlush, 9),   Natural(kFlush, 5),
                   Natural(kStraight, 4),     Wild(kBonusFourOfAKind, 4, {{1, 13}, {5, 6}}),
                   Wild(kThreeOfAKind, 1)};
    return table;
}

inline PayTable JokerPoker(int jokers) {
    PayTable table = DeucesWild();
    table.gameId = 340;
    table.wildRanks = {-1, -1, -1, -1, -1};
    table.jokers = jokers;
    table.deckSize = 52 + jokers;
    table.minPair = 13;
    table.lines[1] = Wild(kFiveWilds, 500);
    table.lines.push_back(Wild(kTwoPair, 1));
    table.lines.push_back(Wild(kOnePair, 1));
    return table;
}

inline PayTable DeucesAndJoker() {
    PayTable table = JokerPoker(1);
    table.gameId = 331;
    table.wildRanks = {2, -1, -1, -1, -1};
    return WithLine(table, Wild(kFourWilds, 25, {{2}, {}}), 2);
}

inline PayTable OneEyedJacks() {
    PayTable table = DeucesWild();
    table.gameId = 317;
    table.type = GameType::kOneEyedJacks;
    table.wildRanks = {-1, -1, -1, -1, -1};
    table.minPair = 11;
    table.lines = {Natural(kRoyalFlush, 250), Wild(kWildRoyalFlush, 180),
                   Wild(kFiveOfAKind, 80),    Natural(kStraightFlush, 60),
                   Wild(kStraightFlush, 50),  Natural(kFourOfAKind, 20),
                   Wild(kFourOfAKind, 15),    Wild(kFullHouse, 5),
                   Natural(kFlush, 4),        Wild(kFlush, 3),
                   Wild(kStraight, 2),        Wild(kThreeOfAKind, 1),
                   Wild(kOnePair, 1)};
    return table;
}

inline PayTable FiveAces() {
    PayTable table = JacksOrBetter();
    table.gameId = 313;
    table.type = GameType::kFiveAces;
    table.deckSize = 53;
    return WithLine(table, Natural(kBonusFiveOfAKind, 800, {{1}, {}}), 1);
}

inline PayTable PickEm() {
    PayTable table = JacksOrBetter();
    table.gameId = 350;
    table.type = GameType::kPickEm;
    table.minPair = 9;
    return table;
}

inline PayTable SneakPeak() {
    PayTable table = DoubleDoubleBonus();
    table.gameId = kSneakPeakGameId;
    return table;
}

// Four aces in suit order pay most; beside a deuce the same aces are worth more in any order.
inline PayTable AcesBonus() {
    PayTable table = JacksOrBetter();
    table.gameId = 316;
    table.type = GameType::kAcesBonus;
    table = WithLine(table, Natural(kFourAcesInOrder, 800), 1);
    return WithLine(table, Natural(kBonusFourOfAKind, 900, {{1}, {2}}), 1);
}

inline PayTable DoubleDraw() {
    PayTable table = JacksOrBetter();
    table.gameId = 318;
    table.type = GameType::kDoubleDraw;
    return table;
}

inline std::vector<CardCode> Cards(const PayTable& table, std::string_view text,
                                   std::size_t count) {
    const auto parsed = ParseCards(text, BuildCardTable(DeckOf(table)), count);
    EXPECT_EQ(parsed.problem, "") << text;
    return parsed.cards;
}

// The next deal takes these cards, and after them those drawn.
inline void StackDeck(Deck& deck, const PayTable& table, std::string_view cards,
                      std::size_t count) {
    auto next = deck.order.begin();
    for (const CardCode card : Cards(table, cards, count)) {
        std::iter_swap(next, std::find(next, deck.order.begin() + deck.table.deckSize, card));
        ++next;
    }
    deck.dealtFrom = false;
}

// The next double up's first card is higher (1), lower (-1) than the dealer's, or of its value (0).
inline void DecideDuel(Deck& deck, int wanted) {
    for (std::uint32_t seed = 1;; ++seed) {
        deck.random.RandomInit(seed);
        Deck ahead = deck;
        ahead.Shuffle(5);
        const auto value = [&](std::size_t at) {
            const int rank = deck.table.cards[static_cast<std::size_t>(ahead.order[at])].rank;
            return rank == 1 ? 14 : rank;
        };
        const int difference = value(0) - value(4);
        if ((difference > 0) - (difference < 0) == wanted) return;
    }
}

inline Hand DealtHand(const PayTable& table, std::string_view text) {
    return FacesOf(BuildCardTable(DeckOf(table)), Cards(table, text, kHandSize));
}

// Every choice of so many cards of the deck, each in rising order.
template <class Each>
void ForEachChoice(const CardTable& deck, std::size_t count, const Each& each) {
    std::vector<CardCode> cards(count);
    std::iota(cards.begin(), cards.end(), 0);
    for (;;) {
        each(cards);
        const int last = deck.deckSize - static_cast<int>(count);
        std::size_t i = count;
        while (i > 0 && cards[i - 1] == last + static_cast<int>(i) - 1) --i;
        if (i == 0) return;
        ++cards[i - 1];
        for (; i < count; ++i) cards[i] = cards[i - 1] + 1;
    }
}

// The cards that an analysis wants to know of a text: four in Pick 'Em, six in Sneak Peak Poker.
inline KnownCards Known(const PayTable& table, std::string_view text) {
    const bool pickEm = table.type == GameType::kPickEm;
    const bool sneakPeak = table.gameId == kSneakPeakGameId;
    const std::size_t count = pickEm ? 4 : sneakPeak ? 6 : kHandSize;
    const CardTable deck = BuildCardTable(DeckOf(table));
    const auto cards = Cards(table, text, count);
    const std::size_t inHand = pickEm ? 3 : kHandSize;
    const CardFace next = count == kHandSize ? CardFace() : FaceOf(deck, cards.at(inHand));
    return {FacesOf(deck, std::span(cards).first(inHand)), next};
}

// Five cards and a first draw card, which most games do not look at.
template <class Random>
KnownCards RandomHand(const CardTable& deck, Random& random) {
    std::vector<CardCode> cards(static_cast<std::size_t>(deck.deckSize));
    std::iota(cards.begin(), cards.end(), 0);
    std::shuffle(cards.begin(), cards.end(), random);
    return {FacesOf(deck, cards), FaceOf(deck, cards[kHandSize])};
}

inline HoldAnalysis Analyzed(const PayTable& table, std::string_view text, int bet = 5,
                             double coin = 1) {
    HoldAnalysis analysis;
    AnalyzeHand(LineTables(table), table, Known(table, text), bet, coin, analysis);
    return analysis;
}
