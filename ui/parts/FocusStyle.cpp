#include "ui/parts/FocusStyle.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>

#include "ui/art/Contrast.h"

namespace {

constexpr int kWidth = 2;  // pixels
constexpr int kCorner = 2;

void DrawFocus(QPainter& painter, const QStyleOption& option, const QRect& place) {
    const QPalette& palette = option.palette;
    const QColor ground = palette.color(QPalette::Window);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ReadableOn(ground, palette.color(QPalette::Highlight)), kWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(place).adjusted(1, 1, -1, -1), kCorner, kCorner);
    painter.restore();
}

}  // namespace

void FocusStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    constexpr State kByKeyboard = State_HasFocus | State_KeyboardFocusChange;
    const bool isFocused = (option->state & kByKeyboard) == kByKeyboard;
    const bool isBox =
        element == CE_ShapedFrame && qobject_cast<const QAbstractScrollArea*>(widget);
    if (isFocused && (element == CE_PushButton || isBox)) {
        DrawFocus(*painter, *option, option->rect);
    }
}

// A button has its frame already, outside its text.
void FocusStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    const bool isButton = qobject_cast<const QPushButton*>(widget) != nullptr;
    if (element != PE_FrameFocusRect) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    } else if (!isButton) {
        DrawFocus(*painter, *option, option->rect);
    }
}
