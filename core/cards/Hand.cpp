#include "core/cards/Hand.h"

#include <algorithm>

Hand FacesOf(const CardTable& table, std::span<const CardCode> codes) {
    Hand hand;
    std::ranges::transform(codes.first(std::min(codes.size(), hand.size())), hand.begin(),
                           [&table](CardCode code) { return FaceOf(table, code); });
    return hand;
}
