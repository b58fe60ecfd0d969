#include "ui/machine/LayoutFreePlace.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <vector>

namespace {

constexpr int kClearance = 5;

bool IsFree(const QRect& place, const QRect& area, std::span<const QRect> taken) {
    return area.contains(place) && std::ranges::none_of(taken, [&place](const QRect& other) {
               return place.intersects(other);
           });
}

// One side of a nearest free place always stands where it wanted to be, at an end of the area, or
// against something taken: nothing else needs to be tried.
struct Candidates {
    std::vector<int> xs;
    std::vector<int> ys;
};

Candidates CandidatesFor(const QRect& wanted, const QRect& area, std::span<const QRect> taken) {
    const int lastX = area.x() + area.width() - wanted.width();
    const int lastY = area.y() + area.height() - wanted.height();
    Candidates found{{wanted.x(), area.x(), lastX}, {wanted.y(), area.y(), lastY}};
    for (const QRect& other : taken) {
        found.xs.push_back(other.x() + other.width() + kClearance);
        found.xs.push_back(other.x() - kClearance - wanted.width());
        found.ys.push_back(other.y() + other.height() + kClearance);
        found.ys.push_back(other.y() - kClearance - wanted.height());
    }
    return found;
}

}  // namespace

QRect NearestFreePlace(const QRect& wanted, const QRect& area, std::span<const QRect> taken) {
    if (IsFree(wanted, area, taken)) return wanted;
    const Candidates candidates = CandidatesFor(wanted, area, taken);
    QRect best = wanted;
    int bestDistance = std::numeric_limits<int>::max();
    for (const int y : candidates.ys) {
        for (const int x : candidates.xs) {
            const QRect place(QPoint(x, y), wanted.size());
            const int distance = std::abs(x - wanted.x()) + std::abs(y - wanted.y());
            if (distance >= bestDistance || !IsFree(place, area, taken)) continue;
            best = place;
            bestDistance = distance;
        }
    }
    return best;
}
