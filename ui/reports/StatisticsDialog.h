// The play statistics of an engine's game and table, as they were when the dialog was made.
#pragma once
#include <QDialog>
#include <QList>
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
        QList<std::string> reports;
        int shown = 0;  // the one in the box, with long labels cut
    };

    QWidget* MakeReports(const GameEngine& engine, std::int64_t now);
    void AddBox(QGridLayout& layout, int row, int column, const QString& title, const char* name,
                const QList<std::string>& reports);
    void ShowReports(qreal fontSize);
    void ShowReport(Section& section, int chosen);
    void SetTabStops();
    void FitToScreen();
    QSize WantedSize() const;
    void Save();

    std::string gameName;
    QList<Section> sections;
    bool namesHaveRoom = true;  // on this screen, for long names of games
    int labelWidth = 0;         // of the first column, in logical pixels
};
