#include <cctype>

#include "core/strategy/RowText.h"

namespace {

// Behind a number such as "12." or "12)", and the blanks around it.
std::string_view WithoutNumber(std::string_view text) {
    std::size_t at = text.find_first_not_of(" \t");
    const std::size_t digits = at;
    while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])) != 0) ++at;
    const bool numbered = at != digits && at < text.size() && (text[at] == '.' || text[at] == ')');
    return numbered ? text.substr(at + 1) : text;
}

}  // namespace

ReadChart ParseChart(std::string_view text) {
    ReadChart chart;
    for (int line = 1; !text.empty(); ++line) {
        const auto end = text.find('\n');
        std::string_view rest = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        rest = rest.substr(0, rest.find('#'));
        if (rest.find_first_not_of(" \t\r\v\f") == std::string_view::npos) continue;
        ReadRow read = ParseRow(WithoutNumber(rest));
        if (!read.valid) {
            chart.problem = std::move(read.problem);
            chart.problem.line = line;
            return chart;
        }
        chart.rows.push_back(read.row);
    }
    chart.valid = !chart.rows.empty();
    if (!chart.valid) chart.problem = {1, 1, "", "a row"};
    return chart;
}

std::string ChartText(const Chart& chart) {
    std::string text;
    for (std::size_t i = 0; i < chart.size(); ++i) {
        text += std::to_string(i + 1) + ". " + RowText(chart[i]) + "\n";
    }
    return text;
}
