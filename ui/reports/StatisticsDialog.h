// The play statistics of an engine's game and table, as they were when the dialog was made.
#pragma once
#include <QDialog>
#include <cstdint>

class AsideWindows;
struct GameEngine;

class StatisticsDialog : public QDialog {
    Q_OBJECT

  public:
    // now is the time of the wall clock in seconds since the epoch. With the player's engine and
    // windows for it, it can be put aside too, and then takes new figures of that engine.
    StatisticsDialog(const GameEngine& engine, std::int64_t now, QWidget* parent,
                     const GameEngine* player = nullptr, AsideWindows* aside = nullptr);
};
