#include "core/strategy/ChartStudy.h"

#include <algorithm>
#include <map>
#include <utility>

#include "core/strategy/ChartPlay.h"

namespace {

HoldMask MaskOf(std::size_t held) {
    HoldMask mask = 0;
    for (std::size_t i = 0; i < kHandSize; ++i) {
        if ((held >> i & 1) != 0) mask |= PositionBit(i);
    }
    return mask;
}

class Student {
  public:
    Student(const Chart& chart, const LineTables& tables)
        : tables(tables), examples(chart.size()), right(chart.size()) {}

    void Add(const StartingHand& hand, const ChartPlay& play) {
        const auto best =
            static_cast<std::size_t>(std::ranges::max_element(hand.values) - hand.values.begin());
        const std::int64_t cost = hand.values[best] - hand.values[play.held];
        if (play.row < examples.size()) NoteExample(hand, play, cost == 0);
        if (cost == 0) return;
        ExceptionGroup& group = groups[{play.row, play.rowOf[best]}];
        group.hands += hand.weight;
        group.loss += static_cast<Worth>(cost) * hand.weight;
        group.dearest.push_back(
            {FacesOf(hand), MaskOf(play.held), MaskOf(best), hand.weight, cost});
    }

    std::vector<HeldHand> Examples() { return std::move(examples); }

    std::vector<ExceptionGroup> Groups() {
        std::vector<ExceptionGroup> sorted;
        for (auto& [rows, group] : groups) {
            std::tie(group.row, group.bestRow) = rows;
            std::ranges::stable_sort(group.dearest, std::greater(), &ExceptionHand::cost);
            group.dearest.resize(std::min(group.dearest.size(), ChartStudy::kMostListed));
            sorted.push_back(std::move(group));
        }
        std::ranges::stable_sort(sorted, [](const ExceptionGroup& a, const ExceptionGroup& b) {
            return a.loss > b.loss;
        });
        return sorted;
    }

  private:
    Hand FacesOf(const StartingHand& hand) const {
        Hand faces;
        for (std::size_t i = 0; i < kHandSize; ++i) faces[i] = tables.ToFace(hand.cards[i]);
        return faces;
    }

    // One that is rightly played is the better example.
    void NoteExample(const StartingHand& hand, const ChartPlay& play, bool isRight) {
        HeldHand& example = examples[play.row];
        if (!example.hand[0].IsEmpty() && (right[play.row] || !isRight)) return;
        example = {FacesOf(hand), MaskOf(play.held)};
        right[play.row] = isRight;
    }

    const LineTables& tables;
    std::vector<HeldHand> examples;
    std::vector<bool> right;
    std::map<std::pair<std::size_t, std::size_t>, ExceptionGroup> groups;
};

}  // namespace

ChartStudy StudyChart(const StartingHands& hands, const Terms& terms, Chart chart,
                      const Progress& progress) {
    ChartStudy study;
    study.chart = std::move(chart);
    ChartGrader grader(study.chart, hands);
    Student student(study.chart, hands.Tables());
    study.cancelled = !ForEachPlay(hands, terms, study.chart, progress,
                                   [&](const StartingHand& hand, const ChartPlay& play) {
                                       grader.Add(hand, play);
                                       student.Add(hand, play);
                                   });
    grader.grade.cancelled = study.cancelled;
    study.grade = std::move(grader.grade);
    study.examples = student.Examples();
    study.exceptions = student.Groups();
    return study;
}
