// The play statistics of an engine's game and table: as texts, as the course of the session, and as
// a table beside what the exact analysis expects, which comes a moment later.
#pragma once
#include <QList>
#include <cstdint>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "game/engine/GameEngine.h"
#include "game/reports/ExpectedPlay.h"
#include "game/reports/SessionBand.h"
#include "game/reports/StatisticsReport.h"
#include "ui/reports/ReportPage.h"

class CreditChart;
class QGridLayout;
class QTabWidget;
class ReportBox;
class ReportTableView;

class StatisticsPage : public ReportPage {
    Q_OBJECT

  public:
    // As they are now, the time of the wall clock in seconds since the epoch. The player's engine
    // is what Refresh copies; it outlives the page. Without one the figures are Autoplay's, and
    // nothing is refreshed.
    // What is expected of the pay table is computed where it is not known.
    StatisticsPage(const GameEngine& engine, std::int64_t now, const GameEngine* player,
                   QWidget* parent, std::optional<ExpectedPlay> known = {});

    QString Caption() const override;
    std::unique_ptr<ReportPage> Copy() const override;
    bool CanRefresh() const override { return player != nullptr; }
    void Refresh() override;
    void KeepIn(ReportFrame& frame) override;

    // Has the texts fit into so much room, in cut names or smaller letters where it must be. The
    // page asks for what they need.
    void FitInto(const QSize& room);

  signals:
    // From the thread of the analysis.
    void Analyzed(int run, const ExpectedPlay& found, const std::vector<BandPoint>& exact);

  private:
    struct Section {
        ReportBox* box;
        QList<std::string> reports;
        int shown = 0;  // the one in the box, with long labels cut
    };

    void Take(const GameEngine& engine);
    QWidget* MakeReports();
    void AddBox(QGridLayout& layout, int row, int column, const QString& title, const char* name);
    void MakeTexts();
    void ShowFigures();
    void Analyze();
    void ShowExpected();
    void ShowReports(qreal fontSize);
    void ShowReport(Section& section, int chosen);
    void SetTabStops();
    QSize WantedSize() const;
    void Save();

    GameEngine engine;                     // as it was
    std::optional<ExpectedPlay> expected;  // of its pay table, once it is known
    std::vector<BandPoint> band;           // of the session shown, likewise
    std::int64_t taken;
    const GameEngine* player;
    QTabWidget* tabs;
    QWidget* displayChoice = nullptr;
    CreditChart* chart;
    ReportTableView* table;
    QList<Section> sections;
    bool namesHaveRoom = true;  // on this screen, for long names of games
    int labelWidth = 0;         // of the first column, in logical pixels
    int runs = 0;               // of the analysis
    std::jthread analysis;      // last, so that it ends before what it tells
};
