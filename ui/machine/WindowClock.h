// The clock of the window: its pauses go on painting.
#pragma once
#include <QObject>

#include "game/seat/Clock.h"

class WindowClock : public QObject, public Clock {
    Q_OBJECT

  public:
    std::int64_t Now() override;
    void Pause(int milliseconds) override;

    // While hurrying, for a window that closes, the pause that is on and all that follow end at
    // once.
    void Hurry(bool on);

    bool Hurrying() const { return hurrying; }

  signals:
    void Hurried();

  private:
    bool hurrying = false;
};
