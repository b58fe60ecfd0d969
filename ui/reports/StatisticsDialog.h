// The play statistics of an engine's game and table, as they were when the dialog was made.
#pragma once
#include <QDialog>
#include <cstdint>

class AsideWindows;
struct GameEngine;

class StatisticsDialog : public QDialog {
    Q_OBJECT

  public:
    // now is the time of the wall clock in seconds since the epoch.
    StatisticsDialog(const GameEngine& engine, std::int64_t now, QWidget* parent);

    // It can be put aside too, and the window takes new figures of the player's engine.
    StatisticsDialog(const GameEngine& engine, std::int64_t now, QWidget* parent,
                     const GameEngine& player, AsideWindows& aside);

  private:
    StatisticsDialog(const GameEngine& engine, std::int64_t now, QWidget* parent,
                     const GameEngine* player, AsideWindows* aside);
};
