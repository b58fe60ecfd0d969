#include "core/strategy/ChartLists.h"

#include <algorithm>
#include <utility>

namespace {

std::size_t RowsOf(const SearchResult::Found& chart) { return chart.rows.size(); }

}  // namespace

bool AddChart(ChartLists& lists, SearchResult::Found chart) {
    const std::size_t rows = chart.rows.size();
    const double loss = chart.loss;
    // Written so that what is no number is refused too.
    if (rows == 0 || rows > SearchWish::kMostRows || !(loss >= 0 && loss <= 1e6)) return false;
    const auto place = std::ranges::upper_bound(lists, rows, {}, RowsOf);
    if (place != lists.begin() && std::prev(place)->loss <= loss) return false;
    const auto at = place - lists.begin();
    lists.insert(place, std::move(chart));
    const auto worse = [loss](const SearchResult::Found& other) { return other.loss >= loss; };
    const auto behind = std::remove_if(lists.begin() + at + 1, lists.end(), worse);
    lists.erase(behind, lists.end());
    // One of the same length that it has beaten stands before it.
    if (at > 0 && lists[static_cast<std::size_t>(at - 1)].rows.size() == rows) {
        lists.erase(lists.begin() + at - 1);
    }
    return true;
}

const SearchResult::Found* BestOfRows(const ChartLists& lists, std::size_t mostRows) {
    if (lists.empty()) return nullptr;
    const auto behind = std::ranges::upper_bound(lists, mostRows, {}, RowsOf);
    return behind == lists.begin() ? &lists.front() : &*std::prev(behind);
}

const SearchResult::Found* StandardOf(const ChartLists& lists) {
    const SearchResult::Found* best = BestOfRows(lists, kStandardChart.mostRows);
    if (!best || best->rows.size() > kStandardChart.mostRows) return nullptr;
    const auto good = std::ranges::find_if(lists, [](const SearchResult::Found& chart) {
        return chart.loss <= kStandardChart.mostLoss;
    });
    return good != lists.end() && good->rows.size() <= best->rows.size() ? &*good : best;
}
