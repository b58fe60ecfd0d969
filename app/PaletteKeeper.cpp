#include "app/PaletteKeeper.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>
#include <QScopedValueRollback>

#include "app/DesktopPortal.h"
#include "ui/art/Contrast.h"

PaletteKeeper::PaletteKeeper() {
    qApp->installEventFilter(this);
    Keep();
    AskDesktop(this, "org.freedesktop.appearance", "contrast", [this](const QVariant& value) {
        if (value.toUInt() == 1) UseHighContrast();
    });
}

void PaletteKeeper::UseHighContrast() {
    highContrast = true;
    Keep();
}

bool PaletteKeeper::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp) Keep();
    return false;
}

// Only what has to be is set, so that all else goes on following the theme.
void PaletteKeeper::Keep() {
    if (keeping) return;
    const QScopedValueRollback guard(keeping, true);
    const QPalette before = QApplication::palette();
    QPalette palette = before;
    if (highContrast && !IsHighContrast(palette)) palette = InHighContrast(palette);
    palette = Readable(palette);
    if (palette != before) QApplication::setPalette(palette);
}
