#include "core/strategy/Grade.h"

#include "core/strategy/ChartPlay.h"

namespace {

constexpr std::int64_t kHandsBetweenReports = 4096;

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

ChartGrader::ChartGrader(const Chart& chart, const StartingHands& hands)
    : tables(hands.Tables()), exampleIsRight(chart.size() + 1) {
    grade.rows.resize(chart.size());
    grade.partsOfCoin = hands.PartsOfCoin();
}

void ChartGrader::Add(const StartingHand& hand, const ChartPlay& play) {
    const std::int64_t least = hand.values[play.held];
    const std::int64_t most = hand.values[play.luckiest];
    const auto weighted = [&hand](std::int64_t value) {
        return static_cast<Worth>(value) * hand.weight;
    };
    grade.best += weighted(hand.best);
    grade.worst += weighted(least);
    grade.bestReading += weighted(most);
    if (least != most) grade.ambiguousHands += hand.weight;
    grade.hands += hand.weight;
    RowGrade& decided = play.row < grade.rows.size() ? grade.rows[play.row] : grade.rest;
    decided.hands += hand.weight;
    decided.loss += weighted(hand.best - least);
    const bool right = hand.best == least;
    const bool hasExample = !decided.example[0].IsEmpty();
    if (hasExample && (!right || exampleIsRight[play.row])) return;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        decided.example[i] = tables.ToFace(hand.cards[i]);
    }
    exampleIsRight[play.row] = right;
}

bool ForEachPlay(
    const StartingHands& hands, const Terms& terms, const Chart& chart, const Progress& progress,
    const std::function<void(const StartingHand& hand, const ChartPlay& play)>& visit) {
    ChartReader reader(terms, chart);
    std::int64_t visited = 0;
    std::int64_t done = 0;
    return hands.ForEach([&](const StartingHand& hand) {
        visit(hand, reader.Play(hand));
        done += hand.weight;
        if (++visited % kHandsBetweenReports != 0 || !progress) return true;
        return progress(static_cast<double>(done) / static_cast<double>(hands.Count()));
    });
}

ChartGrade GradeChart(const StartingHands& hands, const Terms& terms, const Chart& chart,
                      const Progress& progress) {
    ChartGrader grader(chart, hands);
    grader.grade.cancelled =
        !ForEachPlay(hands, terms, chart, progress,
                     [&grader](const auto& hand, const auto& play) { grader.Add(hand, play); });
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
