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
#include "core/profile/ProfileFile.h"

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

// As the program is shipped with it.
inline PayTable Shipped(int gameId, std::string_view name) {
    ProfileFile file;
    return LoadPayTable({file, TOLVANE_DATA_FOLDER "/Tolvane.ini"}, {gameId, std::string(name)},
                        "");
}

inline PayTable JacksOrBetter() { return Shipped(300, "Jacks or Better"); }
// Kickers above the plain lines of the same quads.
inline PayTable DoubleDoubleBonus() { return Shipped(303, "Double Double Bonus Poker"); }
inline PayTable DeucesWild() { return Shipped(330, "Deuces Wild"); }
inline PayTable DeucesAndJoker() { return Shipped(331, "Deuces and Joker Wild"); }

inline PayTable WithLine(PayTable table, PayLine line, std::size_t at = 0) {
    table.lines.insert(table.lines.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
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

// Natural lines beside wild ones of the same rank.
inline PayTable OneEyedJacks() {
    PayTable table = Shipped(317, "One-Eyed Jacks");
    table.minPair = 11;
    table.lines.back() = Wild(kOnePair, 1);
    table = WithLine(table, Natural(kFlush, 4), 6);
    table = WithLine(table, Natural(kFourOfAKind, 20), 4);
    return WithLine(table, Natural(kStraightFlush, 60), 3);
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
