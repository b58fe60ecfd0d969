#include "ui/machine/MachineCanvas.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>

#include "ui/art/Contrast.h"

namespace {

constexpr QColor kShadow{0, 0, 0, 170};
constexpr double kAlmost = 1e-6;  // what is whole but for rounding counts as whole

// A pixmap is as many pixels large as its place takes, rounded up: begun in the pixel in which its
// place begins, it leaves no gap to the next one.
QPoint FirstPixel(QPointF corner) {
    return {static_cast<int>(std::floor(corner.x() + kAlmost)),
            static_cast<int>(std::floor(corner.y() + kAlmost))};
}

// Places that touch touch in pixels too.
QRect WholePixels(const QRectF& place) {
    return {FirstPixel(place.topLeft() + QPointF(0.5, 0.5)),
            FirstPixel(place.bottomRight() + QPointF(0.5, 0.5)) - QPoint(1, 1)};
}

}  // namespace

MachineCanvas::MachineCanvas(QPainter& onPainter, const QRegion& region, const MachineFit& inWindow,
                             PictureStore& store)
    : painter(onPainter),
      fit(inWindow),
      pictures(store),
      highContrast(IsHighContrast(QGuiApplication::palette())) {
    const QRect window(QPoint(0, 0), fit.client);
    painter.save();
    painter.setClipRegion(region & window, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::TextAntialiasing);
    windowPixels = WholePixels(painter.deviceTransform().mapRect(QRectF(window)));
    painter.translate(fit.origin);
    painter.scale(fit.zoom, fit.zoom);
    pixelRatio = painter.deviceTransform().m11();
    for (const QRect& rect : fit.ToTable(region & window)) clip += rect.adjusted(-1, -1, 1, 1);
}

MachineCanvas::~MachineCanvas() { painter.restore(); }

// The transform that is left is none but for rounding, which Qt takes for none as well.
template <class Draw>
void MachineCanvas::InPixels(Draw draw) {
    const QTransform before = painter.worldTransform();
    painter.setWorldTransform(painter.deviceTransform().inverted(), true);
    draw();
    painter.setWorldTransform(before);
}

void MachineCanvas::DrawPicture(Picture picture, const QRect& place) {
    if (Sees(place)) DrawPixmap(pictures.Get(picture, place.size(), pixelRatio), place.topLeft());
}

// Its pixels are those of the screen, unless the painter has been turned or squeezed.
void MachineCanvas::DrawPixmap(const QPixmap& pixmap, QPoint corner) {
    const QTransform now = painter.deviceTransform();
    if (QTransform(now.m11(), now.m12(), now.m21(), now.m22(), 0, 0) ==
        QTransform::fromScale(pixelRatio, pixelRatio)) {
        const QPoint first = FirstPixel(now.map(QPointF(corner)));
        InPixels([&] { painter.drawPixmap(QRect(first, pixmap.size()), pixmap); });
    } else {
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(corner, pixmap);
        painter.restore();
    }
}

bool MachineCanvas::SeesPixels(const QRect& area) const {
    return Sees(painter.deviceTransform().inverted().mapRect(QRectF(area)).toAlignedRect());
}

// The tile's own ratio would have it drawn smaller.
void MachineCanvas::TilePixels(const QPixmap& tile, const QRect& area) {
    QPixmap pixels = tile;
    pixels.setDevicePixelRatio(1);
    InPixels([&] { painter.drawTiledPixmap(area, pixels); });
}

// Filled twice rather than stroked, with an outline of whole pixels of the screen: at any scale all
// four edges are sharp and equally wide.
void MachineCanvas::DrawBox(const QRect& place, const QColor& outline, const QColor& fill) {
    if (!Sees(place)) return;
    const int units = highContrast ? 2 : 1;
    const int edge = std::max(1, static_cast<int>(std::lround(units * pixelRatio)));
    const QRect box = WholePixels(painter.deviceTransform().mapRect(QRectF(place)));
    InPixels([&] {
        painter.fillRect(box, outline);
        painter.fillRect(box.adjusted(edge, edge, -edge, -edge), fill);
    });
}

const QFont& MachineCanvas::Font(int height) {
    const auto known = fonts.find(height);
    return known != fonts.end() ? known->second
                                : fonts.emplace(height, MachineFont(height)).first->second;
}

int MachineCanvas::TextWidth(int fontHeight, std::string_view text) {
    return QFontMetrics(Font(fontHeight)).horizontalAdvance(QString::fromUtf8(text));
}

MachineCanvas::Line MachineCanvas::Fitting(const TextPlace& place, std::string_view text) {
    int height = place.fontHeight;
    const int width = place.rect.width();
    while (height > kReadableFontHeight && TextWidth(height, text) > width) --height;
    Line line{Font(height), QString::fromUtf8(text)};
    const QFontMetrics metrics(line.font);
    if (metrics.horizontalAdvance(line.text) > width) {
        line.text = metrics.elidedText(line.text, Qt::ElideRight, width);
    }
    return line;
}

void MachineCanvas::Write(const TextPlace& place, std::string_view text, const QColor& colour,
                          Qt::Alignment alignment) {
    if (text.empty() || !Sees(place.rect)) return;
    const Line line = Fitting(place, text);
    painter.setFont(line.font);
    painter.setPen(colour);
    painter.drawText(
        place.rect, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine, line.text);
}

void MachineCanvas::WriteOnCloth(const TextPlace& place, std::string_view text,
                                 const QColor& colour, Qt::Alignment alignment) {
    painter.save();
    painter.setClipRect(place.rect, Qt::IntersectClip);
    Write({place.rect.translated(1, 1), place.fontHeight}, text, kShadow, alignment);
    painter.restore();
    Write(place, text, colour, alignment);
}

// Written again and again rather than stroked as outlines, which Qt hints differently once it has
// drawn the same letters as text.
void MachineCanvas::WriteEdged(const TextPlace& place, std::string_view text, const QColor& colour,
                               const QColor& edge, int width) {
    for (int y = -width; y <= width; ++y) {
        for (int x = -width; x <= width; ++x) {
            const int squared = x * x + y * y;  // corners are rounded
            if (squared > 0 && squared <= width * width + 1)
                Write({place.rect.translated(x, y), place.fontHeight}, text, edge);
        }
    }
    Write(place, text, colour);
}
