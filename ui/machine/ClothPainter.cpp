#include "ui/machine/ClothPainter.h"

#include <QImage>
#include <QPixmap>
#include <QTransform>
#include <algorithm>
#include <array>
#include <cmath>

#include "ui/machine/MachineCanvas.h"

namespace {

constexpr int kDarkest = 110;  // of 255
constexpr int kShare = 6;      // of the shorter side is what an edge darkens
constexpr int kTile = 16;      // along the edge
constexpr QColor kPrint{236, 208, 110, 46};
constexpr QColor kPlainCloth{0, 40, 24};
constexpr int kLeastRoom = 240;
constexpr int kLargestRadius = 260;

// A piece of the upper edge's shade. As a picture, and not as a gradient, whose rounding would
// depend on where the clip cuts it.
QImage ShadeOf(int rows) {
    QImage shade(kTile, rows, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < rows; ++y) {
        const double light = 1 - (y + 0.5) / rows;
        const auto alpha = static_cast<unsigned>(std::lround(kDarkest * light * light));
        std::fill_n(reinterpret_cast<QRgb*>(shade.scanLine(y)), shade.width(), alpha << 24U);
    }
    return shade;
}

QPixmap InPrint(QPixmap picture) {
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(0, 0), picture.size()), kPrint);
    return picture;
}

// Two rings, the four suits between them, and the machine's name in the middle.
void PaintEmblem(MachineCanvas& canvas, QPoint centre, int radius) {
    QPainter& painter = canvas.Painter();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(kPrint, 3));
    painter.drawEllipse(centre, radius, radius);
    painter.setPen(QPen(kPrint, 1));
    painter.drawEllipse(centre, radius - 6, radius - 6);
    painter.drawEllipse(centre, radius / 2, radius / 2);
    const int side = radius / 3;
    const int reach = (radius - 6 + radius / 2) / 2;
    constexpr std::array kAround = {QPoint(0, -1), QPoint(1, 0), QPoint(0, 1), QPoint(-1, 0)};
    for (std::size_t i = 0; i < kAround.size(); ++i) {
        const QPixmap pip = canvas.PictureOf(PipPicture(static_cast<int>(i) + 1), {side, side});
        canvas.DrawPixmap(InPrint(pip), centre + kAround[i] * reach - QPoint(side / 2, side / 2));
    }
    painter.restore();
    const int height = radius / 5;
    canvas.Write(
        {{centre.x() - radius / 2 + 8, centre.y() - height, radius - 16, 2 * height}, height},
        "TOLVANE", kPrint);
}

// Beside the machine, where there is room: right of its buttons and, where it stands away from the
// window's left edge, left of its cards, which has less room.
void PaintEmblems(MachineCanvas& canvas, const MachineLayout& layout) {
    const QRect window = canvas.Window();
    const int machineEnd = std::max(layout.deal.right(), layout.coin.right());
    const int windowEnd = window.x() + window.width();
    const int left = layout.cards[0].x() - window.x();
    int room = std::min(windowEnd - machineEnd, window.height());
    if (room < kLeastRoom) return;
    const bool onBothSides = left >= kLeastRoom;
    if (onBothSides) room = std::min(room, left);
    const int radius = std::min(room * 3 / 8, kLargestRadius);
    const auto between = [&](int from, int to) {
        const QPoint centre((from + to) / 2, window.y() + window.height() / 2);
        const QPoint reach(radius + 2, radius + 2);
        if (canvas.Sees({centre - reach, centre + reach})) PaintEmblem(canvas, centre, radius);
    };
    between(machineEnd, windowEnd);
    if (onBothSides) between(window.x(), layout.cards[0].x());
}

void PaintShade(MachineCanvas& canvas) {
    const QRect window = canvas.WindowPixels();
    const QSize client = canvas.Fit().client;
    const int share = std::min(client.width(), client.height()) / kShare;
    const int depth = qRound(share * canvas.PixelRatio() / canvas.Fit().zoom);
    if (depth == 0) return;
    const QImage upper = ShadeOf(depth);
    const auto shade = [&](const QRect& edge, int turn) {
        if (!canvas.SeesPixels(edge)) return;
        canvas.TilePixels(QPixmap::fromImage(upper.transformed(QTransform().rotate(turn))), edge);
    };
    const QRect top(window.topLeft(), QSize(window.width(), depth));
    const QRect left(window.topLeft(), QSize(depth, window.height()));
    shade(top, 0);
    shade(left.translated(window.width() - depth, 0), 90);
    shade(top.translated(0, window.height() - depth), 180);
    shade(left, 270);
}

}  // namespace

void PaintCloth(MachineCanvas& canvas, const MachineLayout& layout) {
    if (canvas.HighContrast()) {
        canvas.Painter().fillRect(canvas.Window(), kPlainCloth);
        return;
    }
    canvas.TilePixels(canvas.PictureOf(Picture::kFelt, {kFeltTile, kFeltTile}),
                      canvas.WindowPixels());
    PaintEmblems(canvas, layout);
    PaintShade(canvas);
}
