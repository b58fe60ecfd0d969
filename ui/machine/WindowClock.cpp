#include "ui/machine/WindowClock.h"

#include <QEventLoop>
#include <QTimer>

#include "core/cards/Deck.h"

std::int64_t WindowClock::Now() { return SystemSeconds(); }

// What the player does in a pause reaches the window, which keeps it for later (ActionQueue.h).
// Holding it back here would hold back the closing of the window as well.
void WindowClock::Pause(int milliseconds) {
    if (hurrying) return;
    QEventLoop loop;
    QTimer end;
    end.setSingleShot(true);
    end.setTimerType(Qt::PreciseTimer);
    connect(&end, &QTimer::timeout, &loop, &QEventLoop::quit);
    end.start(milliseconds);
    connect(this, &WindowClock::Hurried, &loop, &QEventLoop::quit);
    loop.exec();
}

void WindowClock::Hurry(bool on) {
    hurrying = on;
    if (on) emit Hurried();
}
