#include "core/analysis/SetWorths.h"

#include <algorithm>

#include "core/analysis/Combinations.h"
#include "core/analysis/WideVectors.h"

namespace {

TOLVANE_WIDE_VECTORS
void ComputeWorths(const LineTables& tables, int size, const std::array<std::int64_t, kLanes>& pays,
                   std::int64_t* worths) {
    LineCounts counts;
    const std::size_t rows = tables.RowCount(size);
    for (std::size_t row = 0; row < rows; ++row) {
        tables.ReadClass(size, static_cast<std::uint32_t>(row), counts);
        std::int64_t worth = 0;
        for (std::size_t lane = 0; lane < kLanes; ++lane) worth += counts[lane] * pays[lane];
        worths[row] = worth;
    }
}

}  // namespace

SetWorths::SetWorths(const LineTables& tables, const PayTable& table, int bet) {
    for (std::size_t line = 0; line < table.lines.size(); ++line) {
        pays[line] = LineUnitPay(table, static_cast<int>(line), bet);
    }
    worths.resize(tables.FirstRow(kHandSize) + kLanes);
    for (int size = 0; size < kHandSize; ++size) {
        ComputeWorths(tables, size, pays, &worths[tables.FirstRow(size)]);
    }
    std::copy(pays.begin(), pays.end(), worths.end() - kLanes);
    for (int drawn = 0; drawn <= kHandSize; ++drawn) {
        draws[static_cast<std::size_t>(drawn)] =
            drawn == 0 ? 1 : Combinations(tables.DeckSize() - kHandSize, drawn);
    }
}
