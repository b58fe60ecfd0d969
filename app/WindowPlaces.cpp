#include "app/WindowPlaces.h"

#include <QWidget>

#include "app/DesktopSettings.h"

void ShowAsItWasLeft(QWidget& window, const QSize& firstSize, const DesktopSettings& desktop) {
    const WindowPlace place = desktop.Window();
    const bool known = window.restoreGeometry(place.geometry);
    if (!known) window.resize(firstSize);
    Qt::WindowStates states;
    states.setFlag(Qt::WindowMaximized, !known || place.maximized);
    states.setFlag(Qt::WindowFullScreen, place.fullScreen);
    window.setWindowState(states);
    window.show();
}

// A window manager does not know where a window stood that was started in full screen.
void ToggleFullScreen(QWidget& window, DesktopSettings& desktop) {
    if (!window.isFullScreen()) {
        desktop.SetWindow({window.saveGeometry(), window.isMaximized(), true});
        window.setWindowState(window.windowState() | Qt::WindowFullScreen);
        return;
    }
    WindowPlace before = desktop.Window();
    window.setWindowState(window.windowState() & ~Qt::WindowFullScreen);
    window.restoreGeometry(before.geometry);
    before.fullScreen = false;
    desktop.SetWindow(before);
}

// In full screen the place before it is noted already, unless the window manager led there.
void NotePlace(const QWidget& window, DesktopSettings& desktop) {
    const bool full = window.isFullScreen();
    if (full && desktop.Window().fullScreen) return;
    desktop.SetWindow(
        {window.saveGeometry(), window.windowState().testFlag(Qt::WindowMaximized), full});
}
