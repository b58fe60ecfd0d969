#include "ui/machine/MachineFit.h"

#include <algorithm>
#include <cmath>

namespace {

// What is whole but for the rounding of a division counts as whole.
constexpr double kAlmost = 1e-6;

QRect Outward(double left, double top, double right, double bottom) {
    const QPoint first(static_cast<int>(std::floor(left + kAlmost)),
                       static_cast<int>(std::floor(top + kAlmost)));
    const QPoint end(static_cast<int>(std::ceil(right - kAlmost)),
                     static_cast<int>(std::ceil(bottom - kAlmost)));
    return {first, end - QPoint(1, 1)};
}

template <class Map>
QRegion Mapped(const QRegion& region, Map map) {
    QRegion mapped;
    for (const QRect& rect : region) mapped += map(rect);
    return mapped;
}

}  // namespace

MachineFit MachineFit::Into(QSize client, int leftFree) {
    const QSize room(std::max(client.width() - leftFree, 0), client.height());
    MachineFit fit;
    fit.client = client;
    // A zoom above 1 leaves no direction short of the whole table.
    fit.table = room.boundedTo(kLargestMachineSize);
    fit.zoom = std::max(1.0, std::min(room.width() / double{kLargestMachineSize.width()},
                                      room.height() / double{kLargestMachineSize.height()}));
    const auto before = [&fit](int whole, int units) {
        return static_cast<int>(std::max(0.0, (whole - units * fit.zoom) / 2));
    };
    fit.origin = {before(room.width(), fit.table.width()),
                  before(room.height(), fit.table.height())};
    return fit;
}

// A pixel belongs to the unit under its middle, as it does to the picture that is drawn there.
QPoint MachineFit::ToTable(QPointF pixel) const {
    const QPointF middle = (pixel + QPointF(0.5, 0.5) - origin) / zoom;
    return {static_cast<int>(std::floor(middle.x())), static_cast<int>(std::floor(middle.y()))};
}

QRect MachineFit::ToTable(const QRect& area) const {
    const QPointF first = QPointF(area.topLeft() - origin) / zoom;
    return Outward(first.x(), first.y(), first.x() + area.width() / zoom,
                   first.y() + area.height() / zoom);
}

QRect MachineFit::ToClient(const QRect& place) const {
    const QPointF first = QPointF(place.topLeft()) * zoom + origin;
    return Outward(first.x(), first.y(), first.x() + place.width() * zoom,
                   first.y() + place.height() * zoom);
}

QRegion MachineFit::ToTable(const QRegion& area) const {
    return Mapped(area, [this](const QRect& rect) { return ToTable(rect); });
}

QRegion MachineFit::ToClient(const QRegion& places) const {
    return Mapped(places, [this](const QRect& rect) { return ToClient(rect); });
}
