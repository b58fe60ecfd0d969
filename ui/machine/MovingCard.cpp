#include "ui/machine/MovingCard.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "ui/machine/MachineCanvas.h"

namespace {

constexpr int kDarkest = 90;  // of 255, of a card that is seen on its edge
constexpr double kThinnest = 0.02;

double Eased(double share) { return share * share * (3 - 2 * share); }

// The side that is seen narrows to the edge, and the other widens from it; towards the edge the
// light falls off.
void DrawTurning(QPainter& painter, const QRect& place, double turned, const QPixmap& from,
                 const QPixmap& to) {
    const double facing = std::cos(Eased(turned) * std::numbers::pi);
    const QPixmap& side = facing > 0 ? from : to;
    if (side.isNull()) return;
    const double share = std::max(kThinnest, std::abs(facing));
    const double width = place.width() * share;
    const QRectF seen(place.x() + (place.width() - width) / 2, place.y(), width, place.height());
    const auto shade = [&](const QRectF& shape, int alpha) {
        const double radius = place.width() / 16.0;
        painter.setBrush(QColor(0, 0, 0, alpha));
        painter.drawRoundedRect(shape, radius * share, radius);
    };
    painter.setPen(Qt::NoPen);
    painter.setRenderHint(QPainter::Antialiasing);
    shade(seen.adjusted(0, 2, 1.5, 3), 70);
    painter.drawPixmap(seen, side, QRectF(QPointF(0, 0), QSizeF(side.size())));
    shade(seen, static_cast<int>(std::lround(kDarkest * (1 - share))));
}

void DrawSliding(QPainter& painter, const QRect& place, double away, int slide,
                 const QPixmap& card) {
    if (card.isNull()) return;
    painter.setOpacity(1 - away);
    painter.drawPixmap(QPointF(place.x(), place.y() - away * slide), card);
}

}  // namespace

QRect CoveredByMove(const QRect& place, int slide) { return place.adjusted(-1, -slide - 1, 3, 5); }

void DrawMovingCard(MachineCanvas& canvas, const QRect& place, int slide, const PlaceMoment& moment,
                    const QPixmap& from, const QPixmap& to) {
    if (!canvas.Sees(CoveredByMove(place, slide))) return;
    QPainter& painter = canvas.Painter();
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const double moved = Eased(moment.moved);
    switch (moment.move) {
        case CardMove::kTurn:
            DrawTurning(painter, place, moment.moved, from, to);
            break;
        case CardMove::kLeave:
            DrawSliding(painter, place, moved, slide, from);
            break;
        case CardMove::kCome:
            DrawSliding(painter, place, 1 - moved, slide, to);
            break;
        case CardMove::kNone:
            break;
    }
    painter.restore();
}
