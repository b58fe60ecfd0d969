#include "core/analysis/SuitLayout.h"

#include <algorithm>
#include <bit>

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

}  // namespace

SuitLayout LayOut(const LineTables& tables, std::span<const SortedCards> hands) {
    SuitLayout layout;
    layout.hands = hands.size();
    const std::size_t padded = (hands.size() + kHandsAtOnce - 1) / kHandsAtOnce * kHandsAtOnce;
    for (std::size_t subset = 1; subset < kHolds; ++subset) {
        auto& classes = layout.classes[subset];
        classes.resize(padded);
        for (std::size_t hand = 0; hand < hands.size(); ++hand) {
            classes[hand] = subset == kAllFive
                                ? static_cast<std::uint32_t>(tables.ViewOf(hands[hand]))
                                : ClassAmongKinds(tables, hands[hand], subset);
        }
        layout.classCounts[subset] = *std::ranges::max_element(classes) + std::size_t{1};
    }
    return layout;
}
