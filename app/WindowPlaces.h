// Where the main window stands from one start to the next, and its full screen.
#pragma once
class DesktopSettings;
class QSize;
class QWidget;

// Shows the window as it was left: maximized at the first start, or when its screen is gone.
// firstSize is what it has once it is not maximized any more.
void ShowAsItWasLeft(QWidget& window, const QSize& firstSize, const DesktopSettings& desktop);

// Fills the screen, or goes back to where the window stood before, also before the last start.
void ToggleFullScreen(QWidget& window, DesktopSettings& desktop);

void NotePlace(const QWidget& window, DesktopSettings& desktop);
