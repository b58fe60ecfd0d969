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
QImage ShadeOf(int depth, qreal pixelRatio) {
    const int rows = static_cast<int>(std::ceil(depth * pixelRatio));
    QImage shade(static_cast<int>(std::ceil(kTile * pixelRatio)), rows,
                 QImage::Format_ARGB32_Premultiplied);
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
        painter.drawPixmap(centre + kAround[i] * reach - QPoint(side / 2, side / 2), InPrint(pip));
    }
    painter.restore();
    const int height = radius / 5;
    canvas.Write(
        {{centre.x() - radius / 2 + 8, centre.y() - height, radius - 16, 2 * height}, height},
        "TOLVANE", kPrint);
}

}  // namespace

void PaintCloth(MachineCanvas& canvas, const MachineLayout& layout) {
    const int width = layout.client.width();
    const int height = layout.client.height();
    if (canvas.HighContrast()) {
        canvas.Painter().fillRect(0, 0, width, height, kPlainCloth);
        return;
    }
    canvas.Tile(Picture::kFelt, kFeltTile, {0, 0, width, height});
    const int machineEnd = std::max(layout.deal.right(), layout.coin.right());
    const int room = std::min(width - machineEnd, height);
    if (room >= kLeastRoom) {
        const int radius = std::min(room * 3 / 8, kLargestRadius);
        const QPoint centre((machineEnd + width) / 2, height / 2);
        const QPoint reach(radius + 2, radius + 2);
        if (canvas.Sees({centre - reach, centre + reach})) PaintEmblem(canvas, centre, radius);
    }
    const int depth = std::min(width, height) / kShare;
    if (depth == 0) return;
    const QImage upper = ShadeOf(depth, canvas.PixelRatio());
    const auto shade = [&](const QRect& edge, int turn) {
        if (!canvas.Sees(edge)) return;
        QPixmap tile = QPixmap::fromImage(upper.transformed(QTransform().rotate(turn)));
        tile.setDevicePixelRatio(canvas.PixelRatio());
        canvas.Painter().drawTiledPixmap(edge, tile);
    };
    shade({0, 0, width, depth}, 0);
    shade({width - depth, 0, depth, height}, 90);
    shade({0, height - depth, width, depth}, 180);
    shade({0, 0, depth, height}, 270);
}
