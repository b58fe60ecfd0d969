#include "core/strategy/Why.h"

#include <algorithm>

#include "core/strategy/RowText.h"
#include "core/strategy/RowWords.h"
#include "core/text/Numbers.h"

namespace {

std::string LineText(std::size_t row) { return "(line " + std::to_string(row + 1) + ")"; }

// A hold that no row fits: "K 9", by falling ranks.
std::string CardsText(const Terms& terms, const StartingHand& hand, std::size_t held) {
    std::vector<std::size_t> ranks;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if ((held >> i & 1) == 0) continue;
        const bool wild = terms.IsJoker(hand.cards[i]) || terms.IsWild(hand.cards[i]);
        ranks.push_back(wild ? kWildRank : static_cast<std::size_t>(terms.RankOf(hand.cards[i])));
    }
    if (ranks.empty()) return "discarding everything";
    std::ranges::sort(ranks, std::greater());
    std::string text;
    for (const std::size_t rank : ranks) {
        text += (text.empty() ? "" : " ") + std::string(1, row_words::kRankChars[rank]);
    }
    return text;
}

// Of the holds that stand in the chart, behind the row that decides; when there is none, the one
// that decides.
std::size_t SecondBest(const ChartPlay& play, std::size_t rows, const StartingHand& hand) {
    std::size_t second = play.held;
    for (std::size_t held = 0; held < kSubsets; ++held) {
        if (play.rowOf[held] <= play.row || play.rowOf[held] >= rows) continue;
        if (second == play.held || hand.values[held] > hand.values[second]) second = held;
    }
    return second;
}

std::string WorthText(double bets) {
    constexpr double kLeast = 0.00005;
    return bets < kLeast ? "less than 0.0001 bets" : FormatDouble("%.4f bets", bets);
}

}  // namespace

std::string WhyText(const Terms& terms, const Chart& chart, const StartingHand& hand,
                    std::optional<std::size_t> asked, std::int64_t partsOfBet) {
    const ChartPlay play = ChartReader(terms, chart).Play(hand);
    const auto best =
        static_cast<std::size_t>(std::ranges::max_element(hand.values) - hand.values.begin());
    const auto name = [&](std::size_t row, std::size_t held) {
        if (row < chart.size()) return RowText(chart[row]) + " " + LineText(row);
        return CardsText(terms, hand, held);
    };
    const std::int64_t cost = hand.values[best] - hand.values[play.held];
    if (cost > 0) {
        const std::string exception =
            ": an exception of the chart, worth " +
            WorthText(static_cast<double>(cost) / static_cast<double>(partsOfBet));
        if (play.row < chart.size() && play.rowOf[best] == play.row) {
            return CardsText(terms, hand, best) + " is the better of the holds that fit " +
                   name(play.row, best) + exception;
        }
        return name(play.rowOf[best], best) + " is better here than " + name(play.row, play.held) +
               exception;
    }
    const std::size_t other = asked.value_or(SecondBest(play, chart.size(), hand));
    if (hand.values[other] == hand.values[best]) return "";
    if (play.rowOf[other] == chart.size()) {
        return name(play.row, play.held) + " stands in the chart, " +
               CardsText(terms, hand, other) + " does not";
    }
    return name(play.row, play.held) + " stands above " + name(play.rowOf[other], other);
}
