#include "ui/parts/WarningBand.h"

#include <QEvent>

#include "ui/art/Contrast.h"

namespace {

constexpr QColor kHue(0xff, 0xc8, 0x57);
constexpr int kMargin = 4;  // logical pixels

}  // namespace

WarningBand::WarningBand(const char* name, QWidget* parent) : QLabel(parent) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setAutoFillBackground(true);
    setMargin(kMargin);
    Colour();
    hide();
}

void WarningBand::Warn(const QString& text) {
    setText(text.isEmpty() ? QString() : QString::fromUtf8("⚠ ") + text);
    setAccessibleName(text);
    setVisible(!text.isEmpty());
}

void WarningBand::Colour() {
    QPalette colours = parentWidget()->palette();
    const bool high = IsHighContrast(colours);
    const QColor ground = high ? colours.color(QPalette::Base) : kHue;
    colours.setColor(QPalette::Window, ground);
    colours.setColor(QPalette::WindowText,
                     ReadableOn(ground, high ? colours.color(QPalette::Text) : QColor(Qt::black)));
    setPalette(colours);
}

// Its own palette is one of the changes, and ends with the second.
void WarningBand::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) Colour();
}
