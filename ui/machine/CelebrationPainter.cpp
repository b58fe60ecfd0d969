#include "ui/machine/CelebrationPainter.h"

#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "core/text/Amount.h"

namespace {

constexpr QColor kNight{38, 6, 14};
constexpr QColor kCoinRim{150, 96, 10};
constexpr QColor kCoinGold{246, 196, 56};
constexpr QColor kCoinLight{255, 232, 150};
constexpr QColor kTextEdge{70, 20, 0};
constexpr QColor kTextGold{255, 226, 110};
constexpr int kRays = 16;
constexpr double kTurn = 1.1;        // radians that the rays turn in all
constexpr double kFirstFall = 0.04;  // of the whole
constexpr double kFalls = 0.74;      // from the first coin to the last
constexpr double kFallTime = 0.16;   // of one coin
constexpr double kFlashTime = 0.05;  // of the whole
constexpr double kLying = 0.6;       // height to width of a coin that lies on the heap
constexpr std::array kSlant{0.31, 0.77, 0.12, 0.58, 0.93, 0.44, 0.05, 0.69};

struct Coin {
    QPointF lies;
    double slant;  // 0..1, in which no two neighbours agree
};

// From the lowest row up, so that those above cover those below.
std::vector<Coin> Heap(const QRectF& place, double radius) {
    std::vector<Coin> heap;
    const double step = radius * 1.7;
    int inRow = static_cast<int>((place.width() - 2 * radius) / step);
    for (double y = place.bottom() - radius * kLying; inRow > 1 && heap.size() < 60; inRow -= 4) {
        const double left = place.center().x() - (inRow - 1) * step / 2;
        for (int i = 0; i < inRow; ++i) {
            const double slant = kSlant[heap.size() % kSlant.size()];
            heap.push_back({{left + i * step + (slant - 0.5) * radius / 2, y}, slant});
        }
        y -= radius * 0.55;
    }
    return heap;
}

// The lower rows first, but within them in no order.
double FallsAt(const Coin& coin, double share) {
    return kFirstFall + kFalls * (0.7 * share + 0.3 * coin.slant);
}

void FillEllipse(QPainter& painter, const QPointF& centre, double width, double height,
                 const QColor& colour) {
    painter.setBrush(colour);
    painter.drawEllipse(centre, width, height);
}

void PaintCoin(QPainter& painter, const Coin& coin, double radius, double top, double fallen) {
    if (fallen <= 0) return;
    const double drop = std::min(1.0, fallen) * std::min(1.0, fallen);
    const QPointF centre(coin.lies.x(), top - radius + drop * (coin.lies.y() - top + radius));
    // It spins ever more slowly on its way, and lies down at the end.
    const double spin = (1 - std::min(1.0, fallen)) * (3 + 2 * coin.slant) * std::numbers::pi;
    const double lying = std::clamp((fallen - 0.85) / 0.15, 0.0, 1.0);
    const double width = radius * std::max(0.12, std::abs(std::cos(spin)));
    const double height = radius * (1 - (1 - kLying) * lying);
    FillEllipse(painter, centre + QPointF(0, radius * 0.12), width, height, kCoinRim);
    FillEllipse(painter, centre, width, height, kCoinGold);
    FillEllipse(painter, centre, width * 0.72, height * 0.72, kCoinRim);
    FillEllipse(painter, centre + QPointF(0, radius * 0.05), width * 0.68, height * 0.68,
                kCoinLight);
}

void PaintRays(QPainter& painter, const QRectF& place, double done) {
    const QPointF centre(place.center().x(), place.y() + place.height() * 0.45);
    const double reach = std::hypot(place.width(), place.height());
    const double start = kTurn * (1 - (1 - done) * (1 - done));
    const double swing = std::numbers::pi / kRays;
    for (int i = 0; i < kRays; ++i) {
        const double angle = start + 2 * swing * i;
        const auto at = [&](double a) {
            return centre + reach * QPointF(std::cos(a), std::sin(a));
        };
        painter.setBrush(QColor(255, 190, 60, i % 2 == 0 ? 84 : 46));
        painter.drawPolygon(QPolygonF{centre, at(angle), at(angle + swing)});
    }
}

void WriteGold(MachineCanvas& canvas, const QRect& place, const std::string& text) {
    canvas.WriteEdged({place, place.height()}, text, kTextGold, kTextEdge);
}

}  // namespace

void PaintCelebration(MachineCanvas& canvas, const QRect& place, const std::string& line,
                      int payout, double done) {
    if (place.isNull() || !canvas.Sees(place)) return;
    canvas.DrawBox(place, kMachineYellow, kNight);
    const QRect inside = place.adjusted(2, 2, -2, -2);
    QPainter& painter = canvas.Painter();
    painter.save();
    painter.setClipRect(inside, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    PaintRays(painter, inside, done);
    const double radius = place.height() / 16.0;
    const std::vector<Coin> heap = Heap(inside, radius);
    for (std::size_t i = 0; i < heap.size(); ++i) {
        const double share = static_cast<double>(i) / static_cast<double>(heap.size());
        const double fallen = done < 1 ? (done - FallsAt(heap[i], share)) / kFallTime : 1;
        PaintCoin(painter, heap[i], radius, inside.y(), fallen);
    }
    const int room = inside.height();
    const QRect name(inside.x() + 6, inside.y() + room / 6, inside.width() - 12, room * 27 / 100);
    WriteGold(canvas, name, line);
    WriteGold(canvas, {name.x(), name.bottom() + room / 20, name.width(), room / 6},
              FormatCount(payout) + " CREDITS");
    const double flash = std::clamp(1 - done / kFlashTime, 0.0, 1.0);
    if (flash > 0) {
        painter.fillRect(inside, QColor(255, 244, 214, static_cast<int>(230 * flash * flash)));
    }
    painter.restore();
}
