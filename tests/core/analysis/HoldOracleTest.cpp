// Deals the draws of a hold one by one to the evaluator: slow, obvious, and no counting code
// shared.
#include <algorithm>
#include <bit>

#include "tests/core/TestGames.h"

namespace {

using Counts = std::array<std::int64_t, kMaxPayLines + 1>;  // the last: nothing

// The lines that an analysis passes over, made such that no hand matches them.
PayTable AsAnalyzed(PayTable table, bool ordered) {
    for (PayLine& line : table.lines) {
        if (line.rank == kFiveCardCharlie || (line.rank == kFourAcesInOrder && !ordered)) {
            line.rank = kUnknown;
        }
    }
    return table;
}

class Dealer {
  public:
    // Holds some of the cards; the rest of the seen ones are out of the deck.
    Dealer(const PayTable& table, const std::vector<CardCode>& hand, HoldMask held,
           const std::vector<CardCode>& seen)
        : analyzed(AsAnalyzed(table, Ordered(table) || held == kStandPat)),
          deck(BuildCardTable(DeckOf(table))),
          ordered(Ordered(table)),
          final(hand) {
        for (int position = 0; position < kHandSize; ++position) {
            if (!Holds(held, position)) gaps.push_back(static_cast<std::size_t>(position));
        }
        for (CardCode card = 0; card < deck.deckSize; ++card) {
            if (std::ranges::find(seen, card) == seen.end()) unseen.push_back(card);
        }
    }

    Counts DealEveryDraw() {
        Draw(0, 0);
        return counts;
    }

  private:
    static bool Ordered(const PayTable& table) { return table.type == GameType::kAcesBonus; }

    void Draw(std::size_t gap, std::size_t from) {
        if (gap == gaps.size()) {
            const int line = EvaluateHand(FacesOf(deck, final), analyzed, 5).line;
            ++counts[line < 0 ? kMaxPayLines : static_cast<std::size_t>(line)];
            return;
        }
        for (std::size_t next = ordered ? 0 : from; next < unseen.size(); ++next) {
            const CardCode card = unseen[next];
            const auto before = gaps.begin() + static_cast<std::ptrdiff_t>(gap);
            if (ordered && std::any_of(gaps.begin(), before,
                                       [&](std::size_t at) { return final[at] == card; })) {
                continue;
            }
            final[gaps[gap]] = card;
            Draw(gap + 1, next + 1);
        }
    }

