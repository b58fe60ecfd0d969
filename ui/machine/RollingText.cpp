#include "ui/machine/RollingText.h"

#include <algorithm>

void WriteRolling(MachineCanvas& canvas, const TextPlace& place, const std::string& text,
                  const RollMoment& roll, const QColor& colour, Qt::Alignment alignment) {
    const int height = place.fontHeight;
    const int width = canvas.TextWidth(height, text);
    // Texts of another width stand elsewhere, and a text too wide is written smaller.
    const bool rolls = roll.rolled < 1 && width <= place.rect.width() &&
                       width == canvas.TextWidth(height, roll.from);
    if (!rolls) return canvas.Write(place, text, colour, alignment);
    if (!canvas.Sees(place.rect)) return;
    const auto differs = std::ranges::mismatch(text, roll.from).in1 - text.begin();
    const int free = place.rect.width() - width;
    const int start = place.rect.x() + (alignment.testFlag(Qt::AlignRight) ? free : free / 2);
    const std::string same = text.substr(0, static_cast<std::size_t>(differs));
    QRect still = place.rect;
    still.setRight(start + canvas.TextWidth(height, same) - 1);
    QRect rolling = place.rect;
    rolling.setLeft(still.right() + 1);
    const int step = place.rect.height();
    const int done = static_cast<int>(roll.rolled * step);
    QPainter& painter = canvas.Painter();
    const auto write = [&](const QRect& part, int down, const std::string& shown) {
        painter.save();
        painter.setClipRect(part, Qt::IntersectClip);
        canvas.Write({place.rect.translated(0, down), height}, shown, colour, alignment);
        painter.restore();
    };
    write(still, 0, text);
    write(rolling, -done, roll.from);
    write(rolling, step - done, text);
}
