#include "core/eval/WinningCards.h"

#include <gtest/gtest.h>

#include "core/cards/Random.h"
#include "tests/core/TestGames.h"

namespace {

// "JS JD": those that a hand is lit for.
std::string Lit(const PayTable& table, std::string_view cards) {
    const Hand hand = DealtHand(table, cards);
    const HoldMask lit = WinningCards(hand, table, EvaluateHand(hand, table, 5).line);
    std::string text;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if (!Holds(lit, i)) continue;
        text += (text.empty() ? "" : " ") + std::string(cards.substr(3 * i, 2));
    }
    return text;
}

TEST(WinningCardsTest, PairsAndTheirKindAreTheirCardsAndAllElseIsFive) {
    const PayTable table = DoubleDoubleBonus();
    EXPECT_EQ(Lit(table, "JS 4D JH 9H 2S"), "JS JH");
    EXPECT_EQ(Lit(table, "JS 4D JH 4H 2S"), "JS 4D JH 4H");
    EXPECT_EQ(Lit(table, "4S 4D JH 4H 2S"), "4S 4D 4H");
    EXPECT_EQ(Lit(table, "AS AD JH AH AC"), "AS AD AH AC");
    EXPECT_EQ(Lit(table, "AS AD 3H AH AC"), "AS AD 3H AH AC") << "the kicker pays";
    EXPECT_EQ(Lit(table, "2S 3D 4H 5H 6C"), "2S 3D 4H 5H 6C");
    EXPECT_EQ(Lit(table, "2S 4D JH 9H 2D"), "") << "not paid";
    EXPECT_EQ(Lit(AcesBonus(), "9H AS AH AC AD"), "AS AH AC AD");
    EXPECT_EQ(Lit(DeucesWild(), "2S 3D 3H 9H KS"), "2S 3D 3H");
    EXPECT_EQ(Lit(DeucesWild(), "2S 2D 4H 9H KS"), "2S 2D KS") << "the highest will do";
    EXPECT_EQ(Lit(DeucesWild(), "2S 2D 2H 9H 2C"), "2S 2D 2H 2C");
    EXPECT_EQ(Lit(DeucesDeluxe(), "2S 2D 2H 6H 2C"), "2S 2D 2H 2C");
    EXPECT_EQ(Lit(DeucesDeluxe(), "2S 2D 2H 3H 2C"), "2S 2D 2H 3H 2C");
}

// Paid on that line or on one before it, which is tried earlier because it pays more.
bool KeepsLine(const Hand& hand, const PayTable& table, int line) {
    const int now = EvaluateHand(hand, table, 5).line;
    return now >= 0 && now <= line;
}

// Whatever is drawn for a card that is not lit, the line stays; of a hand without wild cards, any
// card that is lit can be drawn away.
TEST(WinningCardsTest, CardsThatAreNotLitAreNotNeededAndThoseThatAreLitAre) {
    CombinedRandom random;
    random.RandomInit(14);
    for (const PayTable& table :
         {JacksOrBetter(), DoubleDoubleBonus(), DeucesWild(), DeucesAndJoker(), JokerPoker(2),
          Shipped(317, "One-Eyed Jacks"), AcesBonus()}) {
        const CardTable deck = BuildCardTable(DeckOf(table));
        for (int won = 0; won < 400;) {
            std::vector<CardCode> order(static_cast<std::size_t>(deck.deckSize));
            std::iota(order.begin(), order.end(), 0);
            for (std::size_t i = 0; i < kHandSize; ++i) {
                std::swap(order[i], order[static_cast<std::size_t>(
                                        random.IRandom(static_cast<int>(i), deck.deckSize - 1))]);
            }
            const Hand hand = FacesOf(deck, std::span(order).first(kHandSize));
            const int line = EvaluateHand(hand, table, 5).line;
            if (line < 0) continue;
            ++won;
            const HoldMask lit = WinningCards(hand, table, line);
            const bool natural = WithWildFlags(hand, table).wild == WildFlags{};
            for (std::size_t i = 0; i < kHandSize; ++i) {
                bool needed = false;
                for (const CardCode other : std::span(order).subspan(kHandSize)) {
                    Hand changed = hand;
                    changed[i] = FaceOf(deck, other);
                    needed = needed || !KeepsLine(changed, table, line);
                }
                const auto& name = table.lines[static_cast<std::size_t>(line)].description;
                if (!natural && Holds(lit, i)) continue;
                EXPECT_EQ(needed, Holds(lit, i)) << name << " " << i;
            }
        }
    }
}

TEST(WinningCardsTest, APickEmDealIsMadeOfTheTwoCardsAndTheTopsOfThePiles) {
    const PayTable table = Shipped(350, "Pick Em Poker");
    const auto lit = [&](std::string_view two, std::string_view tops) {
        const auto at = [&](std::string_view text) {
            return FaceOf(BuildCardTable(DeckOf(table)), Cards(table, text, 1)[0]);
        };
        EvaluatedHand dealt;
        dealt.hand = {at(two.substr(0, 2)), at(two.substr(3)), at(tops.substr(0, 2)), {}, {}};
        ComputePickEmDealFeatures(dealt, table, at(tops.substr(3)).rank);
        SaveFeatures(dealt);
        const int line = ClassifyHand(dealt, table, 5).line;
        const Hand places = {dealt.hand[0], dealt.hand[1], {}, dealt.hand[2], at(tops.substr(3))};
        return WinningPickEmDeal(places, table, line);
    };
    EXPECT_EQ(lit("KS 9D", "4H KC"), 0b10001);
    EXPECT_EQ(lit("KS KD", "AH AC"), 0b11000) << "the aces are not in one hand";
    EXPECT_EQ(lit("KS KD", "KH AC"), 0b11010);
    EXPECT_EQ(lit("KS 9D", "4H 3C"), 0);
}

}  // namespace