    PayTable analyzed;
    CardTable deck;
    bool ordered;
    std::vector<CardCode> final;
    std::vector<std::size_t> gaps;
    std::vector<CardCode> unseen;
    Counts counts{};
};

Counts CountsOf(const HoldResult& hold) {
    Counts counts{};
    std::ranges::copy(hold.lineCounts, counts.begin());
    counts.back() = hold.nothing;
    return counts;
}

void ExpectHold(const PayTable& table, const HoldAnalysis& analysis, HoldMask mask,
                const Counts& dealt) {
    const HoldResult& hold = analysis.holds[static_cast<std::size_t>(mask)];
    EXPECT_EQ(CountsOf(hold), dealt) << "hold " << mask;
    std::int64_t total = 0;
    double sum = 0;
    for (std::size_t lane = 0; lane < dealt.size(); ++lane) {
        total += dealt[lane];
        sum += static_cast<double>(dealt[lane]) * LineUnitPay(table, static_cast<int>(lane), 5);
    }
    EXPECT_EQ(hold.totalHands, total) << "hold " << mask;
    EXPECT_DOUBLE_EQ(hold.expectedReturn, sum / static_cast<double>(total)) << "hold " << mask;
}

// Every hold that draws at most so many cards.
void ExpectEveryHold(const PayTable& table, std::string_view text, int mostDrawn) {
    SCOPED_TRACE(text);
    const HoldAnalysis analysis = Analyzed(table, text);
    const auto cards = Cards(table, text, kHandSize);
    for (HoldMask mask = 0; mask <= kStandPat; ++mask) {
        if (kHandSize - std::popcount(static_cast<unsigned>(mask)) > mostDrawn) continue;
        ExpectHold(table, analysis, mask, Dealer(table, cards, mask, cards).DealEveryDraw());
    }
}

TEST(HoldOracleTest, EveryLineIsCountedAsDealingEveryDrawCountsIt) {
    PayTable jokersOutOfPlay = JokerPoker(3);
    jokersOutOfPlay.usesWilds = false;
    PayTable aces = AcesBonus();
    aces.type = GameType::kStandard;  // four aces in order are standing pat only
    const PayTable colours = WithLine(JacksOrBetter(), Natural(kAllRedOrBlack, 3), 4);
    const PayTable wildColours = WithLine(OneEyedJacks(), Wild(kAllRedOrBlack, 3), 2);
    const PayTable jokerColours = WithLine(JokerPoker(1), Natural(kAllRedOrBlack, 3), 3);
    const PayTable charlies = WithLine(JacksOrBetter(), Natural(kFiveCardCharlie, 7), 0);
    const std::tuple<PayTable, const char*, int> cases[] = {
        {DoubleDoubleBonus(), "AS AH AC 3D 9S", 5},
        {DoubleDoubleBonus(), "2S 2H AC 3D 4S", 3},
        {JacksOrBetter(), "AS KS QS JS 9S", 3},
        {DeucesWild(), "2S 2H 5C 9D KH", 5},
        {DeucesDeluxe(), "2S AH KC KD QH", 3},
        {DeucesDeluxe(), "2S 2H 2C 2D 3H", 3},
        {DeucesDeluxe(), "3S 4S 5S 6S KH", 3},
        {JokerPoker(1), "W 7S 8S 9S 2D", 4},
        {JokerPoker(2), "W W KS KH 3C", 3},
        {JokerPoker(5), "AS KS 7D 6H 2C", 5},
        {DeucesAndJoker(), "2S 2H 2C W 9D", 3},
        {jokersOutOfPlay, "W W 2S 3H 4C", 3},
        {OneEyedJacks(), "JS JC TH 9H 8H", 5},
        {OneEyedJacks(), "JS JH KD 9D 4C", 3},
        {OneEyedJacks(), "AC KC QC JC TD", 3},
        {FiveAces(), "A$ AS KS QS 9H", 5},
        {FiveAces(), "AS AH AC 5D 9H", 3},
        {AcesBonus(), "AS AH KC 9D 2S", 3},
        {AcesBonus(), "9S AS AH AC 3D", 3},
        {AcesBonus(), "2S AS AH AC 3D", 2},
        {AcesBonus(), "AH AS 9C 9D 3D", 3},
        {aces, "AS AH AC AD 9D", 2},
        {colours, "2H 4H 6D 8D TS", 5},
        {colours, "2H 4H 6D 8D TD", 3},
        {colours, "2C 4C 6C 8S TS", 3},
        {wildColours, "JH 4H 6D 8D TS", 3},
        {jokerColours, "W 2C 4S 6S KH", 3},
        {charlies, "2S 2H 3C 3D AS", 2}};
    for (const auto& [table, cards, drawn] : cases) ExpectEveryHold(table, cards, drawn);
}

// Slow: 4,230,744 ordered draws of four cards, and 184 million of five would say no more.
TEST(HoldOracleTest, FourOrderedCardsMayBeTheFourAces) {
    const PayTable table = AcesBonus();
    const auto cards = Cards(table, "9S 2H KC 9D 3S", kHandSize);
    const auto dealt = Dealer(table, cards, 0b10000, cards).DealEveryDraw();
    EXPECT_EQ(dealt[2], 1);
    const HoldAnalysis analysis = Analyzed(table, "9S 2H KC 9D 3S");
    ExpectHold(table, analysis, 0b10000, dealt);
    EXPECT_EQ(analysis.holds[0].totalHands, 184'072'680);
}

TEST(HoldOracleTest, APileIsDrawnToWithTheOtherPilesCardOutOfTheDeck) {
    const PayTable table = PickEm();
    const std::string_view text = "AS AH KC AD";
    const HoldAnalysis analysis = Analyzed(table, text);
    auto cards = Cards(table, text, 4);
    const auto seen = cards;
    cards.push_back(cards[3]);
    ExpectHold(table, analysis, 28, Dealer(table, cards, 28, seen).DealEveryDraw());
    cards[2] = cards[3] = kNoCard;
    ExpectHold(table, analysis, 25, Dealer(table, cards, 25, seen).DealEveryDraw());
    EXPECT_EQ(analysis.best, 25);
    for (HoldMask mask = 0; mask <= kStandPat; ++mask) {
        const bool evaluated = mask == 28 || mask == 25;
        EXPECT_EQ(analysis.holds[static_cast<std::size_t>(mask)].totalHands, evaluated ? 1128 : 0);
    }
}

// The known card fills the leftmost gap; with one discard it is the whole draw.
TEST(HoldOracleTest, AKnownFirstDrawCardComesWithEveryDraw) {
    const PayTable table = SneakPeak();
    const std::string_view text = "AS AH 3C 9D KS AC";
    const HoldAnalysis analysis = Analyzed(table, text);
    const auto seen = Cards(table, text, 6);
    for (HoldMask mask = 0; mask <= kStandPat; ++mask) {
        std::vector<CardCode> cards(seen.begin(), seen.begin() + kHandSize);
        HoldMask held = mask;
        int gap = -1;
        for (int position = 0; position < kHandSize && gap < 0; ++position) {
            if (Holds(mask, position)) continue;
            gap = position;
            cards[static_cast<std::size_t>(gap)] = seen[5];
            held |= PositionBit(gap);
        }
        EXPECT_EQ(analysis.holds[static_cast<std::size_t>(mask)].knownCardPosition, gap);
        ExpectHold(table, analysis, mask, Dealer(table, cards, held, seen).DealEveryDraw());
    }
    EXPECT_EQ(analysis.best, 0b11000);
    EXPECT_EQ(analysis.holds[0b11110].totalHands, 1);
}

}  // namespace
