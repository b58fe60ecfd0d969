#include "core/strategy/ChartCard.h"

std::string CardAsText(const ChartCard& card) {
    std::string text =
        "# " + card.title + "\n# " + card.pays + "\n# " + card.date + ", " + card.figures + "\n";
    for (std::size_t i = 0; i < card.lines.size(); ++i) {
        text += std::to_string(i + 1) + ". " + card.lines[i].text + "\n";
    }
    return text;
}
