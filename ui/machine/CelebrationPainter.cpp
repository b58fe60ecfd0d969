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
constexpr int kWordsInset = 6;
constexpr double kThickness = 0.12;  // of a coin's radius
constexpr double kLying = 0.6;       // height to width of a coin that lies on the heap
constexpr std::array kSlant{0.31, 0.77, 0.12, 0.58, 0.93, 0.44, 0.05, 0.69};

struct Coin {
    QPoint lies;   // in whole pixels, so that it looks the same wherever a clip cuts it
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
            const double x = left + i * step + (slant - 0.5) * radius / 2;
            heap.push_back({QPointF(x, y).toPoint(), slant});
        }
        y -= radius * 0.55;
    }
    return heap;
}

// The lower rows first, but within them in no order.
double FallsAt(const Coin& coin, double share) {
    return kFirstFall + kFalls * (0.7 * share + 0.3 * coin.slant);
}

QPixmap EmptyPicture(const MachineCanvas& canvas, QSizeF size) {
    QPixmap picture((size * canvas.PixelRatio()).toSize() + QSize(1, 1));
    picture.setDevicePixelRatio(canvas.PixelRatio());
    picture.fill(Qt::transparent);
    return picture;
}

// Seen from the front; height is its share of the width.
QPixmap CoinPicture(const MachineCanvas& canvas, double radius, double height) {
    QPixmap picture = EmptyPicture(canvas, {2 * radius, 2 * radius * height + radius * kThickness});
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QPointF face(radius, radius * height);
    const auto fill = [&](double down, double share, const QColor& colour) {
        painter.setBrush(colour);
        painter.drawEllipse(face + QPointF(0, radius * down), radius * share,
                            radius * height * share);
    };
    fill(kThickness, 1, kCoinRim);
    fill(0, 1, kCoinGold);
    fill(0, 0.72, kCoinRim);
    fill(0.05, 0.68, kCoinLight);
    return picture;
}

void PaintCoin(QPainter& painter, const Coin& coin, double radius, double top, double fallen,
               const Snapshots& pictures) {
    const QSizeF lies = pictures.lyingCoin.deviceIndependentSize();
    const QPoint corner = QPointF(-lies.width() / 2, -lies.height() / 2).toPoint();
    if (fallen <= 0) return;
    if (fallen >= 1) return painter.drawPixmap(coin.lies + corner, pictures.lyingCoin);
    // It spins ever more slowly on its way, and lies down at the end.
    const double spin = (1 - fallen) * (3 + 2 * coin.slant) * std::numbers::pi;
    const double lying = std::clamp((fallen - 0.85) / 0.15, 0.0, 1.0);
    const QSizeF stands = pictures.coin.deviceIndependentSize();
    const double width = stands.width() * std::max(0.12, std::abs(std::cos(spin)));
    const double height = stands.height() + (lies.height() - stands.height()) * lying;
    const double y = top - radius + fallen * fallen * (coin.lies.y() - top + radius);
    painter.drawPixmap(QRectF(coin.lies.x() - width / 2, y - height / 2, width, height),
                       pictures.coin, QRectF(pictures.coin.rect()));
}

// Each in layers of other widths, which gives it soft sides: smoothing the sides of shapes as large
// as these would take most of a frame's time.
void PaintRays(QPainter& painter, const QRectF& place, double done) {
    painter.setPen(Qt::NoPen);
    const QPointF centre(place.center().x(), place.y() + place.height() * 0.45);
    const double reach = std::hypot(place.width(), place.height());
    const double start = kTurn * (1 - (1 - done) * (1 - done));
    const double step = 2 * std::numbers::pi / kRays;
    const auto at = [&](double angle) {
        return centre + reach * QPointF(std::cos(angle), std::sin(angle));
    };
    for (int i = 0; i < kRays; ++i) {
        const double angle = start + step * i;
        painter.setBrush(QColor(255, 190, 60, i % 2 == 0 ? 26 : 14));
        for (const double share : {0.23, 0.24, 0.25, 0.26}) {
            painter.drawPolygon(
                QPolygonF{centre, at(angle - share * step), at(angle + share * step)});
        }
    }
}

QPixmap WordsPicture(const MachineCanvas& canvas, QSize size, const std::string& line, int payout,
                     PictureStore& pictures) {
    QPixmap picture = EmptyPicture(canvas, size);
    QPainter painter(&picture);
    MachineCanvas words(painter, QRect(QPoint(0, 0), size), MachineFit::Into(size), pictures);
    const auto write = [&](int top, int height, const std::string& text) {
        const QRect place(kWordsInset, top, size.width() - 2 * kWordsInset, height);
        words.WriteEdged({place, height}, text, kTextGold, kTextEdge);
    };
    const int room = size.height();
    write(room / 6, room * 27 / 100, line);
    write(room / 2, room / 6, FormatCount(payout) + " CREDITS");
    return picture;
}

void DrawOnce(MachineCanvas& canvas, QSize size, const std::string& line, int payout, double radius,
              Snapshots& snapshots) {
    const std::string spelled = line + std::to_string(payout);
    if (snapshots.spelled == spelled) return;
    snapshots.spelled = spelled;
    snapshots.words = WordsPicture(canvas, size, line, payout, canvas.Pictures());
    snapshots.coin = CoinPicture(canvas, radius, 1);
    snapshots.lyingCoin = CoinPicture(canvas, radius, kLying);
}

}  // namespace

void PaintCelebration(MachineCanvas& canvas, const QRect& place, const std::string& line,
                      int payout, double done, Snapshots& snapshots) {
    if (place.isNull() || !canvas.Sees(place)) return;
    canvas.DrawBox(place, kMachineYellow, kNight);
    const QRect inside = place.adjusted(2, 2, -2, -2);
    const double radius = place.height() / 16.0;
    DrawOnce(canvas, inside.size(), line, payout, radius, snapshots);
    QPainter& painter = canvas.Painter();
    painter.save();
    painter.setClipRect(inside, Qt::IntersectClip);
    PaintRays(painter, inside, done);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, done < 1);
    const std::vector<Coin> heap = Heap(inside, radius);
    for (std::size_t i = 0; i < heap.size(); ++i) {
        const double share = static_cast<double>(i) / static_cast<double>(heap.size());
        const double fallen = done < 1 ? (done - FallsAt(heap[i], share)) / kFallTime : 1;
        PaintCoin(painter, heap[i], radius, inside.y(), fallen, snapshots);
    }
    painter.drawPixmap(inside.topLeft(), snapshots.words);
    const double flash = std::clamp(1 - done / kFlashTime, 0.0, 1.0);
    if (flash > 0) {
        painter.fillRect(inside, QColor(255, 244, 214, static_cast<int>(230 * flash * flash)));
    }
    painter.restore();
}
