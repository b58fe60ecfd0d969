// The desktop's style, but what has the keyboard's focus is seen to have it: by a frame two pixels
// wide, also where the style tells a focused default button from any default button by nothing.
#pragma once
#include <QProxyStyle>

class FocusStyle : public QProxyStyle {
    Q_OBJECT

  public:
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};
