#include "core/strategy/MakeCard.h"

#include <utility>

#include "core/strategy/RowText.h"

namespace {

constexpr int kDecimals = 6;  // of returns and losses

// On one line, without what no drawing may hold.
std::string OneLine(std::string text) {
    for (char& c : text) {
        if (static_cast<unsigned char>(c) < ' ' || c == 0x7F) c = ' ';
    }
    return text;
}

}  // namespace

ChartCard MakeCard(const TableOfGame& place, const PayTable& table, const ChartStudy& study,
                   std::string date) {
    ChartCard card;
    card.title = OneLine(place.gameName) + ", table " + std::to_string(place.tableIndex);
    for (const PayLine& line : table.lines) {
        const std::string& name =
            line.shortDescription.empty() ? line.description : line.shortDescription;
        card.pays += (card.pays.empty() ? "" : ", ") + OneLine(name) + " " +
                     std::to_string(LineCoinPay(line));
    }
    const ChartGrade& grade = study.grade;
    const std::size_t lines = study.chart.size();
    card.figures = std::to_string(lines) + (lines == 1 ? " line: " : " lines: ") +
                   PercentText(grade.worst, grade.Bet(), kDecimals) + "%, " +
                   PercentText(grade.Loss(), grade.Bet(), kDecimals) + "% below the best play";
    card.date = std::move(date);
    for (std::size_t i = 0; i < lines; ++i) {
        ChartCard::Line line{RowText(study.chart[i]), {}};
        const HeldHand& example = study.examples[i];
        for (std::size_t place5 = 0; place5 < example.hand.size(); ++place5) {
            const CardFace face = example.hand[place5];
            if (Holds(example.held, place5) && !face.IsEmpty()) line.example.push_back(face);
        }
        card.lines.push_back(std::move(line));
    }
    return card;
}
