// Which key of the machine was pressed. The digits are the places of the main row, with Shift too
// and where a layout has letters there; letters are found on a keyboard without Latin ones.
#pragma once
#include <QtGlobal>

class QKeyEvent;

// The number by which X11 and Wayland call the place of the key on a keyboard; 0 when the platform
// is another one.
quint32 PlaceOf(const QKeyEvent& event);

// Both ways a Qt::Key.
int TableKeyOf(int key, quint32 place);
