#include "ui/machine/MachineCanvas.h"

#include <QFontMetrics>
#include <algorithm>
#include <cmath>

namespace {

constexpr QColor kShadow{0, 0, 0, 170};

}  // namespace

MachineCanvas::MachineCanvas(QPainter& onPainter, const QRegion& region, PictureStore& store)
    : painter(onPainter),
      clip(region),
      pictures(store),
      pixelRatio(onPainter.device()->devicePixelRatioF()) {
    painter.save();
    painter.setClipRegion(clip, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setRenderHint(QPainter::TextAntialiasing);
}

MachineCanvas::~MachineCanvas() { painter.restore(); }

void MachineCanvas::DrawPicture(Picture picture, const QRect& place) {
    if (!Sees(place)) return;
    painter.drawPixmap(place.topLeft(), pictures.Get(picture, place.size(), pixelRatio));
}

void MachineCanvas::Tile(Picture picture, int side, const QRect& area) {
    painter.drawTiledPixmap(area, pictures.Get(picture, {side, side}, pixelRatio));
}

// Filled twice rather than stroked, with an outline of whole pixels of the screen: at any scale all
// four edges are sharp and equally wide.
void MachineCanvas::DrawBox(const QRect& place, const QColor& outline, const QColor& fill) {
    if (!Sees(place)) return;
    const qreal edge = std::max(1.0, std::round(pixelRatio)) / pixelRatio;
    painter.fillRect(QRectF(place), outline);
    painter.fillRect(QRectF(place).adjusted(edge, edge, -edge, -edge), fill);
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

// Written nine times rather than stroked as outlines, which Qt hints differently once it has drawn
// the same letters as text.
void MachineCanvas::WriteEdged(const TextPlace& place, std::string_view text, const QColor& colour,
                               const QColor& edge) {
    for (const int y : {-1, 0, 1}) {
        for (const int x : {-1, 0, 1}) {
            if (x != 0 || y != 0)
                Write({place.rect.translated(x, y), place.fontHeight}, text, edge);
        }
    }
    Write(place, text, colour);
}
