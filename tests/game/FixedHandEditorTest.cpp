#include "game/engine/FixedHandEditor.h"

#include <gtest/gtest.h>

#include "tests/game/TestMachine.h"

namespace {

using Codes = std::array<CardCode, 5>;

// The places as a person writes cards, "__" an empty one; "AH 2S __ W KD".
std::string Placed(const FixedHandEditor& editor) {
    std::string text;
    for (int place = 0; place < kPlaces; ++place) {
        const CardFace card = editor.At(place);
        if (place > 0) text += ' ';
        text += card.IsEmpty()   ? "__"
                : card.IsJoker() ? "W"
                                 : std::string{"A23456789TJQK"[card.rank - 1], SuitChar(card.suit)};
    }
    return text;
}

struct FixedHandEditorTest : testing::Test, TestMachine {};

constexpr std::string_view kDealt = "AS KD TC 9H 2S 3S 4S 5S 6S 7S";

TEST_F(FixedHandEditorTest, OpensWithTheHandLastDealtWhoseCurrentCardIsReplaced) {
    Deal(kDealt);
    FixedHandEditor editor(engine);
    EXPECT_EQ(Placed(editor), "AS KD TC 9H 2S");
    EXPECT_EQ(editor.DrawCard(4), (CardFace{7, kSpades}));
    EXPECT_TRUE(editor.IsFree(kSpades, 3)) << "replacements stay in the grid";
    EXPECT_FALSE(editor.IsFree(kStars, 1)) << "not in this deck";
    editor.ClickCard(kHearts, 12);
    EXPECT_EQ(Placed(editor), "AS KD TC 9H QH");
    EXPECT_TRUE(editor.IsFree(kSpades, 2));
    editor.ClickCard(kSpades, 1);
    EXPECT_EQ(Placed(editor), "AS KD TC 9H QH") << "a card in a place is out of the grid";
}

TEST_F(FixedHandEditorTest, CardsFillEmptyPlacesInTurnAroundTheEnd) {
    FixedHandEditor editor(engine);
    editor.Clear();
    editor.ClickPlace(3);
    for (int rank = 2; rank <= 4; ++rank) editor.ClickCard(kClubs, rank);
    EXPECT_EQ(editor.CurrentPlace(), 1);
    editor.ClickPlace(4);
    EXPECT_EQ(Placed(editor), "4C __ __ 2C __");
    editor.ClickPlace(5);
    editor.ClickPlace(-1);
    EXPECT_EQ(editor.CurrentPlace(), 4);
}

TEST_F(FixedHandEditorTest, OnlyApplyChangesTheEngine) {
    Deal(kDealt);
    const Statistics before = engine.statistics;
    FixedHandEditor editor(engine);
    editor.ClickPlace(1);
    editor.ClickCard(kDiamonds, 1);
    editor.ClickPlace(3);
    EXPECT_EQ(engine.statistics, before);
    EXPECT_FALSE(engine.fixedHand);
    editor.Apply();
    EXPECT_EQ(engine.statistics.setCards, (Codes{0, 39, 35, kNoCard, 1}));
    editor.Clear();
    editor.LastDealt();
    EXPECT_EQ(Placed(editor), "AS AD TC __ 2S");
    EXPECT_EQ(editor.CurrentPlace(), 3) << "the first empty place after the last card";
}

TEST_F(FixedHandEditorTest, JokersAreTakenAndGivenBackFromTheFirst) {
    Play("2 Joker Poker", 344);
    FixedHandEditor editor(engine);
    editor.Clear();
    for (int click = 0; click < 3; ++click) editor.ClickJoker();
    EXPECT_EQ(Placed(editor), "W W __ __ __") << "there is no third one";
    editor.ClickPlace(1);
    EXPECT_TRUE(editor.IsJokerFree(0) && !editor.IsJokerFree(1) && !editor.IsJokerFree(2));
    editor.ClickJoker();
    editor.Apply();
    const auto& cards = engine.statistics.setCards;
    EXPECT_EQ(cards, (Codes{13, 27, kNoCard, kNoCard, kNoCard})) << "Joker 1 and Joker 2";
}

TEST_F(FixedHandEditorTest, TheFifthAceIsInItsOwnGameOnly) {
    Play("5 Aces Bonus Poker", 313);
    FixedHandEditor editor(engine);
    editor.Clear();
    editor.ClickCard(kStars, 2);
    editor.ClickCard(kStars, 1);
    EXPECT_EQ(Placed(editor), "A$ __ __ __ __");
    editor.Apply();
    EXPECT_EQ(engine.statistics.setCards[0], engine.deck.table.starsSlot);
}

TEST_F(FixedHandEditorTest, PickEmHasNoThirdPlace) {
    Play("Pick Em Poker", 350);
    Deal(kDealt);
    FixedHandEditor editor(engine);
    EXPECT_EQ(Placed(editor), "AS KD __ TC 3S") << "the tops of the two piles";
    editor.Clear();
    editor.ClickPlace(kPickEmGap);
    EXPECT_EQ(editor.CurrentPlace(), 0);
    for (int rank = 6; rank <= 10; ++rank) editor.ClickCard(kHearts, rank);
    EXPECT_EQ(Placed(editor), "6H 7H __ 8H TH");
    Statistics expected = engine.statistics;
    expected.setCards[0] = 18, expected.setCards[1] = 19, expected.setCards[2] = 20;
    expected.setDraws[0] = 22;
    editor.Apply();
    EXPECT_EQ(engine.statistics, expected) << "the cards under the piles stay";
}

TEST_F(FixedHandEditorTest, AHandThatNoDeckHasLeavesPlacesEmpty) {
    engine.statistics.setCards = {7, 7, kCardBack, -5, 1000};
    engine.statistics.setDraws = {52, kCardBack, -9, 7, kNoCard};
    const FixedHandEditor editor(engine);
    EXPECT_EQ(Placed(editor), "8S __ __ __ __");
    EXPECT_TRUE(editor.DrawCard(0).IsEmpty());
    EXPECT_EQ(editor.DrawCard(3), (CardFace{8, kSpades}));
}

}  // namespace
