#include "ui/machine/Glow.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "ui/machine/Highlights.h"
#include "ui/machine/MachineCanvas.h"

namespace {

constexpr int kAlpha = 70;  // of each ring; they lie on one another
constexpr double kEdge = 2.5;

void FillRing(QPainter& painter, const QRectF& place, double radius, double outer, double inner,
              int alpha) {
    QPainterPath ring;
    ring.addRoundedRect(place.adjusted(-outer, -outer, outer, outer), radius + outer,
                        radius + outer);
    ring.addRoundedRect(place.adjusted(inner, inner, -inner, -inner), radius - inner,
                        radius - inner);
    QColor colour = kGold;
    colour.setAlpha(alpha);
    painter.fillPath(ring, colour);
}

QPixmap LightAround(QSize size, double radius, double pixelRatio) {
    const QRect place(QPoint(kGlowReach, kGlowReach), size);
    QPixmap light((QSizeF(WithGlow(place).size()) * pixelRatio).toSize());
    light.setDevicePixelRatio(pixelRatio);
    light.fill(Qt::transparent);
    QPainter painter(&light);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int reach = 1; reach <= kGlowReach; ++reach) {
        FillRing(painter, place, radius, reach, 1, kAlpha);
    }
    FillRing(painter, place, radius, 0, kEdge, 255);
    return light;
}

// Only the frame of the picture, so many of its pixels wide: all else of it is empty.
void DrawFrameOf(QPainter& painter, const QPoint& corner, const QPixmap& light, int band) {
    const QSize size = light.size();
    const int high = std::max(0, size.height() - 2 * band);
    const double ratio = light.devicePixelRatio();
    for (const QRect& part :
         {QRect(0, 0, size.width(), std::min(band, size.height())), QRect(0, band, band, high),
          QRect(size.width() - band, band, band, high),
          QRect(0, band + high, size.width(), size.height() - band - high)}) {
        if (part.isEmpty()) continue;
        const QRectF place(QPointF(corner) + QPointF(part.topLeft()) / ratio,
                           QSizeF(part.size()) / ratio);
        painter.drawPixmap(place, light, part);
    }
}

}  // namespace

void DrawLight(MachineCanvas& canvas, const QRect& place, double radius, double strength,
               Snapshots& snapshots) {
    if (strength <= 0 || !canvas.Sees(WithGlow(place))) return;
    QPixmap& light = snapshots.lights[{place.width(), place.height()}];
    if (light.isNull()) light = LightAround(place.size(), radius, canvas.PixelRatio());
    QPainter& painter = canvas.Painter();
    const double opacity = painter.opacity();
    painter.setOpacity(strength);
    const double reach = kGlowReach + radius + kEdge;
    DrawFrameOf(painter, WithGlow(place).topLeft(), light,
                static_cast<int>(std::ceil(reach * canvas.PixelRatio())));
    painter.setOpacity(opacity);
}
