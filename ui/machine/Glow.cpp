#include "ui/machine/Glow.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "ui/machine/Highlights.h"
#include "ui/machine/MachineCanvas.h"

namespace {

constexpr int kAlpha = 52;  // of each ring; they lie on one another
constexpr double kEdge = 2.5;

QColor Gold(double alpha) {
    QColor colour = kGold;
    colour.setAlpha(static_cast<int>(std::lround(std::clamp(alpha, 0.0, 255.0))));
    return colour;
}

// Filled rather than stroked: a stroke is rounded differently where a clip cuts it.
void FillRing(QPainter& painter, const QRectF& place, double radius, double outer, double inner,
              const QColor& colour) {
    QPainterPath ring;
    ring.addRoundedRect(place.adjusted(-outer, -outer, outer, outer), radius + outer,
                        radius + outer);
    ring.addRoundedRect(place.adjusted(inner, inner, -inner, -inner), radius - inner,
                        radius - inner);
    painter.fillPath(ring, colour);
}

}  // namespace

void DrawGlow(MachineCanvas& canvas, const QRect& place, double radius, double brightness) {
    if (brightness <= 0 || !canvas.Sees(WithGlow(place))) return;
    QPainter& painter = canvas.Painter();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (int reach = 1; reach <= kGlowReach; ++reach) {
        FillRing(painter, place, radius, reach, 1, Gold(kAlpha * brightness));
    }
    painter.restore();
}

void DrawGoldenEdge(MachineCanvas& canvas, const QRect& place, double radius, double brightness) {
    if (brightness <= 0 || !canvas.Sees(place)) return;
    QPainter& painter = canvas.Painter();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    FillRing(painter, place, radius, 0, kEdge, Gold(255 * brightness));
    painter.restore();
}
