// The play statistics of an engine's game and table, as they were when the dialog was made.
#pragma once
#include <QDialog>
#include <QList>
#include <array>
#include <cstdint>
#include <string>

#include "game/reports/StatisticsReport.h"

struct GameEngine;
class QGridLayout;
class ReportBox;

class StatisticsDialog : public QDialog {
    Q_OBJECT

  public:
    // now is the time of the wall clock in seconds since the epoch.
    StatisticsDialog(const GameEngine& engine, std::int64_t now, QWidget* parent);

  private:
    struct Section {
        ReportBox* box;
        QList<std::string> reports;  // the box shows one of them
    };

    QWidget* MakeReports(const GameEngine& engine, std::int64_t now);
    ReportBox* AddBox(QGridLayout& layout, int row, int column, const QString& title,
                      const char* name, const QList<std::string>& reports);
    void ShowReports(qreal fontSize);
    void SetTabStops();
    void FitToScreen();
    QSize WantedSize() const;
    void Save();

    std::string gameName;
    std::array<std::string, 3> lineReports;  // by StatisticsDisplay
    ReportBox* lines = nullptr;              // shows them
    QList<Section> sections;
};
