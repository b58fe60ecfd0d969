// The play statistics of an engine's game and table, as they were when the dialog was made.
#pragma once
#include <QDialog>
#include <QList>
#include <cstdint>
#include <string>
#include <thread>

#include "game/engine/GameEngine.h"
#include "game/reports/ExpectedPlay.h"
#include "game/reports/StatisticsReport.h"

class CreditChart;
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

    QWidget* MakeReports(std::int64_t now);
    QWidget* MakeChart();
    void Analyze();
    void ShowExpected(const std::optional<ExpectedPlay>& expected);
    void AddBox(QGridLayout& layout, int row, int column, const QString& title, const char* name,
                const QList<std::string>& reports);
    void ShowReports(qreal fontSize);
    void ShowReport(Section& section, int chosen);
    void SetTabStops();
    void FitToScreen();
    QSize WantedSize() const;
    void Save();

    GameEngine engine;  // as it was
    QString date;
    CreditChart* chart = nullptr;
    QList<Section> sections;
    bool namesHaveRoom = true;  // on this screen, for long names of games
    int labelWidth = 0;         // of the first column, in logical pixels
    std::jthread analysis;      // last, so that it ends before what it tells
};
