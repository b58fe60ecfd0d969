#include "core/analysis/SuitLayout.h"

#include <algorithm>
#include <array>
#include <map>

namespace {

// The number of the class of a subset of the sorted cards among those of the same kinds.
std::uint32_t ClassAmongKinds(const LineTables& tables, const SortedCards& cards,
                              std::size_t subset) {
    std::uint32_t key = 0;
    int size = 0;
    for (std::size_t place = 0; place < kHandSize; ++place) {
        if ((subset >> place & 1) != 0) key += SetKey::Add(size++, cards[place]);
    }
    return tables.Classes(size).Of(SetKey::Kinds(key)).bySuits[SetKey::Suits(key)];
}

using Classes = std::array<std::uint32_t, kHolds>;  // by subset

Classes ClassesOf(const LineTables& tables, const SortedCards& cards) {
    Classes classes{};
    for (std::size_t subset = 1; subset < kAllFive; ++subset) {
        classes[subset] = ClassAmongKinds(tables, cards, subset);
    }
    classes[kAllFive] = static_cast<std::uint32_t>(tables.ViewOf(cards));
    return classes;
}

}  // namespace

SuitLayout LayOut(const LineTables& tables, std::span<const SortedCards> hands) {
    SuitLayout layout;
    std::map<Classes, std::uint32_t> columns;
    for (const SortedCards& cards : hands) {
        const auto next = static_cast<std::uint32_t>(columns.size());
        layout.columnOf.push_back(
            columns.try_emplace(ClassesOf(tables, cards), next).first->second);
    }
    layout.columns = columns.size();
    layout.stride = (layout.columns + kColumnsAtOnce - 1) / kColumnsAtOnce * kColumnsAtOnce;
    layout.classes.resize(kHolds * layout.stride);
    for (const auto& [classes, column] : columns) {
        for (std::size_t subset = 0; subset < kHolds; ++subset) {
            layout.classes[subset * layout.stride + column] = classes[subset];
            layout.classCounts[subset] =
                std::max(layout.classCounts[subset], classes[subset] + std::size_t{1});
        }
    }
    return layout;
}
