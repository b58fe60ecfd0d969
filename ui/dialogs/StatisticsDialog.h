// The play statistics of an engine's game and table, as they were when the dialog was made.
#pragma once
#include <QDialog>
#include <array>
#include <cstdint>
#include <string>

#include "game/reports/StatisticsReport.h"

struct GameEngine;
class ReportBox;

class StatisticsDialog : public QDialog {
    Q_OBJECT

  public:
    // now is the time of the wall clock in seconds since the epoch.
    StatisticsDialog(const GameEngine& engine, std::int64_t now, QWidget* parent);

  private:
    QWidget* MakeReports(const GameEngine& engine, std::int64_t now);
    void SetTabStops(const QList<std::string>& reports);
    QWidget* MakeDisplayChoice();
    void Save();

    std::string gameName;
    std::array<std::string, 3> lineReports;  // by StatisticsDisplay
    ReportBox* hands;
    ReportBox* credits;
    ReportBox* errors;
    ReportBox* lines;
};
