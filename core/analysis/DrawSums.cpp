#include "core/analysis/DrawSums.h"

#include "core/analysis/WideVectors.h"

namespace {

using Times = std::array<std::vector<std::int64_t>, kDraws>;

// Adds the rows of all sets of a size.
TOLVANE_WIDE_VECTORS
void AddRows(const LineTables& tables, int size, const Times& times, DrawSums::Sums& sums) {
    LineCounts counts;
    const std::size_t first = tables.FirstRow(size);
    const std::size_t rows = tables.RowCount(size);
    for (std::size_t row = 0; row < rows; ++row) {
        tables.ReadClass(size, static_cast<std::uint32_t>(row), counts);
        for (std::size_t drawn = 0; drawn < kDraws; ++drawn) {
            const std::int64_t often = times[drawn][first + row];
            if (often == 0) continue;
            for (std::size_t lane = 0; lane < kLanes; ++lane) {
                sums[drawn][lane] += often * counts[lane];
            }
        }
    }
}

}  // namespace

DrawSums::DrawSums(const LineTables& tables) : tables(tables) {
    for (auto& ofDraw : times) ofDraw.resize(tables.FirstRow(kHandSize) + kLanes);
}

DrawSums::Sums DrawSums::Total() const {
    Sums sums{};
    for (int size = 0; size < kHandSize; ++size) AddRows(tables, size, times, sums);
    for (std::size_t drawn = 0; drawn < kDraws; ++drawn) {
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            sums[drawn][lane] += times[drawn][tables.FirstRow(kHandSize) + lane];
        }
    }
    return sums;
}
