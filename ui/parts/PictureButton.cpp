#include "ui/parts/PictureButton.h"

#include <QFontMetrics>
#include <QPainter>

#include "ui/art/PictureStore.h"

namespace {

constexpr int kTileWidth = 24;
constexpr double kUsualLine = 15;  // pixels: the font for which tiles have their drawn size

}  // namespace

QSize TileSize(const QWidget& widget, int height) {
    const double scale = widget.fontMetrics().height() / kUsualLine;
    return {qRound(kTileWidth * scale), qRound(height * scale)};
}

PictureButton::PictureButton(PictureStore& store, int height, QWidget* parent)
    : QToolButton(parent), store(store), height(height) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

void PictureButton::SetPicture(Picture shown) {
    picture = shown;
    update();
}

QSize PictureButton::sizeHint() const {
    return TileSize(*this, height) + QSize(2 * kTileMargin, 2 * kTileMargin);
}

void PictureButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRect place(QPoint(kTileMargin, kTileMargin), TileSize(*this, height));
    if (isDown()) place.translate(1, 1);
    painter.drawPixmap(place.topLeft(), store.Get(picture, place.size(), devicePixelRatioF()));
    if (!hasFocus() && !(underMouse() && isEnabled())) return;
    painter.setPen(hasFocus() ? QPen(palette().highlight(), 2) : QPen(palette().mid(), 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kTileMargin, kTileMargin);
}
