#include "ui/art/PictureStore.h"

#include <QCoreApplication>
#include <QPainter>
#include <QSvgRenderer>
#include <QtMath>
#include <algorithm>

// A static library's resources are dropped by the linker unless their initialiser is called; the
// macro declares it and so may not stand in a namespace.
void LoadArt() { Q_INIT_RESOURCE(art); }

namespace {

constexpr int64_t kMaxBytes = 160 << 20;  // a machine of 8K takes 60
constexpr int kMaxSide = 4096;
constexpr qreal kAlmost = 1e-6;  // a hair more than a whole pixel is the rounding of a ratio

void DrawMissing(QPainter& painter, const QRectF& place) {
    painter.fillRect(place, QColor(224, 224, 224));
    painter.setPen(QPen(QColor(200, 0, 0), 2));
    painter.drawRect(place.adjusted(1, 1, -1, -1));
    painter.drawLine(place.topLeft(), place.bottomRight());
    painter.drawLine(place.topRight(), place.bottomLeft());
}

QPixmap Render(Picture picture, QSize pixels, qreal ratio) {
    QPixmap pixmap(pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF place(QPointF(0, 0), pixels);
    QSvgRenderer drawing(PicturePath(picture));
    if (drawing.isValid()) {
        drawing.setAspectRatioMode(Qt::IgnoreAspectRatio);
        drawing.render(&painter, place);
    } else {
        DrawMissing(painter, place);
    }
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

}  // namespace

PictureStore::PictureStore() { LoadArt(); }

const QPixmap& PictureStore::Get(Picture picture, QSize logicalSize, qreal devicePixelRatio) {
    static const QPixmap kNone;
    // In this order of arguments, what is not a number gives 1 as well.
    const qreal ratio = std::max<qreal>(1, devicePixelRatio);
    const qreal width = logicalSize.width() * ratio, height = logicalSize.height() * ratio;
    if (!(width > 0 && height > 0 && width <= kMaxSide && height <= kMaxSide)) return kNone;
    const QSize pixels(qCeil(width - kAlmost), qCeil(height - kAlmost));
    const Key key(static_cast<int>(picture), pixels.width(), pixels.height(), ratio);
    if (const auto known = pixmaps.find(key); known != pixmaps.end()) return known->second;
    const int64_t bytes = 4 * int64_t{pixels.width()} * pixels.height();
    if (bytesKept + bytes > kMaxBytes) {
        pixmaps.clear();
        bytesKept = 0;
    }
    bytesKept += bytes;
    return pixmaps.emplace(key, Render(picture, pixels, ratio)).first->second;
}

QString PicturePath(Picture picture) {
    return QStringLiteral(":/art/%1").arg(static_cast<int>(picture));
}

QIcon ProgramIcon() {
    static QIcon icon;
    if (!icon.isNull()) return icon;
    PictureStore store;
    for (const int side : {16, 20, 24, 32, 48, 64, 128, 256}) {
        icon.addPixmap(
            store.Get(side <= 32 ? Picture::kSmallIcon : Picture::kIcon, QSize(side, side), 1));
    }
    qAddPostRoutine([] { icon = {}; });  // no pixmap may outlive the application
    return icon;
}
