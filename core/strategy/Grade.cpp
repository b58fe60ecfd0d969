#include "core/strategy/Grade.h"

#include <algorithm>

#include "core/strategy/LookIndex.h"

namespace {

constexpr std::int64_t kHandsBetweenReports = 4096;

// Finds the row of each hand.
class Grader {
  public:
    Grader(const Terms& terms, const Chart& chart, const LineTables& tables)
        : terms(terms), chart(chart), tables(tables) {
        const bool all = std::ranges::any_of(chart, [](const Row& row) {
            return row.AsksOfDiscards() || row.suitedWild != Condition::kAny;
        });
        at = all ? LookAt::kDiscardsToo : LookAt::kHeldCards;
        grade.rows.resize(chart.size());
    }

    void Add(const StartingHand& hand) {
        LookAtHand(terms, hand, at, looks);
        std::array<std::size_t, kSubsets> rowOf{};
        std::size_t row = chart.size();
        for (std::size_t held = 0; held < kSubsets; ++held) {
            rowOf[held] = FirstRow(looks[held]);
            row = std::min(row, rowOf[held]);
        }
        // Without a row, all is discarded.
        std::int64_t least = hand.values[0];
        std::int64_t most = least;
        bool first = row < chart.size();
        for (std::size_t held = 0; held < kSubsets && row < chart.size(); ++held) {
            if (rowOf[held] != row) continue;
            least = first ? hand.values[held] : std::min(least, hand.values[held]);
            most = first ? hand.values[held] : std::max(most, hand.values[held]);
            first = false;
        }
        const auto weighted = [&hand](std::int64_t value) {
            return static_cast<Worth>(value) * hand.weight;
        };
        grade.best += weighted(hand.best);
        grade.worst += weighted(least);
        grade.bestReading += weighted(most);
        if (least != most) grade.ambiguousHands += hand.weight;
        grade.hands += hand.weight;
        RowGrade& decided = row < chart.size() ? grade.rows[row] : grade.rest;
        decided.hands += hand.weight;
        decided.loss += weighted(hand.best - least);
        const bool right = hand.best == least;
        const bool hasExample = !decided.example[0].IsEmpty();
        const std::size_t place = std::min(row, chart.size());
        if (hasExample && (!right || exampleIsRight[place])) return;
        for (std::size_t i = 0; i < kHandSize; ++i) {
            decided.example[i] = tables.ToFace(hand.cards[i]);
        }
        exampleIsRight[place] = right;
    }

    ChartGrade grade;

  private:
    std::size_t FirstRow(HoldLook look) {
        const std::uint32_t number = index.NumberOf(look);
        if (number == firstRows.size()) {
            const HoldTraits hold = TraitsOf(terms, look);
            const auto fits = [&](const Row& row) { return Fits(row, hold, terms); };
            firstRows.push_back(
                static_cast<std::uint32_t>(std::ranges::find_if(chart, fits) - chart.begin()));
        }
        return firstRows[number];
    }

    const Terms& terms;
    const Chart& chart;
    const LineTables& tables;
    LookAt at = LookAt::kHeldCards;
    HandLooks looks{};
    LookIndex index;
    std::vector<std::uint32_t> firstRows;  // by number of the look; the chart's size for none
    std::vector<bool> exampleIsRight = std::vector<bool>(chart.size() + 1);  // by row, then rest
};

// The digits of a number that is not negative.
std::string Digits(Worth number) {
    std::string digits;
    do {
        digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(number % 10)));
        number /= 10;
    } while (number > 0);
    return digits;
}

}  // namespace

ChartGrade GradeChart(const StartingHands& hands, const Terms& terms, const Chart& chart,
                      const Progress& progress) {
    Grader grader(terms, chart, hands.Tables());
    std::int64_t visited = 0;
    const auto visit = [&](const StartingHand& hand) {
        grader.Add(hand);
        if (++visited % kHandsBetweenReports != 0 || !progress) return true;
        return progress(static_cast<double>(grader.grade.hands) /
                        static_cast<double>(hands.Count()));
    };
    grader.grade.cancelled = !hands.ForEach(visit);
    grader.grade.partsOfCoin = hands.PartsOfCoin();
    return grader.grade;
}

std::string PercentText(Worth part, Worth whole, int decimals) {
    if (whole <= 0) return "0";
    Worth scale = 100;
    for (int i = 0; i < decimals; ++i) scale *= 10;
    // Of a large fraction both sides lose what no decimal shows, so that scaling stays in range.
    constexpr Worth limit = static_cast<Worth>(1) << 96;
    while (part >= limit || whole >= limit) {
        part /= 2;
        whole /= 2;
    }
    const Worth quotient = part / whole;
    const Worth rest = part % whole;
    Worth digitsOfRest = 0;
    Worth remainder = rest;
    for (Worth step = scale; step > 1; step /= 10) {
        remainder *= 10;
        digitsOfRest = digitsOfRest * 10 + remainder / whole;
        remainder %= whole;
    }
    if (remainder * 2 >= whole) ++digitsOfRest;
    std::string digits = Digits(quotient * scale + digitsOfRest);
    const auto places = static_cast<std::size_t>(decimals);
    if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
    if (places > 0) digits.insert(digits.size() - places, 1, '.');
    return digits;
}

double Percent(Worth part, Worth whole) {
    return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole) * 100;
}
